<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>Learn</name>
    <message>
        <source>countdownInfo</source>
        <translation>Again in 5 s</translation>
    </message>
    <message>
        <source>countdownStop</source>
        <translation>Stop the countdown</translation>
    </message>
    <message>
        <source>fast</source>
        <translation>fast</translation>
    </message>
    <message>
        <source>known</source>
        <translation>I knew it</translation>
    </message>
    <message>
        <source>normal</source>
        <translation>normal</translation>
    </message>
    <message>
        <source>notKnown</source>
        <translation>Not yet</translation>
    </message>
    <message>
        <source>off</source>
        <translation>off</translation>
    </message>
    <message>
        <source>pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>play</source>
        <translation>Play</translation>
    </message>
    <message>
        <source>showAnswer</source>
        <translation>Show answer</translation>
    </message>
    <message>
        <source>skipped</source>
        <translation>Skipped</translation>
    </message>
    <message>
        <source>slow</source>
        <translation>slow</translation>
    </message>
    <message>
        <source>speed</source>
        <translation>Speed of autoplay</translation>
    </message>
</context>
</TS>
