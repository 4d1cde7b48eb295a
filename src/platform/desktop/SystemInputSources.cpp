#include "platform/desktop/SystemInputSources.h"

#include "platform/desktop/IBusInputSources.h"
#include "platform/desktop/X11.h"
#include "platform/desktop/XkbInputSources.h"

namespace platform {

namespace {

/** Whatever of the two the user switches between. */
class SystemInputSources : public InputSources
{
public:
    SystemInputSources()
    {
        if (xcb_connection_t *connection = x11::connection())
            m_xkb = std::make_unique<XkbInputSources>(connection);
        m_ibus.setListChanged(&m_context, [this] { reportListChanged(); });
        if (m_xkb)
            m_xkb->setListChanged(&m_context, [this] { reportListChanged(); });
    }

    QList<InputSourceRef> createInputSourceList(bool includeAllInstalled) override
    {
        // Also asked where the other counts, as asking is what finds a daemon that has come.
        const auto engines = m_ibus.createInputSourceList(includeAllInstalled);
        return isIBusInUse() ? engines : m_xkb->createInputSourceList(includeAllInstalled);
    }
    InputSourceRef currentKeyboardLayoutInputSource() override
    {
        return inUse().currentKeyboardLayoutInputSource();
    }
    void selectInputSource(const InputSourceRef &source) override { inUse().selectInputSource(source); }

private:
    bool isIBusInUse() const { return !m_xkb || m_ibus.enabledCount() >= 2; }
    InputSources &inUse() { return isIBusInUse() ? static_cast<InputSources &>(m_ibus) : *m_xkb; }

    QObject m_context;
    IBusInputSources m_ibus;
    std::unique_ptr<XkbInputSources> m_xkb;
};

} // namespace

std::unique_ptr<InputSources> makeSystemInputSources()
{
    return std::make_unique<SystemInputSources>();
}

} // namespace platform
