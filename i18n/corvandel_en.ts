<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="de">
<context>
    <name>Appearance</name>
    <message>
        <source>Hell</source>
        <translation>Light</translation>
    </message>
    <message>
        <source>Dunkel</source>
        <translation>Dark</translation>
    </message>
    <message>
        <source>Automatisch</source>
        <translation>Automatic</translation>
    </message>
</context>
<context>
    <name>Backups</name>
    <message>
        <source>Der Ordner „%1“ konnte nicht angelegt werden.</source>
        <translation>The folder “%1” could not be created.</translation>
    </message>
    <message>
        <source>Sichere %1 (%2/%3)…</source>
        <translation>Backing up %1 (%2/%3)…</translation>
    </message>
    <message>
        <source>Sichere die Liste auf der Box…</source>
        <translation>Backing up the list on the receiver…</translation>
    </message>
    <message>
        <source>Liste von %1 gesichert.</source>
        <translation>List of %1 backed up.</translation>
    </message>
    <message>
        <source>Sicherung vom %1 geladen – mit „Senden“ auf die Box zurückspielen.</source>
        <translation>Backup of %1 loaded – use “Send” to restore it to the receiver.</translation>
    </message>
</context>
<context>
    <name>BoxCommand</name>
    <message>
        <source>„%1“ ist kein Ordner.</source>
        <translation>“%1” is not a folder.</translation>
    </message>
    <message>
        <source>Die Box hat ihre Senderliste neu geladen (Modus %1).</source>
        <translation>The receiver has reloaded its channel list (mode %1).</translation>
    </message>
    <message>
        <source>Lade Bouquets auf der Box neu…</source>
        <translation>Reloading bouquets on the receiver…</translation>
    </message>
</context>
<context>
    <name>BoxControlView</name>
    <message>
        <source>Standby an/aus</source>
        <translation>Standby on/off</translation>
    </message>
    <message>
        <source>Schaltet die Box in den Standby bzw. weckt sie auf</source>
        <translation>Puts the receiver into standby or wakes it up</translation>
    </message>
    <message>
        <source>Standby umgeschaltet.</source>
        <translation>Standby toggled.</translation>
    </message>
    <message>
        <source>Enigma2 neu starten</source>
        <translation>Restart Enigma2</translation>
    </message>
    <message>
        <source>Startet nur die Enigma2-Oberfläche neu (ca. 30 s)</source>
        <translation>Restarts only the Enigma2 interface (about 30 s)</translation>
    </message>
    <message>
        <source>Enigma2 wirklich neu starten?</source>
        <translation>Really restart Enigma2?</translation>
    </message>
    <message>
        <source>Enigma2 startet neu – das dauert etwa 30 Sekunden.</source>
        <translation>Enigma2 is restarting – this takes about 30 seconds.</translation>
    </message>
    <message>
        <source>Box neu starten</source>
        <translation>Restart receiver</translation>
    </message>
    <message>
        <source>Startet den kompletten Receiver neu (ca. 1 Minute)</source>
        <translation>Restarts the whole receiver (about 1 minute)</translation>
    </message>
    <message>
        <source>Box wirklich neu starten?</source>
        <translation>Really restart the receiver?</translation>
    </message>
    <message>
        <source>Die Box startet neu – das dauert etwa eine Minute.</source>
        <translation>The receiver is restarting – this takes about a minute.</translation>
    </message>
    <message>
        <source>Laufzeit und Last</source>
        <translation>Uptime and load</translation>
    </message>
    <message>
        <source>Freier Speicherplatz</source>
        <translation>Free disk space</translation>
    </message>
    <message>
        <source>Arbeitsspeicher</source>
        <translation>Memory</translation>
    </message>
    <message>
        <source>Image-Version</source>
        <translation>Image version</translation>
    </message>
    <message>
        <source>Enigma2 neu starten (init)</source>
        <translation>Restart Enigma2 (init)</translation>
    </message>
    <message>
        <source>Bouquet-Dateien auflisten</source>
        <translation>List bouquet files</translation>
    </message>
    <message>
        <source>Box-Steuerung</source>
        <translation>Receiver Control</translation>
    </message>
    <message>
        <source>Aktueller Sender</source>
        <translation>Current channel</translation>
    </message>
    <message>
        <source>Signal (SNR)</source>
        <translation>Signal (SNR)</translation>
    </message>
    <message>
        <source>Pegel (AGC)</source>
        <translation>Level (AGC)</translation>
    </message>
    <message>
        <source>Bitfehler (BER)</source>
        <translation>Bit errors (BER)</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Aktionen</source>
        <translation>Actions</translation>
    </message>
    <message>
        <source>Vorlagen</source>
        <translation>Presets</translation>
    </message>
    <message>
        <source>Befehl, z. B. uptime</source>
        <translation>Command, e.g. uptime</translation>
    </message>
    <message>
        <source>Ausführen</source>
        <translation>Run</translation>
    </message>
    <message>
        <source>Ausgabe erscheint hier.</source>
        <translation>Output appears here.</translation>
    </message>
    <message>
        <source>Eigener Befehl (Telnet)</source>
        <translation>Custom command (Telnet)</translation>
    </message>
    <message>
        <source>Laufende Aufnahmen werden unterbrochen, nicht gespeicherte Timer und der EPG-Cache können verloren gehen.</source>
        <translation>Running recordings are interrupted; unsaved timers and the EPG cache may be lost.</translation>
    </message>
    <message>
        <source>(keine Ausgabe)</source>
        <translation>(no output)</translation>
    </message>
    <message>
        <source>Fehler: </source>
        <translation>Error: </translation>
    </message>
    <message>
        <source>Box nicht erreichbar: </source>
        <translation>Receiver not reachable: </translation>
    </message>
</context>
<context>
    <name>BoxError</name>
    <message>
        <source>FTP-Fehler: </source>
        <translation>FTP error: </translation>
    </message>
    <message>
        <source>HTTP-Fehler %1 beim Neuladen der Senderliste.</source>
        <translation>HTTP error %1 while reloading the channel list.</translation>
    </message>
    <message>
        <source>Bitte zuerst in den Einstellungen die IP-Adresse der Box eintragen.</source>
        <translation>Please enter the receiver’s IP address in the settings first.</translation>
    </message>
