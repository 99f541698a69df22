#pragma once

#include "KRGeoLocationExport.h"

/// The wide registers of the processor, which calculate with several numbers at once.
namespace KRVectorRegisters {

/**
 * Call before many floating-point operations in a thread that may have painted, or was started by one that may.
 *
 * Filling images and opaque areas leaves the upper halves of these registers in use, and new threads inherit that.
 * Then, on many processors, mathematical functions take ten times as long. Does nothing where there are no such
 * registers.
 */
KRGEOLOCATION_EXPORT void releaseUpperHalves();

} // namespace KRVectorRegisters
