#pragma once

#include <QColor>
#include <QFont>
#include <QString>

/** Type and colours of what is written on the card, which is light in every palette. */
namespace CardText {

/** Lengths from which a text is set smaller. */
inline constexpr qsizetype questionLimit = 86;
inline constexpr qsizetype lastQuestionLimit = 81;
inline constexpr qsizetype answerLimit = 71;

/** Large, unless the text has limit characters or more. */
QFont font(const QString &text, qsizetype limit);

QColor textColor();
/** Comments, and what was not right. */
QColor fadedTextColor();

} // namespace CardText
