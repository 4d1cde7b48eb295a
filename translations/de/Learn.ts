<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>Learn</name>
    <message>
        <source>countdownInfo</source>
        <translation>Noch einmal in 5 s</translation>
    </message>
    <message>
        <source>countdownStop</source>
        <translation>Countdown anhalten</translation>
    </message>
    <message>
        <source>fast</source>
        <translation>schnell</translation>
    </message>
    <message>
        <source>known</source>
        <translation>Gewusst</translation>
    </message>
    <message>
        <source>normal</source>
        <translation>normal</translation>
    </message>
    <message>
        <source>notKnown</source>
        <translation>Noch nicht</translation>
    </message>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
    <message>
        <source>pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>showAnswer</source>
        <translation>Antwort zeigen</translation>
    </message>
    <message>
        <source>skipped</source>
        <translation>Übersprungen</translation>
    </message>
    <message>
        <source>slow</source>
        <translation>langsam</translation>
    </message>
    <message>
        <source>speed</source>
        <translation>Tempo der automatischen Wiedergabe</translation>
    </message>
</context>
</TS>
