<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="de">
<context>
    <name>Appearance</name>
    <message>
        <source>Hell</source>
        <translation>Claro</translation>
    </message>
    <message>
        <source>Dunkel</source>
        <translation>Oscuro</translation>
    </message>
    <message>
        <source>Automatisch</source>
        <translation>Automático</translation>
    </message>
</context>
<context>
    <name>Backups</name>
    <message>
        <source>Der Ordner „%1“ konnte nicht angelegt werden.</source>
        <translation>No se pudo crear la carpeta «%1».</translation>
    </message>
    <message>
        <source>Sichere %1 (%2/%3)…</source>
        <translation>Guardando copia de %1 (%2/%3)…</translation>
    </message>
    <message>
        <source>Sichere die Liste auf der Box…</source>
        <translation>Guardando copia de la lista del receptor…</translation>
    </message>
    <message>
        <source>Liste von %1 gesichert.</source>
        <translation>Copia de seguridad de la lista de %1 guardada.</translation>
    </message>
    <message>
        <source>Sicherung vom %1 geladen – mit „Senden“ auf die Box zurückspielen.</source>
        <translation>Copia de seguridad del %1 cargada: usa «Enviar» para restaurarla en el receptor.</translation>
    </message>
</context>
<context>
    <name>BoxCommand</name>
    <message>
        <source>„%1“ ist kein Ordner.</source>
        <translation>«%1» no es una carpeta.</translation>
    </message>
    <message>
        <source>Die Box hat ihre Senderliste neu geladen (Modus %1).</source>
        <translation>El receptor ha recargado su lista de canales (modo %1).</translation>
    </message>
    <message>
        <source>Lade Bouquets auf der Box neu…</source>
        <translation>Recargando los bouquets en el receptor…</translation>
    </message>
</context>
<context>
    <name>BoxControlView</name>
    <message>
        <source>Standby an/aus</source>
        <translation>Standby sí/no</translation>
    </message>
    <message>
        <source>Schaltet die Box in den Standby bzw. weckt sie auf</source>
        <translation>Pone el receptor en standby o lo despierta</translation>
    </message>
    <message>
        <source>Standby umgeschaltet.</source>
        <translation>Standby conmutado.</translation>
    </message>
    <message>
        <source>Enigma2 neu starten</source>
        <translation>Reiniciar Enigma2</translation>
    </message>
    <message>
        <source>Startet nur die Enigma2-Oberfläche neu (ca. 30 s)</source>
        <translation>Reinicia solo la interfaz de Enigma2 (unos 30 s)</translation>
    </message>
    <message>
        <source>Enigma2 wirklich neu starten?</source>
        <translation>¿Reiniciar Enigma2 de verdad?</translation>
    </message>
    <message>
        <source>Enigma2 startet neu – das dauert etwa 30 Sekunden.</source>
        <translation>Enigma2 se está reiniciando; tarda unos 30 segundos.</translation>
    </message>
    <message>
        <source>Box neu starten</source>
        <translation>Reiniciar el receptor</translation>
    </message>
    <message>
        <source>Startet den kompletten Receiver neu (ca. 1 Minute)</source>
        <translation>Reinicia el receptor completo (aprox. 1 minuto)</translation>
    </message>
    <message>
        <source>Box wirklich neu starten?</source>
        <translation>¿Reiniciar el receptor de verdad?</translation>
    </message>
    <message>
        <source>Die Box startet neu – das dauert etwa eine Minute.</source>
        <translation>El receptor se está reiniciando; tarda aproximadamente un minuto.</translation>
    </message>
    <message>
        <source>Laufzeit und Last</source>
        <translation>Tiempo en marcha y carga</translation>
    </message>
    <message>
        <source>Freier Speicherplatz</source>
        <translation>Espacio libre en disco</translation>
    </message>
    <message>
        <source>Arbeitsspeicher</source>
        <translation>Memoria</translation>
    </message>
    <message>
        <source>Image-Version</source>
        <translation>Versión de la imagen</translation>
    </message>
    <message>
        <source>Enigma2 neu starten (init)</source>
        <translation>Reiniciar Enigma2 (init)</translation>
    </message>
    <message>
        <source>Bouquet-Dateien auflisten</source>
        <translation>Listar los archivos de bouquets</translation>
    </message>
    <message>
        <source>Box-Steuerung</source>
        <translation>Control del receptor</translation>
    </message>
    <message>
        <source>Aktueller Sender</source>
        <translation>Canal actual</translation>
    </message>
    <message>
        <source>Signal (SNR)</source>
        <translation>Señal (SNR)</translation>
    </message>
    <message>
        <source>Pegel (AGC)</source>
        <translation>Nivel (AGC)</translation>
    </message>
    <message>
        <source>Bitfehler (BER)</source>
        <translation>Errores de bit (BER)</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Estado</translation>
    </message>
    <message>
        <source>Aktionen</source>
        <translation>Acciones</translation>
    </message>
    <message>
        <source>Vorlagen</source>
        <translation>Plantillas</translation>
    </message>
    <message>
        <source>Befehl, z. B. uptime</source>
        <translation>Comando, p. ej. uptime</translation>
    </message>
    <message>
        <source>Ausführen</source>
        <translation>Ejecutar</translation>
    </message>
    <message>
        <source>Ausgabe erscheint hier.</source>
        <translation>La salida aparece aquí.</translation>
    </message>
    <message>
        <source>Eigener Befehl (Telnet)</source>
        <translation>Comando propio (Telnet)</translation>
    </message>
    <message>
        <source>Laufende Aufnahmen werden unterbrochen, nicht gespeicherte Timer und der EPG-Cache können verloren gehen.</source>
        <translation>Las grabaciones en curso se interrumpen; los temporizadores no guardados y la caché de la EPG pueden perderse.</translation>
    </message>
    <message>
        <source>(keine Ausgabe)</source>
        <translation>(sin salida)</translation>
    </message>
    <message>
        <source>Fehler: </source>
        <translation>Error: </translation>
    </message>
    <message>
        <source>Box nicht erreichbar: </source>
        <translation>Receptor no accesible: </translation>
    </message>
</context>
<context>
    <name>BoxError</name>
    <message>
        <source>FTP-Fehler: </source>
        <translation>Error de FTP: </translation>
    </message>
    <message>
        <source>HTTP-Fehler %1 beim Neuladen der Senderliste.</source>
        <translation>Error HTTP %1 al recargar la lista de canales.</translation>
    </message>
    <message>
        <source>Bitte zuerst in den Einstellungen die IP-Adresse der Box eintragen.</source>
        <translation>Introduce primero la dirección IP del receptor en los ajustes.</translation>
    </message>
