#pragma once

#include "model/TAVLexicon.h"
#include "model/TAVRandom.h"

#include <QString>

#include <memory>

/**
 * The common base of the quiz forms: what a run asks, its ordered list of words, and the distance by which
 * answers are judged. Main thread only.
 */
class TAVQuizInterface
{
public:
    TAVQuizInterface();
    explicit TAVQuizInterface(const TAVLexiconRef &vocabulary);
    virtual ~TAVQuizInterface() = default;

    /** Sets the defaults of all options. */
    void doCommonInitStuff();
    /** Selects the words of a run by the options. At least one level must be chosen. */
    void createWordsToAsk();
    /** Shuffles and clusters a copy of the list, which becomes the run. */
    void setWordsToAsk(const TAVWordList &words);
    /** The next word of the run; absent when it is over. */
    TAVWordRef nextWordToAsk();
    /** Puts words that share a tag next to each other and drops repeats. */
    static void clusterTagsInArray(TAVWordList &words);
    /** Restricted Damerau-Levenshtein distance, in UTF-16 code units, without any folding. */
    static qint64 distanceBetween(const QString &a, const QString &b);
    /** Draws the direction of one question: true if the answer must be the foreign word. */
    bool drawDirection() const;

    const TAVLexiconRef &vocabulary() const { return m_vocabulary; }
    void setVocabulary(const TAVLexiconRef &vocabulary) { m_vocabulary = vocabulary; }
    const TAVWordList &wordsToAsk() const { return m_wordsToAsk; }
    /** The run's list itself, for the synonym rule and the restart. */
    TAVWordList &mutableWordsToAsk() { return m_wordsToAsk; }
    /** Index of the word handed out last; -1 before the first. */
    qint64 askIndex() const { return m_askIndex; }
    void setAskIndex(qint64 index) { m_askIndex = index; }
    /** How many words are wanted; after setWordsToAsk() how many there are. */
    qint64 numberOfWordsToAsk() const { return m_numberOfWordsToAsk; }
    void setNumberOfWordsToAsk(qint64 number) { m_numberOfWordsToAsk = number; }

    bool askForForeignWord() const { return m_askForForeignWord; }
    void setAskForForeignWord(bool flag) { m_askForForeignWord = flag; }
    bool askForYourWord() const { return m_askForYourWord; }
    void setAskForYourWord(bool flag) { m_askForYourWord = flag; }
    void setAskUnknown(bool flag) { m_askUnknown = flag; }
    void setAskUltrashort(bool flag) { m_askUltrashort = flag; }
    void setAskShortterm(bool flag) { m_askShortterm = flag; }
    void setAskMidterm(bool flag) { m_askMidterm = flag; }
    void setAskLongterm(bool flag) { m_askLongterm = flag; }
    /** Level 5 fills a run up; it has no claim on a place while other levels fill it. */
    void setAskNative(bool flag) { m_askNative = flag; }
    bool isShowCommentWithQuestion() const { return m_isShowCommentWithQuestion; }
    bool isWordsMustMatchAllTags() const { return m_isWordsMustMatchAllTags; }
    void setIsWordsMustMatchAllTags(bool flag) { m_isWordsMustMatchAllTags = flag; }
    const TAVTextSet &filterTags() const { return m_filterTags; }
    void setFilterTags(const TAVTextSet &tags) { m_filterTags = tags; }

private:
    QList<quint64> chosenLevels() const;
    void topUp(TAVWordList &words, const QList<quint64> &levels) const;

    TAVRandom m_random;
    bool m_askForForeignWord = true;
    bool m_askForYourWord = false;
    bool m_askUnknown = true;
    bool m_askUltrashort = true;
    bool m_askShortterm = true;
    bool m_askMidterm = true;
    bool m_askLongterm = true;
    bool m_askNative = false;
    bool m_isShowCommentWithQuestion = false;
    bool m_isWordsMustMatchAllTags = false;
    qint64 m_numberOfWordsToAsk = 30;
    qint64 m_askIndex = -1;
    TAVWordList m_wordsToAsk;
    TAVLexiconRef m_vocabulary;
    TAVTextSet m_filterTags;
};
