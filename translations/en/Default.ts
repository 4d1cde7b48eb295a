<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>Default</name>
    <message>
        <source>unknownLanguage</source>
        <translation>Unknown language</translation>
    </message>
    <message>
        <source>yourLanguageName</source>
        <translation>Your language</translation>
    </message>
</context>
</TS>
