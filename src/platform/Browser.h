#pragma once

#include <QString>
#include <QUrl>

namespace platform {

/** Opens folders and addresses with the programs that the user has chosen for them. */
class Browser
{
public:
    virtual ~Browser() = default;
    virtual void openFolder(const QString &path) { Q_UNUSED(path) }
    virtual void openUrl(const QUrl &url) { Q_UNUSED(url) }
};

} // namespace platform
