#include "quiz/forms/InfoPanels.h"

#include "DeployerValues.h"
#include "app/ground/SettingsTable.h"
#include "platform/Services.h"
#include "platform/Texts.h"
#include "quiz/forms/CardStyle.h"
#include "ui_AnnouncementPage.h"
#include "ui_PromptPages.h"
#include "usage/RatingPrompt.h"
#include "widgets/CardText.h"
#include "widgets/Icons.h"

#include <QStackedWidget>

namespace {

/** A longer message would push the quiz off its own page. */
constexpr qsizetype maxMessageLength = 400;
enum PromptTab { questionTab, feedbackTab, ratingTab };

QString shortened(const QString &text)
{
    return text.size() <= maxMessageLength ? text : text.left(maxMessageLength - 1) + QChar(0x2026);
}

} // namespace

InfoPanels::InfoPanels(QStackedWidget *infoTabView, QStackedWidget *promptTabView, const QUrl &address)
    : m_infoTabView(infoTabView)
    , m_promptTabView(promptTabView)
    , m_announcement(std::make_unique<Ui::AnnouncementPage>())
    , m_prompt(std::make_unique<Ui::PromptPages>())
{
    auto *page = new QWidget;
    m_announcement->setupUi(page);
    m_infoTabView->addWidget(page);
    auto *question = new QStackedWidget;
    m_prompt->setupUi(question);
    while (question->count() > 0)
        m_promptTabView->addWidget(question->widget(0));
    delete question;
    CardStyle::enlarge(m_announcement->messageTitle, 1.1, true);
    m_announcement->dismissButton->setIcon(Icons::icon(QStringLiteral("close"), CardText::textColor()));
    localize();
    m_infoTabView->hide();
    m_promptTabView->hide();

    for (QPushButton *button : {m_announcement->messageButton, m_announcement->alternateButton})
        connect(button, &QPushButton::clicked, this, [this, button] { goToInfoURL(button); });
    connect(m_announcement->dismissButton, &QAbstractButton::clicked, this,
            &InfoPanels::dontShowThisInfoAgain);
    connect(m_prompt->promptLoveItButton, &QPushButton::clicked, this, &InfoPanels::showRatingInvitation);
    connect(m_prompt->promptUnhappyButton, &QPushButton::clicked, this, &InfoPanels::showFeedbackPrompt);
    connect(m_prompt->promptRateButton, &QPushButton::clicked, this, &InfoPanels::rateit);
    connect(m_prompt->promptMailButton, &QPushButton::clicked, this, &InfoPanels::sendEmail);
    m_fetch =
        announcement::fetch(address, [this](const QJsonObject &dictionary) { setMessageDict(dictionary); });
}

InfoPanels::~InfoPanels() = default;

void InfoPanels::localize()
{
    m_announcement->dismissButton->setAccessibleName(platform::localized("MainWindow", "dismissInfo"));
    m_announcement->dismissButton->setToolTip(platform::localized("MainWindow", "dismissInfo"));
    m_prompt->promptLabel->setText(platform::localized("MainWindow", "howDoYouLikeIt"));
    m_prompt->promptLoveItButton->setText(platform::localized("MainWindow", "loveit"));
    m_prompt->promptUnhappyButton->setText(platform::localized("MainWindow", "unhappy"));
    m_prompt->feedbackLabel->setText(platform::localized("MainWindow", "feedbackPrompt"));
    m_prompt->promptMailButton->setText(platform::localized("MainWindow", "writeMail"));
    m_prompt->rateLabel->setText(platform::localized("MainWindow", "ratePrompt"));
    m_prompt->promptRateButton->setText(platform::localized("MainWindow", "rateit"));
}

void InfoPanels::hideInfo()
{
    m_infoTabView->hide();
}

bool InfoPanels::showInfoPanel()
{
    const auto found = m_messageDict ? Announcement::fromDictionary(*m_messageDict) : std::nullopt;
    // What was dismissed has been hidden at that moment already.
    if (found && found->displayedIn != QLatin1String("appstore") &&
        settings::isAnnouncementDismissed(found->uuid).value())
        return false;
    if (!found || !found->isDue(platform::secondsSince1970(platform::clock()))) {
        m_infoTabView->hide();
        return false;
    }
    m_announcement->messageTitle->setText(shortened(found->title));
    m_announcement->messageText->setText(shortened(found->message));
    m_announcement->messageButton->setText(shortened(found->buttonTitle));
    m_announcement->alternateButton->setText(shortened(found->alternateButtonTitle));
    m_infoTabView->setCurrentIndex(m_infoTabView->count() - 1);
    m_infoTabView->show();
    return true;
}

void InfoPanels::dontShowThisInfoAgain()
{
    m_infoTabView->hide();
    const auto shown = m_messageDict ? Announcement::fromDictionary(*m_messageDict) : std::nullopt;
    if (shown)
        settings::isAnnouncementDismissed(shown->uuid).set(true);
}

void InfoPanels::goToInfoURL(QObject *sender)
{
    const auto shown = m_messageDict ? Announcement::fromDictionary(*m_messageDict) : std::nullopt;
    const bool isAlternate = sender == m_announcement->alternateButton;
    if (!shown || !(isAlternate || sender == m_announcement->messageButton))
        return;
    const QUrl url(isAlternate ? shown->alternateUrl : shown->url, QUrl::StrictMode);
    if (url.isValid() && url.scheme() == QLatin1String("https") && !url.host().isEmpty())
        platform::services().browser->openUrl(url);
}

void InfoPanels::showFeedbackPrompt()
{
    m_promptTabView->setCurrentIndex(feedbackTab);
    settings::userWasUnhappy.set(true);
}

void InfoPanels::showRatingInvitation()
{
    m_promptTabView->setCurrentIndex(ratingTab);
}

void InfoPanels::rateit()
{
    RatingPrompt::shared()->openRatingsPageInAppStore();
    RatingPrompt::shared()->setRatedThisVersion(true);
}

void InfoPanels::sendEmail()
{
    platform::services().browser->openUrl(
        QUrl(QLatin1String("mailto:") + QLatin1String(deployer::supportMail)));
}
