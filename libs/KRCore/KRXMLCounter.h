#pragma once

#include <QString>

/**
 * Counts what KRXMLGuard meets on its way through a text. Once a limit is passed, everything is refused.
 */
class KRXMLCounter
{
public:
    /// For a text of @p characters, of which @p ampersands may refer to entities.
    KRXMLCounter(qint64 characters, qint64 ampersands);

    // False when the text is refused.
    /// A parameter entity has a name that begins with "%".
    bool declareEntity(const QString &name, qint64 characters);
    /// The element and its attributes are to be added as markup besides.
    bool enterElement(qint64 attributes, qint64 charactersInAttributes);
    /// White space alone, between elements, does not become part of a DOM.
    bool addText(const QString &text);
    /// A comment, an instruction or an attribute, each as a whole.
    bool addMarkup(qint64 nameCharacters, qint64 characters);
    /// In a document type.
    bool addDeclaration(qint64 nameCharacters, qint64 characters);

    void leaveElement() { --m_depth; }

    /// For users; null as long as nothing is refused.
    QString refusal() const { return m_refusal; }

private:
    bool isWithinLimits();
    bool refuse(const QString &refusal);
    bool refuseExpansion();

    qint64 m_charactersLeft;
    qint64 m_ampersands;
    int m_nodes = 0;
    qint64 m_words = 0;
    qint64 m_attributePairs = 0;
    int m_declarations = 0;
    int m_depth = 0;
    QString m_refusal;
};
