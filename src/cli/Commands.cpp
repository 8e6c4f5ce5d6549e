#include "Commands.h"

#include "BoxCommand.h"
#include "BoxSettings.h"
#include "Console.h"
#include "Keychain.h"
#include "ListCheck.h"
#include "ListReport.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>
#include <optional>

using namespace Qt::StringLiterals;

namespace Commands {

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("Commands", text);
}

struct Command
{
    QString name;
    QString summary;
    // The one positional argument, e.g. "ORDNER"; empty when there is none.
    QString argument = {};
    QString argumentHelp = {};
    QList<QCommandLineOption> options = {};
    QString notes = {};
    bool box = false;
};

QCommandLineOption helpOption()
{
    return QCommandLineOption({u"h"_s, u"help"_s}, tr("Zeigt diese Hilfe."));
}

QList<QCommandLineOption> boxOptions()
{
    return {
        QCommandLineOption(u"host"_s, tr("Adresse der Box."), tr("ADRESSE")),
        QCommandLineOption(u"user"_s, tr("Benutzername für FTP und Web-Oberfläche."), tr("NAME")),
        QCommandLineOption(u"ftp-port"_s, tr("Port des FTP-Servers der Box."), tr("PORT")),
        QCommandLineOption(u"http-port"_s, tr("Port der Web-Oberfläche der Box."), tr("PORT")),
        QCommandLineOption(u"dir"_s, tr("Verzeichnis der Senderliste auf der Box."), tr("VERZEICHNIS")),
        QCommandLineOption(u"password-file"_s, tr("Datei, deren erste Zeile das Passwort ist."), tr("DATEI")),
    };
}

QList<Command> commands()
{
    const QString folder = tr("ORDNER");
    const QString listFolder = tr("Der Listenordner mit lamedb oder lamedb5 und den Bouquet-Dateien.");
    const QString boxNotes =
        tr("Ohne Optionen gelten die Verbindungseinstellungen des Editors. Das Passwort kommt aus "
           "--password-file, sonst aus der Umgebungsvariablen CORVANDEL_PASSWORD, sonst aus dem "
           "Passwortspeicher des Editors; als Argument wird es nie angenommen. Der Fortschritt steht "
           "auf der Standardfehlerausgabe, eine Zeile je Datei.");
    const QString jsonShape =
        u"{\"format\": 1, \"folder\", \"database\", \"services\": [{\"reference\", \"type\", \"name\", "
        u"\"provider\", \"position\"}], \"bouquets\": [{\"fileName\", \"name\", \"kind\", \"entries\": "
        u"[{\"reference\", \"description\", \"displayName\"}]}]}"_s;
    QList<Command> all{
        {.name = u"info"_s,
         .summary =
             tr("Zeigt die Statuszeile des Editors nach dem Öffnen und zählt Sender je Art und Position, "
                "Transponder, Bouquets und Einträge je Art, Markierungen, Unter-Bouquet-Verweise, "
                "Stream-Einträge, unbenutzte Sender und fehlende Bouquet-Dateien."),
         .argument = folder,
         .argumentHelp = listFolder},
        {.name = u"dump"_s,
         .summary =
             tr("Gibt jeden Sender (Referenz, Typ, Name, Anbieter, Position) und jedes Bouquet beider "
                "Arten mit seinen Einträgen (Referenz, eigener Name, Anzeigename) in Dateireihenfolge aus."),
         .argument = folder,
         .argumentHelp = listFolder,
         .options = {QCommandLineOption(u"json"_s, tr("Ein JSON-Dokument statt der Tabellen."))},
         .notes =
             tr("Aufbau des JSON-Dokuments (nie übersetzt; \"description\" ist null ohne eigenen Namen):") +
             u"\n  "_s + jsonShape},
        {.name = u"check"_s,
         .summary =
             tr("Sucht, was vor dem Veröffentlichen behoben werden sollte, eine Zeile je Fund mit Datei "
                "und Zeilennummer."),
         .argument = folder,
         .argumentHelp = listFolder,
         .notes = tr("Exit-Status 0: nichts gefunden, 1: etwas gefunden, 2: der Ordner ist nicht lesbar.")},
        {.name = u"download"_s,
         .summary = tr("Lädt die Senderliste von der Box wie der Editor in den Arbeitsordner der Box und "
                       "kopiert ihre Dateien in ORDNER."),
         .argument = folder,
         .argumentHelp = tr("Der Ordner, in den die Liste kommt; er wird bei Bedarf angelegt."),
         .box = true},
        {.name = u"upload"_s,
         .summary = tr("Öffnet ORDNER als Senderliste, sichert die Liste auf der Box, sendet, was das "
                       "Speichern schreibt, und lässt die Box neu laden."),
         .argument = folder,
         .argumentHelp = listFolder,
         .box = true},
        {.name = u"backup"_s,
         .summary = tr("Sichert die Liste auf der Box in einen neuen Ordner unter „Sicherungen“."),
         .box = true},
        {.name = u"reload"_s,
         .summary = tr("Lässt die Box ihre Senderliste über die Web-Oberfläche neu laden."),
         .options = {QCommandLineOption(
             u"mode"_s,
             tr("0: Senderdatenbank und Bouquets (Vorgabe), 1: nur die "
                "Senderdatenbank, 2: nur die Bouquets, 3: die Transponderdateien, 4: die "
                "Jugendschutzlisten."),
             u"N"_s, u"0"_s)},
         .box = true},
        {.name = u"test"_s,
         .summary = tr("Prüft die Verbindung und sucht die lamedb im Listenverzeichnis der Box."),
         .box = true},
    };
    for (Command &command : all) {
        if (command.box) {
            command.options = boxOptions() + command.options;
            command.notes = boxNotes;
        }
    }
    return all;
}

