#pragma once

#include <QColor>
#include <QFont>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>

class QPainter;

/**
 * A name on the map: centred lines of text with a light halo.
 *
 * All lengths are pixels; the halo grows with the letters.
 */
class KRMapLabel
{
public:
    KRMapLabel() = default;
    /// @p text may have several lines, separated by "\n"; the letters are at least one pixel high.
    KRMapLabel(const QString &text, double letterHeight, const QColor &color);

    /// A name of any length in one line that is no wider than that, in pixels.
    static QString inOneLine(const QString &name, const QFont &font, double widest);
    /// Of names on the map; the same on all devices.
    static QFont font(double letterHeight);

    const QString &text() const { return m_text; }
    const QSizeF &size() const { return m_size; }
    QRectF box() const;

    /// Capitals with some space between them, as for the names of areas.
    void setCapitals();
    void moveCenter(const QPointF &center) { m_center = center; }

    void paint(QPainter *painter) const;

private:
    void measure();

    QString m_text;
    QFont m_font;
    QSizeF m_size; // to measure a text takes long, and a name looks for its place in many
    QColor m_color;
    QPointF m_center;
};
