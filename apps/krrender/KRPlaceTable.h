#pragma once

#include <QCoreApplication>
#include <QString>

/**
 * The places that are known by name, with their positions, one after the other.
 */
class KRPlaceTable
{
    Q_DECLARE_TR_FUNCTIONS(KRPlaceTable)

public:
    /// Columns aligned with blanks, a head line, every line ends with a line break.
    static QString toText();
};