</context>
<context>
    <name>BoxSync</name>
    <message>
        <source>Teste Verbindung…</source>
        <translation>Testing connection…</translation>
    </message>
    <message>
        <source>Lade von der Box…</source>
        <translation>Loading from the receiver…</translation>
    </message>
    <message>
        <source>Sichere die Liste auf der Box…</source>
        <translation>Backing up the list on the receiver…</translation>
    </message>
    <message>
        <source>Repariere Zeichen in der lamedb…</source>
        <translation>Repairing characters in the lamedb…</translation>
    </message>
    <message>
        <source>In der lamedb gibt es keine falsch kodierten Zeichen.</source>
        <translation>The lamedb contains no wrongly encoded characters.</translation>
    </message>
    <message>
        <source>Verbindung OK: %1 Dateien in %2</source>
        <translation>Connection OK: %1 files in %2</translation>
    </message>
    <message>
        <source>, lamedb gefunden.</source>
        <translation>, lamedb found.</translation>
    </message>
    <message>
        <source>, aber keine lamedb!</source>
        <translation>, but no lamedb!</translation>
    </message>
    <message>
        <source>Weder lamedb noch lamedb5 im Verzeichnis %1 auf der Box gefunden.</source>
        <translation>Neither lamedb nor lamedb5 found in the folder %1 on the receiver.</translation>
    </message>
    <message>
        <source>Lade %1 (%2/%3)…</source>
        <translation>Loading %1 (%2/%3)…</translation>
    </message>
    <message>
        <source>Lade satellites.xml…</source>
        <translation>Loading satellites.xml…</translation>
    </message>
    <message>
        <source>Von %1 geladen: %2</source>
        <translation>Loaded from %1: %2</translation>
    </message>
    <message>
        <source>Sicherung fehlgeschlagen, es wurde nichts gesendet: %1</source>
        <translation>Backup failed, nothing was sent: %1</translation>
    </message>
    <message>
        <source>Sende an die Box…</source>
        <translation>Sending to the receiver…</translation>
    </message>
    <message>
        <source>Sende %1 (%2/%3)…</source>
        <translation>Sending %1 (%2/%3)…</translation>
    </message>
    <message>
        <source>Lade Bouquets auf der Box neu…</source>
        <translation>Reloading bouquets on the receiver…</translation>
    </message>
    <message>
        <source>%1 Dateien gesendet. Neuladen per HTTP fehlgeschlagen: %2</source>
        <translation>%1 files sent. Reloading over HTTP failed: %2</translation>
    </message>
    <message>
        <source>%1 Dateien gesendet, Bouquets auf der Box neu geladen.</source>
        <translation>%1 files sent, bouquets reloaded on the receiver.</translation>
    </message>
    <message>
        <source>Der Ordner „%1“ konnte nicht angelegt werden.</source>
        <translation>The folder “%1” could not be created.</translation>
    </message>
    <message>
        <source>Repariere %1…</source>
        <translation>Repairing %1…</translation>
    </message>
    <message>
        <source>Nichts zu reparieren.</source>
        <translation>Nothing to repair.</translation>
    </message>
    <message>
        <source>Lade die Senderliste auf der Box neu…</source>
        <translation>Reloading the channel list on the receiver…</translation>
    </message>
    <message>
        <source>%1 Zeilen in der lamedb repariert und auf der Box neu geladen (vorher gesichert).</source>
        <translation>%1 lines repaired in the lamedb and reloaded on the receiver (backed up first).</translation>
    </message>
