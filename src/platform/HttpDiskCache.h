#pragma once

#include "platform/Http.h"

#include <QNetworkDiskCache>

#include <optional>

namespace platform {

/**
 * Answers that are kept from one run to the next. It stands beside the network rather than in it: the
 * network's own way asks the server again where a kept answer demands that, however old an answer may be, and
 * returns kept answers in the place of a server's error. Lives on the client's thread.
 */
class HttpDiskCache
{
public:
    /** Makes the folder. */
    explicit HttpDiskCache(const QString &folder);

    /** The kept answer; one whose time is over only if any age will do. */
    std::optional<HttpResponse> find(const QUrl &url, bool ofAnyAge);
    /** Keeps the answer, unless its server forbids that. */
    void insert(const QUrl &url, const HttpResponse &response);

private:
    QNetworkDiskCache m_store;
};

} // namespace platform
