<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>Vocabulary</name>
    <message>
        <source>%ld unknown words, %ld total words</source>
        <translation>%1 unbekannte Wörter, %2 insgesamt</translation>
    </message>
    <message>
        <source>&lt;Various Values&gt;</source>
        <translation>‹Verschiedene Werte›</translation>
    </message>
    <message>
        <source>add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>addDuplicateMsg</source>
        <translation>Dasselbe Wortpaar steht in deinem Vokabular und wurde nicht noch einmal hinzugefügt.</translation>
    </message>
    <message>
        <source>addDuplicateTitle</source>
        <translation>Dieses Wort hast du schon</translation>
    </message>
    <message>
        <source>addWordButtonTitle</source>
        <translation>Neues Wort</translation>
    </message>
    <message>
        <source>addWordMenuItemTitle</source>
        <translation>Neues Wort</translation>
    </message>
    <message>
        <source>allStatus</source>
        <translation>Wörter insgesamt: %1</translation>
    </message>
    <message>
        <source>allWordsHeadding</source>
        <translation>Alle Wörter</translation>
    </message>
    <message>
        <source>allWordsInfoText</source>
        <translation>Alles, was du in dieser Sprache gesammelt hast.</translation>
    </message>
    <message>
        <source>allWordsLabel</source>
        <translation>Alle Wörter</translation>
    </message>
    <message>
        <source>cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>comment</source>
        <translation>Kommentar</translation>
    </message>
    <message>
        <source>commentTableColumnTitle</source>
        <translation>Kommentar</translation>
    </message>
    <message>
        <source>delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>deleteDuplicates</source>
        <translation>Doppelte entfernen</translation>
    </message>
    <message>
        <source>displaySearchResultsInfo</source>
        <translation>Wörter, die zu „%1“ passen.</translation>
    </message>
    <message>
        <source>displaySynonymsHeader</source>
        <translation>Synonyme</translation>
    </message>
    <message>
        <source>displaySynonymsInfo</source>
        <translation>Wörter, die sich eine Bedeutung oder Schreibweise mit einem anderen teilen.</translation>
    </message>
    <message>
        <source>dontAskAgain</source>
        <translation>Nicht mehr fragen</translation>
    </message>
    <message numerus="yes">
        <source>duplicatesDeleted</source>
        <translation>
            <numerusform>Ein doppeltes Wort wurde entfernt.</numerusform>
            <numerusform>%n doppelte Wörter wurden entfernt.</numerusform>
        </translation>
    </message>
    <message>
        <source>lastAskedTableColumnTitle</source>
        <translation>Zuletzt gefragt</translation>
    </message>
    <message>
        <source>levelsLabel</source>
        <translation>Gedächtnisstufen</translation>
    </message>
    <message>
        <source>longHeadding</source>
        <translation>Langzeit</translation>
    </message>
    <message>
        <source>longInfoText</source>
        <translation>Fast geschafft: Diese Wörter kommen nach drei Tagen wieder.</translation>
    </message>
    <message>
        <source>midHeadding</source>
        <translation>Mittelfristig</translation>
    </message>
    <message>
        <source>midInfoText</source>
        <translation>Diese Wörter kommen nach einem Tag wieder.</translation>
    </message>
    <message>
        <source>nativeHeadding</source>
        <translation>Wie Muttersprache</translation>
    </message>
    <message>
        <source>nativeInfoText</source>
        <translation>Die kannst du im Schlaf. Sie kommen nach einer Woche wieder.</translation>
    </message>
    <message>
        <source>nativeStatus</source>
        <translation>%1 Wörter, davon %2 nicht mehr gefragt, von %3</translation>
    </message>
    <message>
        <source>noWordsAdded</source>
        <translation>Noch keine Wörter. Leg mit „Neues Wort“ oder Strg+N los.</translation>
    </message>
    <message>
        <source>noWordsInLevel</source>
        <translation>Hier sind keine Wörter</translation>
    </message>
    <message>
        <source>noWordsInLevelSmall</source>
        <translation>Wörter kommen hierher, wenn du sie im Quiz beantwortest. Auch eine Suche oder Schlagwörter können sie verbergen.</translation>
    </message>
    <message>
        <source>noWordsUnknown</source>
        <translation>Keine unbekannten Wörter hier. Zeit für neue!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>quizSelectedWords</source>
        <translation>Ausgewählte Wörter abfragen</translation>
    </message>
    <message>
        <source>reallyDelete</source>
        <translation>Ausgewählte Wörter löschen?</translation>
    </message>
    <message>
        <source>reallyDeleteDuplicates</source>
        <translation>Doppelte Wörter entfernen?</translation>
    </message>
    <message>
        <source>reallyDeleteDuplicatesMsg</source>
        <translation>Von Wörtern mit denselben beiden Texten bleibt das, das du am besten kannst.</translation>
    </message>
    <message>
        <source>reallyDeleteMsg</source>
        <translation>Was du davon gelernt hast, geht mit verloren.</translation>
    </message>
    <message>
        <source>searchPlaceholder</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>searchStatus</source>
        <translation>%1 von %2 Wörtern gefunden</translation>
    </message>
    <message>
        <source>selectAllTagsButtonTitle</source>
        <translation>Alle</translation>
    </message>
    <message numerus="yes">
        <source>selectedStatus</source>
        <translation>
            <numerusform>eines ausgewählt</numerusform>
            <numerusform>%n ausgewählt</numerusform>
        </translation>
    </message>
    <message>
        <source>selectNoneTagsButtonTitle</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>separateWithComma</source>
        <translation>Mit Komma trennen</translation>
    </message>
    <message>
        <source>shortHeadding</source>
        <translation>Kurzzeit</translation>
    </message>
    <message>
        <source>shortInfoText</source>
        <translation>Diese Wörter kommen nach drei Stunden wieder.</translation>
    </message>
    <message>
        <source>showAllWords</source>
        <translation>Alle Wörter zeigen</translation>
    </message>
    <message>
        <source>showSynonyms</source>
        <translation>Synonyme zeigen</translation>
    </message>
    <message>
        <source>synonymsStatus</source>
        <translation>%1 Synonyme von %2 Wörtern</translation>
    </message>
    <message>
        <source>tagsFilter</source>
        <translation>Schlagwörter</translation>
    </message>
    <message>
        <source>tagsTableColumnTitle</source>
        <translation>Schlagwörter</translation>
    </message>
    <message>
        <source>toggleStatus</source>
        <translation>Zwischen Wortzahl und Abgleich wechseln</translation>
    </message>
    <message>
        <source>tooManyWordsMsg</source>
        <translation>Jeder Teil des einen Textes wird mit jedem Teil des anderen gepaart. Bitte gib weniger Teile auf einmal ein.</translation>
    </message>
    <message>
        <source>tooManyWordsTitle</source>
        <translation>Das ergibt zu viele Wörter</translation>
    </message>
    <message>
        <source>topicTags</source>
        <translation>Schlagwörter</translation>
    </message>
    <message>
        <source>ultraShortHeadding</source>
        <translation>Ultrakurzzeit</translation>
    </message>
    <message>
        <source>ultraShortInfoText</source>
        <translation>Eben kennengelernt: Diese Wörter kommen nach einer Viertelstunde wieder.</translation>
    </message>
    <message>
        <source>unknownHeadding</source>
        <translation>Unbekannt</translation>
    </message>
    <message>
        <source>unknownInfoText</source>
        <translation>Hier beginnen neue Wörter, bereit für ihr erstes Quiz.</translation>
    </message>
    <message>
        <source>unknownWarningText</source>
        <translation>Das sind viele unbekannte Wörter. Lern erst ein paar davon, bevor neue dazukommen.</translation>
    </message>
    <message>
        <source>Various Values</source>
        <translation>‹Verschiedene Schlagwörter›</translation>
    </message>
    <message>
        <source>wordPopOverAddMore</source>
        <translation>Hinzufügen und weiter</translation>
    </message>
    <message>
        <source>wordPopOverEdit</source>
        <translation>Sichern</translation>
    </message>
    <message>
        <source>wordsStatus</source>
        <translation>%1 von %2 Wörtern</translation>
    </message>
    <message>
        <source>wordTable</source>
        <translation>Wörter</translation>
    </message>
    <message numerus="yes">
        <source>wordsDeletedLine</source>
        <translation>
            <numerusform>%n Wort gelöscht</numerusform>
            <numerusform>%n Wörter gelöscht</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>wordsRemovedLine</source>
        <translation>
            <numerusform>%n Wort entfernt</numerusform>
            <numerusform>%n Wörter entfernt</numerusform>
        </translation>
    </message>
    <message>
        <source>wordRemovedLine</source>
        <translation>„%1“ wurde entfernt</translation>
    </message>
    <message>
        <source>tagAddedLine</source>
        <translation>„%1“ hat ein Schlagwort bekommen</translation>
    </message>
    <message numerus="yes">
        <source>wordsChangedLine</source>
        <translation>
            <numerusform>%n Wort geändert</numerusform>
            <numerusform>%n Wörter geändert</numerusform>
        </translation>
    </message>
    <message>
        <source>wordChangedLine</source>
        <translation>„%1“ geändert</translation>
    </message>
    <message>
        <source>newWordNotAddedLine</source>
        <translation>Das neue Wort „%1“ wurde nicht hinzugefügt</translation>
    </message>
    <message numerus="yes">
        <source>newWordsNotAddedLine</source>
        <translation>
            <numerusform>%n neues Wort wurde nicht hinzugefügt</numerusform>
            <numerusform>%n neue Wörter wurden nicht hinzugefügt</numerusform>
        </translation>
    </message>
    <message>
        <source>changesNotSavedLine</source>
        <translation>Die Änderungen an „%1“ wurden nicht gesichert</translation>
    </message>
    <message numerus="yes">
        <source>changesToManyNotSavedLine</source>
        <translation>
            <numerusform>Die Änderungen an %n Wort wurden nicht gesichert</numerusform>
            <numerusform>Die Änderungen an %n Wörtern wurden nicht gesichert</numerusform>
        </translation>
    </message>
    <message>
        <source>undoLineAction</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>bringBack</source>
        <translation>Zurückholen</translation>
    </message>
    <message>
        <source>cannotUndoLine</source>
        <translation>Das lässt sich nicht mehr zurücknehmen: Die Wörter haben sich seitdem geändert</translation>
    </message>
    <message>
        <source>languageNotLoaded</source>
        <translation>„%1“ konnte nicht geöffnet werden.

