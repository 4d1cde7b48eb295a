#pragma once

#include "app/ground/AppGround.h"
#include "document/VocabularyDocument.h"
#include "storage/TAVStorageManager.h"
#include "support/GuiTest.h"
#include "sync/DropBoxController.h"
#include "views/TAVLexiconController.h"
#include "views/TAVMainWindowController.h"
#include "views/WordTableModel.h"
#include "views/WordTableView.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QMenuBar>
#include <QtTest>

/**
 * Writes down, in order, what an action causes: "mark" (with a star if the vocabulary was flagged by then),
 * "save", "sync", "reload", and what a page of the window is told. A save is seen by the time of the watched
 * file, looked at before each entry.
 */
class Recorder : public DropBoxController
{
public:
    void watch(const QString &path, QAbstractItemModel *model)
    {
        m_path = path;
        m_connection.reset(new QObject);
        QObject::connect(model, &QAbstractItemModel::modelReset, m_connection.get(),
                         [this] { note(QStringLiteral("reload")); });
        lookForSave();
        m_entries.clear();
    }
    /** What was written down since the last call, or since watch(). */
    QString take()
    {
        lookForSave();
        return std::exchange(m_entries, {}).join(QLatin1Char(' '));
    }
    void markFileAsNeedsSync(const TAVLexicon &vocabulary) override
    {
        note(vocabulary.needsSync() ? QStringLiteral("mark*") : QStringLiteral("mark"));
    }
    void syncWithDropbox() override { note(QStringLiteral("sync")); }
    bool isEnabled() const override { return enabled; }
    void setIsEnabled(bool flag) override { enabled = flag; }
    bool isLinked() const override { return linked; }
    void setDelegate(DropboxControllerDelegate *receiver) override { delegate = receiver; }
    void setWindow(QWidget *parent) override { window = parent; }
    void note(const QString &entry)
    {
        lookForSave();
        m_entries.append(entry);
    }

    bool enabled = false;
    bool linked = false;
    DropboxControllerDelegate *delegate = nullptr;
    QWidget *window = nullptr;

private:
    void lookForSave()
    {
        const QDateTime longAgo(QDate(2001, 1, 1), QTime(12, 0), Qt::UTC);
        const QFileInfo info(m_path);
        if (m_path.isEmpty() || !info.exists() || info.lastModified() == longAgo)
            return;
        m_entries.append(QStringLiteral("save"));
        QFile file(m_path);
        EXPECT_TRUE(file.open(QIODevice::ReadWrite));
        EXPECT_TRUE(file.setFileTime(longAgo, QFileDevice::FileModificationTime));
    }

    QString m_path;
    QStringList m_entries;
    std::unique_ptr<QObject> m_connection;
};

/** Languages on disk, and the main window over them when start() is called. */
class ViewsTest : public ServicesTest
{
protected:
    ViewsTest()
    {
        AppGround::applicationSupportFolder();
        DropBoxController::setSharedManager(&recorder);
        services.settings.setValue(QStringLiteral("hasShownVocabularyHelp"), true);
    }
    ~ViewsTest() override
    {
        hub.reset();
        DropBoxController::setSharedManager(nullptr);
    }

