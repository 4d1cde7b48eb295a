#pragma once

#include "quiz/AnswerJudge.h"
#include "quiz/QuizRun.h"

/** What the level pictures show: one level or, if the word moves, two with an arrow between them. */
struct ShownLevels
{
    quint64 lower = 0;
    quint64 upper = 0;
    bool rises = true;
    bool showsUpper = false;
    bool showsArrow = false;
};

/** A run whose answers are typed and judged, and whose verdicts the user may overrule. */
class TypedRun : public QuizRun
{
public:
    using QuizRun::QuizRun;

    /** The word that was judged last; after a synonym hit, that synonym. */
    const TAVWordRef &lastWord() const { return m_lastWord; }
    /** The level before the answer. */
    quint64 lastWordOriginLevel() const { return m_lastWordOriginLevel; }
    Verdict verdict() const { return m_verdict; }
    bool lastWrongWasJustMisspelled() const { return m_verdict == Verdict::misspelled; }
    qint64 numberOfMisspelled() const { return m_counts.between; }

    /** The user says to have known the word. Shows at once, and takes effect with the next step. */
    void setIsOverruled(bool flag) { m_isOverruled = flag; }
    bool isOverruled() const { return m_isOverruled; }
    bool offersOverrule() const { return !isRight(m_verdict); }
    /** A word that can't rise any more may be excluded instead. */
    bool offersExclusion() const { return isRight(m_verdict) && isAtTop(); }
    /** The verdict, or correct if the user has overruled it. */
    Verdict shownVerdict() const { return m_isOverruled ? Verdict::correct : m_verdict; }
    ShownLevels shownLevels() const;

protected:
    void reset() override;
    /**
     * Judges the answer to the asked word and books it. A synonym takes the place of the asked word, which
     * then is asked again as the very next one.
     */
    Verdict judge(const QString &answer);
    /** Applies what the user has decided about the last word: first the exclusion, then the overrule. */
    void takeDecisions();
    void dropDecisions();
    quint64 presentLevel() const { return m_lastWord->level(); }

    TAVWordRef m_lastWord;
    quint64 m_lastWordOriginLevel = 0;

private:
    /** Whether a right answer counts as given at the top: by the level before it, or by that after it. */
    virtual bool isAtTop() const = 0;
    virtual ShownLevels overruledLevels() const = 0;
    void putInFrontOfAskedWord(const TAVWordRef &synonym);
    void book();
    void overrule();

    Verdict m_verdict = Verdict::correct;
    bool m_isOverruled = false;
};
