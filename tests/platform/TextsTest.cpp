#include "platform/Texts.h"

#include <gtest/gtest.h>

#include <tuple>

void linkTavimoTexts();

namespace {

TEST(TextsTest, languageGoesBeforeEnglishAndEnglishBeforeTheKey)
{
    linkTavimoTexts();
    struct Case
    {
        const char *locale;
        const char *never;
        const char *oneDay;
        const char *manyDays;
    };
    for (const Case &c :
         {Case{"de-AT", "nie", "1 Tag", "3 Tage"}, Case{"de_CH.UTF-8", "nie", "1 Tag", "3 Tage"},
          Case{"en_GB", "never", "1 day", "3 days"}, Case{"fi", "never", "1 day", "3 days"},
          Case{"../../x", "never", "1 day", "3 days"}, Case{"", "never", "1 day", "3 days"}}) {
        platform::installTexts(QLatin1String(c.locale));
        EXPECT_EQ(platform::localized("never"), QLatin1String(c.never)) << c.locale;
        EXPECT_EQ(platform::localized("Default", "%ld Days", nullptr, 1), QLatin1String(c.oneDay))
            << c.locale;
        EXPECT_EQ(platform::localized("Default", "%ld Days", nullptr, 3), QLatin1String(c.manyDays))
            << c.locale;
        EXPECT_EQ(platform::localized("Default", "%1 unknown key"), QStringLiteral("%1 unknown key"));
    }
}

TEST(TextsTest, aModifierOfTheEnvironmentTellsTheScript)
{
    const std::tuple<const char *, const char *, const char *> cases[] = {
        {"sr-RS", "sr_RS@latin", "sr-Latn-RS"},
        {"sr-RS", "sr_RS.UTF-8@latin", "sr-Latn-RS"},
        {"sr", "sr@Latin", "sr-Latn"},
        {"uz-UZ", "uz_UZ@cyrillic", "uz-Cyrl-UZ"},
        {"sr-Cyrl-RS", "sr_RS@latin", "sr-Cyrl-RS"},
        {"de-DE", "de_DE@euro", "de-DE"},
        {"sr-RS", "sr_RS.UTF-8", "sr-RS"},
        {"de-DE", "sr_RS@latin", "de-DE"},
        {"en", "", "en"},
    };
    for (const auto &[name, environment, expected] : cases)
        EXPECT_EQ(platform::localeNameWithScript(QLatin1String(name), QLatin1String(environment)),
                  QLatin1String(expected));
}

} // namespace