</context>
<context>
    <name>BoxSync</name>
    <message>
        <source>Teste Verbindung…</source>
        <translation>Probando la conexión…</translation>
    </message>
    <message>
        <source>Lade von der Box…</source>
        <translation>Cargando desde el receptor…</translation>
    </message>
    <message>
        <source>Sichere die Liste auf der Box…</source>
        <translation>Guardando copia de la lista del receptor…</translation>
    </message>
    <message>
        <source>Repariere Zeichen in der lamedb…</source>
        <translation>Reparando caracteres en la lamedb…</translation>
    </message>
    <message>
        <source>In der lamedb gibt es keine falsch kodierten Zeichen.</source>
        <translation>La lamedb no contiene caracteres mal codificados.</translation>
    </message>
    <message>
        <source>Verbindung OK: %1 Dateien in %2</source>
        <translation>Conexión correcta: %1 archivos en %2</translation>
    </message>
    <message>
        <source>, lamedb gefunden.</source>
        <translation>, lamedb encontrada.</translation>
    </message>
    <message>
        <source>, aber keine lamedb!</source>
        <translation>, ¡pero ninguna lamedb!</translation>
    </message>
    <message>
        <source>Weder lamedb noch lamedb5 im Verzeichnis %1 auf der Box gefunden.</source>
        <translation>No se encontró ni lamedb ni lamedb5 en el directorio %1 del receptor.</translation>
    </message>
    <message>
        <source>Lade %1 (%2/%3)…</source>
        <translation>Cargando %1 (%2/%3)…</translation>
    </message>
    <message>
        <source>Lade satellites.xml…</source>
        <translation>Cargando satellites.xml…</translation>
    </message>
    <message>
        <source>Von %1 geladen: %2</source>
        <translation>Cargado desde %1: %2</translation>
    </message>
    <message>
        <source>Sicherung fehlgeschlagen, es wurde nichts gesendet: %1</source>
        <translation>Falló la copia de seguridad, no se envió nada: %1</translation>
    </message>
    <message>
        <source>Sende an die Box…</source>
        <translation>Enviando al receptor…</translation>
    </message>
    <message>
        <source>Sende %1 (%2/%3)…</source>
        <translation>Enviando %1 (%2/%3)…</translation>
    </message>
    <message>
        <source>Lade Bouquets auf der Box neu…</source>
        <translation>Recargando los bouquets en el receptor…</translation>
    </message>
    <message>
        <source>%1 Dateien gesendet. Neuladen per HTTP fehlgeschlagen: %2</source>
        <translation>%1 archivos enviados. Falló la recarga por HTTP: %2</translation>
    </message>
    <message>
        <source>%1 Dateien gesendet, Bouquets auf der Box neu geladen.</source>
        <translation>%1 archivos enviados, bouquets recargados en el receptor.</translation>
    </message>
    <message>
        <source>Der Ordner „%1“ konnte nicht angelegt werden.</source>
        <translation>No se pudo crear la carpeta «%1».</translation>
    </message>
    <message>
        <source>Repariere %1…</source>
        <translation>Reparando %1…</translation>
    </message>
    <message>
        <source>Nichts zu reparieren.</source>
        <translation>Nada que reparar.</translation>
    </message>
    <message>
        <source>Lade die Senderliste auf der Box neu…</source>
        <translation>Recargando la lista de canales en el receptor…</translation>
    </message>
    <message>
        <source>%1 Zeilen in der lamedb repariert und auf der Box neu geladen (vorher gesichert).</source>
        <translation>%1 líneas reparadas en la lamedb y recargadas en el receptor (con copia de seguridad previa).</translation>
    </message>
