#include "platform/Texts.h"

#include <gtest/gtest.h>

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

} // namespace