QString synopsis(const QCommandLineOption &option)
{
    QStringList names;
    for (const QString &name : option.names())
        names << (name.size() == 1 ? u"-"_s : u"--"_s) + name;
    QString text = names.join(u", "_s);
    if (!option.valueName().isEmpty()) text += u' ' + option.valueName();
    return text;
}

void printOptions(const QList<QCommandLineOption> &options)
{
    Console::line(tr("Optionen:"));
    QList<QStringList> rows;
    for (const QCommandLineOption &option : options)
        rows << QStringList{synopsis(option), option.description()};
    Console::table(rows, u"  "_s);
}

void printProgramHelp()
{
    Console::line(tr("Aufruf: corvandel-cli BEFEHL [Optionen] [ORDNER]"));
    Console::line(tr("Die Dateiarbeit des Corvandel-Editors ohne Fenster: Senderlisten von Enigma2-Receivern "
                     "prüfen, lesen und mit der Box austauschen."));
    Console::line({});
    Console::line(tr("Befehle:"));
    QList<QStringList> rows;
    for (const Command &command : commands())
        rows << QStringList{(command.name + u' ' + command.argument).trimmed(), command.summary};
    Console::table(rows, u"  "_s);
    Console::line({});
    printOptions({helpOption(), QCommandLineOption({u"v"_s, u"version"_s}, tr("Zeigt die Version."))});
    Console::line({});
    Console::line(tr("„corvandel-cli BEFEHL --help“ zeigt die Optionen eines Befehls."));
}

void printHelp(const Command &command)
{
    QString usage = u"corvandel-cli "_s + command.name + u' ' + tr("[Optionen]");
    if (!command.argument.isEmpty()) usage += u' ' + command.argument;
    Console::line(tr("Aufruf: %1").arg(usage));
    Console::line(command.summary);
    Console::line({});
    if (!command.argument.isEmpty()) {
        Console::line(tr("Argumente:"));
        Console::table({{command.argument, command.argumentHelp}}, u"  "_s);
        Console::line({});
    }
    printOptions(QList<QCommandLineOption>{command.options} << helpOption());
    if (!command.notes.isEmpty()) {
        Console::line({});
        Console::line(command.notes);
    }
}

std::optional<int> port(const QCommandLineParser &parser, const QString &name)
{
    bool ok = false;
    const int value = parser.value(name).toInt(&ok);
    if (ok && value > 0 && value < 65536) return value;
    Console::error(tr("„%1“ ist keine Portnummer (1 bis 65535).").arg(parser.value(name)));
    return std::nullopt;
}

std::optional<QString> passwordFrom(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        Console::error(
            tr("Die Passwortdatei „%1“ konnte nicht gelesen werden: %2").arg(path, file.errorString()));
        return std::nullopt;
    }
    QByteArray line = file.readLine();
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    return QString::fromUtf8(line);
}

