#pragma once

#include <QWidget>

#include <functional>
#include <memory>

class QPushButton;

namespace Ui {
class QuizResultPage;
}

/** What a run came to. */
struct QuizResult
{
    qint64 correct = 0;
    /** Misspelled, or skipped: what is neither right nor wrong. */
    qint64 between = 0;
    qint64 wrong = 0;
    /** Of how many; the percentages are taken of this number. */
    qint64 total = 0;
    /** The user's word for what is between. */
    QString betweenLabel;
    bool canRestartWithWrong = false;
};

/** The result page, with its pie chart and the two ways to go on. */
class QuizResultPage : public QWidget
{
    Q_OBJECT

public:
    explicit QuizResultPage(QWidget *parent = nullptr);
    ~QuizResultPage() override;

    /** Fills the page. Restart is called by restartWithWrongButton until the next result comes. */
    void setResult(const QuizResult &result, std::function<void()> restart);
    /** What newQuizButton does. */
    void setNewQuizAction(std::function<void()> action) { m_newQuiz = std::move(action); }
    /** Puts the focus on the button that Return presses. */
    void focusDefaultButton();
    /** A place for what a form adds between the counts and the buttons; each result comes without it. */
    QWidget *extraPlace() const;

    /** The text of the intro for so many percent. */
    static QString introForPercent(double correctPercent);

private:
    void localize();
    QPushButton *defaultButton() const;

    std::unique_ptr<Ui::QuizResultPage> m_ui;
    std::function<void()> m_restart;
    std::function<void()> m_newQuiz;
};