</context>
<context>
    <name>Commands</name>
    <message>
        <source>Zeigt diese Hilfe.</source>
        <translation>Shows this help.</translation>
    </message>
    <message>
        <source>Adresse der Box.</source>
        <translation>Address of the receiver.</translation>
    </message>
    <message>
        <source>ADRESSE</source>
        <translation>ADDRESS</translation>
    </message>
    <message>
        <source>Benutzername für FTP und Web-Oberfläche.</source>
        <translation>User name for FTP and the web interface.</translation>
    </message>
    <message>
        <source>NAME</source>
        <translation>NAME</translation>
    </message>
    <message>
        <source>Port des FTP-Servers der Box.</source>
        <translation>Port of the receiver’s FTP server.</translation>
    </message>
    <message>
        <source>PORT</source>
        <translation>PORT</translation>
    </message>
    <message>
        <source>Port der Web-Oberfläche der Box.</source>
        <translation>Port of the receiver’s web interface.</translation>
    </message>
    <message>
        <source>Verzeichnis der Senderliste auf der Box.</source>
        <translation>Folder of the channel list on the receiver.</translation>
    </message>
    <message>
        <source>VERZEICHNIS</source>
        <translation>DIRECTORY</translation>
    </message>
    <message>
        <source>Datei, deren erste Zeile das Passwort ist.</source>
        <translation>File whose first line is the password.</translation>
    </message>
    <message>
        <source>DATEI</source>
        <translation>FILE</translation>
    </message>
    <message>
        <source>ORDNER</source>
        <translation>FOLDER</translation>
    </message>
    <message>
        <source>Der Listenordner mit lamedb oder lamedb5 und den Bouquet-Dateien.</source>
        <translation>The list folder with lamedb or lamedb5 and the bouquet files.</translation>
    </message>
    <message>
        <source>Ohne Optionen gelten die Verbindungseinstellungen des Editors. Das Passwort kommt aus --password-file, sonst aus der Umgebungsvariablen CORVANDEL_PASSWORD, sonst aus dem Passwortspeicher des Editors; als Argument wird es nie angenommen. Der Fortschritt steht auf der Standardfehlerausgabe, eine Zeile je Datei.</source>
        <translation>Without options, the editor’s connection settings apply. The password comes from --password-file, otherwise from the environment variable CORVANDEL_PASSWORD, otherwise from the editor’s password store; it is never accepted as an argument. Progress is written to standard error, one line per file.</translation>
    </message>
    <message>
        <source>Zeigt die Statuszeile des Editors nach dem Öffnen und zählt Sender je Art und Position, Transponder, Bouquets und Einträge je Art, Markierungen, Unter-Bouquet-Verweise, Stream-Einträge, unbenutzte Sender und fehlende Bouquet-Dateien.</source>
        <translation>Shows the editor’s status line after opening and counts channels by kind and position, transponders, bouquets and entries by kind, markers, sub-bouquet references, stream entries, unused channels and missing bouquet files.</translation>
    </message>
    <message>
        <source>Gibt jeden Sender (Referenz, Typ, Name, Anbieter, Position) und jedes Bouquet beider Arten mit seinen Einträgen (Referenz, eigener Name, Anzeigename) in Dateireihenfolge aus.</source>
        <translation>Prints every channel (reference, type, name, provider, position) and every bouquet of both kinds with its entries (reference, own name, display name) in file order.</translation>
    </message>
    <message>
        <source>Ein JSON-Dokument statt der Tabellen.</source>
        <translation>A JSON document instead of the tables.</translation>
    </message>
    <message>
        <source>Aufbau des JSON-Dokuments (nie übersetzt; &quot;description&quot; ist null ohne eigenen Namen):</source>
        <translation>Structure of the JSON document (never translated; &quot;description&quot; is null without an own name):</translation>
    </message>
    <message>
        <source>Sucht, was vor dem Veröffentlichen behoben werden sollte, eine Zeile je Fund mit Datei und Zeilennummer.</source>
        <translation>Looks for what should be fixed before publishing, one line per finding with file and line number.</translation>
    </message>
    <message>
        <source>Exit-Status 0: nichts gefunden, 1: etwas gefunden, 2: der Ordner ist nicht lesbar.</source>
        <translation>Exit status 0: nothing found, 1: something found, 2: the folder cannot be read.</translation>
    </message>
    <message>
        <source>Lädt die Senderliste von der Box wie der Editor in den Arbeitsordner der Box und kopiert ihre Dateien in ORDNER.</source>
        <translation>Loads the channel list from the receiver into the receiver’s work folder, as the editor does, and copies its files to FOLDER.</translation>
    </message>
    <message>
        <source>Der Ordner, in den die Liste kommt; er wird bei Bedarf angelegt.</source>
        <translation>The folder that receives the list; it is created if needed.</translation>
    </message>
    <message>
        <source>Öffnet ORDNER als Senderliste, sichert die Liste auf der Box, sendet, was das Speichern schreibt, und lässt die Box neu laden.</source>
        <translation>Opens FOLDER as a channel list, backs up the list on the receiver, sends what saving writes and has the receiver reload.</translation>
    </message>
    <message>
        <source>Sichert die Liste auf der Box in einen neuen Ordner unter „Sicherungen“.</source>
        <translation>Backs up the list on the receiver into a new folder under “Sicherungen”.</translation>
    </message>
    <message>
        <source>Lässt die Box ihre Senderliste über die Web-Oberfläche neu laden.</source>
        <translation>Has the receiver reload its channel list through the web interface.</translation>
    </message>
    <message>
        <source>0: Senderdatenbank und Bouquets (Vorgabe), 1: nur die Senderdatenbank, 2: nur die Bouquets, 3: die Transponderdateien, 4: die Jugendschutzlisten.</source>
        <translation>0: channel database and bouquets (default), 1: only the channel database, 2: only the bouquets, 3: the transponder files, 4: the parental control lists.</translation>
    </message>
    <message>
        <source>Prüft die Verbindung und sucht die lamedb im Listenverzeichnis der Box.</source>
        <translation>Checks the connection and looks for the lamedb in the receiver’s list folder.</translation>
    </message>
    <message>
        <source>Optionen:</source>
        <translation>Options:</translation>
    </message>
    <message>
        <source>Aufruf: corvandel-cli BEFEHL [Optionen] [ORDNER]</source>
        <translation>Usage: corvandel-cli COMMAND [options] [FOLDER]</translation>
    </message>
    <message>
        <source>Die Dateiarbeit des Corvandel-Editors ohne Fenster: Senderlisten von Enigma2-Receivern prüfen, lesen und mit der Box austauschen.</source>
        <translation>The file work of the Corvandel editor without a window: check and read channel lists of Enigma2 receivers and exchange them with the receiver.</translation>
    </message>
    <message>
        <source>Befehle:</source>
        <translation>Commands:</translation>
    </message>
    <message>
        <source>Zeigt die Version.</source>
        <translation>Shows the version.</translation>
    </message>
    <message>
        <source>„corvandel-cli BEFEHL --help“ zeigt die Optionen eines Befehls.</source>
        <translation>“corvandel-cli COMMAND --help” shows the options of a command.</translation>
    </message>
    <message>
        <source>[Optionen]</source>
        <translation>[options]</translation>
    </message>
    <message>
        <source>Aufruf: %1</source>
        <translation>Usage: %1</translation>
    </message>
    <message>
        <source>Argumente:</source>
        <translation>Arguments:</translation>
    </message>
    <message>
        <source>„%1“ ist keine Portnummer (1 bis 65535).</source>
        <translation>“%1” is not a port number (1 to 65535).</translation>
    </message>
    <message>
        <source>Die Passwortdatei „%1“ konnte nicht gelesen werden: %2</source>
        <translation>The password file “%1” could not be read: %2</translation>
    </message>
    <message>
        <source>„%1“ ist kein Modus (0 bis 4).</source>
        <translation>“%1” is not a mode (0 to 4).</translation>
    </message>
    <message>
        <source>Es fehlt ein Befehl.</source>
        <translation>A command is missing.</translation>
    </message>
    <message>
        <source>Unbekannter Befehl „%1“.</source>
        <translation>Unknown command “%1”.</translation>
    </message>
    <message>
        <source>„corvandel-cli --help“ zeigt alle Befehle.</source>
        <translation>“corvandel-cli --help” shows all commands.</translation>
    </message>
    <message>
        <source>„corvandel-cli %1 --help“ zeigt den Aufruf.</source>
        <translation>“corvandel-cli %1 --help” shows the usage.</translation>
    </message>
    <message>
        <source>Unbekannte Option „%1“.</source>
        <translation>Unknown option “%1”.</translation>
    </message>
    <message>
        <source>%1 fehlt.</source>
        <translation>%1 is missing.</translation>
    </message>
    <message>
        <source>Zu viele Argumente: %1</source>
        <translation>Too many arguments: %1</translation>
    </message>
</context>
<context>
    <name>EntryListView</name>
    <message>
        <source>Sender aus der Liste rechts hierher ziehen oder doppelklicken.</source>
        <translation>Drag channels here from the list on the right, or double-click them.</translation>
    </message>
