#pragma once

#include "quiz/TypedRun.h"

/** The run of the typing quiz: the verdict on the last word stands beside the next question. */
class TypingRun : public TypedRun
{
public:
    using TypedRun::TypedRun;

    void begin() override;
    /** Takes what was decided about the last word, then judges the answer to the asked one. */
    Verdict answer(const QString &text);
    /** To be called once verdict and next question are shown. */
    void saveAnswer() { commit(Change::AnswerTyped); }
    /** Ends the run: takes the last decisions and saves. */
    void end();

private:
    bool isAtTop() const override { return m_lastWordOriginLevel == maxLevel; }
    ShownLevels overruledLevels() const override;
};
