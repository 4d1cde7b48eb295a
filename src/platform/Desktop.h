#pragma once

#include <QString>
#include <QtGlobal>

#include <functional>

namespace platform {

/** What a program can ask of the desktop about windows of all programs. This base offers nothing. */
class Desktop
{
public:
    /** Names an application's window for activateApplication(); 0 for none. */
    using Application = quintptr;

    virtual ~Desktop() = default;
    /** The application in front, unless it is this program or cannot be told. */
    virtual Application frontmostApplication() { return 0; }
    virtual void activateApplication(Application application) { Q_UNUSED(application) }
    /** Brings a window of this program above the windows of all programs, on the active desktop, with focus.
     */
    virtual void raiseAboveAll(quintptr windowId) { Q_UNUSED(windowId) }
    /** Whether raiseAboveAll() and a window's position can be relied on here. */
    virtual bool canRaiseAboveAll() const { return false; }
    /** Whether this window of the program stands on a virtual desktop that the user doesn't see at present.
     */
    virtual bool isOnAnotherDesktop(quintptr windowId)
    {
        Q_UNUSED(windowId)
        return false;
    }
    /**
     * Whether the repeats of a key that is held down can come as a release and a press of their own here,
     * which then bear the same time.
     */
    virtual bool sendsRepeatsAsPresses() const { return false; }
    /** Shows the user a message; chosen runs on the main thread, not under an alert, once the user clicks it.
     */
    virtual void notify(const QString &title, const QString &text, const std::function<void()> &chosen)
    {
        Q_UNUSED(title)
        Q_UNUSED(text)
        Q_UNUSED(chosen)
    }
};

} // namespace platform
