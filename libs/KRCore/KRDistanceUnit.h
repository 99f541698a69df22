#pragma once

#include "KRCoreExport.h"

#include <QString>

/// The name of the unit in which a KRDistance is described. A distance does not know its unit: nothing is converted.
class KRCORE_EXPORT KRDistanceUnit
{
public:
    explicit KRDistanceUnit(const QString &symbol) : m_symbol(symbol) { }

    /// "px"
    static KRDistanceUnit pixel();

    QString symbol() const { return m_symbol; }

private:
    QString m_symbol;
};