</context>
<context>
    <name>Commands</name>
    <message>
        <source>Zeigt diese Hilfe.</source>
        <translation>Muestra esta ayuda.</translation>
    </message>
    <message>
        <source>Adresse der Box.</source>
        <translation>Dirección del receptor.</translation>
    </message>
    <message>
        <source>ADRESSE</source>
        <translation>DIRECCIÓN</translation>
    </message>
    <message>
        <source>Benutzername für FTP und Web-Oberfläche.</source>
        <translation>Nombre de usuario para FTP y la interfaz web.</translation>
    </message>
    <message>
        <source>NAME</source>
        <translation>NOMBRE</translation>
    </message>
    <message>
        <source>Port des FTP-Servers der Box.</source>
        <translation>Puerto del servidor FTP del receptor.</translation>
    </message>
    <message>
        <source>PORT</source>
        <translation>PUERTO</translation>
    </message>
    <message>
        <source>Port der Web-Oberfläche der Box.</source>
        <translation>Puerto de la interfaz web del receptor.</translation>
    </message>
    <message>
        <source>Verzeichnis der Senderliste auf der Box.</source>
        <translation>Directorio de la lista de canales en el receptor.</translation>
    </message>
    <message>
        <source>VERZEICHNIS</source>
        <translation>DIRECTORIO</translation>
    </message>
    <message>
        <source>Datei, deren erste Zeile das Passwort ist.</source>
        <translation>Archivo cuya primera línea es la contraseña.</translation>
    </message>
    <message>
        <source>DATEI</source>
        <translation>ARCHIVO</translation>
    </message>
    <message>
        <source>ORDNER</source>
        <translation>CARPETA</translation>
    </message>
    <message>
        <source>Der Listenordner mit lamedb oder lamedb5 und den Bouquet-Dateien.</source>
        <translation>La carpeta de lista con lamedb o lamedb5 y los archivos de bouquets.</translation>
    </message>
    <message>
        <source>Ohne Optionen gelten die Verbindungseinstellungen des Editors. Das Passwort kommt aus --password-file, sonst aus der Umgebungsvariablen CORVANDEL_PASSWORD, sonst aus dem Passwortspeicher des Editors; als Argument wird es nie angenommen. Der Fortschritt steht auf der Standardfehlerausgabe, eine Zeile je Datei.</source>
        <translation>Sin opciones se usan los ajustes de conexión del editor. La contraseña se toma de --password-file, si no de la variable de entorno CORVANDEL_PASSWORD, y si no del almacén de contraseñas del editor; nunca se acepta como argumento. El progreso se muestra en la salida de error estándar, una línea por archivo.</translation>
    </message>
    <message>
        <source>Zeigt die Statuszeile des Editors nach dem Öffnen und zählt Sender je Art und Position, Transponder, Bouquets und Einträge je Art, Markierungen, Unter-Bouquet-Verweise, Stream-Einträge, unbenutzte Sender und fehlende Bouquet-Dateien.</source>
        <translation>Muestra la línea de estado del editor tras abrir y cuenta los canales por tipo y posición, los transpondedores, los bouquets y las entradas por tipo, los marcadores, las referencias a sub-bouquets, las entradas de stream, los canales sin usar y los archivos de bouquets que faltan.</translation>
    </message>
    <message>
        <source>Gibt jeden Sender (Referenz, Typ, Name, Anbieter, Position) und jedes Bouquet beider Arten mit seinen Einträgen (Referenz, eigener Name, Anzeigename) in Dateireihenfolge aus.</source>
        <translation>Muestra cada canal (referencia, tipo, nombre, proveedor, posición) y cada bouquet de ambos tipos con sus entradas (referencia, nombre propio, nombre mostrado) en el orden de los archivos.</translation>
    </message>
    <message>
        <source>Ein JSON-Dokument statt der Tabellen.</source>
        <translation>Un documento JSON en lugar de las tablas.</translation>
    </message>
    <message>
        <source>Aufbau des JSON-Dokuments (nie übersetzt; &quot;description&quot; ist null ohne eigenen Namen):</source>
        <translation>Estructura del documento JSON (nunca traducido; &quot;description&quot; es null si no hay nombre propio):</translation>
    </message>
    <message>
        <source>Sucht, was vor dem Veröffentlichen behoben werden sollte, eine Zeile je Fund mit Datei und Zeilennummer.</source>
        <translation>Busca lo que debería corregirse antes de publicar, una línea por hallazgo con archivo y número de línea.</translation>
    </message>
    <message>
        <source>Exit-Status 0: nichts gefunden, 1: etwas gefunden, 2: der Ordner ist nicht lesbar.</source>
        <translation>Estado de salida 0: nada encontrado, 1: algo encontrado, 2: la carpeta no se puede leer.</translation>
    </message>
    <message>
        <source>Lädt die Senderliste von der Box wie der Editor in den Arbeitsordner der Box und kopiert ihre Dateien in ORDNER.</source>
        <translation>Carga la lista de canales del receptor en la carpeta de trabajo del receptor, como el editor, y copia sus archivos en CARPETA.</translation>
    </message>
    <message>
        <source>Der Ordner, in den die Liste kommt; er wird bei Bedarf angelegt.</source>
        <translation>La carpeta donde va la lista; se crea si hace falta.</translation>
    </message>
    <message>
        <source>Öffnet ORDNER als Senderliste, sichert die Liste auf der Box, sendet, was das Speichern schreibt, und lässt die Box neu laden.</source>
        <translation>Abre CARPETA como lista de canales, guarda una copia de la lista del receptor, envía lo que escribe el guardado y hace que el receptor recargue.</translation>
    </message>
    <message>
        <source>Sichert die Liste auf der Box in einen neuen Ordner unter „Sicherungen“.</source>
        <translation>Guarda una copia de la lista del receptor en una carpeta nueva dentro de «Sicherungen».</translation>
    </message>
    <message>
        <source>Lässt die Box ihre Senderliste über die Web-Oberfläche neu laden.</source>
        <translation>Hace que el receptor recargue su lista de canales a través de la interfaz web.</translation>
    </message>
    <message>
        <source>0: Senderdatenbank und Bouquets (Vorgabe), 1: nur die Senderdatenbank, 2: nur die Bouquets, 3: die Transponderdateien, 4: die Jugendschutzlisten.</source>
        <translation>0: base de datos de canales y bouquets (predeterminado), 1: solo la base de datos de canales, 2: solo los bouquets, 3: los archivos de transpondedores, 4: las listas de control parental.</translation>
    </message>
    <message>
        <source>Prüft die Verbindung und sucht die lamedb im Listenverzeichnis der Box.</source>
        <translation>Comprueba la conexión y busca la lamedb en el directorio de listas del receptor.</translation>
    </message>
    <message>
        <source>Optionen:</source>
        <translation>Opciones:</translation>
    </message>
    <message>
        <source>Aufruf: corvandel-cli BEFEHL [Optionen] [ORDNER]</source>
        <translation>Uso: corvandel-cli COMANDO [opciones] [CARPETA]</translation>
    </message>
    <message>
        <source>Die Dateiarbeit des Corvandel-Editors ohne Fenster: Senderlisten von Enigma2-Receivern prüfen, lesen und mit der Box austauschen.</source>
        <translation>El trabajo con archivos del editor Corvandel sin ventana: comprobar y leer listas de canales de receptores Enigma2 e intercambiarlas con el receptor.</translation>
    </message>
    <message>
        <source>Befehle:</source>
        <translation>Comandos:</translation>
    </message>
    <message>
        <source>Zeigt die Version.</source>
        <translation>Muestra la versión.</translation>
    </message>
    <message>
        <source>„corvandel-cli BEFEHL --help“ zeigt die Optionen eines Befehls.</source>
        <translation>«corvandel-cli COMANDO --help» muestra las opciones de un comando.</translation>
    </message>
    <message>
        <source>[Optionen]</source>
        <translation>[opciones]</translation>
    </message>
    <message>
        <source>Aufruf: %1</source>
        <translation>Uso: %1</translation>
    </message>
    <message>
        <source>Argumente:</source>
        <translation>Argumentos:</translation>
    </message>
    <message>
        <source>„%1“ ist keine Portnummer (1 bis 65535).</source>
        <translation>«%1» no es un número de puerto (1 a 65535).</translation>
    </message>
    <message>
        <source>Die Passwortdatei „%1“ konnte nicht gelesen werden: %2</source>
        <translation>No se pudo leer el archivo de contraseña «%1»: %2</translation>
    </message>
    <message>
        <source>„%1“ ist kein Modus (0 bis 4).</source>
        <translation>«%1» no es un modo (0 a 4).</translation>
    </message>
    <message>
        <source>Es fehlt ein Befehl.</source>
        <translation>Falta un comando.</translation>
    </message>
    <message>
        <source>Unbekannter Befehl „%1“.</source>
        <translation>Comando desconocido «%1».</translation>
    </message>
    <message>
        <source>„corvandel-cli --help“ zeigt alle Befehle.</source>
        <translation>«corvandel-cli --help» muestra todos los comandos.</translation>
    </message>
    <message>
        <source>„corvandel-cli %1 --help“ zeigt den Aufruf.</source>
        <translation>«corvandel-cli %1 --help» muestra el uso.</translation>
    </message>
    <message>
        <source>Unbekannte Option „%1“.</source>
        <translation>Opción desconocida «%1».</translation>
    </message>
    <message>
        <source>%1 fehlt.</source>
        <translation>Falta %1.</translation>
    </message>
    <message>
        <source>Zu viele Argumente: %1</source>
        <translation>Demasiados argumentos: %1</translation>
    </message>
