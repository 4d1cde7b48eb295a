#pragma once

#include <QList>
#include <QPointer>
#include <QString>

#include <functional>
#include <memory>

namespace platform {

/** A keyboard layout or input method that the user can type with. */
struct InputSource
{
    /** Stable identifier, kept in vocabulary files. */
    QString id;
    QString localizedName;
    bool isSelectCapable = true;
};

using InputSourceRef = std::shared_ptr<const InputSource>;

/** Whether both lists hold sources of the same ids and names in the same order. */
bool isSameList(const QList<InputSourceRef> &a, const QList<InputSourceRef> &b);

/**
 * The keyboard's input sources. The lists are kept up to date behind the scenes, so that nobody who reads one
 * ever waits for the desktop; any thread may. The rest is the main thread's. This base offers nothing, which
 * is harmless.
 */
class InputSources
{
public:
    virtual ~InputSources() = default;
    /** The enabled sources, or all installed ones, as they are known now. Never waits. Any thread. */
    virtual QList<InputSourceRef> createInputSourceList(bool includeAllInstalled)
    {
        Q_UNUSED(includeAllInstalled)
        return {};
    }
    /** The layout now in use; absent where none can be told. */
    virtual InputSourceRef currentKeyboardLayoutInputSource() { return nullptr; }
    /** Switches to the source; an absent one changes nothing. */
    virtual void selectInputSource(const InputSourceRef &source) { Q_UNUSED(source) }

    /**
     * Calls the function on the main thread whenever the lists have changed, as long as the context lives.
     * There is one such function; what was found in an earlier list can be looked up again there.
     */
    void setListChanged(QObject *context, std::function<void()> changed);

protected:
    /** Main thread only. */
    void reportListChanged();

private:
    QPointer<QObject> m_listChangedContext;
    std::function<void()> m_listChanged;
};

} // namespace platform
