#pragma once

#include "KRCoreExport.h"
#include "KRErrorHistory.h"

#include <QString>

#include <optional>

class QByteArray;

/**
 * Looks through an XML text before a DOM is built of it.
 *
 * QDom recurses per level and overflows the stack, keeps some hundred bytes per node, and expands entities
 * without bound. The guard reads the text once as a stream of events and refuses what goes beyond KRInputLimits.
 * Entities and DTDs outside the text are never loaded, and none may add to the DTD (parameter entities).
 */
class KRCORE_EXPORT KRXMLGuard
{
public:
    /// The characters that a DOM of these bytes would be built of; none if their encoding extends ASCII in any case, so
    /// that bytes may be looked at.
    static std::optional<QString> decoded(const QByteArray &xml);

    /// True when a DOM of the text may be built; otherwise @p refusal says why and where.
    static bool accepts(const QByteArray &xml, KRErrorHistory::Entry *refusal);
    static bool accepts(const QString &xml, KRErrorHistory::Entry *refusal);
};
