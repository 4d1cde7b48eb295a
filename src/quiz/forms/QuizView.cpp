#include "quiz/forms/QuizView.h"

#include "platform/Texts.h"
#include "quiz/QuizRun.h"
#include "quiz/forms/CardStyle.h"
#include "quiz/forms/PopupLine.h"
#include "quiz/forms/QuizResultPage.h"
#include "quiz/forms/ReturnKey.h"
#include "widgets/CardFlip.h"
#include "widgets/DarkBand.h"
#include "widgets/TAVCardView.h"
#include "widgets/TAVProgressBar.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace {

constexpr int margin = 20;
constexpr QSize minCardSize(740, 420);
constexpr QSize maxCardSize(1160, 680);

} // namespace

QuizView::QuizView(QWidget *parent)
    : QWidget(parent)
{
    m_card = new TAVCardView(this);
    m_card->setObjectName(QStringLiteral("card"));
    m_card->setPalette(CardStyle::palette(palette()));
    m_card->setMinimumSize(minCardSize);
    m_card->setMaximumSize(maxCardSize);
    m_flip = new CardFlip(m_card, this);

    m_tabView = new QStackedWidget(m_card);
    m_tabView->setObjectName(QStringLiteral("tabView"));
    const char *const names[] = {"typingQuizPage", "setupPage", "resultPage", "popupQuizPage",
                                 "flashCardPage"};
    for (int i = 0; i < pageCount; ++i) {
        QWidget *widget = i == resultPage ? m_result = new QuizResultPage(m_tabView) : new QWidget(m_tabView);
        widget->setObjectName(QLatin1String(names[i]));
        m_tabView->addWidget(widget);
    }
    m_tabView->setCurrentIndex(setupPage);
    new ReturnKey(
        m_result, [this] { m_result->pressDefaultButton(); }, [this] { return m_steps.isPending(); });
    auto *cardLayout = new QVBoxLayout(m_card);
    cardLayout->setContentsMargins(0, 0, 0, 0);
    cardLayout->addWidget(m_tabView);

    m_band = makeBand();
    m_popupLine = new PopupLine(this);
    m_popupLine->setObjectName(QStringLiteral("popupLine"));
    connect(m_popupLine, &PopupLine::endChosen, this, &QuizView::popupEndChosen);
    connect(m_tabView, &QStackedWidget::currentChanged, this, &QuizView::updatePopupLine);
    // On the pages of the popup quiz the band has nothing to show, and leaves its place to the line.
    auto *below = new QGridLayout;
    below->addWidget(m_band, 0, 0);
    below->addWidget(m_popupLine, 0, 0);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(16);
    column->addStretch(0);
    column->addWidget(m_card, 1);
    column->addLayout(below);
    column->addStretch(0);
    setProgressVisible(false);
    updatePopupLine();
}

QWidget *QuizView::makeBand()
{
    auto *band = new DarkBand(this);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setRetainSizeWhenHidden(true);
    band->setSizePolicy(policy);
    band->setMaximumWidth(maxCardSize.width());

    m_progressIndicator = new TAVProgressBar(band);
    m_progressIndicator->setObjectName(QStringLiteral("progressIndicator"));
    m_progressIndicator->setAccessibleName(platform::localized("Quiz", "progress"));
    m_statusText = new QLabel(band);
    m_statusText->setObjectName(QStringLiteral("statusText"));
    m_statusText->setTextFormat(Qt::PlainText);
    m_statusText->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QSizePolicy statusPolicy = m_statusText->sizePolicy();
    statusPolicy.setRetainSizeWhenHidden(true);
    m_statusText->setSizePolicy(statusPolicy);

    auto *row = new QHBoxLayout(band);
    row->setContentsMargins(12, 8, 12, 8);
    row->setSpacing(12);
    row->addWidget(m_progressIndicator, 1);
    row->addWidget(m_statusText);
    return band;
}

QWidget *QuizView::page(Page page) const
{
    return m_tabView->widget(page);
}

QuizView::Page QuizView::currentPage() const
{
    return Page(m_tabView->currentIndex());
}

void QuizView::showPage(Page page)
{
    m_tabView->setCurrentIndex(page);
}

void QuizView::showProgress(const RunProgress &progress)
{
    const QLocale locale;
    const qint64 question = std::min(progress.reached, progress.total);
    m_statusText->setText(platform::localized("Quiz", "progressStatus")
                              .arg(locale.toString(question), locale.toString(progress.total)));
    m_progressIndicator->setTotal(quint64(progress.total));
    m_progressIndicator->setProgress(quint64(progress.reached), quint64(progress.correct));
}

void QuizView::setProgressVisible(bool visible)
{
    m_progressIndicator->setVisible(visible);
    m_band->setVisible(visible);
}

void QuizView::setPopupProgress(const std::optional<RunProgress> &progress)
{
    m_isPopupRunning = progress.has_value();
    if (progress)
        m_popupLine->setProgress(*progress);
    updatePopupLine();
}

void QuizView::updatePopupLine()
{
    const bool isItsPage = currentPage() == setupPage || currentPage() == popupQuizPage;
    m_popupLine->setVisible(m_isPopupRunning && isItsPage);
}
