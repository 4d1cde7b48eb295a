<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>Default</name>
    <message>
        <source>unknownLanguage</source>
        <translation>Unbekannte Sprache</translation>
    </message>
    <message>
        <source>yourLanguageName</source>
        <translation>Deine Sprache</translation>
    </message>
</context>
</TS>
