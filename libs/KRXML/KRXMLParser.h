#pragma once

#include "KRXMLExport.h"

#include <QColor>
#include <QDateTime>
#include <QDomElement>
#include <QString>

/// How a colour text of eight digits orders its bytes.
enum KRColorByteOrder : int {
    ArgbByteOrder = 0, ///< alpha, red, green, blue
    AbgrByteOrder = 1, ///< alpha, blue, green, red, as KML writes them
};

/**
 * Reads values out of DOM elements, each with an answer for the case that it is missing or unreadable.
 *
 * Numbers are read independently of the locale, with blanks around them ignored, by QString's rules: "nan" and
 * "inf" are numbers, "1,5" is not. A "child" is always the first child element of that name.
 */
class KRXML_EXPORT KRXMLParser
{
public:
    /// The attribute as a double, or @p defaultValue when it is missing or no number.
    static double doubleAttribute(const QDomElement &element, const QString &name, double defaultValue);
    /// The attribute as a base-10 int, or @p defaultValue when it is missing or no int.
    static int intAttribute(const QDomElement &element, const QString &name, int defaultValue);

    /// The child's text, or @p defaultValue when there is no such child.
    static QString text(const QDomNode &node, const QString &childName, const QString &defaultValue);
    /// The child's text as a double, or @p defaultValue.
    static double doubleText(const QDomNode &node, const QString &childName, double defaultValue);
    /// The text, blanks around it removed, as a time stamp, or @p defaultValue when it is none.
    static QDateTime dateTime(const QString &text, Qt::DateFormat format, const QDateTime &defaultValue);
    /// The child's text as a time stamp, or @p defaultValue.
    static QDateTime dateTimeText(const QDomNode &node, const QString &childName, Qt::DateFormat format,
                                  const QDateTime &defaultValue);

    /**
     * A colour from "#AARRGGBB" or from anything else that QColor names ("#RRGGBB", "red").
     * The order is that of eight digits; six are red, green, blue in any case.
     * What it cannot read is transparent black (0, 0, 0, 0), not an invalid colour, whose alpha would be 255.
     */
    static QColor readColor(const QString &text, KRColorByteOrder order = ArgbByteOrder);
};
