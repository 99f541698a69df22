#pragma once

#include <QString>
#include <QStringView>

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
    /// Default values of attributes: a reader looks them all up at every element that follows.
    bool declareAttributes(qint64 count);
    /// Anything else in a document type.
    bool addDeclaration(qint64 nameCharacters, qint64 characters);
    /// An attribute of the element that is entered next.
    bool addAttribute(qint64 nameCharacters, qint64 characters);
    bool enterElement(qint64 nameCharacters);
    /// For a tag with so many attributes, which a reader compares with each other.
    bool compareAttributes(qint64 count);
    /// White space alone, between elements, does not become part of a DOM.
    bool addText(QStringView text);
    /// A comment or an instruction, each as a whole.
    bool addMarkup(qint64 nameCharacters, qint64 characters);

    void leaveElement() { --m_depth; }

    /// For users; null as long as nothing is refused.
    QString refusal() const { return m_refusal; }
    /// The refusal or, if there is none, what keeps the reader from reading on.
    QString refusalOr(const QString &readerError) const;

private:
    bool mayDeclare(qint64 count);
    bool isWithinLimits();
    bool refuse(const QString &refusal);
    bool refuseExpansion();

    qint64 m_charactersLeft;
    qint64 m_ampersands;
    int m_nodes = 0;
    qint64 m_words = 0;
    qint64 m_attributes = 0;
    qint64 m_declaredAttributes = 0;
    qint64 m_attributePairs = 0;
    qint64 m_declarations = 0;
    int m_depth = 0;
    QString m_refusal;
};
