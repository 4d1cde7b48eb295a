#pragma once

#include "platform/desktop/IBusDaemon.h"

#include <QObject>

#include <memory>

namespace platform {

/**
 * The engines of the IBus daemon. A source's id is "ibus:" and the engine's name. The lists are fetched in
 * the background: at the start, when the daemon reports a change, and when they are asked for while there is
 * no daemon. Belongs to the main thread; the lists may be read from any.
 */
class IBusInputSources : public QObject, public InputSources
{
    Q_OBJECT

public:
    IBusInputSources();
    ~IBusInputSources() override;

    /** The engines that the user has enabled, or all; also all where the daemon doesn't tell the enabled
     * ones. */
    QList<InputSourceRef> createInputSourceList(bool includeAllInstalled) override;
    InputSourceRef currentKeyboardLayoutInputSource() override;
    void selectInputSource(const InputSourceRef &source) override;

    /** How many engines the user has enabled; 0 if the daemon doesn't tell. Any thread. */
    int enabledCount() const;

private Q_SLOTS:
    void refresh();
    void globalEngineChanged(const QString &name);
    void configurationChanged(const QString &section, const QString &name);
    void daemonLeft();

private:
    struct Known;

    void listenToDaemon();

    /** Outlives this object in the background task that fetches. */
    std::shared_ptr<Known> m_known;
    /** The number of the connection whose reports come in. */
    int m_connectionListenedTo = 0;
};

} // namespace platform