</context>
<context>
    <name>EntryListView</name>
    <message>
        <source>Sender aus der Liste rechts hierher ziehen oder doppelklicken.</source>
        <translation>Arrastra canales aquí desde la lista de la derecha o haz doble clic en ellos.</translation>
    </message>
</context>
<context>
    <name>FTPClient</name>
    <message>
        <source>Ungültiger Dateiname für die Box: </source>
        <translation>Nombre de archivo no válido para el receptor: </translation>
    </message>
    <message>
        <source>curl konnte nicht gestartet werden: </source>
        <translation>No se pudo iniciar curl: </translation>
    </message>
    <message>
        <source>curl-Exitcode </source>
        <translation>código de salida de curl </translation>
    </message>
</context>
<context>
    <name>LameDB</name>
    <message>
        <source>Unbekanntes lamedb-Format.</source>
        <translation>Formato de lamedb desconocido.</translation>
    </message>
</context>
<context>
    <name>Language</name>
    <message>
        <source>Systemsprache</source>
        <translation>Idioma del sistema</translation>
    </message>
</context>
<context>
    <name>ListCheck</name>
    <message>
        <source>Zeilenumbruch %1 mitten in der Zeile.</source>
        <translation>Salto de línea %1 en mitad de la línea.</translation>
    </message>
    <message>
        <source>Ein Anführungszeichen im Sendernamen zerbricht die Zeile.</source>
        <translation>Unas comillas en el nombre del canal rompen la línea.</translation>
    </message>
    <message>
        <source>Die Zeichenreparatur würde „%1“ zu „%2“ machen.</source>
        <translation>La reparación de caracteres convertiría «%1» en «%2».</translation>
    </message>
    <message>
        <source>Im Ordner liegt weder lamedb noch lamedb5: die Einträge werden mit keiner Senderdatenbank verglichen.</source>
        <translation>La carpeta no contiene ni lamedb ni lamedb5: las entradas no se comparan con ninguna base de datos de canales.</translation>
    </message>
    <message>
        <source>Die Bouquet-Datei „%1“ fehlt.</source>
        <translation>Falta el archivo de bouquet «%1».</translation>
    </message>
    <message>
        <source>lamedb (%1 Sender) und lamedb5 (%2 Sender) enthalten unterschiedliche Sender.</source>
        <translation>lamedb (%1 canales) y lamedb5 (%2 canales) contienen canales distintos.</translation>
    </message>
    <message>
        <source>Sender fehlt in %1: %2</source>
        <translation>Falta el canal en %1: %2</translation>
    </message>
    <message>
        <source>Derselbe Sender wie in Zeile %1: %2</source>
        <translation>El mismo canal que en la línea %1: %2</translation>
    </message>
    <message>
        <source>Keine Indexdatei nennt diese Bouquet-Datei.</source>
        <translation>Ningún archivo de índice menciona este archivo de bouquet.</translation>
    </message>
    <message>
        <source>Keine Probleme gefunden.</source>
        <translation>No se encontraron problemas.</translation>
    </message>
    <message>
        <source>Gefundene Probleme: %1</source>
        <translation>Problemas encontrados: %1</translation>
    </message>
</context>
<context>
    <name>ListFolder</name>
    <message>
        <source>„%1“ konnte nicht gelesen werden: %2</source>
        <translation>No se pudo leer «%1»: %2</translation>
    </message>
    <message>
        <source>Im Ordner liegt weder lamedb noch lamedb5.</source>
        <translation>La carpeta no contiene ni lamedb ni lamedb5.</translation>
    </message>
    <message>
        <source>„%1“ konnte nicht gespeichert werden: %2</source>
        <translation>No se pudo guardar «%1»: %2</translation>
    </message>
</context>
<context>
    <name>ListReport</name>
    <message>
        <source>ohne Position</source>
        <translation>sin posición</translation>
    </message>
    <message>
        <source>Sender: %1 (TV: %2, Radio: %3)</source>
        <translation>Canales: %1 (TV: %2, radio: %3)</translation>
    </message>
    <message>
        <source>Sender je Position:</source>
        <translation>Canales por posición:</translation>
    </message>
    <message>
        <source>Transponder: %1</source>
        <translation>Transpondedores: %1</translation>
    </message>
    <message>
        <source>%1-Bouquets: %2 mit %3 Einträgen</source>
        <translation>Bouquets de %1: %2 con %3 entradas</translation>
    </message>
    <message>
        <source>Markierungen: %1</source>
        <translation>Marcadores: %1</translation>
    </message>
    <message>
        <source>Unter-Bouquet-Verweise: %1</source>
        <translation>Referencias a sub-bouquets: %1</translation>
    </message>
    <message>
        <source>Stream-Einträge: %1</source>
        <translation>Entradas de stream: %1</translation>
    </message>
    <message>
        <source>Unbenutzte Sender: %1</source>
        <translation>Canales sin usar: %1</translation>
    </message>
    <message>
        <source>Fehlende Bouquet-Dateien: %1</source>
        <translation>Archivos de bouquets que faltan: %1</translation>
    </message>
    <message>
        <source>%1 Sender aus %2:</source>
        <translation>%1 canales de %2:</translation>
    </message>
    <message>
        <source>Referenz</source>
        <translation>Referencia</translation>
    </message>
    <message>
        <source>Typ</source>
        <translation>Tipo</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Anbieter</source>
        <translation>Proveedor</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Posición</translation>
    </message>
    <message>
        <source>%1-Bouquet %2: „%3“, %4 Einträge</source>
        <translation>Bouquet de %1 %2: «%3», %4 entradas</translation>
    </message>
    <message>
        <source>Nr.</source>
        <translation>N.º</translation>
    </message>
    <message>
        <source>Eigener Name</source>
        <translation>Nombre propio</translation>
    </message>
    <message>
        <source>Anzeigename</source>
        <translation>Nombre mostrado</translation>
    </message>
