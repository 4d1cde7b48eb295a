#include "views/FirstStart.h"

#include "app/ground/AppGround.h"
#include "app/ground/TAVFile.h"
#include "document/NewLanguage.h"
#include "document/VocabularyDocument.h"
#include "platform/Services.h"
#include "platform/Texts.h"
#include "storage/LanguageName.h"
#include "storage/TAVStorageManager.h"
#include "views/FirstStartPage.h"

using platform::localized;

FirstStart::FirstStart(FirstStartPage *page, VocabularyDocument &document, FirstStartHub &hub)
    : m_page(page)
    , m_document(document)
    , m_hub(hub)
{
    connect(page, &FirstStartPage::getStartedRequested, this, &FirstStart::setFirstLanguage);
    connect(page, &FirstStartPage::getStartedAfterSyncRequested, this, &FirstStart::getStartedAfterSync);
}

void FirstStart::begin(bool isLinked)
{
    m_isOn = true;
    m_page->prepare(isLinked);
    m_page->setFocus();
}

void FirstStart::setFirstLanguage()
{
    const QString name = m_page->languageName();
    if (!name.isEmpty() && isPossibleLanguageName(name))
        createFirstLanguageWithName(name);
}

void FirstStart::createFirstLanguageWithName(const QString &name)
{
    const TAVLexiconRef created = NewLanguage::make(AppGround::selectedLocaleName(), name);
    m_document.commit(Change::FirstLanguageMade, created);
    m_hub.beginWith(created);
    m_document.proceed(Change::FirstLanguageMade, 1, created);
    m_hub.closeHelp();
    m_hub.showVocabulary();
}

void FirstStart::getStartedAfterSync()
{
    const auto languages = AppGround::loadAllAvailableLanguages();
    if (languages.isEmpty()) {
        m_page->reset();
        platform::services().alerts->show({localized("MainWindow", "noLangsOnDB"),
                                           localized("MainWindow", "noLangsOnDBMsg"),
                                           {localized("MainWindow", "ok")}});
        return;
    }
    // A file that can't be read has told so; the page stays for another try.
    const TAVLexiconRef loaded = TAVStorageManager::vocabularyFromFile(languages.first()->filePath());
    if (!loaded)
        return;
    m_hub.beginWith(loaded);
    m_hub.showVocabulary();
}
