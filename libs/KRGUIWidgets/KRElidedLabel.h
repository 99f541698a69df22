#pragma once

#include "KRGUIWidgetsExport.h"

#include <QLabel>

/**
 * A plain text that is shortened with an ellipsis to the room there is.
 *
 * With word wrap it takes as many lines as fit into its height, and the last of them is shortened; without, one line.
 * text() and the texts for assistive programs stay the full text. The background blinks in the states of
 * KRBlinkAnimation: the greater the state, the stronger the highlight of the palette; 0 shows none.
 */
class KRGUIWIDGETS_EXPORT KRElidedLabel : public QLabel
{
    Q_OBJECT

public:
    /// Between the text and either side, so that the highlight does not cut it.
    static constexpr int textPaddingPx = 4;

    explicit KRElidedLabel(QWidget *parent = nullptr);
    explicit KRElidedLabel(const QString &fullText, QWidget *parent = nullptr);
    ~KRElidedLabel() override;

    QString fullText() const { return text(); }
    void setFullText(const QString &fullText);

    int animationState() const { return m_animationState; }
    /// Does not repaint at once.
    void setAnimationState(int state);

    /// The lines as they are painted into the present size.
    QStringList visibleLines() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QRect textRect() const;
    void paintHighlight(QPainter *painter) const;

    int m_animationState = 0;
};
