#pragma once

#include "platform/Keyring.h"

#include <QMap>

#include <utility>

/** A keyring in memory, which can refuse everything, or never answer. */
class TestKeyring : public platform::Keyring
{
public:
    /** By service and key. */
    QMap<std::pair<QString, QString>, QString> secrets;
    /** Anything but ok is the answer to everything. */
    platform::KeyringResult result = platform::KeyringResult::ok;
    /** Operations wait for answerHeld(). */
    bool isHanging = false;
    void answerHeld();

protected:
    void startRead(const QString &service, const QString &key, ReadCompletion done) override;
    void startWrite(const QString &service, const QString &key, const QString &secret,
                    Completion done) override;
    void startRemove(const QString &service, const QString &key, Completion done) override;

private:
    void answer(std::function<void()> operation);

    QList<std::function<void()>> m_held;
};
