#pragma once

#include <QList>
#include <QStringList>

class KRGeoArc;

/// Tables for people who read them in a terminal.
class KRTextTable
{
public:
    /// The rows as one text: columns as wide as their widest cell, numbers to the right. Every line ends with a line
    /// break.
    static QString aligned(const QList<QStringList> &rows, const QList<int> &numberColumns);
    /// With five decimals, about a metre.
    static QString degrees(const KRGeoArc &angle);
};
