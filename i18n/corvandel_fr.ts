<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="de">
<context>
    <name>Appearance</name>
    <message>
        <source>Hell</source>
        <translation>Clair</translation>
    </message>
    <message>
        <source>Dunkel</source>
        <translation>Sombre</translation>
    </message>
    <message>
        <source>Automatisch</source>
        <translation>Automatique</translation>
    </message>
</context>
<context>
    <name>Backups</name>
    <message>
        <source>Der Ordner „%1“ konnte nicht angelegt werden.</source>
        <translation>Le dossier «&#xa0;%1&#xa0;» n’a pas pu être créé.</translation>
    </message>
    <message>
        <source>Sichere %1 (%2/%3)…</source>
        <translation>Sauvegarde de %1 (%2/%3)…</translation>
    </message>
    <message>
        <source>Sichere die Liste auf der Box…</source>
        <translation>Sauvegarde de la liste du récepteur…</translation>
    </message>
    <message>
        <source>Liste von %1 gesichert.</source>
        <translation>Liste de %1 sauvegardée.</translation>
    </message>
    <message>
        <source>Sicherung vom %1 geladen – mit „Senden“ auf die Box zurückspielen.</source>
        <translation>Sauvegarde du %1 chargée – utilisez «&#xa0;Envoyer&#xa0;» pour la restaurer sur le récepteur.</translation>
    </message>
</context>
<context>
    <name>BoxCommand</name>
    <message>
        <source>„%1“ ist kein Ordner.</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un dossier.</translation>
    </message>
    <message>
        <source>Die Box hat ihre Senderliste neu geladen (Modus %1).</source>
        <translation>Le récepteur a rechargé sa liste de chaînes (mode %1).</translation>
    </message>
    <message>
        <source>Lade Bouquets auf der Box neu…</source>
        <translation>Rechargement des bouquets sur le récepteur…</translation>
    </message>
</context>
<context>
    <name>BoxControlView</name>
    <message>
        <source>Standby an/aus</source>
        <translation>Veille marche/arrêt</translation>
    </message>
    <message>
        <source>Schaltet die Box in den Standby bzw. weckt sie auf</source>
        <translation>Met le récepteur en veille ou le réveille</translation>
    </message>
    <message>
        <source>Standby umgeschaltet.</source>
        <translation>Veille basculée.</translation>
    </message>
    <message>
        <source>Enigma2 neu starten</source>
        <translation>Redémarrer Enigma2</translation>
    </message>
    <message>
        <source>Startet nur die Enigma2-Oberfläche neu (ca. 30 s)</source>
        <translation>Redémarre seulement l’interface Enigma2 (env. 30 s)</translation>
    </message>
    <message>
        <source>Enigma2 wirklich neu starten?</source>
        <translation>Vraiment redémarrer Enigma2&#x202f;?</translation>
    </message>
    <message>
        <source>Enigma2 startet neu – das dauert etwa 30 Sekunden.</source>
        <translation>Enigma2 redémarre – cela prend environ 30 secondes.</translation>
    </message>
    <message>
        <source>Box neu starten</source>
        <translation>Redémarrer le récepteur</translation>
    </message>
    <message>
        <source>Startet den kompletten Receiver neu (ca. 1 Minute)</source>
        <translation>Redémarre tout le récepteur (env. 1 minute)</translation>
    </message>
    <message>
        <source>Box wirklich neu starten?</source>
        <translation>Vraiment redémarrer le récepteur&#x202f;?</translation>
    </message>
    <message>
        <source>Die Box startet neu – das dauert etwa eine Minute.</source>
        <translation>Le récepteur redémarre – cela prend environ une minute.</translation>
    </message>
    <message>
        <source>Laufzeit und Last</source>
        <translation>Durée de fonctionnement et charge</translation>
    </message>
    <message>
        <source>Freier Speicherplatz</source>
        <translation>Espace disque libre</translation>
    </message>
    <message>
        <source>Arbeitsspeicher</source>
        <translation>Mémoire vive</translation>
    </message>
    <message>
        <source>Image-Version</source>
        <translation>Version de l’image</translation>
    </message>
    <message>
        <source>Enigma2 neu starten (init)</source>
        <translation>Redémarrer Enigma2 (init)</translation>
    </message>
    <message>
        <source>Bouquet-Dateien auflisten</source>
        <translation>Lister les fichiers de bouquets</translation>
    </message>
    <message>
        <source>Box-Steuerung</source>
        <translation>Contrôle du récepteur</translation>
    </message>
    <message>
        <source>Aktueller Sender</source>
        <translation>Chaîne actuelle</translation>
    </message>
    <message>
        <source>Signal (SNR)</source>
        <translation>Signal (SNR)</translation>
    </message>
    <message>
        <source>Pegel (AGC)</source>
        <translation>Niveau (AGC)</translation>
    </message>
    <message>
        <source>Bitfehler (BER)</source>
        <translation>Erreurs binaires (BER)</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>État</translation>
    </message>
    <message>
        <source>Aktionen</source>
        <translation>Actions</translation>
    </message>
    <message>
        <source>Vorlagen</source>
        <translation>Modèles</translation>
    </message>
    <message>
        <source>Befehl, z. B. uptime</source>
        <translation>Commande, p. ex. uptime</translation>
    </message>
    <message>
        <source>Ausführen</source>
        <translation>Exécuter</translation>
    </message>
    <message>
        <source>Ausgabe erscheint hier.</source>
        <translation>La sortie s’affiche ici.</translation>
    </message>
    <message>
        <source>Eigener Befehl (Telnet)</source>
        <translation>Commande personnalisée (Telnet)</translation>
    </message>
    <message>
        <source>Laufende Aufnahmen werden unterbrochen, nicht gespeicherte Timer und der EPG-Cache können verloren gehen.</source>
        <translation>Les enregistrements en cours sont interrompus&#x202f;; les programmations non enregistrées et le cache EPG peuvent être perdus.</translation>
    </message>
    <message>
        <source>(keine Ausgabe)</source>
        <translation>(aucune sortie)</translation>
    </message>
    <message>
        <source>Fehler: </source>
        <translation>Erreur&#xa0;: </translation>
    </message>
    <message>
        <source>Box nicht erreichbar: </source>
        <translation>Récepteur injoignable&#xa0;: </translation>
    </message>
</context>
<context>
    <name>BoxError</name>
    <message>
        <source>FTP-Fehler: </source>
        <translation>Erreur FTP&#xa0;: </translation>
    </message>
    <message>
        <source>HTTP-Fehler %1 beim Neuladen der Senderliste.</source>
        <translation>Erreur HTTP %1 lors du rechargement de la liste de chaînes.</translation>
    </message>
    <message>
        <source>Bitte zuerst in den Einstellungen die IP-Adresse der Box eintragen.</source>
        <translation>Veuillez d’abord saisir l’adresse IP du récepteur dans les paramètres.</translation>
    </message>
