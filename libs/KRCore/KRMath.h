#pragma once

#include "KRCoreExport.h"

#include <QStringView>

/// Number helpers that more than one class needs.
namespace KRMath {

/// True when the two differ by no more than @p epsilon; never for NaN.
KRCORE_EXPORT bool epsilonEqual(double a, double b, double epsilon);

/// Truncates toward zero. Beyond the range of int it gives the nearest int, for NaN 0.
KRCORE_EXPORT int toInt(double value);

/// The number that QString::toDouble() reads, to the last bit, but several times as fast; @p defaultValue where there
/// is none.
KRCORE_EXPORT double toDouble(QStringView text, double defaultValue);

} // namespace KRMath
