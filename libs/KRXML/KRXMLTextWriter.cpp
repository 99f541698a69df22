#include "KRXMLTextWriter.h"

#include "KRXMLBuilder.h"

#include <QDomElement>
#include <QDomNamedNodeMap>

#include <algorithm>
#include <utility>

namespace {

/// Whether the character can stand there as it is.
bool isPlain(ushort unit, bool isAttribute)
{
    switch (unit) {
    case '&':
    case '<':
    case '>':
    case '\r':
        return false;
    case '"':
    case '\n':
    case '\t':
        return !isAttribute;
    default:
        return KRXMLTextWriter::isXmlCharacter(unit);
    }
}

/// Of those that are not plain.
const char *escaped(ushort unit)
{
    switch (unit) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\r':
        return "&#13;"; // a reader would turn it into a line feed, and the next two of attributes into blanks
    case '\n':
        return "&#10;";
    case '\t':
        return "&#9;";
    default:
        return ""; // no character of XML
    }
}

bool holdsText(const QDomNode &node)
{
    for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling()) {
        if (child.isCharacterData() && !child.isComment())
            return true;
    }
    return false;
}

} // namespace

QByteArray KRXMLTextWriter::write(const QDomNode &root)
{
    QDomNode node = root;
    while (!node.isNull()) {
        if (m_text.size() > KRXMLBuilder::mostBytes)
            return QByteArray();
        enter(node);
        if (node.hasChildNodes()) {
            node = node.firstChild();
            continue;
        }
        while (node != root && node.nextSibling().isNull()) {
            node = node.parentNode();
            leave(node);
        }
        if (node == root)
            break;
        node = node.nextSibling();
    }
    return m_text;
}

void KRXMLTextWriter::enter(const QDomNode &node)
{
    if (node.isElement()) {
        breakLine();
        writeStartTag(node.toElement());
    } else if (node.isText()) {
        // Also CDATA, as escaped text: its end mark may stand inside.
        writeEscaped(node.nodeValue(), false);
    } else if (node.isComment()) {
        breakLine();
        m_text += "<!--" + KRXMLBuilder::readableText(node.nodeValue()).toUtf8() + "-->";
    }
}

void KRXMLTextWriter::leave(const QDomNode &node)
{
    if (!node.isElement())
        return;
    --m_depth;
    if (!m_holdText.back())
        breakLine();
    else
        --m_textDepth;
    m_holdText.pop_back();
    m_text += "</";
    m_text += node.nodeName().toUtf8();
    m_text += '>';
}

void KRXMLTextWriter::writeStartTag(const QDomElement &element)
{
    // Asked for once each: the map goes through all those before.
    std::vector<std::pair<QString, QString>> attributes;
    const QDomNamedNodeMap nodes = element.attributes();
    for (int i = 0; i < nodes.size(); ++i) {
        const QDomNode attribute = nodes.item(i);
        attributes.emplace_back(attribute.nodeName(), attribute.nodeValue());
    }
    std::sort(attributes.begin(), attributes.end());

    m_text += '<';
    m_text += element.tagName().toUtf8();
    for (const auto &[name, value] : attributes) {
        m_text += ' ';
        m_text += name.toUtf8();
        m_text += "=\"";
        writeEscaped(value, true);
        m_text += '"';
    }
    if (!element.hasChildNodes()) {
        m_text += "/>";
        return;
    }
    m_text += '>';
    ++m_depth;
    m_holdText.push_back(holdsText(element));
    if (m_holdText.back())
        ++m_textDepth;
}

/// Without what is no character of XML. What stands between is added as a whole.
void KRXMLTextWriter::writeEscaped(const QString &text, bool isAttribute)
{
    const auto appendPlain = [this](const QChar *begin, const QChar *end) {
        m_text += QStringView(begin, end - begin).toUtf8();
    };
    const QChar *plain = text.cbegin();
    for (const QChar *at = plain; at != text.cend();) {
        const bool isPair = at->isHighSurrogate() && at + 1 != text.cend() && at[1].isLowSurrogate();
        if (isPair || isPlain(at->unicode(), isAttribute)) {
            at += isPair ? 2 : 1;
            continue;
        }
        appendPlain(plain, at);
        m_text += escaped(at->unicode());
        plain = ++at;
    }
    appendPlain(plain, text.cend());
}

void KRXMLTextWriter::breakLine()
{
    if (m_indent < 0 || isInsideText() || m_text.isEmpty())
        return;
    m_text += '\n' + QByteArray(m_indent * m_depth, ' ');
}
