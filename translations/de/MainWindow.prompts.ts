<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>MainWindow</name>
    <message>
        <source>dismissInfo</source>
        <translation>Nicht mehr zeigen</translation>
    </message>
    <message>
        <source>feedbackPrompt</source>
        <translation>Schreib uns, was dir fehlt. Wir lesen jede Mail.</translation>
    </message>
    <message>
        <source>howDoYouLikeIt</source>
        <translation>Wie gefällt dir Tavimo?</translation>
    </message>
    <message>
        <source>loveit</source>
        <translation>Ich mag es</translation>
    </message>
    <message>
        <source>rateit</source>
        <translation>Tavimo bewerten</translation>
    </message>
    <message>
        <source>ratePrompt</source>
        <translation>Das freut uns! Eine Bewertung hilft anderen, Tavimo zu finden.</translation>
    </message>
    <message>
        <source>unhappy</source>
        <translation>Nicht so sehr</translation>
    </message>
    <message>
        <source>writeMail</source>
        <translation>Mail schreiben</translation>
    </message>
</context>
</TS>