</context>
<context>
    <name>LogView</name>
    <message>
        <source>Protokoll</source>
        <translation>Registro</translation>
    </message>
    <message>
        <source>Nur Fehler</source>
        <translation>Solo errores</translation>
    </message>
    <message>
        <source>Kopieren</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Protokoll in die Zwischenablage, z. B. für eine Fehlermeldung</source>
        <translation>Copia el registro al portapapeles, p. ej. para un informe de error</translation>
    </message>
    <message>
        <source>Im Dateimanager zeigen</source>
        <translation>Mostrar en el gestor de archivos</translation>
    </message>
    <message>
        <source>Leeren</source>
        <translation>Vaciar</translation>
    </message>
    <message>
        <source>Keine Fehler – alles hat geklappt.</source>
        <translation>Sin errores: todo ha funcionado.</translation>
    </message>
    <message>
        <source>Noch keine Einträge.</source>
        <translation>Todavía no hay entradas.</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>&amp;Datei</source>
        <translation>&amp;Archivo</translation>
    </message>
    <message>
        <source>Listenordner öffnen…</source>
        <translation>Abrir carpeta de lista…</translation>
    </message>
    <message>
        <source>Zuletzt verwendet</source>
        <translation>Usados recientemente</translation>
    </message>
    <message>
        <source>Speichern</source>
        <translation>Guardar</translation>
    </message>
    <message>
        <source>Speichern unter…</source>
        <translation>Guardar como…</translation>
    </message>
    <message>
        <source>Einstellungen…</source>
        <translation>Ajustes…</translation>
    </message>
    <message>
        <source>Beenden</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>&amp;Bearbeiten</source>
        <translation>&amp;Editar</translation>
    </message>
    <message>
        <source>Rückgängig</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>Wiederholen</source>
        <translation>Rehacer</translation>
    </message>
    <message>
        <source>Neues Bouquet</source>
        <translation>Nuevo bouquet</translation>
    </message>
    <message>
        <source>Markierung einfügen…</source>
        <translation>Insertar marcador…</translation>
    </message>
    <message>
        <source>Umbenennen…</source>
        <translation>Renombrar…</translation>
    </message>
    <message>
        <source>Löschen</source>
        <translation>Eliminar</translation>
    </message>
    <message>
        <source>Nach Namen sortieren</source>
        <translation>Ordenar por nombre</translation>
    </message>
    <message>
        <source>&amp;Ansicht</source>
        <translation>&amp;Ver</translation>
    </message>
    <message>
        <source>Sender suchen</source>
        <translation>Buscar canal</translation>
    </message>
    <message>
        <source>Spaltenbreiten zurücksetzen</source>
        <translation>Restablecer el ancho de las columnas</translation>
    </message>
    <message>
        <source>Bo&amp;x</source>
        <translation>&amp;Receptor</translation>
    </message>
    <message>
        <source>Senderliste von der Box laden</source>
        <translation>Cargar la lista de canales del receptor</translation>
    </message>
    <message>
        <source>Bouquets an die Box senden</source>
        <translation>Enviar los bouquets al receptor</translation>
    </message>
    <message>
        <source>Box auf den Sender umschalten</source>
        <translation>Cambiar el receptor al canal</translation>
    </message>
    <message>
        <source>Verbindung testen</source>
        <translation>Probar la conexión</translation>
    </message>
    <message>
        <source>Sicherungen</source>
        <translation>Copias de seguridad</translation>
    </message>
    <message>
        <source>Sicherung wiederherstellen</source>
        <translation>Restaurar copia de seguridad</translation>
    </message>
    <message>
        <source>Liste auf der Box jetzt sichern</source>
        <translation>Guardar ahora una copia de la lista del receptor</translation>
    </message>
    <message>
        <source>Sicherungen im Dateimanager zeigen</source>
        <translation>Mostrar las copias de seguridad en el gestor de archivos</translation>
    </message>
    <message>
        <source>Falsch kodierte Zeichen auf der Box reparieren…</source>
        <translation>Reparar caracteres mal codificados en el receptor…</translation>
    </message>
    <message>
        <source>Picons von der Box laden</source>
        <translation>Cargar los picons del receptor</translation>
    </message>
    <message>
        <source>Picon-Paket hochladen…</source>
        <translation>Subir un paquete de picons…</translation>
    </message>
    <message>
        <source>Box-Steuerung…</source>
        <translation>Control del receptor…</translation>
    </message>
    <message>
        <source>Box-Steuerung: Signal, Neustart, eigene Befehle (%1)</source>
        <translation>Control del receptor: señal, reinicio, comandos propios (%1)</translation>
    </message>
    <message>
        <source>Protokoll</source>
        <translation>Registro</translation>
    </message>
    <message>
        <source>&amp;Hilfe</source>
        <translation>Ay&amp;uda</translation>
    </message>
    <message>
        <source>Über Corvandel</source>
        <translation>Acerca de Corvandel</translation>
    </message>
    <message>
        <source>Werkzeuge</source>
        <translation>Herramientas</translation>
    </message>
    <message>
        <source>Öffnen</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Laden</source>
        <translation>Cargar</translation>
    </message>
    <message>
        <source>Senden</source>
        <translation>Enviar</translation>
    </message>
    <message>
        <source>Bouquet</source>
        <translation>Bouquet</translation>
    </message>
    <message>
        <source>Umschalten</source>
        <translation>Cambiar</translation>
    </message>
    <message>
        <source>Box</source>
        <translation>Receptor</translation>
    </message>
    <message>
        <source>Einstellungen</source>
        <translation>Ajustes</translation>
    </message>
    <message>
        <source>Keine</source>
        <translation>Ninguno</translation>
    </message>
    <message>
        <source>Keine Sicherungen</source>
        <translation>No hay copias de seguridad</translation>
    </message>
    <message>
        <source>%1 Zeilen in lamedb/lamedb5 enthalten Zeichen wie „19.2Â°E“. Sie werden korrigiert (z. B. „19.2°E“) und auf der Box gespeichert. Der bisherige Stand wird vorher gesichert, die Box lädt die Senderliste danach neu.</source>
        <translation>%1 líneas de lamedb/lamedb5 contienen caracteres como «19.2Â°E». Se corregirán (p. ej. «19.2°E») y se guardarán en el receptor. Antes se guarda una copia del estado actual; después el receptor recarga la lista de canales.</translation>
    </message>
    <message>
        <source>Falsch kodierte Zeichen reparieren?</source>
        <translation>¿Reparar los caracteres mal codificados?</translation>
    </message>
    <message>
        <source>Reparieren</source>
        <translation>Reparar</translation>
    </message>
    <message>
        <source>Umbenennen</source>
        <translation>Renombrar</translation>
    </message>
    <message>
        <source>Löschen…</source>
        <translation>Eliminar…</translation>
    </message>
    <message>
        <source>Entfernen</source>
        <translation>Quitar</translation>
    </message>
    <message>
        <source>Änderungen verwerfen?</source>
        <translation>¿Descartar los cambios?</translation>
    </message>
    <message>
        <source>Die Liste hat Änderungen, die weder gespeichert noch an die Box gesendet sind. Sie gehen verloren, wenn eine andere Liste geladen wird.</source>
        <translation>La lista tiene cambios que no se han guardado ni enviado al receptor. Se perderán si se carga otra lista.</translation>
    </message>
    <message>
        <source>Verwerfen</source>
        <translation>Descartar</translation>
    </message>
    <message>
        <source>Listenordner öffnen</source>
        <translation>Abrir carpeta de lista</translation>
    </message>
    <message>
        <source>Speichern unter</source>
        <translation>Guardar como</translation>
    </message>
    <message>
        <source>Hier speichern</source>
        <translation>Guardar aquí</translation>
    </message>
    <message>
        <source>Gespeichert in %1.</source>
        <translation>Guardado en %1.</translation>
    </message>
    <message>
        <source>Markierung einfügen</source>
        <translation>Insertar marcador</translation>
    </message>
    <message>
        <source>Text der Markierung:</source>
        <translation>Texto del marcador:</translation>
    </message>
    <message>
        <source>Einfügen</source>
        <translation>Insertar</translation>
    </message>
    <message>
        <source>Eintrag umbenennen</source>
        <translation>Renombrar entrada</translation>
    </message>
    <message>
        <source>Name (leer = Name aus der lamedb)</source>
        <translation>Nombre (vacío = nombre de la lamedb)</translation>
    </message>
    <message>
        <source>Bouquet „%1“ löschen?</source>
        <translation>¿Eliminar el bouquet «%1»?</translation>
    </message>
    <message>
        <source>Das Bouquet mit seinen %1 Einträgen verschwindet aus der Liste; „Rückgängig“ holt es zurück.</source>
        <translation>El bouquet y sus %1 entradas desaparecen de la lista; «Deshacer» los recupera.</translation>
    </message>
    <message>
        <source>Corvandel %1
