<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>Quiz</name>
    <message>
        <source>all</source>
        <translation>mit allen davon</translation>
    </message>
    <message>
        <source>allOrAny</source>
        <translation>Wörter müssen alle oder eins der Schlagwörter haben</translation>
    </message>
    <message>
        <source>allTags</source>
        <translation>Alle Schlagwörter</translation>
    </message>
    <message>
        <source>answerIn</source>
        <translation>Antwort auf %1</translation>
    </message>
    <message>
        <source>any</source>
        <translation>mit einem davon</translation>
    </message>
    <message>
        <source>askIn</source>
        <translation>Antworten auf</translation>
    </message>
    <message>
        <source>Both</source>
        <translation>Beiden Sprachen</translation>
    </message>
    <message>
        <source>cardRightHelpText</source>
        <translation>Tippe die Übersetzung und drücke die Eingabetaste. Leer lassen heißt: weiß ich nicht.</translation>
    </message>
    <message>
        <source>congratulations</source>
        <translation>Glückwunsch, %1 % richtig!</translation>
    </message>
    <message>
        <source>correct</source>
        <translation>Richtig</translation>
    </message>
    <message>
        <source>dontAskAgain</source>
        <translation>Nicht mehr fragen</translation>
    </message>
    <message>
        <source>edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>flipCard</source>
        <translation>Karte umdrehen</translation>
    </message>
    <message>
        <source>fromLevels</source>
        <translation>Aus den Stufen</translation>
    </message>
    <message>
        <source>hint</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>iKnewIt</source>
        <translation>Ich wusste es</translation>
    </message>
    <message>
        <source>levelFalls</source>
        <translation>Das Wort fällt zurück</translation>
    </message>
    <message>
        <source>levelLongTerm</source>
        <translation>Langzeit</translation>
    </message>
    <message>
        <source>levelMidTerm</source>
        <translation>Mittelfristig</translation>
    </message>
    <message>
        <source>levelNative</source>
        <translation>Wie Muttersprache</translation>
    </message>
    <message>
        <source>levelRises</source>
        <translation>Das Wort steigt auf</translation>
    </message>
    <message>
        <source>levelShortTerm</source>
        <translation>Kurzzeit</translation>
    </message>
    <message>
        <source>levelUltraShort</source>
        <translation>Ultrakurz</translation>
    </message>
    <message>
        <source>levelUnknown</source>
        <translation>Unbekannt</translation>
    </message>
    <message>
        <source>misspelled</source>
        <translation>Verschrieben</translation>
    </message>
    <message>
        <source>newQuiz</source>
        <translation>Neues Quiz</translation>
    </message>
    <message>
        <source>noMatchingWordsMsg</source>
        <translation>Kein Wort der gewählten Stufen hat diese Schlagwörter. Wähle andere Stufen oder Schlagwörter.</translation>
    </message>
    <message>
        <source>nothingSelected</source>
        <translation>Wähle mindestens eine Stufe.</translation>
    </message>
    <message>
        <source>noWords</source>
        <translation>Es gibt noch keine Wörter. Lege im Vokabular welche an.</translation>
    </message>
    <message>
        <source>noWordsInList</source>
        <translation>In den gewählten Stufen sind keine Wörter.</translation>
    </message>
    <message>
        <source>noWordsOverDue</source>
        <translation>In den eingeschalteten Stufen ist nichts fällig. Schalte eine Stufe ein, um trotzdem zu üben.</translation>
    </message>
    <message>
        <source>noWordsWithTags</source>
        <translation>Kein Wort hat diese Schlagwörter.</translation>
    </message>
    <message>
        <source>numberOfWords</source>
        <translation>Anzahl Wörter</translation>
    </message>
    <message>
        <source>onlyWithTags</source>
        <translation>Nur mit Schlagwörtern</translation>
    </message>
    <message>
        <source>percent</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>pieChart</source>
        <translation>Anteile der richtigen, verschriebenen und falschen Antworten</translation>
    </message>
    <message>
        <source>planAllTags</source>
        <translation>Nur Wörter mit den Schlagwörtern %1.</translation>
    </message>
    <message>
        <source>planAnyTag</source>
        <translation>Nur Wörter mit einem der Schlagwörter %1.</translation>
    </message>
    <message>
        <source>planBothLanguages</source>
        <translation>Du antwortest mal in der einen, mal in der anderen Sprache.</translation>
    </message>
    <message>
        <source>planLanguage</source>
        <translation>Du antwortest auf %1.</translation>
    </message>
    <message>
        <source>planOpen</source>
        <translation>Wähle, was du üben möchtest.</translation>
    </message>
    <message>
        <source>planSelected</source>
        <translation>Gefragt werden genau die Wörter, die du ausgewählt hast, fällig oder nicht.</translation>
    </message>
    <message numerus="yes">
        <source>planWords</source>
        <translation>
            <numerusform>Fragt %n Wort aus: %1.</numerusform>
            <numerusform>Fragt %n Wörter aus: %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>popupCheck</source>
        <translation>Prüfen</translation>
    </message>
    <message>
        <source>popupClose</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>popupEndQuiz</source>
        <translation>Quiz beenden</translation>
    </message>
    <message>
        <source>popupInProgress</source>
        <translation>Das Popup-Quiz läuft</translation>
    </message>
    <message>
        <source>popupIntervalLabel</source>
        <translation>Frage alle</translation>
    </message>
    <message>
        <source>popupIntro</source>
        <translation>Ab und zu fragt dich ein kleines Fenster nach einem Wort, vor allem, womit du gerade arbeitest. Bis du das Quiz beendest, bleibt dieses Fenster gesperrt.</translation>
    </message>
    <message>
        <source>popupLater</source>
        <translation>Später</translation>
    </message>
    <message>
        <source>popupLine</source>
        <translation>Popup-Quiz: %1 von %2</translation>
    </message>
    <message>
        <source>popupMinutes</source>
        <translation>Minuten</translation>
    </message>
    <message>
        <source>popupNext</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>popupQuiz</source>
        <translation>Popup-Quiz</translation>
    </message>
    <message>
        <source>progress</source>
        <translation>Fortschritt des Quiz</translation>
    </message>
    <message>
        <source>progressStatus</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>quizCorrectAnswerHelpText</source>
        <translation>Richtig! Das Wort steigt eine Stufe auf und wird erst später wieder gefragt.</translation>
    </message>
    <message>
        <source>quizMisspelledAnswerHelpText</source>
        <translation>Fast. Ein Buchstabe stimmt nicht, darum bleibt das Wort auf seiner Stufe.</translation>
    </message>
    <message>
        <source>quizWrongHelpText</source>
        <translation>Leider nicht. Das Wort fällt zurück und wird eher wieder gefragt.</translation>
    </message>
    <message>
        <source>rehearseAgain</source>
        <translation>%1 % richtig. Übe noch einmal, dann bleibt es hängen!</translation>
    </message>
    <message>
        <source>restartWithWrong</source>
        <translation>Falsche Wörter wiederholen</translation>
    </message>
    <message>
        <source>setup</source>
        <translation>Art des Quiz</translation>
    </message>
    <message>
        <source>showResults</source>
        <translation>Ergebnis zeigen</translation>
    </message>
    <message>
        <source>slideshowQuiz</source>
        <translation>Karteikarten</translation>
    </message>
    <message>
        <source>startQuiz</source>
        <translation>Quiz starten</translation>
    </message>
    <message numerus="yes">
        <source>summaryDue</source>
        <translation>
            <numerusform>%n Wort ist fällig</numerusform>
            <numerusform>%n Wörter sind fällig</numerusform>
        </translation>
    </message>
    <message>
        <source>summaryNothingDue</source>
        <translation>Gerade ist nichts fällig</translation>
    </message>
    <message numerus="yes">
        <source>summarySelected</source>
        <translation>
            <numerusform>%n ausgewähltes Wort</numerusform>
            <numerusform>Deine %n ausgewählten Wörter</numerusform>
        </translation>
    </message>
    <message>
        <source>typingQuiz</source>
        <translation>Tippen</translation>
    </message>
    <message>
        <source>wellDone</source>
        <translation>Gut gemacht, %1 % richtig!</translation>
    </message>
    <message>
        <source>wordDeleted</source>
        <translation>Dieses Wort wurde gelöscht</translation>
    </message>
    <message numerus="yes">
        <source>wordsDue</source>
        <translation>
            <numerusform>%n fällig</numerusform>
            <numerusform>%n fällig</numerusform>
        </translation>
    </message>
    <message>
        <source>wrong</source>
        <translation>Falsch</translation>
    </message>
    <message>
        <source>zeroEntered</source>
        <translation>Gib ein, wie viele Wörter gefragt werden sollen.</translation>
    </message>
</context>
</TS>