</context>
<context>
    <name>BoxSync</name>
    <message>
        <source>Teste Verbindung…</source>
        <translation>Test de la connexion…</translation>
    </message>
    <message>
        <source>Lade von der Box…</source>
        <translation>Chargement depuis le récepteur…</translation>
    </message>
    <message>
        <source>Sichere die Liste auf der Box…</source>
        <translation>Sauvegarde de la liste du récepteur…</translation>
    </message>
    <message>
        <source>Repariere Zeichen in der lamedb…</source>
        <translation>Réparation des caractères de la lamedb…</translation>
    </message>
    <message>
        <source>In der lamedb gibt es keine falsch kodierten Zeichen.</source>
        <translation>La lamedb ne contient aucun caractère mal encodé.</translation>
    </message>
    <message>
        <source>Verbindung OK: %1 Dateien in %2</source>
        <translation>Connexion OK&#xa0;: %1 fichiers dans %2</translation>
    </message>
    <message>
        <source>, lamedb gefunden.</source>
        <translation>, lamedb trouvée.</translation>
    </message>
    <message>
        <source>, aber keine lamedb!</source>
        <translation>, mais aucune lamedb&#x202f;!</translation>
    </message>
    <message>
        <source>Weder lamedb noch lamedb5 im Verzeichnis %1 auf der Box gefunden.</source>
        <translation>Ni lamedb ni lamedb5 trouvée dans le dossier %1 du récepteur.</translation>
    </message>
    <message>
        <source>Lade %1 (%2/%3)…</source>
        <translation>Chargement de %1 (%2/%3)…</translation>
    </message>
    <message>
        <source>Lade satellites.xml…</source>
        <translation>Chargement de satellites.xml…</translation>
    </message>
    <message>
        <source>Von %1 geladen: %2</source>
        <translation>Chargé depuis %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Sicherung fehlgeschlagen, es wurde nichts gesendet: %1</source>
        <translation>Échec de la sauvegarde, rien n’a été envoyé&#xa0;: %1</translation>
    </message>
    <message>
        <source>Sende an die Box…</source>
        <translation>Envoi vers le récepteur…</translation>
    </message>
    <message>
        <source>Sende %1 (%2/%3)…</source>
        <translation>Envoi de %1 (%2/%3)…</translation>
    </message>
    <message>
        <source>Lade Bouquets auf der Box neu…</source>
        <translation>Rechargement des bouquets sur le récepteur…</translation>
    </message>
    <message>
        <source>%1 Dateien gesendet. Neuladen per HTTP fehlgeschlagen: %2</source>
        <translation>%1 fichiers envoyés. Échec du rechargement par HTTP&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 Dateien gesendet, Bouquets auf der Box neu geladen.</source>
        <translation>%1 fichiers envoyés, bouquets rechargés sur le récepteur.</translation>
    </message>
    <message>
        <source>Der Ordner „%1“ konnte nicht angelegt werden.</source>
        <translation>Le dossier «&#xa0;%1&#xa0;» n’a pas pu être créé.</translation>
    </message>
    <message>
        <source>Repariere %1…</source>
        <translation>Réparation de %1…</translation>
    </message>
    <message>
        <source>Nichts zu reparieren.</source>
        <translation>Rien à réparer.</translation>
    </message>
    <message>
        <source>Lade die Senderliste auf der Box neu…</source>
        <translation>Rechargement de la liste de chaînes sur le récepteur…</translation>
    </message>
    <message>
        <source>%1 Zeilen in der lamedb repariert und auf der Box neu geladen (vorher gesichert).</source>
        <translation>%1 lignes réparées dans la lamedb et rechargées sur le récepteur (sauvegarde faite avant).</translation>
    </message>
