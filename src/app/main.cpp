#include "AppContext.h"
#include "Appearance.h"
#include "BoxLog.h"
#include "MainWindow.h"
#include "SpaceZap.h"
#include "Translations.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QTextStream>

#include <cstring>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

// The texts of the command line and its help.
struct CommandLine
{
    Q_DECLARE_TR_FUNCTIONS(main)
};

// --help and --version are answered without a display.
bool wantsTextOnly(int argc, char *argv[])
{
    for (int i = 1; i < argc; ++i) {
        for (const char *option : {"-h", "--help", "--help-all", "-?", "-v", "--version"}) {
            if (std::strcmp(argv[i], option) == 0)
                return true;
        }
    }
    return false;
}

} // namespace

int main(int argc, char *argv[])
{
    const std::unique_ptr<QCoreApplication> app = wantsTextOnly(argc, argv)
        ? std::make_unique<QCoreApplication>(argc, argv)
        : std::make_unique<QApplication>(argc, argv);
    QCoreApplication::setOrganizationName(u"Corvandel"_s);
    QCoreApplication::setApplicationName(u"Corvandel"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(CORVANDEL_VERSION));
    // Before the command line: its help is translated too.
    Translations::install();

    QCommandLineParser parser;
    parser.setApplicationDescription(CommandLine::tr("Bearbeitet die Senderlisten von Enigma2-Receivern."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(
        CommandLine::tr("ORDNER"),
        CommandLine::tr("Der Listenordner, der geöffnet wird (sonst die zuletzt verwendete Liste)."),
        CommandLine::tr("[ORDNER]"));
    parser.process(*app);

    QString folder = parser.positionalArguments().value(0);
    if (!folder.isEmpty()) {
        folder = QFileInfo(folder).absoluteFilePath();
        if (!QFileInfo(folder).isDir()) {
            QTextStream(stderr) << CommandLine::tr("„%1“ ist kein Ordner.").arg(folder) << '\n';
            return 2;
        }
    }

    // The log's first use writes the start banner.
    BoxLog::shared();
    Appearance::applyStored();

    AppContext context;
    SpaceZap::install(context.zapper());
    MainWindow window(context);
    window.setInitialFolder(folder);
    window.show();
    return app->exec();
}