</context>
<context>
    <name>FTPClient</name>
    <message>
        <source>Ungültiger Dateiname für die Box: </source>
        <translation>Invalid file name for the receiver: </translation>
    </message>
    <message>
        <source>curl konnte nicht gestartet werden: </source>
        <translation>curl could not be started: </translation>
    </message>
    <message>
        <source>curl-Exitcode </source>
        <translation>curl exit code </translation>
    </message>
</context>
<context>
    <name>LameDB</name>
    <message>
        <source>Unbekanntes lamedb-Format.</source>
        <translation>Unknown lamedb format.</translation>
    </message>
</context>
<context>
    <name>Language</name>
    <message>
        <source>Systemsprache</source>
        <translation>System language</translation>
    </message>
</context>
<context>
    <name>ListCheck</name>
    <message>
        <source>Zeilenumbruch %1 mitten in der Zeile.</source>
        <translation>Line break %1 in the middle of the line.</translation>
    </message>
    <message>
        <source>Ein Anführungszeichen im Sendernamen zerbricht die Zeile.</source>
        <translation>A quotation mark in the channel name breaks the line.</translation>
    </message>
    <message>
        <source>Die Zeichenreparatur würde „%1“ zu „%2“ machen.</source>
        <translation>The character repair would turn “%1” into “%2”.</translation>
    </message>
    <message>
        <source>Im Ordner liegt weder lamedb noch lamedb5: die Einträge werden mit keiner Senderdatenbank verglichen.</source>
        <translation>The folder holds neither lamedb nor lamedb5: the entries are not compared with any channel database.</translation>
    </message>
    <message>
        <source>Die Bouquet-Datei „%1“ fehlt.</source>
        <translation>The bouquet file “%1” is missing.</translation>
    </message>
    <message>
        <source>lamedb (%1 Sender) und lamedb5 (%2 Sender) enthalten unterschiedliche Sender.</source>
        <translation>lamedb (%1 channels) and lamedb5 (%2 channels) hold different channels.</translation>
    </message>
    <message>
        <source>Sender fehlt in %1: %2</source>
        <translation>Channel missing in %1: %2</translation>
    </message>
    <message>
        <source>Derselbe Sender wie in Zeile %1: %2</source>
        <translation>The same channel as in line %1: %2</translation>
    </message>
    <message>
        <source>Keine Indexdatei nennt diese Bouquet-Datei.</source>
        <translation>No index file names this bouquet file.</translation>
    </message>
    <message>
        <source>Keine Probleme gefunden.</source>
        <translation>No problems found.</translation>
    </message>
    <message>
        <source>Gefundene Probleme: %1</source>
        <translation>Problems found: %1</translation>
    </message>
</context>
<context>
    <name>ListFolder</name>
    <message>
        <source>„%1“ konnte nicht gelesen werden: %2</source>
        <translation>“%1” could not be read: %2</translation>
    </message>
    <message>
        <source>Im Ordner liegt weder lamedb noch lamedb5.</source>
        <translation>The folder holds neither lamedb nor lamedb5.</translation>
    </message>
    <message>
        <source>„%1“ konnte nicht gespeichert werden: %2</source>
        <translation>“%1” could not be saved: %2</translation>
    </message>
</context>
<context>
    <name>ListReport</name>
    <message>
        <source>ohne Position</source>
        <translation>no position</translation>
    </message>
    <message>
        <source>Sender: %1 (TV: %2, Radio: %3)</source>
        <translation>Channels: %1 (TV: %2, radio: %3)</translation>
    </message>
    <message>
        <source>Sender je Position:</source>
        <translation>Channels per position:</translation>
    </message>
    <message>
        <source>Transponder: %1</source>
        <translation>Transponders: %1</translation>
    </message>
    <message>
        <source>%1-Bouquets: %2 mit %3 Einträgen</source>
        <translation>%1 bouquets: %2 with %3 entries</translation>
    </message>
    <message>
        <source>Markierungen: %1</source>
        <translation>Markers: %1</translation>
    </message>
    <message>
        <source>Unter-Bouquet-Verweise: %1</source>
        <translation>Sub-bouquet references: %1</translation>
    </message>
    <message>
        <source>Stream-Einträge: %1</source>
        <translation>Stream entries: %1</translation>
    </message>
    <message>
        <source>Unbenutzte Sender: %1</source>
        <translation>Unused channels: %1</translation>
    </message>
    <message>
        <source>Fehlende Bouquet-Dateien: %1</source>
        <translation>Missing bouquet files: %1</translation>
    </message>
    <message>
        <source>%1 Sender aus %2:</source>
        <translation>%1 channels from %2:</translation>
    </message>
    <message>
        <source>Referenz</source>
        <translation>Reference</translation>
    </message>
    <message>
        <source>Typ</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Anbieter</source>
        <translation>Provider</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>%1-Bouquet %2: „%3“, %4 Einträge</source>
        <translation>%1 bouquet %2: “%3”, %4 entries</translation>
    </message>
    <message>
        <source>Nr.</source>
        <translation>No.</translation>
    </message>
    <message>
        <source>Eigener Name</source>
        <translation>Own name</translation>
    </message>
    <message>
        <source>Anzeigename</source>
        <translation>Display name</translation>
    </message>