Bearbeitet die Senderlisten von Enigma2-Receivern.</source>
        <translation>Corvandel %1
Edita las listas de canales de receptores Enigma2.</translation>
    </message>
    <message>
        <source>Trotzdem beenden?</source>
        <translation>¿Salir de todos modos?</translation>
    </message>
    <message>
        <source>„%1“ läuft noch und wird abgebrochen.</source>
        <translation>«%1» sigue en curso y se cancelará.</translation>
    </message>
    <message>
        <source>Die Liste hat Änderungen, die weder gespeichert noch an die Box gesendet sind.</source>
        <translation>La lista tiene cambios que no se han guardado ni enviado al receptor.</translation>
    </message>
    <message>
        <source>Vor dem Beenden speichern?</source>
        <translation>¿Guardar antes de salir?</translation>
    </message>
    <message>
        <source>Abbrechen</source>
        <translation>Cancelar</translation>
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
        <translation>No se pudo descomprimir el paquete: </translation>
    </message>
</context>
<context>
    <name>PiconPackage</name>
    <message>
        <source>unbekannter Fehler</source>
        <translation>error desconocido</translation>
    </message>
    <message>
        <source>„%1“ hat einen absoluten Pfad.</source>
        <translation>«%1» tiene una ruta absoluta.</translation>
    </message>
    <message>
        <source>„%1“ zeigt aus dem Paket heraus.</source>
        <translation>«%1» apunta fuera del paquete.</translation>
    </message>
    <message>
        <source>Der Link „%1“ zeigt aus dem Paket heraus.</source>
        <translation>El enlace «%1» apunta fuera del paquete.</translation>
    </message>
    <message>
        <source>Mehr als %1 GB – das ist kein Picon-Paket.</source>
        <translation>Más de %1 GB: esto no es un paquete de picons.</translation>
    </message>
    <message>
        <source>Der Ordner „%1“ fehlt.</source>
        <translation>Falta la carpeta «%1».</translation>
    </message>
    <message>
        <source>„%1“ gibt es nicht.</source>
        <translation>«%1» no existe.</translation>
    </message>
    <message>
        <source>„%1“ liegt in dem Ordner, in den es entpackt würde.</source>
        <translation>«%1» está en la carpeta en la que se descomprimiría.</translation>
    </message>
    <message>
        <source>Der Ordner „%1“ kann nicht angelegt werden.</source>
        <translation>No se puede crear la carpeta «%1».</translation>
    </message>
</context>
<context>
    <name>PiconPackageDialog</name>
    <message>
        <source>Picon-Paket wählen: ZIP, tar.gz, tar.xz, ipk – oder einen bereits entpackten Ordner</source>
        <translation>Elige un paquete de picons: ZIP, tar.gz, tar.xz, ipk, o una carpeta ya descomprimida</translation>
    </message>
    <message>
        <source>Wählen</source>
        <translation>Elegir</translation>
    </message>
    <message>
        <source>Picon-Pakete (%1)</source>
        <translation>Paquetes de picons (%1)</translation>
    </message>
    <message>
        <source>Alle Dateien (*)</source>
        <translation>Todos los archivos (*)</translation>
    </message>
</context>
<context>
    <name>PiconUploadSheet</name>
    <message>
        <source>Picons hochladen</source>
        <translation>Subir picons</translation>
    </message>
    <message>
        <source>Picon-Paket auf die Box hochladen</source>
        <translation>Subir un paquete de picons al receptor</translation>
    </message>
    <message>
        <source>Paket:</source>
        <translation>Paquete:</translation>
    </message>
    <message>
        <source>Ziel auf der Box:</source>
        <translation>Destino en el receptor:</translation>
    </message>
    <message>
        <source>Inhalt:</source>
        <translation>Contenido:</translation>
    </message>
    <message>
        <source>Was soll auf die Box?</source>
        <translation>¿Qué debe ir al receptor?</translation>
    </message>
    <message>
        <source>Hochladen</source>
        <translation>Subir</translation>
    </message>
    <message>
        <source>Abbrechen</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>%1 Picons, davon %2 passend zu Sendern der Liste</source>
        <translation>%1 picons, %2 de ellos coinciden con canales de la lista</translation>
    </message>
    <message>
        <source>Nur Picons für Sender der Liste (%1)</source>
        <translation>Solo los picons de canales de la lista (%1)</translation>
    </message>
    <message>
        <source>Alle Picons des Pakets (%1)</source>
        <translation>Todos los picons del paquete (%1)</translation>
    </message>
    <message>
        <source>Vorhandene Picons auf der Box überschreiben (%1 schon dort)</source>
        <translation>Sobrescribir los picons existentes en el receptor (%1 ya están)</translation>
    </message>
    <message>
        <source>%1 Picons werden nach %2 hochgeladen.</source>
        <translation>Se subirán %1 picons a %2.</translation>
    </message>
    <message>
        <source>Nichts hochzuladen: die Box hat diese Picons schon.</source>
        <translation>Nada que subir: el receptor ya tiene estos picons.</translation>
    </message>
