#include "support/TestKeyring.h"

using platform::KeyringResult;

void TestKeyring::answerHeld()
{
    const auto held = std::exchange(m_held, {});
    for (const auto &operation : held)
        operation();
}

void TestKeyring::answer(std::function<void()> operation)
{
    if (isHanging)
        m_held.append(std::move(operation));
    else
        operation();
}

void TestKeyring::startRead(const QString &service, const QString &key, ReadCompletion done)
{
    answer([this, entry = std::pair(service, key), done = std::move(done)] {
        const bool isThere = secrets.contains(entry);
        done(result != KeyringResult::ok || isThere ? result : KeyringResult::notFound, secrets.value(entry));
    });
}

void TestKeyring::startWrite(const QString &service, const QString &key, const QString &secret,
                             Completion done)
{
    answer([this, entry = std::pair(service, key), secret, done = std::move(done)] {
        if (result == KeyringResult::ok)
            secrets.insert(entry, secret);
        done(result);
    });
}

void TestKeyring::startRemove(const QString &service, const QString &key, Completion done)
{
    answer([this, entry = std::pair(service, key), done = std::move(done)] {
        const bool isGone = result == KeyringResult::ok && secrets.remove(entry) > 0;
        done(result != KeyringResult::ok || isGone ? result : KeyringResult::notFound);
    });
}
