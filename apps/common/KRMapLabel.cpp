#include "KRMapLabel.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QStringList>
#include <QTextLayout>
#include <QTextLine>

namespace {

/// Drawn several times about the letters, so that it thickens towards them.
constexpr QColor haloColor(255, 254, 250, 110);
constexpr QPointF haloDirections[] = {{1.0, 0.0},  {0.7, 0.7},   {0.0, 1.0},  {-0.7, 0.7},
                                      {-1.0, 0.0}, {-0.7, -0.7}, {0.0, -1.0}, {0.7, -0.7}};
constexpr double haloWidthPerLetterHeight = 0.13;
constexpr double spacingOfCapitals = 108.0; ///< percent

} // namespace

KRMapLabel::KRMapLabel(const QString &text, double letterHeight, const QColor &color)
    : m_text(text), m_font(QStringLiteral("Arial")), m_color(color)
{
    m_font.setStyleHint(QFont::SansSerif);
    m_font.setHintingPreference(QFont::PreferNoHinting);
    setLetterHeight(letterHeight);
}

QSizeF KRMapLabel::size() const
{
    return QFontMetricsF(m_font).size(0, m_text);
}

QRectF KRMapLabel::box() const
{
    QRectF box(QPointF(), size());
    box.moveCenter(m_center);
    return box;
}

void KRMapLabel::setLetterHeight(double letterHeight)
{
    m_font.setPixelSize(qMax(1, qRound(letterHeight)));
}

void KRMapLabel::setCapitals()
{
    m_font.setCapitalization(QFont::AllUppercase);
    m_font.setLetterSpacing(QFont::PercentageSpacing, spacingOfCapitals);
}

void KRMapLabel::paint(QPainter *painter) const
{
    const double haloWidth = haloWidthPerLetterHeight * m_font.pixelSize();
    double y = box().top();
    for (const QString &text : m_text.split(QLatin1Char('\n'))) {
        QTextLayout layout(text, m_font);
        layout.beginLayout();
        const QTextLine line = layout.createLine();
        layout.endLayout();
        const QPointF position(m_center.x() - line.naturalTextWidth() / 2.0, y);
        painter->setPen(haloColor);
        for (const QPointF &direction : haloDirections)
            layout.draw(painter, position + haloWidth * direction);
        painter->setPen(m_color);
        layout.draw(painter, position);
        y += QFontMetricsF(m_font).lineSpacing();
    }
}
