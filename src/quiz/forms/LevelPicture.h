#pragma once

#include <QString>

class QLabel;

/** How memory levels look on the card. A level above 5 counts as 5. */
namespace LevelPicture {

constexpr int size = 40;
constexpr int arrowSize = 20;

QString name(quint64 level);
/** Shows the level, also to those who can't see it. */
void showLevel(QLabel *label, quint64 level);
void showArrow(QLabel *label, bool rises);

} // namespace LevelPicture
