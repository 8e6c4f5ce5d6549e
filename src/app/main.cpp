#include "AppContext.h"
#include "Appearance.h"
#include "BoxLog.h"
#include "MainWindow.h"
#include "SpaceZap.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QTextStream>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setOrganizationName(u"Corvandel"_s);
    QApplication::setApplicationName(u"Corvandel"_s);
    QApplication::setApplicationVersion(QStringLiteral(CORVANDEL_VERSION));

    QCommandLineParser parser;
    parser.setApplicationDescription(QCoreApplication::translate("main", "Bearbeitet die Senderlisten von Enigma2-Receivern."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(
        QCoreApplication::translate("main", "ORDNER"),
        QCoreApplication::translate("main", "Der Listenordner, der geöffnet wird (sonst die zuletzt verwendete Liste)."));
    parser.process(app);

    QString folder = parser.positionalArguments().value(0);
    if (!folder.isEmpty()) {
        folder = QFileInfo(folder).absoluteFilePath();
        if (!QFileInfo(folder).isDir()) {
            QTextStream(stderr) << QCoreApplication::translate("main", "„%1“ ist kein Ordner.").arg(folder) << '\n';
            return 2;
        }
    }

    // The log's first use writes the start banner.
    BoxLog::shared();
    Appearance::apply(Appearance::preferred());

    AppContext context;
    SpaceZap::install(context.zapper());
    MainWindow window(context);
    window.setInitialFolder(folder);
    window.show();
    return app.exec();
}
