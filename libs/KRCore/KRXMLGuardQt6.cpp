#include "KRXMLCounter.h"
#include "KRXMLGuard.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QXmlStreamReader>

#include <algorithm>

namespace {

// Comparisons of attributes with each other that QXmlStreamReader may spend on a text: about a second.
constexpr qint64 maximumAttributePairs = 100000000;

/// At most: whatever looks like an attribute between two tags counts.
qint64 attributePairs(const QByteArray &xml)
{
    qint64 pairs = 0;
    qint64 attributes = 0;
    bool isBehindSign = false;
    for (const char character : xml) {
        const bool isQuote = character == '"' || character == '\'';
        const bool isBlank = character == ' ' || character == '\t' || character == '\n' || character == '\r';
        attributes += isQuote && isBehindSign;
        isBehindSign = character == '=' || (isBlank && isBehindSign);
        if (character == '<') {
            pairs += attributes * attributes;
            attributes = 0;
        }
    }
    return pairs + attributes * attributes;
}

bool hasTooManyAttributes(const QByteArray &xml)
{
    // Those that a document type declares are compared with the attributes of each tag.
    return xml.contains("<!ATTLIST") || attributePairs(xml) > maximumAttributePairs;
}

/// False at an error or a limit.
bool countToken(const QXmlStreamReader &reader, KRXMLCounter *counter)
{
    switch (reader.tokenType()) {
    case QXmlStreamReader::DTD: {
        const QXmlStreamEntityDeclarations entities = reader.entityDeclarations();
        return std::all_of(entities.cbegin(), entities.cend(), [counter](const QXmlStreamEntityDeclaration &entity) {
            return counter->declareEntity(entity.value().size());
        });
    }
    case QXmlStreamReader::StartElement: {
        const QXmlStreamAttributes attributes = reader.attributes();
        qint64 characters = 0;
        for (const QXmlStreamAttribute &attribute : attributes)
            characters += attribute.value().size();
        return counter->enterElement(int(attributes.size()), characters);
    }
    case QXmlStreamReader::EndElement:
        counter->leaveElement();
        return true;
    case QXmlStreamReader::Characters:
        return counter->addText(reader.text().size(), reader.isWhitespace());
    default:
        return !reader.hasError();
    }
}

template <typename Text>
bool passes(const Text &xml, qint64 ampersands, bool hasManyAttributes, KRErrorHistory::Entry *refusal)
{
    if (hasManyAttributes) {
        refusal->reason = QCoreApplication::translate("KRXMLGuard", "Die Elemente haben zu viele Attribute.");
        return false;
    }
    QXmlStreamReader reader(xml);
    reader.setNamespaceProcessing(false);
    KRXMLCounter counter(xml.size(), ampersands);
    while (!reader.atEnd()) {
        reader.readNext();
        if (countToken(reader, &counter))
            continue;
        refusal->reason =
            !counter.refusal().isNull()
                ? counter.refusal()
                : QCoreApplication::translate("KRXMLGuard", "Kein lesbares XML: %1").arg(reader.errorString());
        refusal->line = int(reader.lineNumber());
        refusal->column = int(reader.columnNumber()) + 1;
        return false;
    }
    return true;
}

} // namespace

bool KRXMLGuard::accepts(const QByteArray &xml, KRErrorHistory::Entry *refusal)
{
    return passes(xml, xml.count('&'), hasTooManyAttributes(xml), refusal);
}

bool KRXMLGuard::accepts(const QString &xml, KRErrorHistory::Entry *refusal)
{
    return passes(xml, xml.count(QLatin1Char('&')), hasTooManyAttributes(xml.toLatin1()), refusal);
}
