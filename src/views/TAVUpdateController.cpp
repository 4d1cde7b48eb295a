#include "views/TAVUpdateController.h"

#include "DeployerValues.h"
#include "platform/Services.h"
#include "platform/Texts.h"

#include <QAction>
#include <QUrl>

TAVUpdateController::TAVUpdateController(QObject *parent)
    : QObject(parent)
    , m_updateMenuItem(new QAction(platform::localized("MainWindow", "checkForUpdates"), this))
{
    m_updateMenuItem->setObjectName(QStringLiteral("checkForUpdates"));
    m_updateMenuItem->setMenuRole(QAction::ApplicationSpecificRole);
    connect(m_updateMenuItem, &QAction::triggered, this,
            [] { platform::services().browser->openUrl(QUrl(QString::fromLatin1(deployer::releasesUrl))); });
}
