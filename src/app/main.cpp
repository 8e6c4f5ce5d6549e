#include "AppContext.h"
#include "Appearance.h"
#include "BoxLog.h"
#include "Language.h"
#include "MainWindow.h"
#include "SpaceZap.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QTextStream>

#include <cstring>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("main", text);
}

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
    Language::install(*app);

    QCommandLineParser parser;
    parser.setApplicationDescription(translated("Bearbeitet die Senderlisten von Enigma2-Receivern."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(translated("ORDNER"),
                                 translated("Der Listenordner, der geöffnet wird (sonst die zuletzt verwendete Liste)."),
                                 translated("[ORDNER]"));
    parser.process(*app);

    QString folder = parser.positionalArguments().value(0);
    if (!folder.isEmpty()) {
        folder = QFileInfo(folder).absoluteFilePath();
        if (!QFileInfo(folder).isDir()) {
            QTextStream(stderr) << translated("„%1“ ist kein Ordner.").arg(folder) << '\n';
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
