#include "KRInputLimits.h"
#include "KRQtCompat.h"
#include "KRXMLCounter.h"
#include "KRXMLGuard.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QRegularExpression>
#include <QStringDecoder>
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

bool countDocumentType(const QXmlStreamReader &reader, KRXMLCounter *counter)
{
    const QXmlStreamEntityDeclarations entities = reader.entityDeclarations();
    const bool isEachShort =
        std::all_of(entities.cbegin(), entities.cend(), [counter](const QXmlStreamEntityDeclaration &entity) {
            return counter->declareEntity(entity.name().toString(), entity.value().size());
        });
    // The reader tells of no others. Entities count twice, which real types bear.
    qsizetype declarations = reader.text().count(QLatin1String("<!"));
    while (declarations > 0 && counter->addDeclaration(0, 0))
        --declarations;
    static const QRegularExpression parameterEntity(QStringLiteral("<!ENTITY\\s+%"));
    const bool hasParameters = reader.text().toString().contains(parameterEntity);
    return isEachShort && declarations == 0 && (!hasParameters || counter->declareEntity(QStringLiteral("%"), 0));
}

bool countElement(const QXmlStreamReader &reader, KRXMLCounter *counter)
{
    const QXmlStreamAttributes attributes = reader.attributes();
    qint64 characters = 0;
    const bool isEachShort =
        std::all_of(attributes.cbegin(), attributes.cend(), [&](const QXmlStreamAttribute &attribute) {
            characters += attribute.value().size();
            return counter->addMarkup(attribute.qualifiedName().size(), attribute.value().size());
        });
    return isEachShort && counter->addMarkup(reader.qualifiedName().size(), 0)
           && counter->enterElement(attributes.size(), characters);
}

/// False at an error or a limit.
bool countToken(const QXmlStreamReader &reader, KRXMLCounter *counter)
{
    switch (reader.tokenType()) {
    case QXmlStreamReader::DTD:
        return countDocumentType(reader, counter);
    case QXmlStreamReader::StartElement:
        return countElement(reader, counter);
    case QXmlStreamReader::EndElement:
        counter->leaveElement();
        return true;
    case QXmlStreamReader::Characters:
        return (!reader.isCDATA() || counter->addMarkup(0, 0)) && counter->addText(reader.text().toString());
    case QXmlStreamReader::Comment:
        return counter->addMarkup(0, reader.text().size());
    case QXmlStreamReader::ProcessingInstruction:
        return counter->addMarkup(reader.processingInstructionTarget().size(),
                                  reader.processingInstructionData().size());
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

std::optional<QString> KRXMLGuard::decoded(const QByteArray &xml)
{
    if (const std::optional<QString> wideText = KRQtCompat::wideXmlText(xml))
        return wideText;
    // In some encodings that a declaration may name, such as UTF-7, nothing looks like what it is.
    static const QRegularExpression declaration(
        QStringLiteral("^\\s*<\\?xml\\s[^>]*\\bencoding\\s*=\\s*[\"']([^\"']+)[\"']"));
    const QString encoding =
        declaration.match(QString::fromLatin1(xml.left(KRInputLimits::declarationBytes))).captured(1);
    if (encoding.isEmpty() || encoding.compare(QLatin1String("UTF-8"), Qt::CaseInsensitive) == 0)
        return std::nullopt;
    QStringDecoder decoder(encoding.toLatin1().constData());
    if (!decoder.isValid())
        return std::nullopt;
    return QString(decoder(xml));
}

bool KRXMLGuard::accepts(const QByteArray &xml, KRErrorHistory::Entry *refusal)
{
    if (const std::optional<QString> text = decoded(xml))
        return accepts(*text, refusal);
    return passes(xml, xml.count('&'), hasTooManyAttributes(xml), refusal);
}

bool KRXMLGuard::accepts(const QString &xml, KRErrorHistory::Entry *refusal)
{
    return passes(xml, xml.count(QLatin1Char('&')), hasTooManyAttributes(xml.toLatin1()), refusal);
}
