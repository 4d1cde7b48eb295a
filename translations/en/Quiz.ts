<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>Quiz</name>
    <message>
        <source>all</source>
        <translation>with all of them</translation>
    </message>
    <message>
        <source>allOrAny</source>
        <translation>Words must have all or any of the tags</translation>
    </message>
    <message>
        <source>allTags</source>
        <translation>All tags</translation>
    </message>
    <message>
        <source>answerIn</source>
        <translation>Answer in %1</translation>
    </message>
    <message>
        <source>any</source>
        <translation>with any of them</translation>
    </message>
    <message>
        <source>askIn</source>
        <translation>Answer in</translation>
    </message>
    <message>
        <source>Both</source>
        <translation>Both languages</translation>
    </message>
    <message>
        <source>cardRightHelpText</source>
        <translation>Type the translation and press Return. Leave it empty to pass.</translation>
    </message>
    <message>
        <source>congratulations</source>
        <translation>Congratulations, %1 % correct!</translation>
    </message>
    <message>
        <source>correct</source>
        <translation>Correct</translation>
    </message>
    <message>
        <source>dontAskAgain</source>
        <translation>Don’t ask again</translation>
    </message>
    <message>
        <source>edit</source>
        <translation>Edit</translation>
    </message>
    <message>
        <source>flipCard</source>
        <translation>Flip card</translation>
    </message>
    <message>
        <source>fromLevels</source>
        <translation>From the levels</translation>
    </message>
    <message>
        <source>hint</source>
        <translation>Hint</translation>
    </message>
    <message>
        <source>iKnewIt</source>
        <translation>I knew it</translation>
    </message>
    <message>
        <source>levelFalls</source>
        <translation>The word falls</translation>
    </message>
    <message>
        <source>levelLongTerm</source>
        <translation>Long term</translation>
    </message>
    <message>
        <source>levelMidTerm</source>
        <translation>Mid term</translation>
    </message>
    <message>
        <source>levelNative</source>
        <translation>Native</translation>
    </message>
    <message>
        <source>levelRises</source>
        <translation>The word rises</translation>
    </message>
    <message>
        <source>levelShortTerm</source>
        <translation>Short term</translation>
    </message>
    <message>
        <source>levelUltraShort</source>
        <translation>Ultra short</translation>
    </message>
    <message>
        <source>levelUnknown</source>
        <translation>Unknown</translation>
    </message>
    <message>
        <source>misspelled</source>
        <translation>Misspelled</translation>
    </message>
    <message>
        <source>newQuiz</source>
        <translation>New quiz</translation>
    </message>
    <message>
        <source>noMatchingWordsMsg</source>
        <translation>No word of the chosen levels has these tags. Choose other levels or tags.</translation>
    </message>
    <message>
        <source>nothingSelected</source>
        <translation>Choose at least one level.</translation>
    </message>
    <message>
        <source>noWords</source>
        <translation>There are no words yet. Add some in the vocabulary.</translation>
    </message>
    <message>
        <source>noWordsInList</source>
        <translation>The chosen levels hold no words.</translation>
    </message>
    <message>
        <source>noWordsOverDue</source>
        <translation>Nothing is due in the levels that are switched on. Switch on a level to practise anyway.</translation>
    </message>
    <message>
        <source>noWordsWithTags</source>
        <translation>No word has these tags.</translation>
    </message>
    <message>
        <source>numberOfWords</source>
        <translation>Number of words</translation>
    </message>
    <message>
        <source>onlyWithTags</source>
        <translation>Only with tags</translation>
    </message>
    <message>
        <source>percent</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>pieChart</source>
        <translation>Shares of correct, misspelled and wrong answers</translation>
    </message>
    <message>
        <source>planAllTags</source>
        <translation>Only words tagged %1.</translation>
    </message>
    <message>
        <source>planAnyTag</source>
        <translation>Only words with one of the tags %1.</translation>
    </message>
    <message>
        <source>planBothLanguages</source>
        <translation>You answer in either language.</translation>
    </message>
    <message>
        <source>planLanguage</source>
        <translation>You answer in %1.</translation>
    </message>
    <message>
        <source>planOpen</source>
        <translation>Choose what you want to practise.</translation>
    </message>
    <message>
        <source>planSelected</source>
        <translation>Exactly the words that you selected are asked, due or not.</translation>
    </message>
    <message numerus="yes">
        <source>planWords</source>
        <translation>
            <numerusform>Asks %n word from: %1.</numerusform>
            <numerusform>Asks %n words from: %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>popupCheck</source>
        <translation>Check</translation>
    </message>
    <message>
        <source>popupClose</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>popupEndQuiz</source>
        <translation>End quiz</translation>
    </message>
    <message>
        <source>popupInProgress</source>
        <translation>The popup quiz is running</translation>
    </message>
    <message>
        <source>popupIntervalLabel</source>
        <translation>Ask every</translation>
    </message>
    <message>
        <source>popupIntro</source>
        <translation>A small panel asks you a word now and then, in front of whatever you work with. Until you end the quiz, this window stays locked.</translation>
    </message>
    <message>
        <source>popupLater</source>
        <translation>Later</translation>
    </message>
    <message>
        <source>popupLine</source>
        <translation>Popup quiz: %1 of %2</translation>
    </message>
    <message>
        <source>popupMinutes</source>
        <translation>minutes</translation>
    </message>
    <message>
        <source>popupNext</source>
        <translation>Go on</translation>
    </message>
    <message>
        <source>popupQuiz</source>
        <translation>Popup quiz</translation>
    </message>
    <message>
        <source>progress</source>
        <translation>Progress of the quiz</translation>
    </message>
    <message>
        <source>progressStatus</source>
        <translation>%1 of %2</translation>
    </message>
    <message>
        <source>quizCorrectAnswerHelpText</source>
        <translation>Right! The word rises one level and is asked again later.</translation>
    </message>
    <message>
        <source>quizMisspelledAnswerHelpText</source>
        <translation>Almost. One letter is off, so the word stays on its level.</translation>
    </message>
    <message>
        <source>quizWrongHelpText</source>
        <translation>Not quite. The word falls and is asked again sooner.</translation>
    </message>
    <message>
        <source>rehearseAgain</source>
        <translation>%1 % correct. Rehearse once more, it will stick!</translation>
    </message>
    <message>
        <source>restartWithWrong</source>
        <translation>Repeat the wrong words</translation>
    </message>
    <message>
        <source>setup</source>
        <translation>Kind of quiz</translation>
    </message>
    <message>
        <source>showResults</source>
        <translation>Show the results</translation>
    </message>
    <message>
        <source>slideshowQuiz</source>
        <translation>Flash cards</translation>
    </message>
    <message>
        <source>startQuiz</source>
        <translation>Start quiz</translation>
    </message>
    <message numerus="yes">
        <source>summaryDue</source>
        <translation>
            <numerusform>%n word is due</numerusform>
            <numerusform>%n words are due</numerusform>
        </translation>
    </message>
    <message>
        <source>summaryNothingDue</source>
        <translation>Nothing is due right now</translation>
    </message>
    <message numerus="yes">
        <source>summarySelected</source>
        <translation>
            <numerusform>%n selected word</numerusform>
            <numerusform>Your %n selected words</numerusform>
        </translation>
    </message>
    <message>
        <source>typingQuiz</source>
        <translation>Typing</translation>
    </message>
    <message>
        <source>wellDone</source>
        <translation>Well done, %1 % correct!</translation>
    </message>
    <message>
        <source>wordDeleted</source>
        <translation>This word was deleted</translation>
    </message>
    <message numerus="yes">
        <source>wordsDue</source>
        <translation>
            <numerusform>%n due</numerusform>
            <numerusform>%n due</numerusform>
        </translation>
    </message>
    <message>
        <source>wrong</source>
        <translation>Wrong</translation>
    </message>
    <message>
        <source>zeroEntered</source>
        <translation>Enter how many words you want to be asked.</translation>
    </message>
</context>
</TS>
