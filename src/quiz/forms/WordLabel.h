#pragma once

#include <QFont>
#include <QLabel>

/**
 * Shows a text of the user on the card: plain, wrapped wherever it must be, and set smaller when it would not
 * fit its place otherwise. What is still too long ends in an ellipsis, and the whole text is in the tool tip.
 */
class WordLabel : public QLabel
{
    Q_OBJECT

public:
    explicit WordLabel(QWidget *parent = nullptr);

    /** Shows the text in the card's large font, or in the small one from so many characters on. */
    void setWord(const QString &text, qsizetype lengthOfSmallFont);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return false; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    /** The largest font at which the text fits the size, and the text, shortened if even the least is too
     * large. */
    std::pair<QFont, QString> fitted(const QSize &size) const;
};
