#pragma once

#include <QList>
#include <QString>

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

/** The keyboard's input sources. This base offers nothing, which is harmless. Main thread only. */
class InputSources
{
public:
    virtual ~InputSources() = default;
    /** The enabled sources, or all installed ones. */
    virtual QList<InputSourceRef> createInputSourceList(bool includeAllInstalled)
    {
        Q_UNUSED(includeAllInstalled)
        return {};
    }
    /** The layout now in use; absent where none can be told. */
    virtual InputSourceRef currentKeyboardLayoutInputSource() { return nullptr; }
    /** Switches to the source; an absent one changes nothing. */
    virtual void selectInputSource(const InputSourceRef &source) { Q_UNUSED(source) }
};

} // namespace platform
