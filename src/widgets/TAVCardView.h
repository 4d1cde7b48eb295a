#pragma once

#include <QColor>
#include <QWidget>

/**
 * The card on which questions and verdicts stand. Split, its left half shows the verdict and its right half
 * the question; its children are placed by layouts of their own. It looks the same in every palette.
 */
class TAVCardView : public QWidget
{
    Q_OBJECT

public:
    explicit TAVCardView(QWidget *parent = nullptr);

    bool isSplit() const { return m_isSplit; }
    void setIsSplit(bool split);
    bool colorRightSide() const { return m_colorRightSide; }
    /** An unsplit card takes the colours of the right half. */
    void setColorRightSide(bool rightSide);

    void setColorNeutral();
    void setColorCorrect();
    void setColorWrong();
    void setColorMisspelled();
    void setColorSynonym();

    QColor leftStartColor() const { return m_leftStartColor; }
    QColor leftEndColor() const { return m_leftEndColor; }
    QColor rightStartColor() const { return m_rightStartColor; }
    QColor rightEndColor() const { return m_rightEndColor; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void setLeftColors(const QColor &start, const QColor &end);
    void drawRightHalf(QPainter &painter, const QRectF &card) const;

    bool m_isSplit = false;
    bool m_colorRightSide = false;
    QColor m_leftStartColor;
    QColor m_leftEndColor;
    QColor m_rightStartColor;
    QColor m_rightEndColor;
};
