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
    <message>
        <source>1 Minute</source>
        <translation>1 minute</translation>
    </message>
    <message numerus="yes">
        <source>%ld Minutes</source>
        <translation>
            <numerusform>%n minute</numerusform>
            <numerusform>%n minutes</numerusform>
        </translation>
    </message>
    <message>
        <source>1 Hour</source>
        <translation>1 hour</translation>
    </message>
    <message numerus="yes">
        <source>%ld Hours</source>
        <translation>
            <numerusform>%n hour</numerusform>
            <numerusform>%n hours</numerusform>
        </translation>
    </message>
    <message>
        <source>1 Day</source>
        <translation>1 day</translation>
    </message>
    <message numerus="yes">
        <source>%ld Days</source>
        <translation>
            <numerusform>%n day</numerusform>
            <numerusform>%n days</numerusform>
        </translation>
    </message>
    <message>
        <source>1 Week</source>
        <translation>1 week</translation>
    </message>
    <message numerus="yes">
        <source>%ld Weeks</source>
        <translation>
            <numerusform>%n week</numerusform>
            <numerusform>%n weeks</numerusform>
        </translation>
    </message>
    <message>
        <source>1 Month</source>
        <translation>1 month</translation>
    </message>
    <message numerus="yes">
        <source>%ld Months</source>
        <translation>
            <numerusform>%n month</numerusform>
            <numerusform>%n months</numerusform>
        </translation>
    </message>
    <message>
        <source>1 Year</source>
        <translation>1 year</translation>
    </message>
    <message numerus="yes">
        <source>%ld Years</source>
        <translation>
            <numerusform>%n year</numerusform>
            <numerusform>%n years</numerusform>
        </translation>
    </message>
    <message>
        <source>never</source>
        <translation>never</translation>
    </message>
    <message>
        <source>folderTaken</source>
        <translation>Another Tavimo, perhaps of another session on this machine, works with the same words in %1. Quit it first, so that neither overwrites what the other has saved.</translation>
    </message>
    <message>
        <source>noAnswer</source>
        <translation>Tavimo is already running but doesn't answer.</translation>
    </message>
    <message>
        <source>runtimeUnwritable</source>
        <translation>Tavimo can't find out whether it is already running: the folder %1 can't be written to.</translation>
    </message>
    <message>
        <source>quit</source>
        <translation>Quit</translation>
    </message>
    <message>
        <source>folderUnreadable</source>
        <translation>The folder %1 can't be read (%2). Languages that lie in it are not lost, but they can't be shown. Make the folder readable, then start Tavimo again.</translation>
    </message>
    <message>
        <source>folderNotLocked</source>
        <translation>The folder %1 can't be locked. Take care that no second Tavimo works in it: the last to save would win.</translation>
    </message>
    <message>
        <source>settingsUnusable</source>
        <translation>The settings file %1 can't be used. What you set is kept until you quit.</translation>
    </message>
    <message>
        <source>settingsDamaged</source>
        <translation>The settings file %1 is damaged. What could not be read of it is back to its default.</translation>
    </message>
</context>
</TS>
