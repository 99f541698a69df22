#pragma once

#include "KRCoreExport.h"
#include "KRErrorHistory.h"

class QByteArray;

/**
 * Looks through an XML text before a DOM is built of it.
 *
 * QDom recurses per level and overflows the stack, keeps some hundred bytes per node, and expands entities
 * without bound. The guard reads the text once as a stream of events and refuses what goes beyond KRInputLimits.
 * Entities and DTDs outside the text are never loaded.
 */
class KRCORE_EXPORT KRXMLGuard
{
public:
    /// True when a DOM of the text may be built; otherwise @p refusal says why and where.
    static bool accepts(const QByteArray &xml, KRErrorHistory::Entry *refusal);
    static bool accepts(const QString &xml, KRErrorHistory::Entry *refusal);
};
