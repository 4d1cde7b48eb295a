#include "WordEditorTest.h"

using namespace Qt::StringLiterals;

namespace {

class KeyboardTest : public WordEditorTest
{
protected:
    KeyboardTest()
    {
        services.inputSources.current = services.inputSources.add(u"us"_s);
        services.inputSources.add(u"own"_s);
        services.inputSources.add(u"it"_s);
    }

    /** Walks through the fields; gives what the keyboard was switched to on the way, in order. */
    QString walk()
    {
        edit({dog});
        button("cancelButton")->setFocus();
        services.inputSources.selected.clear();
        QStringList steps;
        for (QWidget *each : {static_cast<QWidget *>(foreign()), static_cast<QWidget *>(yours()),
                              static_cast<QWidget *>(comment()), static_cast<QWidget *>(tags())}) {
            each->setFocus();
            steps.append(services.inputSources.current->id);
            button("cancelButton")->setFocus();
            EXPECT_EQ(services.inputSources.current->id, u"us"_s);
        }
        return steps.join(u' ');
    }
};

} // namespace

TEST_F(KeyboardTest, FieldsSwitchToTheirLanguageAndBack)
{
    struct Case
    {
        const char *yours;
        const char *foreign;
        bool isAuto;
        bool commentForeign;
        bool tagsForeign;
        const char *steps;
    };
    const QList<Case> cases = {
        {"own", "it", true, false, false, "it own own own"},
        {"own", "it", true, true, false, "it own it own"},
        {"own", "it", true, false, true, "it own own it"},
        {"own", "it", false, true, true, "us us us us"},
        {"own", "", true, true, true, "us own us us"},
        {"gone", "it", true, false, false, "it us us us"},
    };
    for (const Case &each : cases) {
        SCOPED_TRACE(each.steps);
        vocabulary = makeVocabulary({dog});
        vocabulary->setForeignLanguageName(u"Italian"_s);
        vocabulary->setYourTextInputSourceId(QString::fromLatin1(each.yours));
        vocabulary->setForeignTextInputSourceId(QString::fromLatin1(each.foreign));
        vocabulary->setIsAutoSelectInputSource(each.isAuto);
        services.settings.setValue(u"isSwitchKeyboardCommentToForeign"_s, each.commentForeign);
        services.settings.setValue(u"isSwitchKeyboardTagsToForeign"_s, each.tagsForeign);
        EXPECT_EQ(walk(), QLatin1String(each.steps));
        if (!each.isAuto) {
            EXPECT_TRUE(services.inputSources.selected.isEmpty());
        }
    }
}

TEST_F(KeyboardTest, PanelThatClosesGivesTheKeyboardBackAndTakesItAgain)
{
    vocabulary->setForeignTextInputSourceId(u"it"_s);
    for (int round = 0; round < 2; ++round) {
        edit({dog});
        EXPECT_EQ(services.inputSources.current->id, u"it"_s);
        if (round == 0)
            editor->hidePanel();
        else
            window.hide();
        EXPECT_EQ(services.inputSources.current->id, u"us"_s);
    }
}

TEST_F(KeyboardTest, ANewVocabularyThatSwitchesNothingStillGivesTheKeyboardBack)
{
    vocabulary->setForeignTextInputSourceId(u"it"_s);
    edit({dog});
    ASSERT_EQ(services.inputSources.current->id, u"it"_s);
    editor->updateVocabulary(makeVocabulary({makeWord({u"dog"_s, u"cane"_s})}));
    editor->hidePanel();
    EXPECT_EQ(services.inputSources.current->id, u"us"_s);
}

TEST_F(KeyboardTest, SecondFocusWithoutAnEndOverwritesWhatToGoBackTo)
{
    vocabulary->setForeignTextInputSourceId(u"it"_s);
    edit({dog});
    auto *field = control<TAVLanguageTextField>("foreignWordTextField");
    editor->languageTextFieldDidBecomeActive(field);
    button("cancelButton")->setFocus();
    EXPECT_EQ(services.inputSources.current->id, u"it"_s);
}

TEST_F(KeyboardTest, MenusAndOtherWindowsAreNoEndOfEditing)
{
    vocabulary->setForeignTextInputSourceId(u"it"_s);
    edit({dog});
    for (const Qt::FocusReason reason :
         {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason, Qt::MenuBarFocusReason}) {
        QFocusEvent out(QEvent::FocusOut, reason);
        QApplication::sendEvent(foreign(), &out);
        EXPECT_EQ(services.inputSources.current->id, u"it"_s);
        QFocusEvent in(QEvent::FocusIn, reason);
        QApplication::sendEvent(foreign(), &in);
    }
    button("cancelButton")->setFocus();
    EXPECT_EQ(services.inputSources.current->id, u"us"_s) << "what was kept stayed";
}