</context>
<context>
    <name>Picons</name>
    <message>
        <source>Suche Picons in %1…</source>
        <translation>Buscando picons en %1…</translation>
    </message>
    <message>
        <source>Keine Picons auf der Box gefunden. Geprüft: %1. </source>
        <translation>No se encontraron picons en el receptor. Comprobado: %1. </translation>
    </message>
    <message>
        <source>Das Verzeichnis kannst du in den Einstellungen angeben.</source>
        <translation>Puedes indicar el directorio en los ajustes.</translation>
    </message>
    <message>
        <source>Bitte zuerst eine Senderliste laden – Picons werden passend zu den Sendern geladen.</source>
        <translation>Carga primero una lista de canales: los picons se cargan según sus canales.</translation>
    </message>
    <message>
        <source>Suche Picons auf der Box…</source>
        <translation>Buscando picons en el receptor…</translation>
    </message>
    <message>
        <source>Der Ordner „%1“ kann nicht angelegt werden.</source>
        <translation>No se puede crear la carpeta «%1».</translation>
    </message>
    <message>
        <source>Lade Picons %1/%2…</source>
        <translation>Cargando picons %1/%2…</translation>
    </message>
    <message>
        <source>Picons aus %1: %2 neu geladen, %3 vorhanden (%4 Dateien auf der Box).</source>
        <translation>Picons de %1: %2 cargados nuevos, %3 ya presentes (%4 archivos en el receptor).</translation>
    </message>
    <message>
        <source>Öffne Picon-Paket…</source>
        <translation>Abriendo el paquete de picons…</translation>
    </message>
    <message>
        <source>In „%1“ wurden keine Picons mit Service-Referenz-Namen (1_0_…png) gefunden.</source>
        <translation>No se encontraron en «%1» picons con nombre de referencia de servicio (1_0_…png).</translation>
    </message>
    <message>
        <source>Picon-Paket „%1“: %2 Picons, %3 passend zur Liste, Ziel %4.</source>
        <translation>Paquete de picons «%1»: %2 picons, %3 coinciden con la lista, destino %4.</translation>
    </message>
    <message>
        <source>Lade Picons hoch…</source>
        <translation>Subiendo picons…</translation>
    </message>
    <message>
        <source>Lade Picons hoch %1/%2…</source>
        <translation>Subiendo picons %1/%2…</translation>
    </message>
    <message>
        <source>%1 Picons nach %2 hochgeladen.</source>
        <translation>%1 picons subidos a %2.</translation>
    </message>
</context>
<context>
    <name>ServiceBrowser</name>
    <message>
        <source>Nur unbenutzte</source>
        <translation>Solo sin usar</translation>
    </message>
    <message>
        <source>Sender oder Anbieter suchen</source>
        <translation>Buscar canal o proveedor</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Posición</translation>
    </message>
    <message>
        <source>Spaltenbreiten zurücksetzen</source>
        <translation>Restablecer el ancho de las columnas</translation>
    </message>
    <message>
        <source>Zum Bouquet hinzufügen</source>
        <translation>Añadir al bouquet</translation>
    </message>
    <message>
        <source>%1 Sender zum Bouquet hinzufügen</source>
        <translation>Añadir %1 canales al bouquet</translation>
    </message>
    <message>
        <source>Sender umbenennen…</source>
        <translation>Renombrar canal…</translation>
    </message>
    <message>
        <source>Sender aus der lamedb löschen…</source>
        <translation>Eliminar canal de la lamedb…</translation>
    </message>
    <message>
        <source>%1 Sender aus der lamedb löschen…</source>
        <translation>Eliminar %1 canales de la lamedb…</translation>
    </message>
    <message>
        <source>Alle</source>
        <translation>Todas</translation>
    </message>
    <message>
        <source>Sender umbenennen</source>
        <translation>Renombrar canal</translation>
    </message>
    <message>
        <source>Neuer Name für „%1“:</source>
        <translation>Nuevo nombre para «%1»:</translation>
    </message>
    <message>
        <source>Umbenennen</source>
        <translation>Renombrar</translation>
    </message>
    <message>
        <source>Einträge in Bouquets werden dabei mit entfernt.</source>
        <translation>También se quitan sus entradas en los bouquets.</translation>
    </message>
    <message>
        <source>Sender: %1 · Einträge in Bouquets: %2</source>
        <translation>Canales: %1 · entradas en bouquets: %2</translation>
    </message>
    <message>
        <source>Sender aus der lamedb löschen?</source>
        <translation>¿Eliminar los canales de la lamedb?</translation>
    </message>
    <message>
        <source>Löschen</source>
        <translation>Eliminar</translation>
    </message>
</context>
<context>
    <name>ServiceTableModel</name>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Anbieter</source>
        <translation>Proveedor</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Posición</translation>
    </message>
    <message>
        <source>In Bouquets</source>
        <translation>En bouquets</translation>
    </message>
</context>
<context>
    <name>SettingsView</name>
    <message>
        <source>Einstellungen</source>
        <translation>Ajustes</translation>
    </message>
    <message>
        <source>IP-Adresse oder Hostname</source>
        <translation>Dirección IP o nombre de host</translation>
    </message>
    <message>
        <source>Kein Schlüsselbund erreichbar: Das Passwort wird unverschlüsselt in %1 gespeichert.</source>
        <translation>No hay ningún llavero disponible: la contraseña se guarda sin cifrar en %1.</translation>
    </message>
    <message>
        <source>Verbindung testen</source>
        <translation>Probar la conexión</translation>
    </message>
    <message>
        <source>Adresse</source>
        <translation>Dirección</translation>
    </message>
    <message>
        <source>Benutzer</source>
        <translation>Usuario</translation>
    </message>
    <message>
        <source>Passwort</source>
        <translation>Contraseña</translation>
    </message>
    <message>
        <source>Box</source>
        <translation>Receptor</translation>
    </message>
    <message>
        <source>Beim Start zuletzt verwendete Liste laden</source>
        <translation>Cargar la última lista usada al iniciar</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Inicio</translation>
    </message>
    <message>
        <source>automatisch, z. B. /media/hdd/picon/</source>
        <translation>automático, p. ej. /media/hdd/picon/</translation>
    </message>
    <message>
        <source>FTP-Port</source>
        <translation>Puerto FTP</translation>
    </message>
    <message>
        <source>HTTP-Port (OpenWebif)</source>
        <translation>Puerto HTTP (OpenWebif)</translation>
    </message>
    <message>
        <source>Telnet-Port</source>
        <translation>Puerto Telnet</translation>
    </message>
    <message>
        <source>Verzeichnis</source>
        <translation>Directorio</translation>
    </message>
    <message>
        <source>Picon-Verzeichnis</source>
        <translation>Directorio de picons</translation>
    </message>
    <message>
        <source>Erweitert</source>
        <translation>Avanzado</translation>
    </message>
    <message>
        <source>Links</source>
        <translation>Izquierda</translation>
    </message>
    <message>
        <source>Rechts</source>
        <translation>Derecha</translation>
    </message>
    <message>
        <source>Bouquetleiste</source>
        <translation>Barra de bouquets</translation>
    </message>
    <message>
        <source>Erscheinungsbild</source>
        <translation>Aspecto</translation>
    </message>
    <message>
        <source>Darstellung</source>
        <translation>Visualización</translation>
    </message>
    <message>
        <source>Die neue Sprache gilt nach einem Neustart der App.</source>
        <translation>El nuevo idioma se aplica tras reiniciar la aplicación.</translation>
    </message>
    <message>
        <source>App jetzt neu starten</source>
        <translation>Reiniciar la aplicación ahora</translation>
    </message>
    <message>
        <source>Sprache</source>
        <translation>Idioma</translation>
    </message>
