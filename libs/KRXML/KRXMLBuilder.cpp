#include "KRXMLBuilder.h"

#include "KRXMLTextWriter.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRFileHandler.h>

#include <QCoreApplication>
#include <QFileInfo>

QDomElement KRXMLBuilder::buildRootElement(QDomDocument &document, const QString &name)
{
    // Not through a copy of the handle: an empty document gets its data from its first element.
    return document.appendChild(document.createElement(name)).toElement();
}

QDomElement KRXMLBuilder::buildDomElement(QDomNode &parent, const QString &name)
{
    QDomDocument document = parent.isDocument() ? parent.toDocument() : parent.ownerDocument();
    return parent.appendChild(document.createElement(name)).toElement();
}

QDomElement KRXMLBuilder::buildDomElement(QDomNode &parent, const QString &name, const QString &text)
{
    QDomElement element = buildDomElement(parent, name);
    element.appendChild(element.ownerDocument().createTextNode(text));
    return element;
}

QString KRXMLBuilder::toText(const QDomDocument &document, int indent)
{
    return QString::fromUtf8(KRXMLTextWriter(indent).write(document));
}

QString KRXMLBuilder::readableText(const QString &text)
{
    QString kept;
    kept.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        const QChar unit = text.at(i);
        if (unit.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) {
            kept += unit;
            kept += text.at(++i);
        } else if (KRXMLTextWriter::isXmlCharacter(unit.unicode())) {
            kept += unit;
        }
    }
    return kept;
}

QByteArray KRXMLBuilder::toUTF8(const QDomDocument &document)
{
    // In place: the text may be large.
    QByteArray text = KRXMLTextWriter(1).write(document);
    if (text.isNull())
        return text;
    text.prepend("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
    text.append('\n');
    return text;
}

bool KRXMLBuilder::saveUTF8(const QDomDocument &document, const QFileInfo &file, KRErrorHistory *history)
{
    const QByteArray text = toUTF8(document);
    if (!text.isNull())
        return KRFileHandler::writeAll(file, text, history);
    const QString reason = QCoreApplication::translate("KRXMLBuilder", "Es wäre größer als %1 MB.");
    KRErrorHistory::report(history, file.filePath(), reason.arg(mostBytes >> 20));
    return false;
}
