#pragma once

#include <QObject>
#include <QString>

#include <functional>

namespace platform {

enum class KeyringResult {
    ok,
    notFound,
    /** No keyring runs for this user. Nothing can be kept then; a settings file is no place for secrets. */
    noKeyring,
    /** The user refused to open the keyring. */
    denied,
    timedOut,
    failed
};

/**
 * The desktop's store of secrets: one text for each service and key. Main thread only. Every operation
 * returns at once, and calls completion later, unless the context was destroyed before; what the keyring
 * hasn't answered after five seconds ends as timedOut. This base stands where no keyring runs.
 */
class Keyring
{
public:
    using Completion = std::function<void(KeyringResult)>;
    /** The secret is empty unless the result is ok. */
    using ReadCompletion = std::function<void(KeyringResult, const QString &secret)>;

    virtual ~Keyring() = default;

    void read(const QString &service, const QString &key, QObject *context, ReadCompletion completion);
    void write(const QString &service, const QString &key, const QString &secret, QObject *context,
               Completion completion);
    /** An entry that isn't there ends as notFound. */
    void remove(const QString &service, const QString &key, QObject *context, Completion completion);

protected:
    /** Each calls done on the main thread, now or later; any call but the first is ignored. */
    virtual void startRead(const QString &service, const QString &key, ReadCompletion done);
    virtual void startWrite(const QString &service, const QString &key, const QString &secret,
                            Completion done);
    virtual void startRemove(const QString &service, const QString &key, Completion done);
};

} // namespace platform
