#pragma once

#include <QByteArray>
#include <QDomNode>

#include <vector>

/**
 * Writes one DOM tree as text in UTF-8, see KRXMLBuilder::toText().
 *
 * Walks the tree without recursion, so that its depth is not limited by the stack.
 */
class KRXMLTextWriter
{
public:
    explicit KRXMLTextWriter(int indent) : m_indent(indent) { }

    /// Null if it would be longer than KRXMLBuilder::mostBytes.
    QByteArray write(const QDomNode &root);

    /// Whether XML 1.0 (production 2) knows the character, which is not part of a surrogate pair.
    static bool isXmlCharacter(ushort unit)
    {
        return unit == 0x9 || unit == 0xA || unit == 0xD || (unit >= 0x20 && unit <= 0xD7FF)
               || (unit >= 0xE000 && unit <= 0xFFFD);
    }

private:
    void enter(const QDomNode &node);
    void leave(const QDomNode &node);
    void writeStartTag(const QDomElement &element);
    void writeEscaped(const QString &text, bool isAttribute);
    void breakLine();
    bool isInsideText() const { return m_textDepth > 0; }

    QByteArray m_text{""}; // not null
    int m_indent;
    int m_depth = 0;
    std::vector<bool> m_holdText; // of each open element, whether text stands directly in it
    int m_textDepth = 0; // how many of the open elements are part of mixed content
};