Die Wörter werden nicht gezeigt, aber es wurde nichts geändert oder gelöscht. Die Datei ist
%2

Oben lässt sich eine andere Sprache wählen.</translation>
    </message>
    <message>
        <source>languageNotLoadedButBackup</source>
        <translation>„%1“ konnte nicht geöffnet werden.

Die Wörter werden nicht gezeigt, aber es wurde nichts geändert oder gelöscht. Die neueste Sicherungskopie, die sich öffnen lässt, ist
%2

Oben lässt sich eine andere Sprache wählen.</translation>
    </message>
    <message numerus="yes">
        <source>wordsAddedLine</source>
        <translation>
            <numerusform>%n Wort hinzugefügt</numerusform>
            <numerusform>%n Wörter hinzugefügt</numerusform>
        </translation>
    </message>
    <message>
        <source>fileNearlyFull</source>
        <translation>Die Datei dieser Sprache ist mit %1 von %2 MiB gefüllt. Darüber wird sie noch gesichert, lässt sich aber nicht mehr öffnen; die letzte Fassung, die sich öffnen lässt, bleibt im Ordner „Rescued“.</translation>
    </message>
    <message>
        <source>fileTooFull</source>
        <translation>Die Datei dieser Sprache hat %1 MiB: Über %2 MiB wird sie gesichert, lässt sich aber nicht mehr öffnen. Bitte vor dem Beenden Wörter löschen, bis sie kleiner ist. Die letzte Fassung, die sich öffnen lässt, liegt im Ordner „Rescued“.</translation>
    </message>
</context>
</TS>
