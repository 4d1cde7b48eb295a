#include "platform/InputSources.h"

#include "platform/Services.h"

#include <algorithm>

namespace platform {

bool isSameList(const QList<InputSourceRef> &a, const QList<InputSourceRef> &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto &one, const auto &other) {
        return one->id == other->id && one->localizedName == other->localizedName;
    });
}

void InputSources::setListChanged(QObject *context, std::function<void()> changed)
{
    m_listChangedContext = context;
    m_listChanged = std::move(changed);
}

void InputSources::reportListChanged()
{
    if (m_listChangedContext && m_listChanged)
        services().queues->mainAsync(m_listChangedContext, m_listChanged);
}

} // namespace platform
