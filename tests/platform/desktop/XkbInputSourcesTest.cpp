#include "platform/desktop/XkbInputSources.h"
#include "VirtualDisplay.h"
#include "platform/desktop/X11.h"

#include "support/GuiTest.h"

#include <QTest>

using platform::InputSourceRef;
using platform::XkbInputSources;

namespace {

class XkbInputSourcesTest : public ServicesTest
{
protected:
    void SetUp() override
    {
        if (!virtualdisplay::isRunning())
            GTEST_SKIP() << "Xvfb or setxkbmap is not installed";
    }

    static void setLayouts(const QString &layouts, const QString &variants)
    {
        ASSERT_TRUE(virtualdisplay::run(u"setxkbmap"_qs, {u"-layout"_qs, layouts, u"-variant"_qs, variants}));
    }
    static QStringList ids(XkbInputSources &sources)
    {
        QStringList list;
        for (const InputSourceRef &source : sources.createInputSourceList(false))
            list.append(source->id);
        return list;
    }
    /** Once the server's reports have come in. */
    static bool becomes(XkbInputSources &sources, const QStringList &expected)
    {
        return QTest::qWaitFor([&] { return ids(sources) == expected; });
    }
    static QString current(XkbInputSources &sources)
    {
        const InputSourceRef source = sources.currentKeyboardLayoutInputSource();
        return source ? source->id : QString();
    }
};

} // namespace

TEST_F(XkbInputSourcesTest, ListsTheGroupsAndSwitchesBetweenThem)
{
    setLayouts(u"us,de,ru"_qs, u",,phonetic"_qs);
    XkbInputSources sources(platform::x11::connection());
    const auto list = sources.createInputSourceList(false);
    ASSERT_EQ(ids(sources), QStringList({u"xkb:us"_qs, u"xkb:de"_qs, u"xkb:ru(phonetic)"_qs}));
    EXPECT_EQ(list.at(1)->localizedName, u"German"_qs);
    EXPECT_EQ(list.at(2)->localizedName, u"Russian (phonetic)"_qs);
    EXPECT_EQ(current(sources), u"xkb:us"_qs);

    for (const int i : {2, 1, 0, 1}) {
        sources.selectInputSource(list.at(i));
        EXPECT_EQ(current(sources), list.at(i)->id);
    }
    sources.selectInputSource(nullptr);
    sources.selectInputSource(
        std::make_shared<const platform::InputSource>(platform::InputSource{u"xkb:fr"_qs, u"French"_qs}));
    EXPECT_EQ(current(sources), u"xkb:de"_qs) << "a layout that is not there changes nothing";

    // The user changes the order while the program holds on to what it listed before.
    QObject context;
    int changes = 0;
    sources.setListChanged(&context, [&] { ++changes; });
    setLayouts(u"ru,us,de"_qs, u"phonetic,,"_qs);
    sources.selectInputSource(list.at(1));
    EXPECT_EQ(current(sources), u"xkb:de"_qs);
    EXPECT_TRUE(becomes(sources, {u"xkb:ru(phonetic)"_qs, u"xkb:us"_qs, u"xkb:de"_qs}));
    services.queues.drain();
    EXPECT_GE(changes, 1);
    setLayouts(u"fr"_qs, {});
    EXPECT_TRUE(becomes(sources, {u"xkb:fr"_qs}));

    // Each report counts by itself: a keymap without a note of its layouts, and a note alone.
    ASSERT_TRUE(virtualdisplay::run(
        u"sh"_qs, {u"-c"_qs, u"setxkbmap -layout it -print | xkbcomp -w0 - \"$DISPLAY\""_qs}));
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return sources.createInputSourceList(false).value(0)->localizedName == u"Italian"_qs; }));
    xcb_connection_t *other = xcb_connect(nullptr, nullptr);
    const QByteArray note("evdev\0pc105\0se\0\0\0", 17);
    xcb_change_property(other, XCB_PROP_MODE_REPLACE, platform::x11::rootWindow(other),
                        platform::x11::atom(other, "_XKB_RULES_NAMES"), XCB_ATOM_STRING, 8,
                        quint32(note.size()), note.constData());
    platform::x11::atom(other, "WM_NAME"); // asked so that the server has taken the note before it sees us go
    xcb_disconnect(other);
    EXPECT_TRUE(becomes(sources, {u"xkb:se"_qs}));
}
