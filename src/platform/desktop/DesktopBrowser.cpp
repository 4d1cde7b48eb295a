#include "platform/desktop/DesktopBrowser.h"

#include "platform/DiagnosticLog.h"

#include <QDesktopServices>

namespace platform {

void DesktopBrowser::openFolder(const QString &path)
{
    openUrl(QUrl::fromLocalFile(path));
}

void DesktopBrowser::openUrl(const QUrl &url)
{
    if (!url.isValid() || !QDesktopServices::openUrl(url))
        diagnosticLog(QLatin1String("Browser > open > nothing opens %1").arg(url.toDisplayString()));
}

} // namespace platform
