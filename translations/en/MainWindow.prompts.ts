<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>MainWindow</name>
    <message>
        <source>dismissInfo</source>
        <translation>Don't show this again</translation>
    </message>
    <message>
        <source>feedbackPrompt</source>
        <translation>Tell us what you miss. We read every mail.</translation>
    </message>
    <message>
        <source>howDoYouLikeIt</source>
        <translation>How do you like Tavimo?</translation>
    </message>
    <message>
        <source>loveit</source>
        <translation>I love it</translation>
    </message>
    <message>
        <source>rateit</source>
        <translation>Rate Tavimo</translation>
    </message>
    <message>
        <source>ratePrompt</source>
        <translation>Good to hear! A rating helps others to find Tavimo.</translation>
    </message>
    <message>
        <source>unhappy</source>
        <translation>Not so much</translation>
    </message>
    <message>
        <source>writeMail</source>
        <translation>Write a mail</translation>
    </message>
</context>
</TS>
