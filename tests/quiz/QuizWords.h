#pragma once

#include "model/TAVLexicon.h"

/** A vocabulary made by hand, German to English. */
struct QuizWords
{
    TAVLexiconRef vocabulary = std::make_shared<TAVLexicon>();

    QuizWords()
    {
        vocabulary->setForeignLanguageName(QStringLiteral("English"));
        vocabulary->setYourLanguageName(QStringLiteral("German"));
    }

    TAVWordRef add(const char *yourWord, const char *foreignWord, quint64 level = 0,
                   const QStringList &tags = {})
    {
        const auto word = std::make_shared<TAVWord>(QString::fromUtf8(yourWord),
                                                    QString::fromUtf8(foreignWord), std::nullopt);
        word->setLevel(level);
        word->setTags(TAVTextSet(tags));
        vocabulary->addWord(word);
        return word;
    }
};
