#pragma once

#include "KRXMLExport.h"

#include <QByteArray>
#include <QDomDocument>
#include <QDomElement>
#include <QString>

class KRErrorHistory;
class QFileInfo;

/**
 * Builds DOM trees and turns them into text.
 *
 * The text of one tree is always the same: attributes stand in the order of their names, which QDom leaves to
 * chance. Characters that XML 1.0 does not know (control characters, lone surrogates) are left out, because no
 * other program could read the text with them.
 */
class KRXML_EXPORT KRXMLBuilder
{
public:
    /// Bytes of a text beyond which no further node is written: what a QString can hold, less one long node.
    static constexpr int mostBytes = 900 << 20;

    /// Makes @p name the document element of an empty document.
    static QDomElement buildRootElement(QDomDocument &document, const QString &name);

    /// Appends a child element to @p parent and returns it. With a text it gets one text node, also for an empty text.
    static QDomElement buildDomElement(QDomNode &parent, const QString &name);
    static QDomElement buildDomElement(QDomNode &parent, const QString &name, const QString &text);

    /**
     * The document without an XML declaration, a document type and processing instructions; empty if it would be
     * longer than mostBytes.
     * @param indent blanks per level; with 0 each element starts a line, with -1 there is no white space at all.
     *        Elements that hold text are never indented inside, so that the text stays as it is.
     */
    static QString toText(const QDomDocument &document, int indent = -1);

    /// The text without the characters that no XML reader takes, for other ways of writing XML.
    static QString readableText(const QString &text);

    /// What saveUTF8() writes; null if it would be longer than mostBytes.
    static QByteArray toUTF8(const QDomDocument &document);

    /**
     * Writes the document as UTF-8 with an XML declaration; the old file stays whole until the new one is.
     * @return false when it could not be written; the reason is reported, to @p history where one is given
     */
    static bool saveUTF8(const QDomDocument &document, const QFileInfo &file, KRErrorHistory *history);
};