</context>
<context>
    <name>Commands</name>
    <message>
        <source>Zeigt diese Hilfe.</source>
        <translation>Affiche cette aide.</translation>
    </message>
    <message>
        <source>Adresse der Box.</source>
        <translation>Adresse du récepteur.</translation>
    </message>
    <message>
        <source>ADRESSE</source>
        <translation>ADRESSE</translation>
    </message>
    <message>
        <source>Benutzername für FTP und Web-Oberfläche.</source>
        <translation>Nom d’utilisateur pour FTP et l’interface web.</translation>
    </message>
    <message>
        <source>NAME</source>
        <translation>NOM</translation>
    </message>
    <message>
        <source>Port des FTP-Servers der Box.</source>
        <translation>Port du serveur FTP du récepteur.</translation>
    </message>
    <message>
        <source>PORT</source>
        <translation>PORT</translation>
    </message>
    <message>
        <source>Port der Web-Oberfläche der Box.</source>
        <translation>Port de l’interface web du récepteur.</translation>
    </message>
    <message>
        <source>Verzeichnis der Senderliste auf der Box.</source>
        <translation>Dossier de la liste de chaînes sur le récepteur.</translation>
    </message>
    <message>
        <source>VERZEICHNIS</source>
        <translation>DOSSIER</translation>
    </message>
    <message>
        <source>Datei, deren erste Zeile das Passwort ist.</source>
        <translation>Fichier dont la première ligne est le mot de passe.</translation>
    </message>
    <message>
        <source>DATEI</source>
        <translation>FICHIER</translation>
    </message>
    <message>
        <source>ORDNER</source>
        <translation>DOSSIER</translation>
    </message>
    <message>
        <source>Der Listenordner mit lamedb oder lamedb5 und den Bouquet-Dateien.</source>
        <translation>Le dossier de liste avec lamedb ou lamedb5 et les fichiers de bouquets.</translation>
    </message>
    <message>
        <source>Ohne Optionen gelten die Verbindungseinstellungen des Editors. Das Passwort kommt aus --password-file, sonst aus der Umgebungsvariablen CORVANDEL_PASSWORD, sonst aus dem Passwortspeicher des Editors; als Argument wird es nie angenommen. Der Fortschritt steht auf der Standardfehlerausgabe, eine Zeile je Datei.</source>
        <translation>Sans options, les paramètres de connexion de l’éditeur s’appliquent. Le mot de passe provient de --password-file, sinon de la variable d’environnement CORVANDEL_PASSWORD, sinon du stockage des mots de passe de l’éditeur&#x202f;; il n’est jamais accepté en argument. La progression s’affiche sur la sortie d’erreur standard, une ligne par fichier.</translation>
    </message>
    <message>
        <source>Zeigt die Statuszeile des Editors nach dem Öffnen und zählt Sender je Art und Position, Transponder, Bouquets und Einträge je Art, Markierungen, Unter-Bouquet-Verweise, Stream-Einträge, unbenutzte Sender und fehlende Bouquet-Dateien.</source>
        <translation>Affiche la ligne d’état de l’éditeur après l’ouverture et compte les chaînes par type et par position, les transpondeurs, les bouquets et les entrées par type, les marqueurs, les renvois vers des sous-bouquets, les entrées de flux, les chaînes inutilisées et les fichiers de bouquets manquants.</translation>
    </message>
    <message>
        <source>Gibt jeden Sender (Referenz, Typ, Name, Anbieter, Position) und jedes Bouquet beider Arten mit seinen Einträgen (Referenz, eigener Name, Anzeigename) in Dateireihenfolge aus.</source>
        <translation>Affiche chaque chaîne (référence, type, nom, fournisseur, position) et chaque bouquet des deux types avec ses entrées (référence, nom propre, nom affiché) dans l’ordre des fichiers.</translation>
    </message>
    <message>
        <source>Ein JSON-Dokument statt der Tabellen.</source>
        <translation>Un document JSON au lieu des tableaux.</translation>
    </message>
    <message>
        <source>Aufbau des JSON-Dokuments (nie übersetzt; &quot;description&quot; ist null ohne eigenen Namen):</source>
        <translation>Structure du document JSON (jamais traduit&#x202f;; &quot;description&quot; vaut null sans nom propre)&#xa0;:</translation>
    </message>
    <message>
        <source>Sucht, was vor dem Veröffentlichen behoben werden sollte, eine Zeile je Fund mit Datei und Zeilennummer.</source>
        <translation>Recherche ce qu’il faudrait corriger avant de publier, une ligne par problème avec le fichier et le numéro de ligne.</translation>
    </message>
    <message>
        <source>Exit-Status 0: nichts gefunden, 1: etwas gefunden, 2: der Ordner ist nicht lesbar.</source>
        <translation>Code de sortie 0&#xa0;: rien trouvé, 1&#xa0;: quelque chose trouvé, 2&#xa0;: le dossier est illisible.</translation>
    </message>
    <message>
        <source>Lädt die Senderliste von der Box wie der Editor in den Arbeitsordner der Box und kopiert ihre Dateien in ORDNER.</source>
        <translation>Charge la liste de chaînes depuis le récepteur dans le dossier de travail du récepteur, comme l’éditeur, et copie ses fichiers dans DOSSIER.</translation>
    </message>
    <message>
        <source>Der Ordner, in den die Liste kommt; er wird bei Bedarf angelegt.</source>
        <translation>Le dossier qui reçoit la liste&#x202f;; il est créé si nécessaire.</translation>
    </message>
    <message>
        <source>Öffnet ORDNER als Senderliste, sichert die Liste auf der Box, sendet, was das Speichern schreibt, und lässt die Box neu laden.</source>
        <translation>Ouvre DOSSIER comme liste de chaînes, sauvegarde la liste du récepteur, envoie ce que l’enregistrement écrit et fait recharger le récepteur.</translation>
    </message>
    <message>
        <source>Sichert die Liste auf der Box in einen neuen Ordner unter „Sicherungen“.</source>
        <translation>Sauvegarde la liste du récepteur dans un nouveau dossier sous «&#xa0;Sicherungen&#xa0;».</translation>
    </message>
    <message>
        <source>Lässt die Box ihre Senderliste über die Web-Oberfläche neu laden.</source>
        <translation>Fait recharger au récepteur sa liste de chaînes via l’interface web.</translation>
    </message>
    <message>
        <source>0: Senderdatenbank und Bouquets (Vorgabe), 1: nur die Senderdatenbank, 2: nur die Bouquets, 3: die Transponderdateien, 4: die Jugendschutzlisten.</source>
        <translation>0&#xa0;: base de chaînes et bouquets (par défaut), 1&#xa0;: seulement la base de chaînes, 2&#xa0;: seulement les bouquets, 3&#xa0;: les fichiers de transpondeurs, 4&#xa0;: les listes de contrôle parental.</translation>
    </message>
    <message>
        <source>Prüft die Verbindung und sucht die lamedb im Listenverzeichnis der Box.</source>
        <translation>Vérifie la connexion et cherche la lamedb dans le dossier de liste du récepteur.</translation>
    </message>
    <message>
        <source>Optionen:</source>
        <translation>Options&#xa0;:</translation>
    </message>
    <message>
        <source>Aufruf: corvandel-cli BEFEHL [Optionen] [ORDNER]</source>
        <translation>Usage&#xa0;: corvandel-cli COMMANDE [options] [DOSSIER]</translation>
    </message>
    <message>
        <source>Die Dateiarbeit des Corvandel-Editors ohne Fenster: Senderlisten von Enigma2-Receivern prüfen, lesen und mit der Box austauschen.</source>
        <translation>Le travail sur les fichiers de l’éditeur Corvandel, sans fenêtre&#xa0;: vérifier et lire les listes de chaînes des récepteurs Enigma2 et les échanger avec le récepteur.</translation>
    </message>
    <message>
        <source>Befehle:</source>
        <translation>Commandes&#xa0;:</translation>
    </message>
    <message>
        <source>Zeigt die Version.</source>
        <translation>Affiche la version.</translation>
    </message>
    <message>
        <source>„corvandel-cli BEFEHL --help“ zeigt die Optionen eines Befehls.</source>
        <translation>«&#xa0;corvandel-cli COMMANDE --help&#xa0;» affiche les options d’une commande.</translation>
    </message>
    <message>
        <source>[Optionen]</source>
        <translation>[options]</translation>
    </message>
    <message>
        <source>Aufruf: %1</source>
        <translation>Usage&#xa0;: %1</translation>
    </message>
    <message>
        <source>Argumente:</source>
        <translation>Arguments&#xa0;:</translation>
    </message>
    <message>
        <source>„%1“ ist keine Portnummer (1 bis 65535).</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un numéro de port (1 à 65535).</translation>
    </message>
    <message>
        <source>Die Passwortdatei „%1“ konnte nicht gelesen werden: %2</source>
        <translation>Le fichier de mot de passe «&#xa0;%1&#xa0;» n’a pas pu être lu&#xa0;: %2</translation>
    </message>
    <message>
        <source>„%1“ ist kein Modus (0 bis 4).</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un mode (0 à 4).</translation>
    </message>
    <message>
        <source>Es fehlt ein Befehl.</source>
        <translation>Il manque une commande.</translation>
    </message>
    <message>
        <source>Unbekannter Befehl „%1“.</source>
        <translation>Commande inconnue «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>„corvandel-cli --help“ zeigt alle Befehle.</source>
        <translation>«&#xa0;corvandel-cli --help&#xa0;» affiche toutes les commandes.</translation>
    </message>
    <message>
        <source>„corvandel-cli %1 --help“ zeigt den Aufruf.</source>
        <translation>«&#xa0;corvandel-cli %1 --help&#xa0;» affiche l’usage.</translation>
    </message>
    <message>
        <source>Unbekannte Option „%1“.</source>
        <translation>Option inconnue «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>%1 fehlt.</source>
        <translation>%1 manque.</translation>
    </message>
    <message>
        <source>Zu viele Argumente: %1</source>
        <translation>Trop d’arguments&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>EntryListView</name>
    <message>
        <source>Sender aus der Liste rechts hierher ziehen oder doppelklicken.</source>
        <translation>Faites glisser des chaînes ici depuis la liste de droite, ou double-cliquez dessus.</translation>
    </message>
</context>
<context>
    <name>FTPClient</name>
    <message>
        <source>Ungültiger Dateiname für die Box: </source>
        <translation>Nom de fichier non valable pour le récepteur&#xa0;: </translation>
    </message>
    <message>
        <source>curl konnte nicht gestartet werden: </source>
        <translation>curl n’a pas pu être lancé&#xa0;: </translation>
    </message>
    <message>
        <source>curl-Exitcode </source>
        <translation>code de sortie de curl </translation>
    </message>
</context>
<context>
    <name>LameDB</name>
    <message>
        <source>Unbekanntes lamedb-Format.</source>
        <translation>Format de lamedb inconnu.</translation>
    </message>
</context>
<context>
    <name>Language</name>
    <message>
        <source>Systemsprache</source>
        <translation>Langue du système</translation>
    </message>
</context>
<context>
    <name>ListCheck</name>
    <message>
        <source>Zeilenumbruch %1 mitten in der Zeile.</source>
        <translation>Saut de ligne %1 au milieu de la ligne.</translation>
    </message>
    <message>
        <source>Ein Anführungszeichen im Sendernamen zerbricht die Zeile.</source>
        <translation>Un guillemet dans le nom de la chaîne casse la ligne.</translation>
    </message>
    <message>
        <source>Die Zeichenreparatur würde „%1“ zu „%2“ machen.</source>
        <translation>La réparation des caractères transformerait «&#xa0;%1&#xa0;» en «&#xa0;%2&#xa0;».</translation>
    </message>
    <message>
        <source>Im Ordner liegt weder lamedb noch lamedb5: die Einträge werden mit keiner Senderdatenbank verglichen.</source>
        <translation>Le dossier ne contient ni lamedb ni lamedb5&#xa0;: les entrées ne sont comparées à aucune base de chaînes.</translation>
    </message>
    <message>
        <source>Die Bouquet-Datei „%1“ fehlt.</source>
        <translation>Le fichier de bouquet «&#xa0;%1&#xa0;» est manquant.</translation>
    </message>
    <message>
        <source>lamedb (%1 Sender) und lamedb5 (%2 Sender) enthalten unterschiedliche Sender.</source>
        <translation>lamedb (%1 chaînes) et lamedb5 (%2 chaînes) contiennent des chaînes différentes.</translation>
    </message>
    <message>
        <source>Sender fehlt in %1: %2</source>
        <translation>Chaîne absente de %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Derselbe Sender wie in Zeile %1: %2</source>
        <translation>La même chaîne qu’à la ligne %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Keine Indexdatei nennt diese Bouquet-Datei.</source>
        <translation>Aucun fichier d’index ne mentionne ce fichier de bouquet.</translation>
    </message>
    <message>
        <source>Keine Probleme gefunden.</source>
        <translation>Aucun problème trouvé.</translation>
    </message>
    <message>
        <source>Gefundene Probleme: %1</source>
        <translation>Problèmes trouvés&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>ListFolder</name>
    <message>
        <source>„%1“ konnte nicht gelesen werden: %2</source>
        <translation>«&#xa0;%1&#xa0;» n’a pas pu être lu&#xa0;: %2</translation>
    </message>
    <message>
        <source>Im Ordner liegt weder lamedb noch lamedb5.</source>
        <translation>Le dossier ne contient ni lamedb ni lamedb5.</translation>
    </message>
    <message>
        <source>„%1“ konnte nicht gespeichert werden: %2</source>
        <translation>«&#xa0;%1&#xa0;» n’a pas pu être enregistré&#xa0;: %2</translation>
    </message>
</context>
<context>
    <name>ListReport</name>
    <message>
        <source>ohne Position</source>
        <translation>sans position</translation>
    </message>
    <message>
        <source>Sender: %1 (TV: %2, Radio: %3)</source>
        <translation>Chaînes&#xa0;: %1 (TV&#xa0;: %2, radio&#xa0;: %3)</translation>
    </message>
    <message>
        <source>Sender je Position:</source>
        <translation>Chaînes par position&#xa0;:</translation>
    </message>
    <message>
        <source>Transponder: %1</source>
        <translation>Transpondeurs&#xa0;: %1</translation>
    </message>
    <message>
        <source>%1-Bouquets: %2 mit %3 Einträgen</source>
        <translation>Bouquets %1&#xa0;: %2 avec %3 entrées</translation>
    </message>
    <message>
        <source>Markierungen: %1</source>
        <translation>Marqueurs&#xa0;: %1</translation>
    </message>
    <message>
        <source>Unter-Bouquet-Verweise: %1</source>
        <translation>Renvois vers des sous-bouquets&#xa0;: %1</translation>
    </message>
    <message>
        <source>Stream-Einträge: %1</source>
        <translation>Entrées de flux&#xa0;: %1</translation>
    </message>
    <message>
        <source>Unbenutzte Sender: %1</source>
        <translation>Chaînes inutilisées&#xa0;: %1</translation>
    </message>
    <message>
        <source>Fehlende Bouquet-Dateien: %1</source>
        <translation>Fichiers de bouquets manquants&#xa0;: %1</translation>
    </message>
    <message>
        <source>%1 Sender aus %2:</source>
        <translation>%1 chaînes de %2&#xa0;:</translation>
    </message>
    <message>
        <source>Referenz</source>
        <translation>Référence</translation>
    </message>
    <message>
        <source>Typ</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Anbieter</source>
        <translation>Fournisseur</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>%1-Bouquet %2: „%3“, %4 Einträge</source>
        <translation>Bouquet %1 %2&#xa0;: «&#xa0;%3&#xa0;», %4 entrées</translation>
    </message>
    <message>
        <source>Nr.</source>
        <translation>N°</translation>
    </message>
    <message>
        <source>Eigener Name</source>
        <translation>Nom propre</translation>
    </message>
    <message>
        <source>Anzeigename</source>
        <translation>Nom affiché</translation>
    </message>
</context>
<context>
    <name>LogView</name>
    <message>
        <source>Protokoll</source>
        <translation>Journal</translation>
    </message>
    <message>
        <source>Nur Fehler</source>
        <translation>Erreurs seulement</translation>
    </message>
    <message>
        <source>Kopieren</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Protokoll in die Zwischenablage, z. B. für eine Fehlermeldung</source>
        <translation>Copie le journal dans le presse-papiers, p. ex. pour un rapport de bogue</translation>
    </message>
    <message>
        <source>Im Dateimanager zeigen</source>
        <translation>Afficher dans le gestionnaire de fichiers</translation>
    </message>
    <message>
        <source>Leeren</source>
        <translation>Vider</translation>
    </message>
    <message>
        <source>Keine Fehler – alles hat geklappt.</source>
        <translation>Aucune erreur – tout a fonctionné.</translation>
    </message>
    <message>
        <source>Noch keine Einträge.</source>
        <translation>Aucune entrée pour l’instant.</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>&amp;Datei</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>Listenordner öffnen…</source>
        <translation>Ouvrir un dossier de liste…</translation>
    </message>
    <message>
        <source>Zuletzt verwendet</source>
        <translation>Récemment utilisés</translation>
    </message>
    <message>
        <source>Speichern</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Speichern unter…</source>
        <translation>Enregistrer sous…</translation>
    </message>
    <message>
        <source>Einstellungen…</source>
        <translation>Paramètres…</translation>
    </message>
    <message>
        <source>Beenden</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>&amp;Bearbeiten</source>
        <translation>&amp;Édition</translation>
    </message>
    <message>
        <source>Rückgängig</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Wiederholen</source>
        <translation>Rétablir</translation>
    </message>
    <message>
        <source>Neues Bouquet</source>
        <translation>Nouveau bouquet</translation>
    </message>
    <message>
        <source>Markierung einfügen…</source>
        <translation>Insérer un marqueur…</translation>
    </message>
    <message>
        <source>Umbenennen…</source>
        <translation>Renommer…</translation>
    </message>
    <message>
        <source>Löschen</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Nach Namen sortieren</source>
        <translation>Trier par nom</translation>
    </message>
    <message>
        <source>&amp;Ansicht</source>
        <translation>&amp;Affichage</translation>
    </message>
    <message>
        <source>Sender suchen</source>
        <translation>Chercher une chaîne</translation>
    </message>
    <message>
        <source>Spaltenbreiten zurücksetzen</source>
        <translation>Réinitialiser la largeur des colonnes</translation>
    </message>
    <message>
        <source>Bo&amp;x</source>
        <translation>&amp;Récepteur</translation>
    </message>
    <message>
        <source>Senderliste von der Box laden</source>
        <translation>Charger la liste de chaînes depuis le récepteur</translation>
    </message>
    <message>
        <source>Bouquets an die Box senden</source>
        <translation>Envoyer les bouquets au récepteur</translation>
    </message>
    <message>
        <source>Box auf den Sender umschalten</source>
        <translation>Mettre le récepteur sur la chaîne</translation>
    </message>
    <message>
        <source>Verbindung testen</source>
        <translation>Tester la connexion</translation>
    </message>
    <message>
        <source>Sicherungen</source>
        <translation>Sauvegardes</translation>
    </message>
    <message>
        <source>Sicherung wiederherstellen</source>
        <translation>Restaurer une sauvegarde</translation>
    </message>
    <message>
        <source>Liste auf der Box jetzt sichern</source>
        <translation>Sauvegarder maintenant la liste du récepteur</translation>
    </message>
    <message>
        <source>Sicherungen im Dateimanager zeigen</source>
        <translation>Afficher les sauvegardes dans le gestionnaire de fichiers</translation>
    </message>
    <message>
        <source>Falsch kodierte Zeichen auf der Box reparieren…</source>
        <translation>Réparer les caractères mal encodés sur le récepteur…</translation>
    </message>
    <message>
        <source>Picons von der Box laden</source>
        <translation>Charger les picons depuis le récepteur</translation>
    </message>
    <message>
        <source>Picon-Paket hochladen…</source>
        <translation>Téléverser un paquet de picons…</translation>
    </message>
    <message>
        <source>Box-Steuerung…</source>
        <translation>Contrôle du récepteur…</translation>
    </message>
    <message>
        <source>Box-Steuerung: Signal, Neustart, eigene Befehle (%1)</source>
        <translation>Contrôle du récepteur&#xa0;: signal, redémarrage, commandes personnalisées (%1)</translation>
    </message>
    <message>
        <source>Protokoll</source>
        <translation>Journal</translation>
    </message>
    <message>
        <source>&amp;Hilfe</source>
        <translation>Aid&amp;e</translation>
    </message>
    <message>
        <source>Über Corvandel</source>
        <translation>À propos de Corvandel</translation>
    </message>
    <message>
        <source>Werkzeuge</source>
        <translation>Outils</translation>
    </message>
    <message>
        <source>Öffnen</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Laden</source>
        <translation>Charger</translation>
    </message>
    <message>
        <source>Senden</source>
        <translation>Envoyer</translation>
    </message>
    <message>
        <source>Bouquet</source>
        <translation>Bouquet</translation>
    </message>
    <message>
        <source>Umschalten</source>
        <translation>Basculer</translation>
    </message>
    <message>
        <source>Box</source>
        <translation>Récepteur</translation>
    </message>
    <message>
        <source>Einstellungen</source>
        <translation>Paramètres</translation>
    </message>
    <message>
        <source>Keine</source>
        <translation>Aucun</translation>
    </message>
    <message>
        <source>Keine Sicherungen</source>
        <translation>Aucune sauvegarde</translation>
    </message>
    <message>
        <source>%1 Zeilen in lamedb/lamedb5 enthalten Zeichen wie „19.2Â°E“. Sie werden korrigiert (z. B. „19.2°E“) und auf der Box gespeichert. Der bisherige Stand wird vorher gesichert, die Box lädt die Senderliste danach neu.</source>
        <translation>%1 lignes de lamedb/lamedb5 contiennent des caractères comme «&#xa0;19.2Â°E&#xa0;». Elles sont corrigées (p. ex. «&#xa0;19.2°E&#xa0;») et enregistrées sur le récepteur. L’état actuel est sauvegardé avant&#x202f;; le récepteur recharge ensuite la liste de chaînes.</translation>
    </message>
    <message>
        <source>Falsch kodierte Zeichen reparieren?</source>
        <translation>Réparer les caractères mal encodés&#x202f;?</translation>
    </message>
    <message>
        <source>Reparieren</source>
        <translation>Réparer</translation>
    </message>
    <message>
        <source>Umbenennen</source>
        <translation>Renommer</translation>
    </message>
    <message>
        <source>Löschen…</source>
        <translation>Supprimer…</translation>
    </message>
    <message>
        <source>Entfernen</source>
        <translation>Retirer</translation>
    </message>
    <message>
        <source>Änderungen verwerfen?</source>
        <translation>Abandonner les modifications&#x202f;?</translation>
    </message>
    <message>
        <source>Die Liste hat Änderungen, die weder gespeichert noch an die Box gesendet sind. Sie gehen verloren, wenn eine andere Liste geladen wird.</source>
        <translation>La liste contient des modifications qui ne sont ni enregistrées ni envoyées au récepteur. Elles seront perdues si une autre liste est chargée.</translation>
    </message>
    <message>
        <source>Verwerfen</source>
        <translation>Abandonner</translation>
    </message>
    <message>
        <source>Listenordner öffnen</source>
        <translation>Ouvrir un dossier de liste</translation>
    </message>
    <message>
        <source>Speichern unter</source>
        <translation>Enregistrer sous</translation>
    </message>
    <message>
        <source>Hier speichern</source>
        <translation>Enregistrer ici</translation>
    </message>
    <message>
        <source>Gespeichert in %1.</source>
        <translation>Enregistré dans %1.</translation>
    </message>
    <message>
        <source>Markierung einfügen</source>
        <translation>Insérer un marqueur</translation>
    </message>
    <message>
        <source>Text der Markierung:</source>
        <translation>Texte du marqueur&#xa0;:</translation>
    </message>
    <message>
        <source>Einfügen</source>
        <translation>Insérer</translation>
    </message>
    <message>
        <source>Eintrag umbenennen</source>
        <translation>Renommer l’entrée</translation>
    </message>
    <message>
        <source>Name (leer = Name aus der lamedb)</source>
        <translation>Nom (vide = nom de la lamedb)</translation>
    </message>
    <message>
        <source>Bouquet „%1“ löschen?</source>
        <translation>Supprimer le bouquet «&#xa0;%1&#xa0;»&#x202f;?</translation>
    </message>
    <message>
        <source>Das Bouquet mit seinen %1 Einträgen verschwindet aus der Liste; „Rückgängig“ holt es zurück.</source>
        <translation>Le bouquet et ses %1 entrées disparaissent de la liste&#x202f;; «&#xa0;Annuler&#xa0;» les fait revenir.</translation>
    </message>
    <message>
        <source>Corvandel %1
Bearbeitet die Senderlisten von Enigma2-Receivern.</source>
        <translation>Corvandel %1
Modifie les listes de chaînes des récepteurs Enigma2.</translation>
    </message>
    <message>
        <source>Trotzdem beenden?</source>
        <translation>Quitter quand même&#x202f;?</translation>
    </message>
    <message>
        <source>„%1“ läuft noch und wird abgebrochen.</source>
        <translation>«&#xa0;%1&#xa0;» est encore en cours et sera interrompu.</translation>
    </message>
    <message>
        <source>Die Liste hat Änderungen, die weder gespeichert noch an die Box gesendet sind.</source>
        <translation>La liste contient des modifications qui ne sont ni enregistrées ni envoyées au récepteur.</translation>
    </message>
    <message>
        <source>Vor dem Beenden speichern?</source>
        <translation>Enregistrer avant de quitter&#x202f;?</translation>
    </message>
    <message>
        <source>Abbrechen</source>
        <translation>Annuler</translation>
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
        <translation>Le paquet n’a pas pu être décompressé&#xa0;: </translation>
    </message>
</context>
<context>
    <name>PiconPackage</name>
    <message>
        <source>unbekannter Fehler</source>
        <translation>erreur inconnue</translation>
    </message>
    <message>
        <source>„%1“ hat einen absoluten Pfad.</source>
        <translation>«&#xa0;%1&#xa0;» a un chemin absolu.</translation>
    </message>
    <message>
        <source>„%1“ zeigt aus dem Paket heraus.</source>
        <translation>«&#xa0;%1&#xa0;» pointe hors du paquet.</translation>
    </message>
    <message>
        <source>Der Link „%1“ zeigt aus dem Paket heraus.</source>
        <translation>Le lien «&#xa0;%1&#xa0;» pointe hors du paquet.</translation>
    </message>
    <message>
        <source>Mehr als %1 GB – das ist kein Picon-Paket.</source>
        <translation>Plus de %1 Go – ce n’est pas un paquet de picons.</translation>
    </message>
    <message>
        <source>Der Ordner „%1“ fehlt.</source>
        <translation>Le dossier «&#xa0;%1&#xa0;» est manquant.</translation>
    </message>
    <message>
        <source>„%1“ gibt es nicht.</source>
        <translation>«&#xa0;%1&#xa0;» n’existe pas.</translation>
    </message>
    <message>
        <source>„%1“ liegt in dem Ordner, in den es entpackt würde.</source>
        <translation>«&#xa0;%1&#xa0;» se trouve dans le dossier où il serait décompressé.</translation>
    </message>
    <message>
        <source>Der Ordner „%1“ kann nicht angelegt werden.</source>
        <translation>Le dossier «&#xa0;%1&#xa0;» ne peut pas être créé.</translation>
    </message>
</context>
<context>
    <name>PiconPackageDialog</name>
    <message>
        <source>Picon-Paket wählen: ZIP, tar.gz, tar.xz, ipk – oder einen bereits entpackten Ordner</source>
        <translation>Choisir un paquet de picons&#xa0;: ZIP, tar.gz, tar.xz, ipk – ou un dossier déjà décompressé</translation>
    </message>
    <message>
        <source>Wählen</source>
        <translation>Choisir</translation>
    </message>
    <message>
        <source>Picon-Pakete (%1)</source>
        <translation>Paquets de picons (%1)</translation>
    </message>
    <message>
        <source>Alle Dateien (*)</source>
        <translation>Tous les fichiers (*)</translation>
    </message>
</context>
<context>
    <name>PiconUploadSheet</name>
    <message>
        <source>Picons hochladen</source>
        <translation>Téléverser des picons</translation>
    </message>
    <message>
        <source>Picon-Paket auf die Box hochladen</source>
        <translation>Téléverser un paquet de picons sur le récepteur</translation>
    </message>
    <message>
        <source>Paket:</source>
        <translation>Paquet&#xa0;:</translation>
    </message>
    <message>
        <source>Ziel auf der Box:</source>
        <translation>Destination sur le récepteur&#xa0;:</translation>
    </message>
    <message>
        <source>Inhalt:</source>
        <translation>Contenu&#xa0;:</translation>
    </message>
    <message>
        <source>Was soll auf die Box?</source>
        <translation>Qu’envoyer au récepteur&#x202f;?</translation>
    </message>
    <message>
        <source>Hochladen</source>
        <translation>Téléverser</translation>
    </message>
    <message>
        <source>Abbrechen</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>%1 Picons, davon %2 passend zu Sendern der Liste</source>
        <translation>%1 picons, dont %2 correspondant à des chaînes de la liste</translation>
    </message>
    <message>
        <source>Nur Picons für Sender der Liste (%1)</source>
        <translation>Seulement les picons des chaînes de la liste (%1)</translation>
    </message>
    <message>
        <source>Alle Picons des Pakets (%1)</source>
        <translation>Tous les picons du paquet (%1)</translation>
    </message>
    <message>
        <source>Vorhandene Picons auf der Box überschreiben (%1 schon dort)</source>
        <translation>Écraser les picons présents sur le récepteur (%1 déjà présents)</translation>
    </message>
    <message>
        <source>%1 Picons werden nach %2 hochgeladen.</source>
        <translation>%1 picons seront téléversés vers %2.</translation>
    </message>
    <message>
        <source>Nichts hochzuladen: die Box hat diese Picons schon.</source>
        <translation>Rien à téléverser&#xa0;: le récepteur a déjà ces picons.</translation>
    </message>
</context>
<context>
    <name>Picons</name>
    <message>
        <source>Suche Picons in %1…</source>
        <translation>Recherche de picons dans %1…</translation>
    </message>
    <message>
        <source>Keine Picons auf der Box gefunden. Geprüft: %1. </source>
        <translation>Aucun picon trouvé sur le récepteur. Vérifié&#xa0;: %1. </translation>
    </message>
    <message>
        <source>Das Verzeichnis kannst du in den Einstellungen angeben.</source>
        <translation>Vous pouvez indiquer le dossier dans les paramètres.</translation>
    </message>
    <message>
        <source>Bitte zuerst eine Senderliste laden – Picons werden passend zu den Sendern geladen.</source>
        <translation>Veuillez d’abord charger une liste de chaînes – les picons sont chargés d’après ses chaînes.</translation>
    </message>
    <message>
        <source>Suche Picons auf der Box…</source>
        <translation>Recherche de picons sur le récepteur…</translation>
    </message>
    <message>
        <source>Der Ordner „%1“ kann nicht angelegt werden.</source>
        <translation>Le dossier «&#xa0;%1&#xa0;» ne peut pas être créé.</translation>
    </message>
    <message>
        <source>Lade Picons %1/%2…</source>
        <translation>Chargement des picons %1/%2…</translation>
    </message>
    <message>
        <source>Picons aus %1: %2 neu geladen, %3 vorhanden (%4 Dateien auf der Box).</source>
        <translation>Picons de %1&#xa0;: %2 nouvellement chargés, %3 déjà présents (%4 fichiers sur le récepteur).</translation>
    </message>
    <message>
        <source>Öffne Picon-Paket…</source>
        <translation>Ouverture du paquet de picons…</translation>
    </message>
    <message>
        <source>In „%1“ wurden keine Picons mit Service-Referenz-Namen (1_0_…png) gefunden.</source>
        <translation>Aucun picon nommé d’après une référence de service (1_0_…png) n’a été trouvé dans «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>Picon-Paket „%1“: %2 Picons, %3 passend zur Liste, Ziel %4.</source>
        <translation>Paquet de picons «&#xa0;%1&#xa0;»&#xa0;: %2 picons, %3 correspondant à la liste, destination %4.</translation>
    </message>
    <message>
        <source>Lade Picons hoch…</source>
        <translation>Téléversement des picons…</translation>
    </message>
    <message>
        <source>Lade Picons hoch %1/%2…</source>
        <translation>Téléversement des picons %1/%2…</translation>
    </message>
    <message>
        <source>%1 Picons nach %2 hochgeladen.</source>
        <translation>%1 picons téléversés vers %2.</translation>
    </message>
</context>
<context>
    <name>ServiceBrowser</name>
    <message>
        <source>Nur unbenutzte</source>
        <translation>Inutilisées seulement</translation>
    </message>
    <message>
        <source>Sender oder Anbieter suchen</source>
        <translation>Chercher une chaîne ou un fournisseur</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Spaltenbreiten zurücksetzen</source>
        <translation>Réinitialiser la largeur des colonnes</translation>
    </message>
    <message>
        <source>Zum Bouquet hinzufügen</source>
        <translation>Ajouter au bouquet</translation>
    </message>
    <message>
        <source>%1 Sender zum Bouquet hinzufügen</source>
        <translation>Ajouter %1 chaînes au bouquet</translation>
    </message>
    <message>
        <source>Sender umbenennen…</source>
        <translation>Renommer la chaîne…</translation>
    </message>
    <message>
        <source>Sender aus der lamedb löschen…</source>
        <translation>Supprimer la chaîne de la lamedb…</translation>
    </message>
    <message>
        <source>%1 Sender aus der lamedb löschen…</source>
        <translation>Supprimer %1 chaînes de la lamedb…</translation>
    </message>
    <message>
        <source>Alle</source>
        <translation>Toutes</translation>
    </message>
    <message>
        <source>Sender umbenennen</source>
        <translation>Renommer la chaîne</translation>
    </message>
    <message>
        <source>Neuer Name für „%1“:</source>
        <translation>Nouveau nom pour «&#xa0;%1&#xa0;»&#xa0;:</translation>
    </message>
    <message>
        <source>Umbenennen</source>
        <translation>Renommer</translation>
    </message>
    <message>
        <source>Einträge in Bouquets werden dabei mit entfernt.</source>
        <translation>Leurs entrées dans les bouquets sont également retirées.</translation>
    </message>
    <message>
        <source>Sender: %1 · Einträge in Bouquets: %2</source>
        <translation>Chaînes&#xa0;: %1 · entrées dans les bouquets&#xa0;: %2</translation>
    </message>
    <message>
        <source>Sender aus der lamedb löschen?</source>
        <translation>Supprimer les chaînes de la lamedb&#x202f;?</translation>
    </message>
    <message>
        <source>Löschen</source>
        <translation>Supprimer</translation>
    </message>
</context>
<context>
    <name>ServiceTableModel</name>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Anbieter</source>
        <translation>Fournisseur</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>In Bouquets</source>
        <translation>Dans les bouquets</translation>
    </message>
</context>
<context>
    <name>SettingsView</name>
    <message>
        <source>Einstellungen</source>
        <translation>Paramètres</translation>
    </message>
    <message>
        <source>IP-Adresse oder Hostname</source>
        <translation>Adresse IP ou nom d’hôte</translation>
    </message>
    <message>
        <source>Kein Schlüsselbund erreichbar: Das Passwort wird unverschlüsselt in %1 gespeichert.</source>
        <translation>Aucun trousseau de clés disponible&#xa0;: le mot de passe est enregistré en clair dans %1.</translation>
    </message>
    <message>
        <source>Verbindung testen</source>
        <translation>Tester la connexion</translation>
    </message>
    <message>
        <source>Adresse</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Benutzer</source>
        <translation>Utilisateur</translation>
    </message>
    <message>
        <source>Passwort</source>
        <translation>Mot de passe</translation>
    </message>
    <message>
        <source>Box</source>
        <translation>Récepteur</translation>
    </message>
    <message>
        <source>Beim Start zuletzt verwendete Liste laden</source>
        <translation>Charger la dernière liste utilisée au démarrage</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Démarrage</translation>
    </message>
    <message>
        <source>automatisch, z. B. /media/hdd/picon/</source>
        <translation>automatique, p. ex. /media/hdd/picon/</translation>
    </message>
    <message>
        <source>FTP-Port</source>
        <translation>Port FTP</translation>
    </message>
    <message>
        <source>HTTP-Port (OpenWebif)</source>
        <translation>Port HTTP (OpenWebif)</translation>
    </message>
    <message>
        <source>Telnet-Port</source>
        <translation>Port Telnet</translation>
    </message>
    <message>
        <source>Verzeichnis</source>
        <translation>Dossier</translation>
    </message>
    <message>
        <source>Picon-Verzeichnis</source>
        <translation>Dossier des picons</translation>
    </message>
    <message>
        <source>Erweitert</source>
        <translation>Avancé</translation>
    </message>
    <message>
        <source>Links</source>
        <translation>À gauche</translation>
    </message>
    <message>
        <source>Rechts</source>
        <translation>À droite</translation>
    </message>
    <message>
        <source>Bouquetleiste</source>
        <translation>Barre des bouquets</translation>
    </message>
    <message>
        <source>Erscheinungsbild</source>
        <translation>Apparence</translation>
    </message>
    <message>
        <source>Darstellung</source>
        <translation>Affichage</translation>
    </message>
    <message>
        <source>Die neue Sprache gilt nach einem Neustart der App.</source>
        <translation>La nouvelle langue s’applique après un redémarrage de l’application.</translation>
    </message>
    <message>
        <source>App jetzt neu starten</source>
        <translation>Redémarrer l’application maintenant</translation>
    </message>
    <message>
        <source>Sprache</source>
        <translation>Langue</translation>
    </message>
</context>
<context>
    <name>Sheets</name>
    <message>
        <source>Abbrechen</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>StagingFolder</name>
    <message>
        <source>Im Ordner „%1“ kann nichts angelegt werden: %2</source>
        <translation>Impossible de créer quoi que ce soit dans le dossier «&#xa0;%1&#xa0;»&#xa0;: %2</translation>
    </message>
    <message>
        <source>Der Ordner „%1“ konnte nicht angelegt werden.</source>
        <translation>Le dossier «&#xa0;%1&#xa0;» n’a pas pu être créé.</translation>
    </message>
    <message>
        <source>Der Ordner „%1“ konnte nicht ersetzt werden.</source>
        <translation>Le dossier «&#xa0;%1&#xa0;» n’a pas pu être remplacé.</translation>
    </message>
    <message>
        <source>Der Ordner „%1“ konnte nicht gelesen werden.</source>
        <translation>Le dossier «&#xa0;%1&#xa0;» n’a pas pu être lu.</translation>
    </message>
    <message>
        <source>„%1“ konnte nicht kopiert werden.</source>
        <translation>«&#xa0;%1&#xa0;» n’a pas pu être copié.</translation>
    </message>
</context>
<context>
    <name>Store</name>
    <message>
        <source>Der Ordner „%1“ konnte nicht angelegt werden.</source>
        <translation>Le dossier «&#xa0;%1&#xa0;» n’a pas pu être créé.</translation>
    </message>
    <message>
        <source>Gespeichert in %1.</source>
        <translation>Enregistré dans %1.</translation>
    </message>
    <message>
        <source>„%1“ konnte nicht geladen werden: %2</source>
        <translation>«&#xa0;%1&#xa0;» n’a pas pu être chargé&#xa0;: %2</translation>
    </message>
    <message>
        <source>Keine Senderliste geladen.</source>
        <translation>Aucune liste de chaînes chargée.</translation>
    </message>
    <message>
        <source>Unter-Bouquet</source>
        <translation>Sous-bouquet</translation>
    </message>
    <message>
        <source>Unbekannt (%1)</source>
        <translation>Inconnu (%1)</translation>
    </message>
    <message>
        <source>Sender in „%1“ umbenannt – auf die Box kommt das mit „Senden“.</source>
        <translation>Chaîne renommée en «&#xa0;%1&#xa0;» – «&#xa0;Envoyer&#xa0;» l’applique sur le récepteur.</translation>
    </message>
    <message>
        <source>%1 Sender gelöscht – auf die Box kommt das mit „Senden“.</source>
        <translation>%1 chaînes supprimées – «&#xa0;Envoyer&#xa0;» l’applique sur le récepteur.</translation>
    </message>
    <message>
        <source>%1 Sender (%2), %3 TV- und %4 Radio-Bouquets geladen.</source>
        <translation>%1 chaînes (%2), %3 bouquets TV et %4 bouquets radio chargés.</translation>
    </message>
    <message>
        <source> Hinweis: lamedb und lamedb5 enthalten unterschiedliche Sender.</source>
        <translation> Remarque&#xa0;: lamedb et lamedb5 contiennent des chaînes différentes.</translation>
    </message>
    <message>
        <source> Fehlende Dateien: </source>
        <translation> Fichiers manquants&#xa0;: </translation>
    </message>
    <message>
        <source>Box-Kopie %1</source>
        <translation>Copie du récepteur %1</translation>
    </message>
    <message>
        <source>Zuletzt verwendete Liste geladen (%1). </source>
        <translation>Dernière liste utilisée chargée (%1). </translation>
    </message>
    <message>
        <source>Speichere…</source>
        <translation>Enregistrement…</translation>
    </message>
    <message>
        <source>Unbekannter Fehler.</source>
        <translation>Erreur inconnue.</translation>
    </message>
</context>
<context>
    <name>TelnetError</name>
    <message>
        <source>Telnet: Keine Verbindung zu Port %1. Ist Telnet auf der Box aktiviert?</source>
        <translation>Telnet&#xa0;: pas de connexion au port %1. Telnet est-il activé sur le récepteur&#x202f;?</translation>
    </message>
    <message>
        <source>Telnet: Zeitüberschreitung – keine Antwort von der Box.</source>
        <translation>Telnet&#xa0;: délai dépassé – aucune réponse du récepteur.</translation>
    </message>
    <message>
        <source>Telnet: Anmeldung fehlgeschlagen. Benutzer und Passwort prüfen.</source>
        <translation>Telnet&#xa0;: échec de la connexion. Vérifiez l’utilisateur et le mot de passe.</translation>
    </message>
    <message>
        <source>Telnet: Die Box hat die Verbindung getrennt.</source>
        <translation>Telnet&#xa0;: le récepteur a fermé la connexion.</translation>
    </message>
</context>
<context>
    <name>Transponder</name>
    <message>
        <source>Kabel</source>
        <translation>Câble</translation>
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
        <translation>Le délai de la requête a expiré.</translation>
    </message>
    <message>
        <source>Es konnte keine Verbindung zum Server hergestellt werden.</source>
        <translation>Impossible de se connecter au serveur.</translation>
    </message>
    <message>
        <source>Es wurde kein Server mit dem angegebenen Hostnamen gefunden.</source>
        <translation>Aucun serveur portant le nom d’hôte indiqué n’a été trouvé.</translation>
    </message>
    <message>
        <source>Die Netzwerkverbindung wurde unterbrochen.</source>
        <translation>La connexion réseau a été interrompue.</translation>
    </message>
</context>
<context>
    <name>Zapper</name>
    <message>
        <source>Umschalten fehlgeschlagen: %1</source>
        <translation>Échec du changement de chaîne&#xa0;: %1</translation>
    </message>
    <message>
        <source>Box auf „%1“ umgeschaltet.</source>
        <translation>Récepteur mis sur «&#xa0;%1&#xa0;».</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Bearbeitet die Senderlisten von Enigma2-Receivern.</source>
        <translation>Modifie les listes de chaînes des récepteurs Enigma2.</translation>
    </message>
    <message>
        <source>ORDNER</source>
        <translation>DOSSIER</translation>
    </message>
    <message>
        <source>Der Listenordner, der geöffnet wird (sonst die zuletzt verwendete Liste).</source>
        <translation>Le dossier de liste à ouvrir (sinon la dernière liste utilisée).</translation>
    </message>
    <message>
        <source>[ORDNER]</source>
        <translation>[DOSSIER]</translation>
    </message>
    <message>
        <source>„%1“ ist kein Ordner.</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un dossier.</translation>
    </message>
</context>
</TS>
