#include "views/FirstStartPage.h"

#include "platform/Texts.h"
#include "storage/LanguageName.h"
#include "ui_FirstStart.h"
#include "widgets/Icons.h"

using platform::localized;

FirstStartPage::FirstStartPage(QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::FirstStart>())
{
    m_ui->setupUi(this);
    QFont heading = font();
    heading.setPointSizeF(heading.pointSizeF() * 2);
    m_ui->welcomeLabel->setFont(heading);
    QFont title = font();
    title.setPointSizeF(title.pointSizeF() * 1.2);
    title.setBold(true);
    m_ui->chooseYourLangLabel->setFont(title);
    m_ui->syncWithExistingLabel->setFont(title);
    for (QFrame *card : {m_ui->newLanguageCard, m_ui->syncCard}) {
        card->setAutoFillBackground(true);
        card->setBackgroundRole(QPalette::Base);
    }
    for (QLabel *mark : {m_ui->firstSyncCheckMark2, m_ui->firstSyncCheckMark3}) {
        QSizePolicy keepsItsPlace = mark->sizePolicy();
        keepsItsPlace.setRetainSizeWhenHidden(true);
        mark->setSizePolicy(keepsItsPlace);
        mark->setPixmap(Icons::icon(QStringLiteral("checkmark_32")).pixmap(20, 20));
    }
    localize();
    connect(m_ui->firstLanguageField, &QLineEdit::textChanged, this, &FirstStartPage::controlTextDidChange);
    connect(m_ui->firstLanguageField, &QLineEdit::returnPressed, m_ui->getStartedButton, &QPushButton::click);
    connect(m_ui->getStartedButton, &QPushButton::clicked, this, &FirstStartPage::getStartedRequested);
    connect(m_ui->firstSyncLinkDBButton, &QPushButton::clicked, this, &FirstStartPage::linkRequested);
    connect(m_ui->firstSyncGetStartedButton, &QPushButton::clicked, this,
            &FirstStartPage::getStartedAfterSyncRequested);
    setFocusProxy(m_ui->firstLanguageField);
    controlTextDidChange();
    reset();
}

FirstStartPage::~FirstStartPage() = default;

void FirstStartPage::localize()
{
    m_ui->welcomeLabel->setText(localized("MainWindow", "welcome"));
    m_ui->firstSetupLabel->setText(localized("MainWindow", "firstSetup"));
    m_ui->chooseYourLangLabel->setText(localized("MainWindow", "chooseYourLang"));
    m_ui->firstLanguageField->setPlaceholderText(localized("MainWindow", "languageExample"));
    m_ui->firstLanguageField->setAccessibleName(localized("MainWindow", "chooseYourLang"));
    m_ui->nameHintLabel->setText(localized("MainWindow", "impossibleLanguageName"));
    m_ui->syncWithExistingLabel->setText(localized("MainWindow", "syncWithExisting"));
    m_ui->firstSyncStepLabel2->setText(localized("MainWindow", "linkDropbox"));
    m_ui->firstSyncStepLabel3->setText(localized("MainWindow", "synchronizeLangs"));
    m_ui->firstSyncProgress->setAccessibleName(localized("MainWindow", "synchronizeLangs"));
    const auto entitle = [](QPushButton *button, const QString &text) {
        button->setText(text);
        button->setAccessibleName(text);
    };
    entitle(m_ui->getStartedButton, localized("MainWindow", "getStarted"));
    entitle(m_ui->firstSyncLinkDBButton, localized("MainWindow", "linkDropboxButton"));
    entitle(m_ui->firstSyncGetStartedButton, localized("MainWindow", "getStarted"));
}

QString FirstStartPage::languageName() const
{
    return m_ui->firstLanguageField->text();
}

Notices &FirstStartPage::notices()
{
    return *m_ui->notices;
}

void FirstStartPage::controlTextDidChange()
{
    const bool isPossible = isPossibleLanguageName(languageName());
    m_ui->getStartedButton->setEnabled(!languageName().isEmpty() && isPossible);
    m_ui->nameHintLabel->setVisible(!isPossible);
}

void FirstStartPage::prepare(bool isLinked)
{
    m_ui->firstSyncLinkDBButton->setEnabled(!isLinked);
    m_ui->firstSyncCheckMark2->setVisible(isLinked);
    m_ui->firstSyncCheckMark3->hide();
    m_ui->firstSyncGetStartedButton->hide();
    m_ui->firstSyncGetStartedButton->setEnabled(false);
    m_ui->firstSyncProgress->setVisible(isLinked);
    setStep3Active(isLinked);
}

void FirstStartPage::reset()
{
    prepare(false);
}

void FirstStartPage::showLinked()
{
    m_ui->firstSyncLinkDBButton->setEnabled(false);
    m_ui->firstSyncCheckMark2->show();
    setStep3Active(true);
    m_ui->firstSyncProgress->show();
}

void FirstStartPage::showSynced()
{
    m_ui->firstSyncCheckMark3->show();
    m_ui->firstSyncProgress->hide();
    m_ui->firstSyncGetStartedButton->show();
    m_ui->firstSyncGetStartedButton->setEnabled(true);
}

void FirstStartPage::selectSyncService(int column)
{
    m_ui->firstSyncServiceTabView->setCurrentIndex(column == 0 ? 0
                                                               : m_ui->firstSyncServiceTabView->count() - 1);
}

void FirstStartPage::setStep3Active(bool isActive)
{
    // Greyed until its turn has come; then in the ordinary text colour.
    m_ui->firstSyncStepLabel3->setEnabled(isActive);
}
