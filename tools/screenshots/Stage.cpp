#include "Stage.h"

#include "storage/TAVStorageManager.h"

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QStyle>
#include <QStyleFactory>

#include <cmath>

namespace {

const struct
{
    const char *foreign;
    const char *your;
    const char *comment;
    quint64 level;
    const char *tag;
} sampleWords[] = {
    {"faro", "lighthouse", "", 0, "sea"},    {"isola", "island", "", 1, "sea"},
    {"barca", "boat", "la barca", 2, "sea"}, {"cane", "dog", "", 3, "animals"},
    {"gatto", "cat", "", 4, "animals"},      {"gufo", "owl", "the bird", 5, "animals"},
    {"mangiare", "to eat", "", 0, "verbs"},  {"parlare", "to speak", "", 1, "verbs"},
    {"dormire", "to sleep", "", 2, "verbs"}, {"ricordare", "to remember", "", 3, "verbs"},
    {"giovane", "young", "", 0, ""},         {"lento", "slow", "", 4, ""},
    {"piano", "slow", "also: floor", 2, ""}, {"finestra", "window", "", 0, "home"},
    {"cucina", "kitchen", "", 1, "home"},    {"scala", "stairs, ladder", "", 3, "home"},
};

} // namespace

Stage::Stage(const QString &folder, const QString &vocabularyFile, const QSize &size, bool isDark)
    : m_folder(folder)
    , m_vocabularyFile(vocabularyFile)
    , m_size(size)
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(isDark ? darkPalette() : QApplication::style()->standardPalette());
    m_services.clock.setNow(QDateTime(QDate(2026, 11, 18), QTime(19, 0), Qt::UTC));
    QDir().mkpath(m_folder);
}

Stage::~Stage()
{
    m_composition.reset();
}

QPalette Stage::darkPalette()
{
    QPalette palette(QColor(0x2b, 0x2d, 0x30), QColor(0x1e, 0x1f, 0x22));
    palette.setColor(QPalette::Base, QColor(0x26, 0x27, 0x2a));
    palette.setColor(QPalette::AlternateBase, QColor(0x2b, 0x2c, 0x30));
    palette.setColor(QPalette::Highlight, QColor(0x3d, 0x8b, 0xd0));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, QColor(255, 255, 255, 110));
    return palette;
}

void Stage::writeLanguage()
{
    const QString path = AppGround::vocabularyFolderPath() + QLatin1String("/Italian - English.tavv");
    if (!m_vocabularyFile.isEmpty() && QFile::copy(m_vocabularyFile, path)) {
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
        return;
    }
    const auto vocabulary = std::make_shared<TAVLexicon>();
    vocabulary->setForeignLanguageName(QStringLiteral("Italian"));
    vocabulary->setYourLanguageName(QStringLiteral("English"));
    for (const auto &sample : sampleWords) {
        const auto word =
            std::make_shared<TAVWord>(QString::fromUtf8(sample.your), QString::fromUtf8(sample.foreign),
                                      QString::fromUtf8(sample.comment));
        word->setLevel(sample.level);
        word->addTag(QString::fromUtf8(sample.tag));
        word->setLastAsked(m_services.clock.now().addDays(-int(sample.level) * 3 - 1));
        vocabulary->addWord(word);
    }
    TAVStorageManager::saveVocabulary(vocabulary);
}

void Stage::open(bool withLanguage)
{
    m_composition = std::make_unique<Composition>();
    if (withLanguage)
        writeLanguage();
    m_services.settings.setValue(QStringLiteral("hasShownVocabularyHelp"), true);
    m_program = &m_composition->makeProgram();
    m_program->awakeFromNib();
    window()->resize(m_size);
    window()->activateWindow();
    pass(6);
}

void Stage::pass(double seconds)
{
    // In steps, so that what is armed on the way is drawn on the way.
    for (int tenths = int(std::ceil(seconds * 10)); tenths > 0; --tenths) {
        m_services.clock.advanceSeconds(0.1);
        m_services.queues.drain();
        QApplication::processEvents();
    }
}

void Stage::shoot(const QString &name)
{
    pass(0.2);
    QPixmap picture = window()->grab();
    QPainter painter(&picture);
    for (QWidget *top : QApplication::topLevelWidgets()) {
        if (top == window() || !top->isVisible())
            continue;
        QPixmap popup(top->size());
        popup.fill(Qt::transparent);
        top->render(&popup, {}, {}, QWidget::DrawChildren);
        painter.drawPixmap(window()->mapFromGlobal(top->pos()), popup);
    }
    painter.end();
    picture.save(m_folder + QLatin1Char('/') + name + QLatin1String(".png"));
}
