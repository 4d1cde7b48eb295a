#pragma once

#include <QWidget>

#include <functional>
#include <memory>

class QPushButton;
struct RunResult;

namespace Ui {
class QuizResultPage;
}

/** The result page, with its pie chart and the two ways to go on. */
class QuizResultPage : public QWidget
{
    Q_OBJECT

public:
    explicit QuizResultPage(QWidget *parent = nullptr);
    ~QuizResultPage() override;

    /**
     * Fills the page. The label is the user's word for what is between right and wrong. Restart is called by
     * restartWithWrongButton until the next result comes.
     */
    void setResult(const RunResult &result, const QString &betweenLabel, std::function<void()> restart);
    /** What newQuizButton does. */
    void setNewQuizAction(std::function<void()> action) { m_newQuiz = std::move(action); }
    /** Presses the button that Return presses. */
    void pressDefaultButton();
    /** Puts the focus on it, if the page is seen. */
    void focusDefaultButton();
    /** A place for what a form adds between the counts and the buttons; each result comes without it. */
    QWidget *extraPlace() const;

    /** The text of the intro for so many percent. */
    static QString introForPercent(double correctPercent);
    /** So many of how many. */
    static QString countText(qint64 number, const RunResult &result);

private:
    void localize();
    QPushButton *defaultButton() const;

    std::unique_ptr<Ui::QuizResultPage> m_ui;
    std::function<void()> m_restart;
    std::function<void()> m_newQuiz;
};
