#include "KRXMLBuilder.h"

#include "KRXMLTextWriter.h"

#include <KRCore/KRErrorHistory.h>

#include <QFileInfo>
#include <QSaveFile>

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
    return KRXMLTextWriter(indent).write(document);
}

bool KRXMLBuilder::saveUTF8(const QDomDocument &document, const QFileInfo &file, KRErrorHistory *history)
{
    const QString declaration = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
    const QByteArray bytes = (declaration + toText(document, 1) + QLatin1Char('\n')).toUtf8();

    QSaveFile target(file.filePath());
    if (target.open(QIODevice::WriteOnly) && target.write(bytes) == bytes.size() && target.commit())
        return true;

    KRErrorHistory::Entry entry;
    entry.fileName = file.filePath();
    entry.reason = target.errorString();
    KRErrorHistory::report(history, entry);
    return false;
}
