#include "quiz/forms/QuizView.h"

#include "platform/Texts.h"
#include "quiz/QuizRun.h"
#include "quiz/forms/CardStyle.h"
#include "quiz/forms/QuizResultPage.h"
#include "widgets/CardFlip.h"
#include "quiz/forms/ReturnKey.h"
#include "widgets/DarkBand.h"
#include "widgets/TAVCardView.h"
#include "widgets/TAVProgressBar.h"

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
    auto *cardLayout = new QVBoxLayout(m_card);
    cardLayout->setContentsMargins(0, 0, 0, 0);
    new ReturnKey(
        m_result, [this] { m_result->pressDefaultButton(); }, [this] { return m_steps.isPending(); });
    cardLayout->addWidget(m_tabView);

    m_band = makeBand();
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(16);
    column->addStretch(0);
    column->addWidget(m_card, 1);
    column->addWidget(m_band);
    column->addStretch(0);
    setProgressVisible(false);
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