</context>
<context>
    <name>LogView</name>
    <message>
        <source>Protokoll</source>
        <translation>Log</translation>
    </message>
    <message>
        <source>Nur Fehler</source>
        <translation>Errors only</translation>
    </message>
    <message>
        <source>Kopieren</source>
        <translation>Copy</translation>
    </message>
    <message>
        <source>Protokoll in die Zwischenablage, z. B. für eine Fehlermeldung</source>
        <translation>Copy the log to the clipboard, e.g. for a bug report</translation>
    </message>
    <message>
        <source>Im Dateimanager zeigen</source>
        <translation>Show in File Manager</translation>
    </message>
    <message>
        <source>Leeren</source>
        <translation>Clear</translation>
    </message>
    <message>
        <source>Keine Fehler – alles hat geklappt.</source>
        <translation>No errors – everything worked.</translation>
    </message>
    <message>
        <source>Noch keine Einträge.</source>
        <translation>No entries yet.</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>&amp;Datei</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>Listenordner öffnen…</source>
        <translation>Open List Folder…</translation>
    </message>
    <message>
        <source>Zuletzt verwendet</source>
        <translation>Recently Used</translation>
    </message>
    <message>
        <source>Speichern</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>Speichern unter…</source>
        <translation>Save As…</translation>
    </message>
    <message>
        <source>Einstellungen…</source>
        <translation>Settings…</translation>
    </message>
    <message>
        <source>Beenden</source>
        <translation>Quit</translation>
    </message>
    <message>
        <source>&amp;Bearbeiten</source>
        <translation>&amp;Edit</translation>
    </message>
    <message>
        <source>Rückgängig</source>
        <translation>Undo</translation>
    </message>
    <message>
        <source>Wiederholen</source>
        <translation>Redo</translation>
    </message>
    <message>
        <source>Neues Bouquet</source>
        <translation>New Bouquet</translation>
    </message>
    <message>
        <source>Markierung einfügen…</source>
        <translation>Insert Marker…</translation>
    </message>
    <message>
        <source>Umbenennen…</source>
        <translation>Rename…</translation>
    </message>
    <message>
        <source>Löschen</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>Nach Namen sortieren</source>
        <translation>Sort by Name</translation>
    </message>
    <message>
        <source>&amp;Ansicht</source>
        <translation>&amp;View</translation>
    </message>
    <message>
        <source>Sender suchen</source>
        <translation>Find Channel</translation>
    </message>
    <message>
        <source>Spaltenbreiten zurücksetzen</source>
        <translation>Reset Column Widths</translation>
    </message>
    <message>
        <source>Bo&amp;x</source>
        <translation>&amp;Receiver</translation>
    </message>
    <message>
        <source>Senderliste von der Box laden</source>
        <translation>Load Channel List from Receiver</translation>
    </message>
    <message>
        <source>Bouquets an die Box senden</source>
        <translation>Send Bouquets to Receiver</translation>
    </message>
    <message>
        <source>Box auf den Sender umschalten</source>
        <translation>Switch Receiver to Channel</translation>
    </message>
    <message>
        <source>Verbindung testen</source>
        <translation>Test Connection</translation>
    </message>
    <message>
        <source>Sicherungen</source>
        <translation>Backups</translation>
    </message>
    <message>
        <source>Sicherung wiederherstellen</source>
        <translation>Restore Backup</translation>
    </message>
    <message>
        <source>Liste auf der Box jetzt sichern</source>
        <translation>Back Up List on Receiver Now</translation>
    </message>
    <message>
        <source>Sicherungen im Dateimanager zeigen</source>
        <translation>Show Backups in File Manager</translation>
    </message>
    <message>
        <source>Falsch kodierte Zeichen auf der Box reparieren…</source>
        <translation>Repair Wrongly Encoded Characters on Receiver…</translation>
    </message>
    <message>
        <source>Picons von der Box laden</source>
        <translation>Load Picons from Receiver</translation>
    </message>
    <message>
        <source>Picon-Paket hochladen…</source>
        <translation>Upload Picon Package…</translation>
    </message>
    <message>
        <source>Box-Steuerung…</source>
        <translation>Receiver Control…</translation>
    </message>
    <message>
        <source>Box-Steuerung: Signal, Neustart, eigene Befehle (%1)</source>
        <translation>Receiver control: signal, restart, custom commands (%1)</translation>
    </message>
    <message>
        <source>Protokoll</source>
        <translation>Log</translation>
    </message>
    <message>
        <source>&amp;Hilfe</source>
        <translation>&amp;Help</translation>
    </message>
    <message>
        <source>Über Corvandel</source>
        <translation>About Corvandel</translation>
    </message>
    <message>
        <source>Werkzeuge</source>
        <translation>Tools</translation>
    </message>
    <message>
        <source>Öffnen</source>
        <translation>Open</translation>
    </message>
    <message>
        <source>Laden</source>
        <translation>Load</translation>
    </message>
    <message>
        <source>Senden</source>
        <translation>Send</translation>
    </message>
    <message>
        <source>Bouquet</source>
        <translation>Bouquet</translation>
    </message>
    <message>
        <source>Umschalten</source>
        <translation>Switch</translation>
    </message>
    <message>
        <source>Box</source>
        <translation>Receiver</translation>
    </message>
    <message>
        <source>Einstellungen</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>Keine</source>
        <translation>None</translation>
    </message>
    <message>
        <source>Keine Sicherungen</source>
        <translation>No Backups</translation>
    </message>
    <message>
        <source>%1 Zeilen in lamedb/lamedb5 enthalten Zeichen wie „19.2Â°E“. Sie werden korrigiert (z. B. „19.2°E“) und auf der Box gespeichert. Der bisherige Stand wird vorher gesichert, die Box lädt die Senderliste danach neu.</source>
        <translation>%1 lines in lamedb/lamedb5 contain characters like “19.2Â°E”. They are corrected (e.g. “19.2°E”) and saved on the receiver. The previous state is backed up first; the receiver then reloads its channel list.</translation>
    </message>
    <message>
        <source>Falsch kodierte Zeichen reparieren?</source>
        <translation>Repair wrongly encoded characters?</translation>
    </message>
    <message>
        <source>Reparieren</source>
        <translation>Repair</translation>
    </message>
    <message>
        <source>Umbenennen</source>
        <translation>Rename</translation>
    </message>
    <message>
        <source>Löschen…</source>
        <translation>Delete…</translation>
    </message>
    <message>
        <source>Entfernen</source>
        <translation>Remove</translation>
    </message>
    <message>
        <source>Änderungen verwerfen?</source>
        <translation>Discard changes?</translation>
    </message>
    <message>
        <source>Die Liste hat Änderungen, die weder gespeichert noch an die Box gesendet sind. Sie gehen verloren, wenn eine andere Liste geladen wird.</source>
        <translation>The list has changes that are neither saved nor sent to the receiver. They are lost if another list is loaded.</translation>
    </message>
    <message>
        <source>Verwerfen</source>
        <translation>Discard</translation>
    </message>
    <message>
        <source>Listenordner öffnen</source>
        <translation>Open List Folder</translation>
    </message>
    <message>
        <source>Speichern unter</source>
        <translation>Save As</translation>
    </message>
    <message>
        <source>Hier speichern</source>
        <translation>Save Here</translation>
    </message>
    <message>
        <source>Gespeichert in %1.</source>
        <translation>Saved in %1.</translation>
    </message>
    <message>
        <source>Markierung einfügen</source>
        <translation>Insert Marker</translation>
    </message>
    <message>
        <source>Text der Markierung:</source>
        <translation>Marker text:</translation>
    </message>
    <message>
        <source>Einfügen</source>
        <translation>Insert</translation>
    </message>
    <message>
        <source>Eintrag umbenennen</source>
        <translation>Rename Entry</translation>
    </message>
    <message>
        <source>Name (leer = Name aus der lamedb)</source>
        <translation>Name (empty = name from the lamedb)</translation>
    </message>
    <message>
        <source>Bouquet „%1“ löschen?</source>
        <translation>Delete bouquet “%1”?</translation>
    </message>
    <message>
        <source>Das Bouquet mit seinen %1 Einträgen verschwindet aus der Liste; „Rückgängig“ holt es zurück.</source>
        <translation>The bouquet and its %1 entries disappear from the list; “Undo” brings them back.</translation>
    </message>
    <message>
        <source>Corvandel %1
