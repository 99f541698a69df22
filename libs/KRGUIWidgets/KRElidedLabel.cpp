#include "KRElidedLabel.h"

#include <KRCore/KRBlinkAnimation.h>

#include <QPainter>
#include <QStyle>
#include <QTextLayout>

namespace {

constexpr int preferredCharacters = 30;
constexpr double highlightRadiusPx = 3.0;

/// More never fits, and measuring a name of millions of characters takes seconds.
QString shownPart(const QString &text)
{
    constexpr int mostCharacters = 2000;
    return text.left(mostCharacters).simplified();
}

/// Breaks @p text into at most @p maximumLines lines; the last of them has all that is left and may be too wide.
QStringList wrap(const QString &text, const QFont &font, int width, int maximumLines)
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QTextLayout layout(text, font);
    layout.setTextOption(option);
    layout.beginLayout();
    QStringList lines;
    int start = 0;
    while (lines.count() < maximumLines - 1) {
        QTextLine line = layout.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(width);
        start = line.textStart() + line.textLength();
        lines += text.mid(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
    if (start < text.length() || lines.isEmpty())
        lines += text.mid(start).trimmed();
    return lines;
}

} // namespace

KRElidedLabel::KRElidedLabel(QWidget *parent) : KRElidedLabel(QString(), parent) { }

KRElidedLabel::KRElidedLabel(const QString &fullText, QWidget *parent) : QLabel(parent)
{
    // Names come from files of others: no markup in them is to have an effect.
    setTextFormat(Qt::PlainText);
    setFullText(fullText);
}

KRElidedLabel::~KRElidedLabel() = default;

void KRElidedLabel::setFullText(const QString &fullText)
{
    setText(fullText);
}

void KRElidedLabel::setAnimationState(int state)
{
    if (state == m_animationState)
        return;
    m_animationState = state;
    update();
}

QStringList KRElidedLabel::visibleLines() const
{
    const QRect room = textRect();
    const QFontMetrics metrics = fontMetrics();
    const int lineCount = wordWrap() ? qMax(1, room.height() / metrics.lineSpacing()) : 1;
    // A line break in a single line would be drawn as a box.
    QStringList lines = wrap(shownPart(text()), font(), room.width(), lineCount);
    lines.last() = metrics.elidedText(lines.last(), Qt::ElideRight, room.width());
    return lines;
}

QSize KRElidedLabel::sizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    const int widest = preferredCharacters * metrics.averageCharWidth();
    const int width = qMin(metrics.horizontalAdvance(shownPart(text())) + 1, widest);
    return QSize(width + 2 * textPaddingPx, metrics.height()).grownBy(contentsMargins());
}

QSize KRElidedLabel::minimumSizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    const int width = metrics.horizontalAdvance(QChar(0x2026)) + 2 * textPaddingPx;
    return QSize(width, metrics.height()).grownBy(contentsMargins());
}

bool KRElidedLabel::hasHeightForWidth() const
{
    return wordWrap();
}

int KRElidedLabel::heightForWidth(int width) const
{
    if (!wordWrap())
        return -1;
    const QMargins margins = contentsMargins();
    const int textWidth = width - margins.left() - margins.right() - 2 * textPaddingPx;
    const QRect bounds = fontMetrics().boundingRect(QRect(0, 0, textWidth, 0), Qt::TextWordWrap, shownPart(text()));
    return qMax(bounds.height(), fontMetrics().height()) + margins.top() + margins.bottom();
}

QRect KRElidedLabel::textRect() const
{
    return contentsRect().adjusted(textPaddingPx, 0, -textPaddingPx, 0);
}

void KRElidedLabel::paintHighlight(QPainter *painter) const
{
    QColor color = palette().color(QPalette::Highlight);
    const int state = qBound(KRBlinkAnimation::normalState, m_animationState, KRBlinkAnimation::strongestState);
    color.setAlphaF(double(state) / KRBlinkAnimation::strongestState);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(color);
    painter->drawRoundedRect(contentsRect(), highlightRadiusPx, highlightRadiusPx);
    painter->restore();
}

void KRElidedLabel::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    drawFrame(&painter);
    const bool isStrongest = m_animationState >= KRBlinkAnimation::strongestState;
    if (m_animationState != KRBlinkAnimation::normalState)
        paintHighlight(&painter);

    const QStringList lines = visibleLines();
    const int lineHeight = fontMetrics().lineSpacing();
    QRect target = style()->alignedRect(layoutDirection(), alignment(),
                                        QSize(textRect().width(), lines.count() * lineHeight), textRect());
    const auto horizontal = QStyle::visualAlignment(layoutDirection(), alignment()) & Qt::AlignHorizontal_Mask;
    for (const QString &line : lines) {
        target.setHeight(lineHeight);
        style()->drawItemText(&painter, target, static_cast<int>(horizontal) | Qt::AlignVCenter | Qt::TextSingleLine,
                              palette(), isEnabled(), line, isStrongest ? QPalette::HighlightedText : foregroundRole());
        target.moveTop(target.bottom() + 1);
    }
}
