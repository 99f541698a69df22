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

} // namespace KRTestXml
