#include "KRXMLTextWriter.h"

#include "KRXMLBuilder.h"

#include <QDomElement>
#include <QDomNamedNodeMap>

#include <algorithm>
#include <utility>

namespace {

/// Whether the character can stand as it is, wherever it is.
bool isPlain(ushort unit)
{
    return unit >= ' ' && unit != '&' && unit != '<' && unit != '>' && unit != '"'
           && KRXMLTextWriter::isXmlCharacter(unit);
}

QLatin1String escaped(ushort unit, bool isAttribute)
{
    switch (unit) {
    case '&':
        return QLatin1String("&amp;");
    case '<':
        return QLatin1String("&lt;");
    case '>':
        return QLatin1String("&gt;");
    case '\r':
        return QLatin1String("&#13;"); // a reader would turn it into a line feed
    case '"':
        return isAttribute ? QLatin1String("&quot;") : QLatin1String("\"");
    case '\n':
        return isAttribute ? QLatin1String("&#10;") : QLatin1String("\n");
    case '\t':
        return isAttribute ? QLatin1String("&#9;") : QLatin1String("\t");
    default:
        return QLatin1String(); // no character of XML
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

QString KRXMLTextWriter::write(const QDomNode &root)
{
    QDomNode node = root;
    while (!node.isNull()) {
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
    } else if (node.isText() || node.isCDATASection()) {
        // CDATA as escaped text: its end mark may stand inside.
        writeEscaped(node.nodeValue(), false);
    } else if (node.isComment()) {
        breakLine();
        m_text += QLatin1String("<!--") + KRXMLBuilder::readableText(node.nodeValue()) + QLatin1String("-->");
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
    m_text += QLatin1String("</");
    m_text += node.nodeName();
    m_text += QLatin1Char('>');
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

    m_text += QLatin1Char('<');
    m_text += element.tagName();
    for (const auto &[name, value] : attributes) {
        m_text += QLatin1Char(' ');
        m_text += name;
        m_text += QLatin1String("=\"");
        writeEscaped(value, true);
        m_text += QLatin1Char('"');
    }
    if (!element.hasChildNodes()) {
        m_text += QLatin1String("/>");
        return;
    }
    m_text += QLatin1Char('>');
    ++m_depth;
    m_holdText.push_back(holdsText(element));
    if (m_holdText.back())
        ++m_textDepth;
}

/// Without what is no character of XML. What stands between is added as a whole.
void KRXMLTextWriter::writeEscaped(const QString &text, bool isAttribute)
{
    const QChar *plain = text.cbegin();
    for (const QChar *at = plain; at != text.cend();) {
        const bool isPair = at->isHighSurrogate() && at + 1 != text.cend() && at[1].isLowSurrogate();
        if (isPair || isPlain(at->unicode())) {
            at += isPair ? 2 : 1;
            continue;
        }
        m_text.append(plain, int(at - plain));
        m_text += escaped(at->unicode(), isAttribute);
        plain = ++at;
    }
    m_text.append(plain, int(text.cend() - plain));
}

void KRXMLTextWriter::breakLine()
{
    if (m_indent < 0 || isInsideText() || m_text.isEmpty())
        return;
    m_text += QLatin1Char('\n') + QString(m_indent * m_depth, QLatin1Char(' '));
}
