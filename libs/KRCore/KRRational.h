#pragma once

#include "KRCoreExport.h"

#include <QString>

/// A fraction as image metadata write it: two whole numbers, kept as they are given, never reduced.
class KRCORE_EXPORT KRRational
{
public:
    KRRational(int numerator, int denominator) : m_numerator(numerator), m_denominator(denominator) { }

    /// "numerator/denominator"
    QString toString() const;

private:
    int m_numerator;
    int m_denominator;
};