Bearbeitet die Senderlisten von Enigma2-Receivern.</source>
        <translation>Corvandel %1
Edits the channel lists of Enigma2 receivers.</translation>
    </message>
    <message>
        <source>Trotzdem beenden?</source>
        <translation>Quit anyway?</translation>
    </message>
    <message>
        <source>„%1“ läuft noch und wird abgebrochen.</source>
        <translation>“%1” is still running and will be cancelled.</translation>
    </message>
    <message>
        <source>Die Liste hat Änderungen, die weder gespeichert noch an die Box gesendet sind.</source>
        <translation>The list has changes that are neither saved nor sent to the receiver.</translation>
    </message>
    <message>
        <source>Vor dem Beenden speichern?</source>
        <translation>Save before quitting?</translation>
    </message>
    <message>
        <source>Abbrechen</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>MediaKind</name>
    <message>
        <source>Radio</source>
        <translation>Radio</translation>
    </message>
</context>
<context>
    <name>PackageError</name>
    <message>
        <source>Das Paket konnte nicht entpackt werden: </source>
        <translation>The package could not be unpacked: </translation>
    </message>
</context>
<context>
    <name>PiconPackage</name>
    <message>
        <source>unbekannter Fehler</source>
        <translation>unknown error</translation>
    </message>
    <message>
        <source>„%1“ hat einen absoluten Pfad.</source>
        <translation>“%1” has an absolute path.</translation>
    </message>
    <message>
        <source>„%1“ zeigt aus dem Paket heraus.</source>
        <translation>“%1” points outside the package.</translation>
    </message>
    <message>
        <source>Der Link „%1“ zeigt aus dem Paket heraus.</source>
        <translation>The link “%1” points outside the package.</translation>
    </message>
    <message>
        <source>Mehr als %1 GB – das ist kein Picon-Paket.</source>
        <translation>More than %1 GB – this is not a picon package.</translation>
    </message>
    <message>
        <source>Der Ordner „%1“ fehlt.</source>
        <translation>The folder “%1” is missing.</translation>
    </message>
    <message>
        <source>„%1“ gibt es nicht.</source>
        <translation>“%1” does not exist.</translation>
    </message>
    <message>
        <source>„%1“ liegt in dem Ordner, in den es entpackt würde.</source>
        <translation>“%1” lies in the folder it would be unpacked into.</translation>
    </message>
    <message>
        <source>Der Ordner „%1“ kann nicht angelegt werden.</source>
        <translation>The folder “%1” cannot be created.</translation>
    </message>
</context>
<context>
    <name>PiconPackageDialog</name>
    <message>
        <source>Picon-Paket wählen: ZIP, tar.gz, tar.xz, ipk – oder einen bereits entpackten Ordner</source>
        <translation>Choose a picon package: ZIP, tar.gz, tar.xz, ipk – or an already unpacked folder</translation>
    </message>
    <message>
        <source>Wählen</source>
        <translation>Choose</translation>
    </message>
    <message>
        <source>Picon-Pakete (%1)</source>
        <translation>Picon packages (%1)</translation>
    </message>
    <message>
        <source>Alle Dateien (*)</source>
        <translation>All files (*)</translation>
    </message>
</context>
<context>
    <name>PiconUploadSheet</name>
    <message>
        <source>Picons hochladen</source>
        <translation>Upload Picons</translation>
    </message>
    <message>
        <source>Picon-Paket auf die Box hochladen</source>
        <translation>Upload a picon package to the receiver</translation>
    </message>
    <message>
        <source>Paket:</source>
        <translation>Package:</translation>
    </message>
    <message>
        <source>Ziel auf der Box:</source>
        <translation>Target on the receiver:</translation>
    </message>
    <message>
        <source>Inhalt:</source>
        <translation>Contents:</translation>
    </message>
    <message>
        <source>Was soll auf die Box?</source>
        <translation>What should go to the receiver?</translation>
    </message>
    <message>
        <source>Hochladen</source>
        <translation>Upload</translation>
    </message>
    <message>
        <source>Abbrechen</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>%1 Picons, davon %2 passend zu Sendern der Liste</source>
        <translation>%1 picons, %2 of them matching channels of the list</translation>
    </message>
    <message>
        <source>Nur Picons für Sender der Liste (%1)</source>
        <translation>Only picons for channels of the list (%1)</translation>
    </message>
    <message>
        <source>Alle Picons des Pakets (%1)</source>
        <translation>All picons of the package (%1)</translation>
    </message>
    <message>
        <source>Vorhandene Picons auf der Box überschreiben (%1 schon dort)</source>
        <translation>Overwrite existing picons on the receiver (%1 already there)</translation>
    </message>
    <message>
        <source>%1 Picons werden nach %2 hochgeladen.</source>
        <translation>%1 picons will be uploaded to %2.</translation>
    </message>
    <message>
        <source>Nichts hochzuladen: die Box hat diese Picons schon.</source>
        <translation>Nothing to upload: the receiver already has these picons.</translation>
    </message>