</context>
<context>
    <name>Sheets</name>
    <message>
        <source>Abbrechen</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>StagingFolder</name>
    <message>
        <source>Im Ordner „%1“ kann nichts angelegt werden: %2</source>
        <translation>No se puede crear nada en la carpeta «%1»: %2</translation>
    </message>
    <message>
        <source>Der Ordner „%1“ konnte nicht angelegt werden.</source>
        <translation>No se pudo crear la carpeta «%1».</translation>
    </message>
    <message>
        <source>Der Ordner „%1“ konnte nicht ersetzt werden.</source>
        <translation>No se pudo reemplazar la carpeta «%1».</translation>
    </message>
    <message>
        <source>Der Ordner „%1“ konnte nicht gelesen werden.</source>
        <translation>No se pudo leer la carpeta «%1».</translation>
    </message>
    <message>
        <source>„%1“ konnte nicht kopiert werden.</source>
        <translation>No se pudo copiar «%1».</translation>
    </message>
</context>
<context>
    <name>Store</name>
    <message>
        <source>Der Ordner „%1“ konnte nicht angelegt werden.</source>
        <translation>No se pudo crear la carpeta «%1».</translation>
    </message>
    <message>
        <source>Gespeichert in %1.</source>
        <translation>Guardado en %1.</translation>
    </message>
    <message>
        <source>„%1“ konnte nicht geladen werden: %2</source>
        <translation>No se pudo cargar «%1»: %2</translation>
    </message>
    <message>
        <source>Keine Senderliste geladen.</source>
        <translation>No hay ninguna lista de canales cargada.</translation>
    </message>
    <message>
        <source>Unter-Bouquet</source>
        <translation>Sub-bouquet</translation>
    </message>
    <message>
        <source>Unbekannt (%1)</source>
        <translation>Desconocido (%1)</translation>
    </message>
    <message>
        <source>Sender in „%1“ umbenannt – auf die Box kommt das mit „Senden“.</source>
        <translation>Canal renombrado a «%1»: con «Enviar» llega al receptor.</translation>
    </message>
    <message>
        <source>%1 Sender gelöscht – auf die Box kommt das mit „Senden“.</source>
        <translation>%1 canales eliminados: con «Enviar» llega al receptor.</translation>
    </message>
    <message>
        <source>%1 Sender (%2), %3 TV- und %4 Radio-Bouquets geladen.</source>
        <translation>%1 canales (%2), %3 bouquets de TV y %4 de radio cargados.</translation>
    </message>
    <message>
        <source> Hinweis: lamedb und lamedb5 enthalten unterschiedliche Sender.</source>
        <translation> Nota: lamedb y lamedb5 contienen canales distintos.</translation>
    </message>
    <message>
        <source> Fehlende Dateien: </source>
        <translation> Archivos que faltan: </translation>
    </message>
    <message>
        <source>Box-Kopie %1</source>
        <translation>Copia del receptor %1</translation>
    </message>
    <message>
        <source>Zuletzt verwendete Liste geladen (%1). </source>
        <translation>Última lista usada cargada (%1). </translation>
    </message>
    <message>
        <source>Speichere…</source>
        <translation>Guardando…</translation>
    </message>
    <message>
        <source>Unbekannter Fehler.</source>
        <translation>Error desconocido.</translation>
    </message>
</context>
<context>
    <name>TelnetError</name>
    <message>
        <source>Telnet: Keine Verbindung zu Port %1. Ist Telnet auf der Box aktiviert?</source>
        <translation>Telnet: sin conexión al puerto %1. ¿Está Telnet activado en el receptor?</translation>
    </message>
    <message>
        <source>Telnet: Zeitüberschreitung – keine Antwort von der Box.</source>
        <translation>Telnet: tiempo agotado, sin respuesta del receptor.</translation>
    </message>
    <message>
        <source>Telnet: Anmeldung fehlgeschlagen. Benutzer und Passwort prüfen.</source>
        <translation>Telnet: falló el inicio de sesión. Comprueba el usuario y la contraseña.</translation>
    </message>
    <message>
        <source>Telnet: Die Box hat die Verbindung getrennt.</source>
        <translation>Telnet: el receptor cerró la conexión.</translation>
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
        <translation>Terrestre</translation>
    </message>
</context>
<context>
    <name>WebIf</name>
    <message>
        <source>Zeitüberschreitung bei der Anforderung.</source>
        <translation>Se agotó el tiempo de espera de la solicitud.</translation>
    </message>
    <message>
        <source>Es konnte keine Verbindung zum Server hergestellt werden.</source>
        <translation>No se pudo conectar con el servidor.</translation>
    </message>
    <message>
        <source>Es wurde kein Server mit dem angegebenen Hostnamen gefunden.</source>
        <translation>No se encontró ningún servidor con el nombre de host indicado.</translation>
    </message>
    <message>
        <source>Die Netzwerkverbindung wurde unterbrochen.</source>
        <translation>Se perdió la conexión de red.</translation>
    </message>
</context>
<context>
    <name>Zapper</name>
    <message>
        <source>Umschalten fehlgeschlagen: %1</source>
        <translation>Falló el cambio de canal: %1</translation>
    </message>
    <message>
        <source>Box auf „%1“ umgeschaltet.</source>
        <translation>Receptor cambiado a «%1».</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Bearbeitet die Senderlisten von Enigma2-Receivern.</source>
        <translation>Edita las listas de canales de receptores Enigma2.</translation>
    </message>
    <message>
        <source>ORDNER</source>
        <translation>CARPETA</translation>
    </message>
    <message>
        <source>Der Listenordner, der geöffnet wird (sonst die zuletzt verwendete Liste).</source>
        <translation>La carpeta de lista que se abre (si no, la última lista usada).</translation>
    </message>
    <message>
        <source>[ORDNER]</source>
        <translation>[CARPETA]</translation>
    </message>
    <message>
        <source>„%1“ ist kein Ordner.</source>
        <translation>«%1» no es una carpeta.</translation>
    </message>
</context>
</TS>
