#pragma once

#include <QColor>
#include <QWidget>

/**
 * The card on which questions and verdicts stand. Split, its left half shows the verdict and its right half
 * the question; its children are placed by layouts of their own.
 */
class TAVCardView : public QWidget
{
    Q_OBJECT

public:
    explicit TAVCardView(QWidget *parent = nullptr);

    bool isSplit() const { return m_isSplit; }
    void setIsSplit(bool split);
    /** An unsplit card takes the colours of the right half. */
    void setColorRightSide(bool rightSide);

    void setColorNeutral();
    void setColorCorrect();
    void setColorWrong();
    void setColorMisspelled();
    void setColorSynonym();

    QColor leftStartColor() const { return m_leftStartColor; }
    QColor leftEndColor() const { return m_leftEndColor; }

    /** Draws the card's face without its children. */
    static void drawFace(QPainter &painter, const QRectF &bounds, bool split, const QColor &leftStart,
                         const QColor &leftEnd, const QColor &rightStart, const QColor &rightEnd);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void setLeftColors(const QColor &start, const QColor &end);

    bool m_isSplit = false;
    bool m_colorRightSide = false;
    QColor m_leftStartColor;
    QColor m_leftEndColor;
};