</context>
<context>
    <name>Picons</name>
    <message>
        <source>Suche Picons in %1…</source>
        <translation>Looking for picons in %1…</translation>
    </message>
    <message>
        <source>Keine Picons auf der Box gefunden. Geprüft: %1. </source>
        <translation>No picons found on the receiver. Checked: %1. </translation>
    </message>
    <message>
        <source>Das Verzeichnis kannst du in den Einstellungen angeben.</source>
        <translation>You can set the folder in the settings.</translation>
    </message>
    <message>
        <source>Bitte zuerst eine Senderliste laden – Picons werden passend zu den Sendern geladen.</source>
        <translation>Please load a channel list first – picons are loaded to match its channels.</translation>
    </message>
    <message>
        <source>Suche Picons auf der Box…</source>
        <translation>Looking for picons on the receiver…</translation>
    </message>
    <message>
        <source>Der Ordner „%1“ kann nicht angelegt werden.</source>
        <translation>The folder “%1” cannot be created.</translation>
    </message>
    <message>
        <source>Lade Picons %1/%2…</source>
        <translation>Loading picons %1/%2…</translation>
    </message>
    <message>
        <source>Picons aus %1: %2 neu geladen, %3 vorhanden (%4 Dateien auf der Box).</source>
        <translation>Picons from %1: %2 newly loaded, %3 already present (%4 files on the receiver).</translation>
    </message>
    <message>
        <source>Öffne Picon-Paket…</source>
        <translation>Opening picon package…</translation>
    </message>
    <message>
        <source>In „%1“ wurden keine Picons mit Service-Referenz-Namen (1_0_…png) gefunden.</source>
        <translation>No picons named by service reference (1_0_…png) were found in “%1”.</translation>
    </message>
    <message>
        <source>Picon-Paket „%1“: %2 Picons, %3 passend zur Liste, Ziel %4.</source>
        <translation>Picon package “%1”: %2 picons, %3 matching the list, target %4.</translation>
    </message>
    <message>
        <source>Lade Picons hoch…</source>
        <translation>Uploading picons…</translation>
    </message>
    <message>
        <source>Lade Picons hoch %1/%2…</source>
        <translation>Uploading picons %1/%2…</translation>
    </message>
    <message>
        <source>%1 Picons nach %2 hochgeladen.</source>
        <translation>%1 picons uploaded to %2.</translation>
    </message>
</context>
<context>
    <name>ServiceBrowser</name>
    <message>
        <source>Nur unbenutzte</source>
        <translation>Unused only</translation>
    </message>
    <message>
        <source>Sender oder Anbieter suchen</source>
        <translation>Search channel or provider</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Spaltenbreiten zurücksetzen</source>
        <translation>Reset Column Widths</translation>
    </message>
    <message>
        <source>Zum Bouquet hinzufügen</source>
        <translation>Add to Bouquet</translation>
    </message>
    <message>
        <source>%1 Sender zum Bouquet hinzufügen</source>
        <translation>Add %1 channels to the bouquet</translation>
    </message>
    <message>
        <source>Sender umbenennen…</source>
        <translation>Rename Channel…</translation>
    </message>
    <message>
        <source>Sender aus der lamedb löschen…</source>
        <translation>Delete Channel from lamedb…</translation>
    </message>
    <message>
        <source>%1 Sender aus der lamedb löschen…</source>
        <translation>Delete %1 Channels from lamedb…</translation>
    </message>
    <message>
        <source>Alle</source>
        <translation>All</translation>
    </message>
    <message>
        <source>Sender umbenennen</source>
        <translation>Rename Channel</translation>
    </message>
    <message>
        <source>Neuer Name für „%1“:</source>
        <translation>New name for “%1”:</translation>
    </message>
    <message>
        <source>Umbenennen</source>
        <translation>Rename</translation>
    </message>
    <message>
        <source>Einträge in Bouquets werden dabei mit entfernt.</source>
        <translation>Their entries in bouquets are removed as well.</translation>
    </message>
    <message>
        <source>Sender: %1 · Einträge in Bouquets: %2</source>
        <translation>Channels: %1 · entries in bouquets: %2</translation>
    </message>
    <message>
        <source>Sender aus der lamedb löschen?</source>
        <translation>Delete channels from the lamedb?</translation>
    </message>
    <message>
        <source>Löschen</source>
        <translation>Delete</translation>
    </message>
</context>
<context>
    <name>ServiceTableModel</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Anbieter</source>
        <translation>Provider</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>In Bouquets</source>
        <translation>In bouquets</translation>
    </message>
</context>
<context>
    <name>SettingsView</name>
    <message>
        <source>Einstellungen</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>IP-Adresse oder Hostname</source>
        <translation>IP address or host name</translation>
    </message>
    <message>
        <source>Kein Schlüsselbund erreichbar: Das Passwort wird unverschlüsselt in %1 gespeichert.</source>
        <translation>No keyring available: the password is stored unencrypted in %1.</translation>
    </message>
    <message>
        <source>Verbindung testen</source>
        <translation>Test Connection</translation>
    </message>
    <message>
        <source>Adresse</source>
        <translation>Address</translation>
    </message>
    <message>
        <source>Benutzer</source>
        <translation>User</translation>
    </message>
    <message>
        <source>Passwort</source>
        <translation>Password</translation>
    </message>
    <message>
        <source>Box</source>
        <translation>Receiver</translation>
    </message>
    <message>
        <source>Beim Start zuletzt verwendete Liste laden</source>
        <translation>Load the last used list at start</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Startup</translation>
    </message>
    <message>
        <source>automatisch, z. B. /media/hdd/picon/</source>
        <translation>automatic, e.g. /media/hdd/picon/</translation>
    </message>
    <message>
        <source>FTP-Port</source>
        <translation>FTP port</translation>
    </message>
    <message>
        <source>HTTP-Port (OpenWebif)</source>
        <translation>HTTP port (OpenWebif)</translation>
    </message>
    <message>
        <source>Telnet-Port</source>
        <translation>Telnet port</translation>
    </message>
    <message>
        <source>Verzeichnis</source>
        <translation>Folder</translation>
    </message>
    <message>
        <source>Picon-Verzeichnis</source>
        <translation>Picon folder</translation>
    </message>
    <message>
        <source>Erweitert</source>
        <translation>Advanced</translation>
    </message>
    <message>
        <source>Links</source>
        <translation>Left</translation>
    </message>
    <message>
        <source>Rechts</source>
        <translation>Right</translation>
    </message>
    <message>
        <source>Bouquetleiste</source>
        <translation>Bouquet sidebar</translation>
    </message>
    <message>
        <source>Erscheinungsbild</source>
        <translation>Appearance</translation>
    </message>
    <message>
        <source>Darstellung</source>
        <translation>Display</translation>
    </message>
    <message>
        <source>Die neue Sprache gilt nach einem Neustart der App.</source>
        <translation>The new language applies after the app restarts.</translation>
    </message>
    <message>
        <source>App jetzt neu starten</source>
        <translation>Restart App Now</translation>
    </message>
    <message>
        <source>Sprache</source>
        <translation>Language</translation>
    </message>
