#pragma once

#include "quiz/Announcement.h"

#include <QJsonObject>
#include <QObject>

#include <memory>
#include <optional>

class QStackedWidget;

namespace Ui {
class AnnouncementPage;
class PromptPages;
} // namespace Ui

/**
 * The two small panels of the setup page that speak to the user: an announcement of the maker, and the
 * question how the user likes the program.
 */
class InfoPanels : public QObject
{
    Q_OBJECT

public:
    /** Fills the two views, which must outlive this, and starts the fetch; an empty address means none. */
    InfoPanels(QStackedWidget *infoTabView, QStackedWidget *promptTabView, const QUrl &address);
    ~InfoPanels() override;

    void hideInfo();
    /** Shows the announcement if one is due; tells whether it did. */
    bool showInfoPanel();
    /** Hides the announcement and dismisses it for good. */
    void dontShowThisInfoAgain();
    /** Opens the link of the button that sends; any other sender does nothing. */
    void goToInfoURL(QObject *sender);

    /** Whether the question how the user likes the program was shown; this edition never asks it. */
    bool showRatingPrompt() { return false; }
    /** The user is not happy: invites to write what is missing. */
    void showFeedbackPrompt();
    /** The user is happy: invites to rate. */
    void showRatingInvitation();
    void rateit();
    void sendEmail();

    /** The announcement as it was fetched, for the life of the program. */
    const std::optional<QJsonObject> &messageDict() const { return m_messageDict; }
    void setMessageDict(const QJsonObject &dictionary) { m_messageDict = dictionary; }

private:
    void localize();

    QStackedWidget *m_infoTabView;
    QStackedWidget *m_promptTabView;
    std::unique_ptr<Ui::AnnouncementPage> m_announcement;
    std::unique_ptr<Ui::PromptPages> m_prompt;
    std::optional<QJsonObject> m_messageDict;
    /** Under way until it has its answer. */
    std::unique_ptr<platform::HttpCall> m_fetch;
};
