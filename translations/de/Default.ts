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
    <message>
        <source>1 Minute</source>
        <translation>1 Minute</translation>
    </message>
    <message numerus="yes">
        <source>%ld Minutes</source>
        <translation>
            <numerusform>%n Minute</numerusform>
            <numerusform>%n Minuten</numerusform>
        </translation>
    </message>
    <message>
        <source>1 Hour</source>
        <translation>1 Stunde</translation>
    </message>
    <message numerus="yes">
        <source>%ld Hours</source>
        <translation>
            <numerusform>%n Stunde</numerusform>
            <numerusform>%n Stunden</numerusform>
        </translation>
    </message>
    <message>
        <source>1 Day</source>
        <translation>1 Tag</translation>
    </message>
    <message numerus="yes">
        <source>%ld Days</source>
        <translation>
            <numerusform>%n Tag</numerusform>
            <numerusform>%n Tage</numerusform>
        </translation>
    </message>
    <message>
        <source>1 Week</source>
        <translation>1 Woche</translation>
    </message>
    <message numerus="yes">
        <source>%ld Weeks</source>
        <translation>
            <numerusform>%n Woche</numerusform>
            <numerusform>%n Wochen</numerusform>
        </translation>
    </message>
    <message>
        <source>1 Month</source>
        <translation>1 Monat</translation>
    </message>
    <message numerus="yes">
        <source>%ld Months</source>
        <translation>
            <numerusform>%n Monat</numerusform>
            <numerusform>%n Monate</numerusform>
        </translation>
    </message>
    <message>
        <source>1 Year</source>
        <translation>1 Jahr</translation>
    </message>
    <message numerus="yes">
        <source>%ld Years</source>
        <translation>
            <numerusform>%n Jahr</numerusform>
            <numerusform>%n Jahre</numerusform>
        </translation>
    </message>
    <message>
        <source>never</source>
        <translation>nie</translation>
    </message>
    <message>
        <source>folderTaken</source>
        <translation>Ein anderes Tavimo, vielleicht aus einer anderen Sitzung auf diesem Rechner, arbeitet mit denselben Wörtern in %1. Beende es zuerst, damit keines überschreibt, was das andere gespeichert hat.</translation>
    </message>
    <message>
        <source>noAnswer</source>
        <translation>Tavimo läuft bereits, antwortet aber nicht.</translation>
    </message>
    <message>
        <source>runtimeUnwritable</source>
        <translation>Tavimo kann nicht feststellen, ob es schon läuft: Der Ordner %1 lässt sich nicht beschreiben.</translation>
    </message>
    <message>
        <source>quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>folderUnreadable</source>
        <translation>Der Ordner %1 lässt sich nicht lesen (%2). Sprachen, die darin liegen, sind nicht verloren, können aber nicht gezeigt werden. Mach den Ordner lesbar und starte Tavimo neu.</translation>
    </message>
    <message>
        <source>folderNotLocked</source>
        <translation>Der Ordner %1 lässt sich nicht sperren. Achte darauf, dass kein zweites Tavimo darin arbeitet: Sonst gilt, was zuletzt gespeichert wurde.</translation>
    </message>
    <message>
        <source>settingsUnusable</source>
        <translation>Die Einstellungsdatei %1 lässt sich nicht verwenden. Was du einstellst, gilt bis zum Beenden.</translation>
    </message>
    <message>
        <source>settingsDamaged</source>
        <translation>Die Einstellungsdatei %1 ist beschädigt. Was sich nicht lesen ließ, steht wieder auf der Voreinstellung.</translation>
    </message>
</context>
</TS>
