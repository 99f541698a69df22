#include "KRXMLLoader.h"

#include "KRErrorHistory.h"
#include "KRFileHandler.h"
#include "KRXMLGuard.h"

#include <QCoreApplication>
#include <QDomDocument>
#include <QFileInfo>

namespace {

/// Of a text as bytes or as characters.
template <typename Text>
QDomElement documentElement(const Text &xml, const QString &fileName, KRErrorHistory *history)
{
    KRErrorHistory::Entry refusal;
    refusal.fileName = fileName;
    if (xml.trimmed().isEmpty()) {
        refusal.reason = QCoreApplication::translate("KRXMLLoader", "Die Datei ist leer.");
    } else if (KRXMLGuard::accepts(xml, &refusal)) {
        // A failed setContent() leaves the tree that it had read so far.
        QDomDocument document;
        if (document.setContent(xml, false, &refusal.reason, &refusal.line, &refusal.column))
            return document.documentElement();
    }
    KRErrorHistory::report(history, refusal);
    return QDomElement();
}

} // namespace

QDomElement KRXMLLoader::loadDocumentElement(const QFileInfo &file, KRErrorHistory *history)
{
    const QByteArray xml = KRFileHandler::readAll(file, history, KRXMLGuard::maximumBytes);
    return xml.isNull() ? QDomElement() : parseDocumentElement(xml, file.filePath(), history);
}

QDomElement KRXMLLoader::parseDocumentElement(const QByteArray &xml, const QString &fileName, KRErrorHistory *history)
{
    return documentElement(xml, fileName, history);
}

QDomElement KRXMLLoader::parseDocumentElement(const QString &xml, const QString &fileName, KRErrorHistory *history)
{
    return documentElement(xml, fileName, history);
}
