<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>MainWindow</name>
    <message>
        <source>about</source>
        <translation>Über Tavimo</translation>
    </message>
    <message>
        <source>aboutText</source>
        <translation>Version %1
Wörter, die bleiben.</translation>
    </message>
    <message>
        <source>bringAllToFront</source>
        <translation>In den Vordergrund</translation>
    </message>
    <message>
        <source>checkForUpdates</source>
        <translation>Nach Updates suchen …</translation>
    </message>
    <message>
        <source>chooseYourLang</source>
        <translation>Welche Sprache möchtest du lernen?</translation>
    </message>
    <message>
        <source>close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>deleteDuplicateWords</source>
        <translation>Doppelte Wörter entfernen …</translation>
    </message>
    <message>
        <source>dismissInfo</source>
        <translation>Nicht mehr zeigen</translation>
    </message>
    <message>
        <source>edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>export</source>
        <translation>Exportieren …</translation>
    </message>
    <message>
        <source>feedbackPrompt</source>
        <translation>Schreib uns, was dir fehlt. Wir lesen jede Mail.</translation>
    </message>
    <message>
        <source>file</source>
        <translation>Ablage</translation>
    </message>
    <message>
        <source>firstSetup</source>
        <translation>Beginne mit einer neuen Sprache, oder bring mit, was du schon hast.</translation>
    </message>
    <message>
        <source>getStarted</source>
        <translation>Los geht’s</translation>
    </message>
    <message>
        <source>getWords</source>
        <translation>Wörter holen</translation>
    </message>
    <message>
        <source>goToAppSupport</source>
        <translation>Datenordner zeigen</translation>
    </message>
    <message>
        <source>help</source>
        <translation>Hinweise</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>helpAddWord</source>
        <translation>Hier kommen neue Wörter hinein. Strg+N geht auch.</translation>
    </message>
    <message>
        <source>helpLevels</source>
        <translation>Je besser du deine Wörter kennst, desto höher steigen sie, durch sechs Stufen. Klick auf eine, um ihre Wörter zu sehen.</translation>
    </message>
    <message>
        <source>helpSearch</source>
        <translation>Finde ein Wort, einen Kommentar oder ein Schlagwort.</translation>
    </message>
    <message>
        <source>helpTable</source>
        <translation>Klick auf ein Wort, um es zu ändern. Ein Klick auf einen Spaltentitel sortiert.</translation>
    </message>
    <message>
        <source>helpTags</source>
        <translation>Schlagwörter grenzen die Liste ein. Zieh eines auf ein Wort, um es ihm zu geben.</translation>
    </message>
    <message>
        <source>hide</source>
        <translation>Tavimo ausblenden</translation>
    </message>
    <message>
        <source>howDoYouLikeIt</source>
        <translation>Wie gefällt dir Tavimo?</translation>
    </message>
    <message>
        <source>import</source>
        <translation>Importieren …</translation>
    </message>
    <message>
        <source>impossibleLanguageName</source>
        <translation>Dieser Name geht leider nicht: bitte ohne Schrägstrich und nicht ganz so lang.</translation>
    </message>
    <message>
        <source>language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>languageExample</source>
        <translation>Zum Beispiel Italienisch</translation>
    </message>
    <message>
        <source>linkDropbox</source>
        <translation>1.  Verbinde diesen Computer mit deiner Dropbox</translation>
    </message>
    <message>
        <source>linkDropboxButton</source>
        <translation>Dropbox verbinden</translation>
    </message>
    <message>
        <source>loveit</source>
        <translation>Ich mag es</translation>
    </message>
    <message>
        <source>Manage Languages...</source>
        <translation>Sprachen verwalten …</translation>
    </message>
    <message>
        <source>minimize</source>
        <translation>Minimieren</translation>
    </message>
    <message>
        <source>noLangsOnDB</source>
        <translation>Keine Sprachen gefunden</translation>
    </message>
    <message>
        <source>noLangsOnDBMsg</source>
        <translation>In deiner Dropbox liegen noch keine Sprachen. Beginne mit einer neuen, oder versuch es später noch einmal.</translation>
    </message>
    <message>
        <source>notYetBuilt</source>
        <translation>Hier ist noch nichts.</translation>
    </message>
    <message>
        <source>ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>paste</source>
        <translation>Einsetzen</translation>
    </message>
    <message>
        <source>preferences</source>
        <translation>Einstellungen …</translation>
    </message>
    <message>
        <source>quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>quiz</source>
        <translation>Quiz</translation>
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
        <source>search</source>
        <translation>Wort suchen</translation>
    </message>
    <message>
        <source>selectAll</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <source>settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>showAll</source>
        <translation>Alle Fenster zeigen</translation>
    </message>
    <message>
        <source>showHelp</source>
        <translation>Hinweise zeigen</translation>
    </message>
    <message>
        <source>showSynonyms</source>
        <translation>Synonyme zeigen</translation>
    </message>
    <message>
        <source>statistics</source>
        <translation>Statistik</translation>
    </message>
    <message>
        <source>supportURL</source>
        <translation>https://example.org/tavimo/support</translation>
    </message>
    <message>
        <source>synchronizeLangs</source>
        <translation>2.  Hol deine Sprachen</translation>
    </message>
    <message>
        <source>syncWithExisting</source>
        <translation>Du benutzt Tavimo schon anderswo?</translation>
    </message>
    <message>
        <source>undo</source>
        <translation>Widerrufen</translation>
    </message>
    <message>
        <source>unhappy</source>
        <translation>Nicht so sehr</translation>
    </message>
    <message>
        <source>view</source>
        <translation>Darstellung</translation>
    </message>
    <message>
        <source>visitSupport</source>
        <translation>Hilfeseite besuchen</translation>
    </message>
    <message>
        <source>vocabulary</source>
        <translation>Vokabeln</translation>
    </message>
    <message>
        <source>welcome</source>
        <translation>Willkommen bei Tavimo</translation>
    </message>
    <message>
        <source>window</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>writeMail</source>
        <translation>Mail schreiben</translation>
    </message>
    <message>
        <source>zoom</source>
        <translation>Zoomen</translation>
    </message>
</context>
</TS>
