<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>Storage</name>
    <message>
        <source>noRoom</source>
        <translation>Auf der Festplatte ist kein Platz mehr.</translation>
    </message>
    <message>
        <source>noPermission</source>
        <translation>Die Datei oder ihr Ordner lässt sich mit deinen Rechten nicht beschreiben.</translation>
    </message>
    <message>
        <source>linkToNothing</source>
        <translation>Die Datei ist eine Verknüpfung, die ins Leere führt.</translation>
    </message>
    <message>
        <source>notAFile</source>
        <translation>An der Stelle der Datei steht keine gewöhnliche Datei.</translation>
    </message>
    <message>
        <source>wordsAreSafe</source>
        <translation>Deine Wörter sind sicher, solange Tavimo geöffnet bleibt. Die nächste Änderung versucht es noch einmal.</translation>
    </message>
    <message>
        <source>newestBackup</source>
        <translation>Die neueste Sicherung, die sich öffnen lässt: %1</translation>
    </message>
</context>
</TS>
