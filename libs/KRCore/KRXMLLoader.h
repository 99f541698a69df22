#pragma once

#include "KRCoreExport.h"

#include <QDomElement>

class KRErrorHistory;
class QByteArray;
class QFileInfo;

/**
 * Loads XML of unknown origin as a DOM, within KRInputLimits: files of documentBytes at most, and what they hold.
 *
 * Names keep their prefixes: there is no namespace processing. The encoding is the one that the text declares.
 */
class KRCORE_EXPORT KRXMLLoader
{
public:
    /// The document element, null when the file cannot be read or is no well-formed XML; the reason is reported.
    static QDomElement loadDocumentElement(const QFileInfo &file, KRErrorHistory *history = nullptr);

    /// The same for a text that is in memory already; @p fileName only names it in the report.
    static QDomElement parseDocumentElement(const QByteArray &xml, const QString &fileName,
                                            KRErrorHistory *history = nullptr);
    /// The same for a text that is decoded already, so that the encoding it declares is without meaning.
    static QDomElement parseDocumentElement(const QString &xml, const QString &fileName,
                                            KRErrorHistory *history = nullptr);
};