    static TAVWordRef addWord(const TAVLexiconRef &vocabulary, const char *your, const char *foreign,
                              quint64 level = 0, const QStringList &tags = {})
    {
        const auto word =
            std::make_shared<TAVWord>(QString::fromUtf8(your), QString::fromUtf8(foreign), QString());
        word->setLevel(level);
        word->setTags(TAVTextSet(tags));
        vocabulary->addWord(word);
        word->setCreationID(1000 + vocabulary->countAllWords());
        return word;
    }
    static TAVLexiconRef makeLanguage(const char *foreign)
    {
        const auto vocabulary = std::make_shared<TAVLexicon>();
        vocabulary->setYourLanguageName(QStringLiteral("English"));
        vocabulary->setForeignLanguageName(QString::fromUtf8(foreign));
        return vocabulary;
    }
    /** Three words: one unknown, one on level 2 with the tag "home", one on level 5 that is excluded. */
    static TAVLexiconRef makeItalian()
    {
        const TAVLexiconRef vocabulary = makeLanguage("Italian");
        addWord(vocabulary, "dog", "cane");
        addWord(vocabulary, "house", "casa", 2, {QStringLiteral("home")});
        addWord(vocabulary, "water", "acqua", 5)->setDontAskAgain(true);
        vocabulary->invalidateCachedWordLists();
        return vocabulary;
    }
    static QString save(const TAVLexiconRef &vocabulary)
    {
        EXPECT_TRUE(TAVStorageManager::saveVocabulary(vocabulary));
        return TAVStorageManager::savePathForVocabulary(*vocabulary);
    }
    /** Makes the file older, so that another one is the youngest. */
    static void age(const QString &path)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(
            file.setFileTime(QDateTime(QDate(1990, 1, 1), QTime()), QFileDevice::FileModificationTime));
    }
    void open()
    {
        hub = std::make_unique<TAVMainWindowController>(document);
        hub->awakeFromNib();
        hub->mainWindow()->show();
    }
    void start()
    {
        open();
        services.clock.advanceSeconds(1);
        processEvents();
    }
    void startWith(const TAVLexiconRef &vocabulary)
    {
        save(vocabulary);
        start();
        watch();
    }
    void watch()
    {
        recorder.watch(TAVStorageManager::savePathForVocabulary(*words()->vocabulary()), table()->model());
    }
    TAVLexiconController *words() const { return hub->vocabularyController(); }
    TAVLexiconRef vocabulary() const { return words()->vocabulary(); }
    template <typename Control> Control *control(const char *name) const
    {
        return findControl<Control>(hub->mainWindow(), name);
    }
    void click(const char *name) const { control<QAbstractButton>(name)->click(); }
    QAction *menuItem(const char *name) const
    {
        for (QAction *action : hub->mainWindow()->menuBar()->findChildren<QAction *>()) {
            if (action->objectName() == QLatin1String(name) && action->menuRole() == QAction::NoRole)
                return action;
        }
        ADD_FAILURE() << "no menu item " << name;
        return nullptr;
    }
    QString text(const char *label) const { return control<QLabel>(label)->text(); }
    WordTableView *table() const { return control<WordTableView>("vocabularyTable"); }
    QString cell(int row, int column) const { return table()->model()->index(row, column).data().toString(); }
    QStringList shownWords() const
    {
        QStringList shown;
        for (int row = 0; row < table()->model()->rowCount(); ++row)
            shown.append(cell(row, WordTableModel::YourWord));
        return shown;
    }
    int rowOf(const char *yourWord) const { return int(shownWords().indexOf(QString::fromUtf8(yourWord))); }
    QStringList languages() const
    {
        QStringList names;
        auto *popUp = control<QComboBox>("languagesPopUp");
        for (int i = 0; i < popUp->count(); ++i)
            names.append(popUp->itemText(i));
        return names;
    }
    /** The chosen entry of the language menu, as a user picks it. */
    void chooseLanguage(const QString &name) const
    {
        auto *popUp = control<QComboBox>("languagesPopUp");
        popUp->setCurrentIndex(popUp->findText(name));
        emit popUp->activated(popUp->currentIndex());
    }
    /** Drops the text onto the middle of the row. */
    void dropOnRow(int row, const QString &text) const
    {
        QMimeData data;
        data.setText(text);
        QWidget *viewport = table()->viewport();
        const QPoint place = table()->visualRect(table()->model()->index(row, 1)).center();
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &enter);
        QDragMoveEvent move(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &move);
        QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &drop);
    }

    Recorder recorder;
    VocabularyDocument document;
    std::unique_ptr<TAVMainWindowController> hub;
};
