#include "platform/Keyring.h"

#include "platform/Services.h"

#include <QPointer>

#include <memory>

namespace platform {

namespace {

/** The keyring may be asking the user for a password, but what waits for it must go on. */
constexpr std::chrono::seconds maxWait{5};

/** Calls the completion once: with the answer, or when the time is over. */
Keyring::ReadCompletion withinTime(QObject *context, Keyring::ReadCompletion completion)
{
    const auto waiting = std::make_shared<Keyring::ReadCompletion>(std::move(completion));
    const auto end = [waiting](KeyringResult result, const QString &secret) {
        if (const auto once = std::exchange(*waiting, nullptr))
            once(result, result == KeyringResult::ok ? secret : QString());
    };
    clock().callAfter(maxWait, context, [end] { end(KeyringResult::timedOut, {}); });
    // Never from inside of the operation, and never under an alert.
    return [end, hasContext = context != nullptr, guard = QPointer<QObject>(context)](KeyringResult result,
                                                                                      const QString &secret) {
        if (!hasContext || guard)
            services().queues->mainAsync(guard, [end, result, secret] { end(result, secret); });
    };
}

Keyring::Completion withoutSecret(Keyring::ReadCompletion done)
{
    return [done = std::move(done)](KeyringResult result) { done(result, {}); };
}

Keyring::ReadCompletion withSecret(Keyring::Completion completion)
{
    return
        [completion = std::move(completion)](KeyringResult result, const QString &) { completion(result); };
}

} // namespace

void Keyring::read(const QString &service, const QString &key, QObject *context, ReadCompletion completion)
{
    startRead(service, key, withinTime(context, std::move(completion)));
}

void Keyring::write(const QString &service, const QString &key, const QString &secret, QObject *context,
                    Completion completion)
{
    startWrite(service, key, secret, withoutSecret(withinTime(context, withSecret(std::move(completion)))));
}

void Keyring::remove(const QString &service, const QString &key, QObject *context, Completion completion)
{
    startRemove(service, key, withoutSecret(withinTime(context, withSecret(std::move(completion)))));
}

// What overrides these keeps the completion for later.
// NOLINTBEGIN(performance-unnecessary-value-param)
void Keyring::startRead(const QString &, const QString &, ReadCompletion done)
{
    done(KeyringResult::noKeyring, {});
}

void Keyring::startWrite(const QString &, const QString &, const QString &, Completion done)
{
    done(KeyringResult::noKeyring);
}

void Keyring::startRemove(const QString &, const QString &, Completion done)
{
    done(KeyringResult::noKeyring);
}
// NOLINTEND(performance-unnecessary-value-param)

} // namespace platform
