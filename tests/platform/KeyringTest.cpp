#include "platform/Keyring.h"

#include "support/TestServices.h"

using namespace Qt::StringLiterals;
using platform::KeyringResult;

namespace {

class KeyringTest : public ServicesTest
{
protected:
    /** What a read has answered by now: its secret, or the number of its result. */
    void read(platform::Keyring &keyring, QObject *context = nullptr)
    {
        keyring.read(u"service"_s, u"key"_s, context, [this](KeyringResult result, const QString &secret) {
            EXPECT_EQ(result == KeyringResult::ok, !secret.isEmpty());
            results.append(result);
        });
    }
    platform::Keyring::Completion noteResult()
    {
        return [this](KeyringResult result) { results.append(result); };
    }
    QList<KeyringResult> newResults()
    {
        services.queues.drain();
        return std::exchange(results, {});
    }

    QList<KeyringResult> results;
};

} // namespace

TEST_F(KeyringTest, AnswersLaterAndOnceAndNobodyWhoIsGone)
{
    TestKeyring &keyring = services.keyring;
    read(keyring);
    keyring.write(u"service"_s, u"key"_s, u"secret"_s, nullptr, noteResult());
    EXPECT_TRUE(results.isEmpty()) << "never from inside the call";
    EXPECT_EQ(newResults(), (QList{KeyringResult::notFound, KeyringResult::ok}));
    read(keyring);
    keyring.remove(u"service"_s, u"key"_s, nullptr, noteResult());
    keyring.remove(u"service"_s, u"key"_s, nullptr, noteResult());
    EXPECT_EQ(newResults(), (QList{KeyringResult::ok, KeyringResult::ok, KeyringResult::notFound}));

    keyring.secrets.insert({u"service"_s, u"key"_s}, u"secret"_s);
    keyring.result = KeyringResult::denied;
    read(keyring);
    EXPECT_EQ(newResults(), QList{KeyringResult::denied}) << "and no secret with it";
    auto context = std::make_unique<QObject>();
    read(keyring, context.get());
    context.reset();
    services.clock.advanceSeconds(10);
    EXPECT_TRUE(newResults().isEmpty());
}

TEST_F(KeyringTest, WhatIsNotAnsweredEndsAfterFiveSeconds)
{
    TestKeyring &keyring = services.keyring;
    keyring.isHanging = true;
    read(keyring);
    keyring.write(u"service"_s, u"key"_s, u"secret"_s, nullptr, noteResult());
    keyring.remove(u"service"_s, u"key"_s, nullptr, noteResult());
    services.clock.advanceSeconds(4.9);
    EXPECT_TRUE(newResults().isEmpty());
    services.clock.advanceSeconds(0.2);
    EXPECT_EQ(newResults(), QList<KeyringResult>(3, KeyringResult::timedOut));
    keyring.answerHeld();
    EXPECT_TRUE(newResults().isEmpty()) << "an answer that comes too late";
}

TEST_F(KeyringTest, WithoutAKeyringEverythingSaysSo)
{
    platform::Keyring none;
    read(none);
    none.write(u"service"_s, u"key"_s, u"secret"_s, nullptr, noteResult());
    none.remove(u"service"_s, u"key"_s, nullptr, noteResult());
    EXPECT_EQ(newResults(), QList<KeyringResult>(3, KeyringResult::noKeyring));
}