</context>
<context>
    <name>Sheets</name>
    <message>
        <source>Abbrechen</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>StagingFolder</name>
    <message>
        <source>Im Ordner „%1“ kann nichts angelegt werden: %2</source>
        <translation>Nothing can be created in the folder “%1”: %2</translation>
    </message>
    <message>
        <source>Der Ordner „%1“ konnte nicht angelegt werden.</source>
        <translation>The folder “%1” could not be created.</translation>
    </message>
    <message>
        <source>Der Ordner „%1“ konnte nicht ersetzt werden.</source>
        <translation>The folder “%1” could not be replaced.</translation>
    </message>
    <message>
        <source>Der Ordner „%1“ konnte nicht gelesen werden.</source>
        <translation>The folder “%1” could not be read.</translation>
    </message>
    <message>
        <source>„%1“ konnte nicht kopiert werden.</source>
        <translation>“%1” could not be copied.</translation>
    </message>
</context>
<context>
    <name>Store</name>
    <message>
        <source>Der Ordner „%1“ konnte nicht angelegt werden.</source>
        <translation>The folder “%1” could not be created.</translation>
    </message>
    <message>
        <source>Gespeichert in %1.</source>
        <translation>Saved in %1.</translation>
    </message>
    <message>
        <source>„%1“ konnte nicht geladen werden: %2</source>
        <translation>“%1” could not be loaded: %2</translation>
    </message>
    <message>
        <source>Keine Senderliste geladen.</source>
        <translation>No channel list loaded.</translation>
    </message>
    <message>
        <source>Unter-Bouquet</source>
        <translation>Sub-bouquet</translation>
    </message>
    <message>
        <source>Unbekannt (%1)</source>
        <translation>Unknown (%1)</translation>
    </message>
    <message>
        <source>Sender in „%1“ umbenannt – auf die Box kommt das mit „Senden“.</source>
        <translation>Channel renamed to “%1” – “Send” puts this on the receiver.</translation>
    </message>
    <message>
        <source>%1 Sender gelöscht – auf die Box kommt das mit „Senden“.</source>
        <translation>%1 channels deleted – “Send” puts this on the receiver.</translation>
    </message>
    <message>
        <source>%1 Sender (%2), %3 TV- und %4 Radio-Bouquets geladen.</source>
        <translation>%1 channels (%2), %3 TV and %4 radio bouquets loaded.</translation>
    </message>
    <message>
        <source> Hinweis: lamedb und lamedb5 enthalten unterschiedliche Sender.</source>
        <translation> Note: lamedb and lamedb5 hold different channels.</translation>
    </message>
    <message>
        <source> Fehlende Dateien: </source>
        <translation> Missing files: </translation>
    </message>
    <message>
        <source>Box-Kopie %1</source>
        <translation>Receiver copy %1</translation>
    </message>
    <message>
        <source>Zuletzt verwendete Liste geladen (%1). </source>
        <translation>Last used list loaded (%1). </translation>
    </message>
    <message>
        <source>Speichere…</source>
        <translation>Saving…</translation>
    </message>
    <message>
        <source>Unbekannter Fehler.</source>
        <translation>Unknown error.</translation>
    </message>
</context>
<context>
    <name>TelnetError</name>
    <message>
        <source>Telnet: Keine Verbindung zu Port %1. Ist Telnet auf der Box aktiviert?</source>
        <translation>Telnet: no connection to port %1. Is Telnet enabled on the receiver?</translation>
    </message>
    <message>
        <source>Telnet: Zeitüberschreitung – keine Antwort von der Box.</source>
        <translation>Telnet: timeout – no answer from the receiver.</translation>
    </message>
    <message>
        <source>Telnet: Anmeldung fehlgeschlagen. Benutzer und Passwort prüfen.</source>
        <translation>Telnet: login failed. Check user and password.</translation>
    </message>
    <message>
        <source>Telnet: Die Box hat die Verbindung getrennt.</source>
        <translation>Telnet: the receiver closed the connection.</translation>
    </message>
</context>
<context>
    <name>Transponder</name>
    <message>
        <source>Kabel</source>
        <translation>Cable</translation>
    </message>
    <message>
        <source>Terrestrisch</source>
        <translation>Terrestrial</translation>
    </message>
</context>
<context>
    <name>WebIf</name>
    <message>
        <source>Zeitüberschreitung bei der Anforderung.</source>
        <translation>The request timed out.</translation>
    </message>
    <message>
        <source>Es konnte keine Verbindung zum Server hergestellt werden.</source>
        <translation>Could not connect to the server.</translation>
    </message>
    <message>
        <source>Es wurde kein Server mit dem angegebenen Hostnamen gefunden.</source>
        <translation>A server with the specified host name could not be found.</translation>
    </message>
    <message>
        <source>Die Netzwerkverbindung wurde unterbrochen.</source>
        <translation>The network connection was lost.</translation>
    </message>
</context>
<context>
    <name>Zapper</name>
    <message>
        <source>Umschalten fehlgeschlagen: %1</source>
        <translation>Switching failed: %1</translation>
    </message>
    <message>
        <source>Box auf „%1“ umgeschaltet.</source>
        <translation>Receiver switched to “%1”.</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Bearbeitet die Senderlisten von Enigma2-Receivern.</source>
        <translation>Edits the channel lists of Enigma2 receivers.</translation>
    </message>
    <message>
        <source>ORDNER</source>
        <translation>FOLDER</translation>
    </message>
    <message>
        <source>Der Listenordner, der geöffnet wird (sonst die zuletzt verwendete Liste).</source>
        <translation>The list folder to open (otherwise the last used list).</translation>
    </message>
    <message>
        <source>[ORDNER]</source>
        <translation>[FOLDER]</translation>
    </message>
    <message>
        <source>„%1“ ist kein Ordner.</source>
        <translation>“%1” is not a folder.</translation>
    </message>
</context>
</TS>
