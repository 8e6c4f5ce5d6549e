// A second process on the same password store, so that tests can look at it and change it behind
// the back of their own process's cache:
//   corvandel_keychain_tool read ACCOUNT SERVICE         prints the password, exit 1 when none
//   corvandel_keychain_tool write VALUE ACCOUNT SERVICE  stores it (an empty value deletes)
#include "Keychain.h"

#include <QCoreApplication>
#include <QTextStream>

using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments().mid(1);
    if (args.size() == 3 && args[0] == u"read") {
        const auto password = Keychain::read(args[1], args[2]);
        if (!password)
            return 1;
        QTextStream(stdout) << *password;
        return 0;
    }
    if (args.size() == 4 && args[0] == u"write") {
        Keychain::write(args[1], args[2], args[3]);
        return 0;
    }
    QTextStream(stderr) << "usage: read ACCOUNT SERVICE | write VALUE ACCOUNT SERVICE\n";
    return 2;
}
