#include "KRMapLabel.h"

#include "KRPlainText.h"

#include <KRXML/KRXMLBuilder.h>

#include <QFontMetricsF>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QStringList>
#include <QTextLayout>
#include <QTextLine>

namespace {

/// Drawn several times about the letters, so that it thickens towards them.
constexpr QColor haloColor(255, 254, 250, 110);
constexpr QPointF haloDirections[] = {{1.0, 0.0},  {0.7, 0.7},   {0.0, 1.0},  {-0.7, 0.7},
                                      {-1.0, 0.0}, {-0.7, -0.7}, {0.0, -1.0}, {0.7, -0.7}};
constexpr QColor outlineColor(255, 254, 250, 190); ///< what that comes to, drawn once
/// About that on land. Qt writes no half transparent pens to PDF, but the outlines of what they draw, which are several
/// times as long.
constexpr QColor opaqueOutlineColor(253, 251, 246);
constexpr double haloWidthPerLetterHeight = 0.13;
constexpr double spacingOfCapitals = 108.0; ///< percent

} // namespace

KRMapLabel::KRMapLabel(const QString &text, double letterHeight, const QColor &color)
    : m_text(text), m_font(font(letterHeight)), m_color(color)
{
    measure();
}

QString KRMapLabel::inOneLine(const QString &name, const QFont &font, double widest)
{
    // Measuring takes the time of all letters, of which no more than these would fit.
    constexpr int mostCharacters = 300;
    // In SVG the name becomes XML.
    const QString line = KRXMLBuilder::readableText(KRPlainText::beginning(name, mostCharacters).simplified());
    return QFontMetricsF(font).elidedText(line, Qt::ElideRight, widest);
}

QFont KRMapLabel::font(double letterHeight)
{
    QFont font(QStringLiteral("Arial"));
    font.setStyleHint(QFont::SansSerif);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setPixelSize(qMax(1, qRound(letterHeight)));
    return font;
}

QRectF KRMapLabel::box() const
{
    QRectF box(QPointF(), size());
    box.moveCenter(m_center);
    return box;
}

void KRMapLabel::setCapitals()
{
    m_font.setCapitalization(QFont::AllUppercase);
    m_font.setLetterSpacing(QFont::PercentageSpacing, spacingOfCapitals);
    measure();
}

void KRMapLabel::paint(QPainter *painter) const
{
    const QPaintEngine::Type engine = painter->paintEngine()->type();
    const double haloWidth = haloWidthPerLetterHeight * m_font.pixelSize();
    double y = box().top();
    for (const QString &text : m_text.split(QLatin1Char('\n'))) {
        QTextLayout layout(text, m_font);
        layout.beginLayout();
        const QTextLine line = layout.createLine();
        layout.endLayout();
        const QPointF position(m_center.x() - line.naturalTextWidth() / 2.0, y);
        QPainterPath letters;
        if (engine == QPaintEngine::Raster) {
            painter->setPen(haloColor);
            for (const QPointF &direction : haloDirections)
                layout.draw(painter, position + haloWidth * direction);
        } else {
            // Text that is there nine times cannot be searched or copied.
            letters.addText(position + QPointF(0.0, line.ascent()), m_font, text);
            painter->strokePath(letters, QPen(engine == QPaintEngine::SVG ? outlineColor : opaqueOutlineColor,
                                              2.5 * haloWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        }
        if (engine == QPaintEngine::SVG) {
            // As text it would lose its capitals and their spacing, which Qt does not write.
            painter->fillPath(letters, m_color);
        } else {
            painter->setPen(m_color);
            layout.draw(painter, position);
        }
        y += QFontMetricsF(m_font).lineSpacing();
    }
}

void KRMapLabel::measure()
{
    m_size = QFontMetricsF(m_font).size(0, m_text);
}
