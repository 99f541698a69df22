#pragma once

#include "KRCoreExport.h"
#include "KRErrorHistory.h"

class QByteArray;

/**
 * Looks through an XML text before a DOM is built of it.
 *
 * QDom recurses per level and overflows the stack, keeps some hundred bytes per node, and expands entities
 * without bound. The guard reads the text once as a stream of events and refuses what goes beyond the limits.
 * Entities and DTDs outside the text are never loaded.
 */
class KRCORE_EXPORT KRXMLGuard
{
public:
    static constexpr int maximumDepth = 256; ///< nested elements, the root included
    static constexpr int maximumNodes = 500000; ///< elements, attributes and pieces of text
    static constexpr int maximumBytes = 64 << 20; ///< of a text that is read through a DOM
    static constexpr int maximumExpansion = 8 << 20; ///< characters that entities may add to the text

    /// True when a DOM of the text may be built; otherwise @p refusal says why and where.
    static bool accepts(const QByteArray &xml, KRErrorHistory::Entry *refusal);
    static bool accepts(const QString &xml, KRErrorHistory::Entry *refusal);
};
