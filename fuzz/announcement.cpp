// The announcement server's answer: whatever it holds, it is an announcement with all its parts, or none.

#include "quiz/Announcement.h"

#include <QJsonDocument>
#include <QUuid>

#include <cstdlib>
#include <limits>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray body(reinterpret_cast<const char *>(data), qsizetype(size));
    const auto found = Announcement::fromDictionary(QJsonDocument::fromJson(body).object());
    if (!found)
        return 0;
    // A key of the settings must never be some other setting's.
    const bool isKey = !QUuid::fromString(found->uuid).isNull();
    const bool isEverDue = found->isDue(found->validFrom) || found->validFrom > found->validTo ||
                           found->displayedIn == QLatin1String("appstore");
    if (!isKey || !isEverDue || found->isDue(std::numeric_limits<qint64>::max()))
        std::abort();
    return 0;
}
