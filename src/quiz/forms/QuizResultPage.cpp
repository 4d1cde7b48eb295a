#include "quiz/forms/QuizResultPage.h"

#include "platform/Texts.h"
#include "quiz/QuizRun.h"
#include "quiz/forms/CardStyle.h"
#include "ui_QuizResultPage.h"

#include <QLocale>

QuizResultPage::QuizResultPage(QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::QuizResultPage>())
{
    m_ui->setupUi(this);
    localize();
    CardStyle::enlarge(m_ui->statisticsIntro, 1.6);
    for (QLabel *label : {m_ui->statisticsCorrect, m_ui->statisticsMissspelled, m_ui->statisticsWrong})
        CardStyle::enlarge(label, 1.25);
    CardStyle::setDot(m_ui->correctDot, TAVPieChart::correctColor());
    CardStyle::setDot(m_ui->misspelledDot, TAVPieChart::misspelledColor());
    CardStyle::setDot(m_ui->wrongDot, TAVPieChart::wrongColor());
    connect(m_ui->restartWithWrongButton, &QPushButton::clicked, this, [this] {
        if (m_restart)
            m_restart();
    });
    connect(m_ui->newQuizButton, &QPushButton::clicked, this, [this] {
        if (m_newQuiz)
            m_newQuiz();
    });
}

QuizResultPage::~QuizResultPage() = default;

void QuizResultPage::localize()
{
    m_ui->correctLabel->setText(platform::localized("Quiz", "correct"));
    m_ui->wrongLabel->setText(platform::localized("Quiz", "wrong"));
    m_ui->restartWithWrongButton->setText(platform::localized("Quiz", "restartWithWrong"));
    m_ui->newQuizButton->setText(platform::localized("Quiz", "newQuiz"));
    m_ui->pieChart->setAccessibleName(platform::localized("Quiz", "pieChart"));
}

void QuizResultPage::setResult(const RunResult &result, const QString &betweenLabel,
                               std::function<void()> restart)
{
    m_restart = std::move(restart);
    m_ui->extraPlace->hide();
    m_ui->statisticsIntro->setText(introForPercent(result.correctPercent()));
    m_ui->pieChart->setCorrectPercent(result.correctPercent() / 100.0);
    m_ui->pieChart->setMisspelledPercent(result.betweenPercent() / 100.0);
    m_ui->misspelledLabel->setText(betweenLabel);
    m_ui->statisticsCorrect->setText(countText(result.correct, result));
    m_ui->statisticsMissspelled->setText(countText(result.between, result));
    m_ui->statisticsWrong->setText(countText(result.wrong, result));
    const auto percent = [](double value) {
        return platform::localized("Quiz", "percent").arg(QLocale().toString(value, 'f', 0));
    };
    m_ui->correctPercent->setText(percent(result.correctPercent()));
    m_ui->misspelledPercent->setText(percent(result.betweenPercent()));
    m_ui->restartWithWrongButton->setVisible(result.canRestartWithWrong);
    m_ui->restartWithWrongButton->setEnabled(result.canRestartWithWrong);
    CardStyle::makeDefault(m_ui->restartWithWrongButton, result.canRestartWithWrong);
    CardStyle::makeDefault(m_ui->newQuizButton, !result.canRestartWithWrong);
}

QString QuizResultPage::countText(qint64 number, const RunResult &result)
{
    return QStringLiteral("%1 / %2").arg(QString::number(number), QString::number(result.total));
}

QPushButton *QuizResultPage::defaultButton() const
{
    return m_ui->restartWithWrongButton->isEnabled() ? m_ui->restartWithWrongButton : m_ui->newQuizButton;
}

void QuizResultPage::pressDefaultButton()
{
    defaultButton()->click();
}

void QuizResultPage::focusDefaultButton()
{
    if (isVisible())
        defaultButton()->setFocus();
}

QWidget *QuizResultPage::extraPlace() const
{
    return m_ui->extraPlace;
}

QString QuizResultPage::introForPercent(double correctPercent)
{
    const QString number = QLocale().toString(correctPercent, 'f', 0);
    if (correctPercent < 20.0)
        return platform::localized("Quiz", "rehearseAgain").arg(number);
    if (correctPercent < 60.0)
        return platform::localized("Quiz", "wellDone").arg(number);
    return platform::localized("Quiz", "congratulations").arg(number);
}
