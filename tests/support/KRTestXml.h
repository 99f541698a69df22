#pragma once

#include <QDomDocument>
#include <QDomElement>

/// XML that stands in the tests themselves.
namespace KRTestXml {

/// The document element; null when the text cannot be read.
inline QDomElement element(const QByteArray &xml)
{
    QDomDocument document;
    return document.setContent(xml) ? document.documentElement() : QDomElement();
}

/// The children of an element as "name=text;", those without any text as "name;".
inline QString childrenOf(const QDomElement &parent)
{
    QString children;
    for (QDomElement child = parent.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
        const QString text = child.text().simplified();
        children += child.tagName() + (text.isEmpty() ? text : QLatin1Char('=') + text) + QLatin1Char(';');
    }
    return children;
}

/// The text as it is, without a byte-order mark in front.
inline QByteArray utf16BigEndian(const QString &text)
{
    QByteArray bytes;
    for (const QChar character : text) {
        bytes.append(char(character.row()));
        bytes.append(char(character.cell()));
    }
    return bytes;
}

/// With a byte-order mark.
inline QByteArray utf16(const QString &text)
{
    return utf16BigEndian(QChar(QChar::ByteOrderMark) + text);
}

} // namespace KRTestXml
