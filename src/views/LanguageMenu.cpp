#include "views/LanguageMenu.h"

#include "app/ground/AppGround.h"
#include "app/ground/SettingsTable.h"
#include "app/ground/TAVFile.h"
#include "platform/DiagnosticLog.h"
#include "platform/Texts.h"
#include "storage/Backups.h"
#include "storage/TAVStorageManager.h"

#include <QComboBox>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

using platform::localized;

namespace {

using LanguageList = QList<std::shared_ptr<TAVFile>>;

LanguageList languagesFromYoungToOld()
{
    LanguageList languages = AppGround::loadAllAvailableLanguages();
    std::stable_sort(languages.begin(), languages.end(),
                     [](const auto &a, const auto &b) { return a->compareModDatesFromYoungToOld(*b) < 0; });
    return languages;
}

} // namespace

LanguageMenu::LanguageMenu(QComboBox *popUp, const VocabularySource &source)
    : m_popUp(popUp)
    , m_source(source)
{
}

void LanguageMenu::update()
{
    m_popUp->clear();
    for (const auto &language : languagesFromYoungToOld())
        m_popUp->addItem(language->fileName());
    selectCurrentLanguage();
    m_popUp->insertSeparator(m_popUp->count());
    m_popUp->addItem(localized("MainWindow", "Manage Languages..."));
}

void LanguageMenu::selectCurrentLanguage()
{
    const TAVLexiconRef current = m_source.vocabulary();
    m_popUp->setCurrentIndex(
        current ? m_popUp->findText(TAVStorageManager::displayNameForVocabulary(*current)) : -1);
}

void LanguageMenu::selectYoungest()
{
    m_popUp->setCurrentIndex(0);
}

bool LanguageMenu::isManageEntryChosen() const
{
    return m_popUp->currentText() == localized("MainWindow", "Manage Languages...");
}

TAVLexiconRef LanguageMenu::loadChosen() const
{
    const QString title = m_popUp->currentText();
    const LanguageList languages = languagesFromYoungToOld();
    const auto chosen = std::find_if(languages.begin(), languages.end(),
                                     [&title](const auto &file) { return file->fileName() == title; });
    if (chosen == languages.end()) {
        platform::diagnosticLog(QStringLiteral("VocController > selectLanguage > file not found"));
        return nullptr;
    }
    const TAVLexiconRef loaded = TAVStorageManager::vocabularyFromFile((*chosen)->filePath());
    platform::diagnosticLog(QStringLiteral("VocController > selectLanguage > has %1 words")
                                .arg(loaded ? loaded->countAllWords() : 0));
    if (!loaded) {
        const QString problem =
            QStringLiteral("The selected language '%1' could not be loaded.\nGo to '~/Library/Application "
                           "Support/Tavimo/Backups' to restore from the last backup copy.")
                .arg(title);
        platform::diagnosticLog(QStringLiteral("VocController > selectLanguage: %1").arg(problem));
    }
    return loaded;
}

QString LanguageMenu::pathOfLast(const LanguageList &languages)
{
    const QString name = settings::lastActiveLanguage.value().value_or(QString());
    QString path =
        QStringLiteral("%1/%2.%3")
            .arg(AppGround::vocabularyFolderPath(), name, QLatin1String(TAVStorageManager::extension));
    if (!QFile::exists(path))
        path = languages.first()->filePath();
    return path;
}

QString LanguageMenu::textAboutUnreadable(const QString &path)
{
    const QFileInfo file(path);
    const QString backup = storage::newestBackupThatOpens(file.fileName());
    const QString name = file.completeBaseName();
    return backup.isEmpty() ? localized("Vocabulary", "languageNotLoaded").arg(name, path)
                            : localized("Vocabulary", "languageNotLoadedButBackup").arg(name, backup);
}

void LanguageMenu::rememberAsLast(const TAVLexicon &vocabulary)
{
    settings::lastActiveLanguage.set(TAVStorageManager::displayNameForVocabulary(vocabulary));
}