// The editor's connection settings with the overrides of the command line. The password is
// never an argument: it would show in the list of processes.
std::optional<BoxSettings> boxSettings(const QCommandLineParser &parser)
{
    BoxSettings settings = BoxSettings::load();
    const QString storedAccount = settings.account();
    if (parser.isSet(u"host"_s)) settings.host = parser.value(u"host"_s);
    if (parser.isSet(u"user"_s)) settings.user = parser.value(u"user"_s);
    if (parser.isSet(u"dir"_s)) settings.directory = parser.value(u"dir"_s);
    for (const auto &[name, field] : {std::pair{u"ftp-port"_s, &BoxSettings::ftpPort},
                                      std::pair{u"http-port"_s, &BoxSettings::httpPort}}) {
        if (!parser.isSet(name)) continue;
        const std::optional<int> value = port(parser, name);
        if (!value) return std::nullopt;
        settings.*field = *value;
    }
    if (parser.isSet(u"password-file"_s)) {
        const std::optional<QString> password = passwordFrom(parser.value(u"password-file"_s));
        if (!password) return std::nullopt;
        settings.password = *password;
    } else if (qEnvironmentVariableIsSet("CORVANDEL_PASSWORD")) {
        settings.password = qEnvironmentVariable("CORVANDEL_PASSWORD");
    } else if (settings.account() != storedAccount) {
        settings.password = Keychain::read(settings.account(), Keychain::currentService).value_or(QString());
    }
    return settings;
}

// Starts the command once the event loop runs and ends the loop with its exit status.
int runInEventLoop(const BoxSettings &settings, const std::function<QCoro::Task<int>(BoxCommand &)> &start)
{
    BoxCommand command(settings);
    QTimer::singleShot(0, &command, [&] {
        QCoro::connect(start(command), &command, [](int status) { QCoreApplication::exit(status); });
    });
    return QCoreApplication::exec();
}

std::optional<int> reloadMode(const QCommandLineParser &parser)
{
    bool ok = false;
    const int mode = parser.value(u"mode"_s).toInt(&ok);
    if (ok && mode >= 0 && mode <= 4) return mode;
    Console::error(tr("„%1“ ist kein Modus (0 bis 4).").arg(parser.value(u"mode"_s)));
    return std::nullopt;
}

int runBox(const QString &name, const BoxSettings &settings, const QString &folder, std::optional<int> mode)
{
    return runInEventLoop(settings, [&](BoxCommand &box) {
        if (name == u"download") return box.download(folder);
        if (name == u"upload") return box.upload(folder);
        if (name == u"backup") return box.backup();
        if (name == u"reload") return box.reload(mode.value_or(0));
        return box.test();
    });
}

} // namespace

int run(const QStringList &arguments)
{
    const QString first = arguments.value(1);
    if (first == u"-h" || first == u"--help") {
        printProgramHelp();
        return 0;
    }
    if (first == u"-v" || first == u"--version") {
        Console::line(u"corvandel-cli "_s + QStringLiteral(CORVANDEL_VERSION));
        return 0;
    }
    const QList<Command> all = commands();
    const auto command = std::find_if(all.cbegin(), all.cend(),
                                      [&](const Command &candidate) { return candidate.name == first; });
    if (first.isEmpty() || command == all.cend()) {
        Console::error(
            (first.isEmpty() ? tr("Es fehlt ein Befehl.") : tr("Unbekannter Befehl „%1“.").arg(first)) +
            u' ' + tr("„corvandel-cli --help“ zeigt alle Befehle."));
        return 2;
    }

    QCommandLineParser parser;
    parser.addOptions(QList<QCommandLineOption>{command->options} << helpOption());
    const QString hint = tr("„corvandel-cli %1 --help“ zeigt den Aufruf.").arg(command->name);
    if (!parser.parse(QStringList{arguments.first()} + arguments.mid(2))) {
        const QStringList unknown = parser.unknownOptionNames();
        Console::error(
            (unknown.isEmpty() ? parser.errorText() : tr("Unbekannte Option „%1“.").arg(unknown.first())) +
            u' ' + hint);
        return 2;
    }
    if (parser.isSet(u"help"_s)) {
        printHelp(*command);
        return 0;
    }
    const QStringList positional = parser.positionalArguments();
    const qsizetype expected = command->argument.isEmpty() ? 0 : 1;
    if (positional.size() != expected) {
        Console::error((positional.size() < expected
                            ? tr("%1 fehlt.").arg(command->argument)
                            : tr("Zu viele Argumente: %1").arg(positional.join(u' '))) +
                       u' ' + hint);
        return 2;
    }
    const QString folder = positional.value(0);

    std::optional<int> mode;
    std::optional<BoxSettings> settings;
    if (command->box) {
        if (command->name == u"reload" && !(mode = reloadMode(parser))) return 2;
        if (!(settings = boxSettings(parser))) return 2;
    }
    // The editor's preferences are read up to here and never changed: a list opened here must not
    // become the editor's most recent folder. What the store would remember goes to a scratch folder.
    QTemporaryDir scratch;
    if (scratch.isValid()) QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, scratch.path());

    if (settings) return runBox(command->name, *settings, folder, mode);
    if (command->name == u"info") return ListReport::info(folder);
    if (command->name == u"dump") return ListReport::dump(folder, parser.isSet(u"json"_s));
    return ListCheck::check(folder);
}

} // namespace Commands
