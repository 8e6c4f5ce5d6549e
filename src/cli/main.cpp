#include "Commands.h"
#include "Translations.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    // The editor's names: its preferences, password store, data folders and log.
    QCoreApplication::setOrganizationName(u"Corvandel"_s);
    QCoreApplication::setApplicationName(u"Corvandel"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(CORVANDEL_VERSION));
    Translations::install();
    return Commands::run(QCoreApplication::arguments());
}
