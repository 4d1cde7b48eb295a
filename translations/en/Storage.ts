<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>Storage</name>
    <message>
        <source>noRoom</source>
        <translation>There is no room left on the disk.</translation>
    </message>
    <message>
        <source>noPermission</source>
        <translation>The file or its folder can't be written to with your rights.</translation>
    </message>
    <message>
        <source>linkToNothing</source>
        <translation>The file is a link that leads nowhere.</translation>
    </message>
    <message>
        <source>notAFile</source>
        <translation>What stands in the file's place is not an ordinary file.</translation>
    </message>
    <message>
        <source>wordsAreSafe</source>
        <translation>Your words are safe as long as Tavimo stays open. The next change tries again.</translation>
    </message>
    <message>
        <source>newestBackup</source>
        <translation>The newest backup that opens: %1</translation>
    </message>
</context>
</TS>
