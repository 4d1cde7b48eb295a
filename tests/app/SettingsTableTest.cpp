#include "app/ground/SettingsTable.h"

#include "support/TestServices.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

template <typename Setting, typename T>
concept WritableByAll = requires(const Setting &setting, T value)
{
    setting.set(value);
};

/** Owns settings with defaults that no zero value could be mistaken for. */
struct Shop
{
    static constexpr Setting<bool, Shop> isOpen{"isOpen"_L1, true};
    static constexpr Setting<qint64, Shop> shelves{"shelves"_L1, 7};
    static constexpr OptionalSetting<double, Shop> discount{"discount"_L1};
    static constexpr OptionalSetting<QString, Shop> motto{"motto"_L1};
    static Setting<bool, Shop, QString> isSoldOut(const QString &article) { return {article, false}; }

    static void write()
    {
        isOpen.set(false);
        shelves.set(5'000'000'000);
        discount.set(0.0);
        motto.set(QString());
        isSoldOut(u"Äpfel / \"rot\""_s).set(true);
    }
};

class SettingsTableTest : public ServicesTest
{
};

} // namespace

TEST_F(SettingsTableTest, WhatIsAbsentOrOfAWrongTypeIsTheDefault)
{
    for (const bool isStored : {false, true}) {
        EXPECT_TRUE(Shop::isOpen.value());
        EXPECT_EQ(Shop::shelves.value(), 7);
        EXPECT_EQ(Shop::discount.value(), std::nullopt);
        EXPECT_EQ(Shop::motto.value(), std::nullopt);
        EXPECT_FALSE(Shop::isSoldOut(u"pears"_s).value());
        if (!isStored) {
            for (const char *key : {"isOpen", "shelves", "discount", "pears"})
                services.settings.setValue(QLatin1String(key), u"perhaps"_s);
            services.settings.setValue(u"motto"_s, 3);
        }
    }
    services.settings.registerDefaults({{u"isOpen"_s, false}, {u"discount"_s, 0.25}});
    EXPECT_FALSE(Shop::isOpen.value());
    EXPECT_EQ(Shop::discount.value(), 0.25);
}

TEST_F(SettingsTableTest, WhatTheOwnerWritesComesBackAlsoWhereItIsZero)
{
    Shop::write();
    EXPECT_FALSE(Shop::isOpen.value());
    EXPECT_EQ(Shop::shelves.value(), 5'000'000'000);
    EXPECT_EQ(Shop::discount.value(), 0.0);
    EXPECT_EQ(Shop::motto.value(), QString());
    EXPECT_TRUE(Shop::isSoldOut(u"Äpfel / \"rot\""_s).value());
    EXPECT_FALSE(Shop::isSoldOut(u"Äpfel"_s).value());
    const QHash<QString, QVariant> stored{{u"isOpen"_s, false},
                                          {u"shelves"_s, qint64(5'000'000'000)},
                                          {u"discount"_s, 0.0},
                                          {u"motto"_s, QString()},
                                          {u"Äpfel / \"rot\""_s, true}};
    EXPECT_EQ(services.settings.stored(), stored);
}

TEST_F(SettingsTableTest, OnlyTheOwnerCanWrite)
{
    EXPECT_FALSE((WritableByAll<decltype(Shop::isOpen), bool>));
    EXPECT_FALSE((WritableByAll<decltype(Shop::motto), QString>));
}

TEST_F(SettingsTableTest, TheMarksOfAnnouncementsAndDeletedLanguagesStandUnderTheirOwnNames)
{
    services.settings.setValue(u"6f9619ff-8b86-d011-b42d-00c04fc964ff"_s, true);
    services.settings.setValue(u"Español - Deutsch"_s, true);
    EXPECT_TRUE(settings::isAnnouncementDismissed(u"6f9619ff-8b86-d011-b42d-00c04fc964ff"_s).value());
    EXPECT_TRUE(settings::isLanguageDeleted(u"Español - Deutsch"_s).value());
    EXPECT_FALSE(settings::isLanguageDeleted(u"Español - English"_s).value());
}
