#include "KRStatusWarning.h"

#include <KRPlainText.h>

#include <algorithm>

KRStatusWarning::KRStatusWarning(QWidget *parent) : KRElidedLabel(parent)
{
    setWarning(QString());
}

void KRStatusWarning::setWarning(const QString &text)
{
    constexpr int longestWarning = 500; // characters
    setFullText(KRPlainText::shortened(text, longestWarning));
    setToolTip(KRPlainText::toolTip(text));
    setVisible(!text.isEmpty());
}

QSize KRStatusWarning::sizeHint() const
{
    constexpr int mostCharacters = 45;
    const QFontMetrics metrics = fontMetrics();
    const int width = std::min(metrics.horizontalAdvance(text()) + 1, mostCharacters * metrics.averageCharWidth());
    return QSize(width + 2 * textPaddingPx, KRElidedLabel::sizeHint().height());
}
