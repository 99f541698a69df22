#pragma once

#include <QDomNode>
#include <QString>

/**
 * Writes one DOM tree as text, see KRXMLBuilder::toText().
 *
 * Walks the tree without recursion, so that its depth is not limited by the stack.
 */
class KRXMLTextWriter
{
public:
    explicit KRXMLTextWriter(int indent) : m_indent(indent) { }

    QString write(const QDomNode &root);

private:
    void enter(const QDomNode &node);
    void leave(const QDomNode &node);
    void writeStartTag(const QDomElement &element);
    void breakLine();
    bool isInsideText() const { return m_textDepth > 0; }

    QString m_text;
    int m_indent;
    int m_depth = 0;
    int m_textDepth = 0; // how many of the open elements are part of mixed content
};
