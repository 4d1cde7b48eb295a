#include "quiz/forms/LevelPicture.h"

#include "platform/Texts.h"
#include "quiz/forms/CardStyle.h"
#include "widgets/Icons.h"

#include <QLabel>

namespace {

void describe(QLabel *label, const QString &text)
{
    label->setAccessibleName(text);
    label->setToolTip(text);
}

} // namespace

QString LevelPicture::name(quint64 level)
{
    constexpr const char *keys[] = {
        QT_TRANSLATE_NOOP("Quiz", "levelUnknown"),   QT_TRANSLATE_NOOP("Quiz", "levelUltraShort"),
        QT_TRANSLATE_NOOP("Quiz", "levelShortTerm"), QT_TRANSLATE_NOOP("Quiz", "levelMidTerm"),
        QT_TRANSLATE_NOOP("Quiz", "levelLongTerm"),  QT_TRANSLATE_NOOP("Quiz", "levelNative")};
    return platform::localized("Quiz", keys[std::min<quint64>(level, 5)]);
}

void LevelPicture::showLevel(QLabel *label, quint64 level)
{
    CardStyle::setPicture(label, Icons::levelName(int(std::min<quint64>(level, 5))), size);
    describe(label, name(level));
}

void LevelPicture::showArrow(QLabel *label, bool rises)
{
    CardStyle::setPicture(label, rises ? QStringLiteral("arrow_up") : QStringLiteral("arrow_down"),
                          arrowSize);
    describe(label,
             rises ? platform::localized("Quiz", "levelRises") : platform::localized("Quiz", "levelFalls"));
}
