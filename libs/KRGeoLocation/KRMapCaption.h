#pragma once

#include <QColor>
#include <QFont>
#include <QSizeF>

class QLineF;
class QPainter;
class QRectF;
class QString;

/**
 * The common look of what is written onto maps: dark text on a light box, both translucent.
 *
 * Lengths are pixels at the paint factor 1, which suits a normal screen, and grow with the factor.
 */
namespace KRMapCaption {

/// Below this factor no text is painted, as nobody could read it.
constexpr double smallestReadableFactor = 0.1;
/// Between the edges of the map and the text.
constexpr double margin = 10.0;

inline const QColor semiOpaqueWhite(225, 225, 225, 180);
inline const QColor semiOpaqueBlack(0, 0, 0, 180);

/// 24 points at factor 1.
QFont font(double factor);
/// The same for painting onto any device: as many units of the painter high as pixels on an image.
QFont fontFor(const QPainter &painter, double factor);
/// What the text takes with the space around it. Measured at factor 1 and scaled, so that it grows evenly.
QSizeF size(const QString &text, double factor);

/// Whether anything can be painted at @p factor at all.
bool isUsableFactor(double factor);

/// The rendering hints and the font for painting at @p factor.
void prepare(QPainter *painter, double factor);
/// The text in the middle of @p label on a rounded box.
void paintText(QPainter *painter, const QRectF &box, double radius, const QRectF &label, const QString &text);
/// A line in place of text that is too small to read.
void paintLine(QPainter *painter, const QRectF &box, const QLineF &line);

} // namespace KRMapCaption
