#pragma once

#include "KRCoreExport.h"

#include <Qt>

class QDomElement;
class QPen;

/// How a line is dashed: the number of a Qt::PenStyle from 0 (no line) to 5 (dash, dot, dot). Any other is solid, 1.
class KRCORE_EXPORT KRPenStyle
{
public:
    /// Not explicit: a pen style is that number. Qt::PenStyle fits as well.
    KRPenStyle(int number = Qt::SolidLine);

    /// From the child element "penStyle"; solid when it is missing or no such number.
    static KRPenStyle fromXml(const QDomElement &parent);

    int number() const { return m_number; }

    bool operator==(const KRPenStyle &other) const { return m_number == other.m_number; }
    bool operator!=(const KRPenStyle &other) const { return !(*this == other); }

    /// Gives the pen this style and leaves everything else as it is.
    void modifyPen(QPen &pen) const;

    /// Appends the child element "penStyle" with the number.
    void toXml(QDomElement &parent) const;

private:
    int m_number;
};
