#include "quiz/forms/TypedCard.h"

#include "platform/Services.h"
#include "platform/Texts.h"
#include "quiz/forms/CardStyle.h"
#include "quiz/forms/LevelPicture.h"
#include "quiz/forms/WordLabel.h"
#include "views/editor/TAVLanguageTextField.h"
#include "widgets/CardText.h"
#include "widgets/TAVCardView.h"

#include <QCheckBox>

namespace {

/** A longer text is no answer but a slip of the clipboard, and would take long to judge. */
constexpr int maxAnswerLength = 4000;

void showColor(TAVCardView &card, Verdict verdict)
{
    switch (verdict) {
    case Verdict::correct:
        return card.setColorCorrect();
    case Verdict::correctBySynonym:
        return card.setColorSynonym();
    case Verdict::misspelled:
        return card.setColorMisspelled();
    case Verdict::wrong:
        return card.setColorWrong();
    }
}

void offer(QCheckBox *box, bool isOffered)
{
    box->setVisible(isOffered);
    box->setEnabled(isOffered);
}

} // namespace

TypedCard::TypedCard(TypedRun &run, TAVCardView *card, const Controls &controls)
    : m_run(run)
    , m_card(card)
    , m_controls(controls)
{
    m_controls.answer->setMaxLength(maxAnswerLength);
    connect(m_controls.knewIt, &QCheckBox::toggled, this, [this](bool isOn) { m_run.setIsOverruled(isOn); });
    connect(m_controls.dontAskAgain, &QCheckBox::toggled, this,
            [this](bool isOn) { m_run.setIsExcluded(isOn); });
}

void TypedCard::showQuestion()
{
    const TAVWord &word = *m_run.askedWord();
    m_controls.question->setWord(m_run.questionText(word), CardText::questionLimit);
    m_controls.questionComment->setText(word.comment());
    m_controls.questionComment->setVisible(m_run.quiz().isShowCommentWithQuestion());
    LevelPicture::showLevel(m_controls.questionLevel, word.level());
    const TAVLexicon &vocabulary = *m_run.vocabulary();
    const QString prompt =
        platform::localized("Quiz", "answerIn")
            .arg(m_run.lastAskedForeign() ? vocabulary.foreignLanguageName() : vocabulary.yourLanguageName());
    m_controls.answer->clear();
    m_controls.answer->setPlaceholderText(prompt);
    m_controls.answer->setAccessibleName(prompt);
}

bool TypedCard::showsAnswer(Verdict verdict, const QString &answer)
{
    return verdict != Verdict::wrong || !AnswerJudge::isNoAnswer(answer);
}

void TypedCard::showVerdict(const QString &answer)
{
    const bool isCorrect = isRight(m_run.verdict());
    CardStyle::setTextColor(m_controls.userAnswer,
                            isCorrect ? CardText::textColor() : CardText::fadedTextColor());
    m_controls.userAnswer->setWord(answer, CardText::answerLimit);
    m_controls.userAnswer->setVisible(showsAnswer(m_run.verdict(), answer));
    m_controls.correctAnswer->setVisible(!isCorrect);
    m_controls.deleted->hide();
    showLastTexts();
    showStanding();
    m_controls.lowerLevel->show();
    offer(m_controls.knewIt, m_run.offersOverrule());
    offer(m_controls.dontAskAgain, m_run.offersExclusion());
}

void TypedCard::showLastTexts()
{
    const TAVWord &word = *m_run.lastWord();
    m_controls.lastQuestion->setWord(m_run.questionText(word), CardText::lastQuestionLimit);
    m_controls.correctAnswer->setWord(m_run.expectedText(word), CardText::answerLimit);
    m_controls.comment->setText(word.comment());
}

void TypedCard::showStanding()
{
    showColor(*m_card, m_run.shownVerdict());
    const ShownLevels levels = m_run.shownLevels();
    LevelPicture::showLevel(m_controls.lowerLevel, levels.lower);
    LevelPicture::showLevel(m_controls.upperLevel, levels.upper);
    LevelPicture::showArrow(m_controls.levelArrow, levels.rises);
    m_controls.upperLevel->setVisible(levels.showsUpper);
    m_controls.levelArrow->setVisible(levels.showsArrow);
}

void TypedCard::showDeleted()
{
    m_controls.deleted->show();
    m_controls.dontAskAgain->setEnabled(false);
    m_controls.knewIt->setEnabled(false);
}

void TypedCard::uncheckBoxes()
{
    m_controls.dontAskAgain->setChecked(false);
    m_controls.knewIt->setChecked(false);
}

void TypedCard::selectInputSourceOfAnswer()
{
    const TAVLexiconRef &vocabulary = m_run.vocabulary();
    if (!vocabulary || !vocabulary->isAutoSelectInputSource())
        return;
    const platform::InputSourceRef source =
        m_run.lastAskedForeign() ? vocabulary->foreignTextInputSource() : vocabulary->yourTextInputSource();
    platform::InputSources *sources = platform::services().inputSources;
    if (source && !m_inputSourceBackup)
        m_inputSourceBackup = sources->currentKeyboardLayoutInputSource();
    sources->selectInputSource(source);
}

void TypedCard::giveInputSourceBack()
{
    if (const auto backup = std::exchange(m_inputSourceBackup, std::nullopt))
        platform::services().inputSources->selectInputSource(*backup);
}
