#pragma once

#include "platform/Browser.h"

namespace platform {

/** Hands folders and addresses to the desktop. What can't be opened leaves a line in the diagnostic log. */
class DesktopBrowser : public Browser
{
public:
    void openFolder(const QString &path) override;
    void openUrl(const QUrl &url) override;
};

} // namespace platform
