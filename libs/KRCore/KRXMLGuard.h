#pragma once

#include "KRErrorHistory.h"

#include <QString>

#include <optional>

class QByteArray;
class QDomDocument;

/**
 * Looks through an XML text before, or while, a DOM is built of it.
 *
 * QDom recurses per level and overflows the stack, keeps some hundred bytes per node, and expands entities
 * without bound. The guard refuses what goes beyond KRInputLimits, in three steps as far as the text has come: as
 * bytes, as characters, and as a stream of events. Entities and DTDs outside the text are never loaded, and none may
 * add to the DTD (parameter entities).
 */
class KRXMLGuard
{
public:
    /// First of all: false when the XML declaration is too long for decoded() to look at.
    static bool acceptsDeclaration(const QByteArray &xml, KRErrorHistory::Entry *refusal);

    /// The characters that a DOM of these bytes would be built of; none if their encoding extends ASCII in any case, so
    /// that bytes may be looked at.
    static std::optional<QString> decoded(const QByteArray &xml);

    /// Before anything is done with the text: false when it is empty, or when even an XML reader would take too long.
    static bool acceptsCharacters(const QByteArray &xml, KRErrorHistory::Entry *refusal);
    static bool acceptsCharacters(const QString &xml, KRErrorHistory::Entry *refusal);

    /// Builds the DOM. When it returns false, @p refusal says why and where, and the document is of no use.
    static bool read(const QByteArray &xml, QDomDocument *document, KRErrorHistory::Entry *refusal);
    static bool read(const QString &xml, QDomDocument *document, KRErrorHistory::Entry *refusal);

private:
    static bool build(const QByteArray &xml, QDomDocument *document, KRErrorHistory::Entry *refusal);
    static bool build(const QString &xml, QDomDocument *document, KRErrorHistory::Entry *refusal);
};
