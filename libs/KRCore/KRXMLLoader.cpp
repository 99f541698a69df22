#include "KRXMLLoader.h"

#include "KRErrorHistory.h"
#include "KRFileHandler.h"
#include "KRInputLimits.h"
#include "KRQtCompat.h"
#include "KRXMLGuard.h"
#include "KRXMLSurrogates.h"

#include <QDomDocument>
#include <QFileInfo>

#include <optional>

namespace {

/// The text as the DOM reads it rightly. Bytes come here only where it needs no help.
QByteArray readable(const QByteArray &xml)
{
    return xml;
}

QString readable(const QString &xml)
{
    // The first search is much faster, and ends most.
    const bool isCut =
        KRQtCompat::domCutsReferences && xml.contains(QLatin1Char('&')) && xml.contains(QLatin1String("&#"));
    return isCut ? KRXMLSurrogates::splitReferences(xml) : xml;
}

/// Of a text as bytes or as characters.
template <typename Text>
QDomElement documentElement(const Text &source, const QString &fileName, KRErrorHistory *history)
{
    KRErrorHistory::Entry refusal;
    refusal.fileName = fileName;
    if (KRXMLGuard::acceptsCharacters(source, &refusal)) {
        const Text xml = readable(source);
        // What could not be read leaves the tree that there was so far.
        QDomDocument document;
        if (KRXMLGuard::read(xml, &document, &refusal))
            return document.documentElement();
    }
    KRErrorHistory::report(history, refusal);
    return QDomElement();
}

} // namespace

QDomElement KRXMLLoader::loadDocumentElement(const QFileInfo &file, KRErrorHistory *history)
{
    const QByteArray xml = KRFileHandler::readAll(file, history, KRInputLimits::documentBytes);
    return xml.isNull() ? QDomElement() : parseDocumentElement(xml, file.filePath(), history);
}

QDomElement KRXMLLoader::parseDocumentElement(const QByteArray &xml, const QString &fileName, KRErrorHistory *history)
{
    KRErrorHistory::Entry refusal;
    if (!KRXMLGuard::acceptsDeclaration(xml, &refusal)) {
        KRErrorHistory::report(history, fileName, refusal.reason);
        return QDomElement();
    }
    // This mark means UTF-8 for certain, whatever the declaration names.
    if (xml.startsWith("\xEF\xBB\xBF"))
        return documentElement(QString::fromUtf8(xml), fileName, history);
    if (const std::optional<QString> text = KRXMLGuard::decoded(xml))
        return documentElement(*text, fileName, history);
    return documentElement(xml, fileName, history);
}

QDomElement KRXMLLoader::parseDocumentElement(const QString &xml, const QString &fileName, KRErrorHistory *history)
{
    return documentElement(xml, fileName, history);
}
