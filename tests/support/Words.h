#pragma once

#include "model/TAVLexicon.h"

/** What a test says of a word; the rest keeps its default. */
struct WordValues
{
    QString yourWord = {};
    QString foreignWord = {};
    quint64 level = 0;
    QStringList tags = {};
    QString comment = {};
    qint64 creationID = 0;
    QDateTime lastAsked = {};
    bool dontAskAgain = false;
};

inline TAVWordRef makeWord(const WordValues &values)
{
    auto word = std::make_shared<TAVWord>(values.yourWord, values.foreignWord, values.comment);
    word->setLevel(values.level);
    word->setTags(TAVTextSet(values.tags));
    word->setCreationID(values.creationID);
    word->setLastAsked(values.lastAsked);
    word->setDontAskAgain(values.dontAskAgain);
    return word;
}

/** A vocabulary that holds the words with the ids they have. */
inline TAVLexiconRef makeVocabulary(const TAVWordList &words)
{
    auto vocabulary = std::make_shared<TAVLexicon>();
    vocabulary->batchAddWords(words);
    return vocabulary;
}

inline QStringList foreignWordsOf(const TAVWordList &words)
{
    QStringList texts;
    for (const TAVWordRef &word : words)
        texts.append(word->foreignWord());
    return texts;
}
