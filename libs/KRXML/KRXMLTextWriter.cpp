#include "KRXMLTextWriter.h"

#include "KRXMLBuilder.h"

#include <QDomElement>
#include <QDomNamedNodeMap>
#include <QMap>

namespace {

QString escaped(const QString &text, bool isAttribute)
{
    QString result;
    result.reserve(text.size());
    for (const QChar unit : KRXMLBuilder::readableText(text)) {
        switch (unit.unicode()) {
        case '&':
            result += QLatin1String("&amp;");
            break;
        case '<':
            result += QLatin1String("&lt;");
            break;
        case '>':
            result += QLatin1String("&gt;");
            break;
        case '\r':
            result += QLatin1String("&#13;"); // a reader would turn it into a line feed
            break;
        case '"':
            result += isAttribute ? QLatin1String("&quot;") : QLatin1String("\"");
            break;
        case '\n':
            result += isAttribute ? QLatin1String("&#10;") : QLatin1String("\n");
            break;
        case '\t':
            result += isAttribute ? QLatin1String("&#9;") : QLatin1String("\t");
            break;
        default:
            result += unit;
        }
    }
    return result;
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
    } else if (node.isCDATASection()) {
        // As escaped text: the section's end mark may stand inside.
        m_text += escaped(node.nodeValue(), false);
    } else if (node.isText()) {
        m_text += escaped(node.nodeValue(), false);
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
    const bool heldText = holdsText(node);
    if (!heldText)
        breakLine();
    else
        --m_textDepth;
    m_text += QLatin1String("</") + node.nodeName() + QLatin1Char('>');
}

void KRXMLTextWriter::writeStartTag(const QDomElement &element)
{
    QMap<QString, QString> attributes;
    const QDomNamedNodeMap nodes = element.attributes();
    for (int i = 0; i < nodes.size(); ++i)
        attributes.insert(nodes.item(i).nodeName(), nodes.item(i).nodeValue());

    m_text += QLatin1Char('<') + element.tagName();
    for (auto it = attributes.cbegin(); it != attributes.cend(); ++it)
        m_text += QLatin1Char(' ') + it.key() + QLatin1String("=\"") + escaped(it.value(), true) + QLatin1Char('"');
    if (!element.hasChildNodes()) {
        m_text += QLatin1String("/>");
        return;
    }
    m_text += QLatin1Char('>');
    ++m_depth;
    if (holdsText(element))
        ++m_textDepth;
}

void KRXMLTextWriter::breakLine()
{
    if (m_indent < 0 || isInsideText() || m_text.isEmpty())
        return;
    m_text += QLatin1Char('\n') + QString(m_indent * m_depth, QLatin1Char(' '));
}
