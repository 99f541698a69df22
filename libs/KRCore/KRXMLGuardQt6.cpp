#include "KRInputLimits.h"
#include "KRQtCompat.h"
#include "KRXMLCounter.h"
#include "KRXMLGuard.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QRegularExpression>
#include <QStringDecoder>
#include <QXmlStreamReader>

#include <algorithm>

namespace {

/// What looks like attributes of a tag.
qint64 attributesIn(QByteArrayView tag)
{
    qint64 attributes = 0;
    bool isBehindSign = false;
    for (const char character : tag) {
        const bool isQuote = character == '"' || character == '\'';
        const bool isBlank = character == ' ' || character == '\t' || character == '\n' || character == '\r';
        attributes += isQuote && isBehindSign;
        isBehindSign = character == '=' || (isBlank && isBehindSign);
    }
    return attributes;
}

/// What a declaration "<!ATTLIST …>" holds at most: each attribute ends with a value or a word such as "#IMPLIED".
qint64 declaredAttributesIn(QByteArrayView declaration)
{
    const qsizetype quotes = declaration.count('"') + declaration.count('\'');
    return declaration.count('#') + (quotes + 1) / 2;
}

/// Counts what the reader keeps or compares before it tells of it, or more: whatever looks like it counts, even in a
/// comment.
bool countSection(QByteArrayView section, KRXMLCounter *counter, qint64 *declaredAttributes)
{
    constexpr QByteArrayView entity("<!ENTITY");
    if (section.startsWith(entity)) {
        const bool isParameter = section.sliced(entity.size()).trimmed().startsWith('%');
        return counter->declareEntity(isParameter ? QStringLiteral("%") : QString(), 0);
    }
    if (section.startsWith("<!NOTATION"))
        return counter->addDeclaration(0, 0);
    if (!section.startsWith("<!ATTLIST"))
        return counter->compareAttributes(attributesIn(section));
    const qint64 declared = declaredAttributesIn(section);
    *declaredAttributes += declared;
    return counter->declareAttributes(declared);
}

/// Looks at all tags and declarations before anything is read; null if nothing speaks against reading.
QString refusalOfSections(const QByteArray &xml, qint64 *declaredAttributes)
{
    KRXMLCounter counter(xml.size(), 0);
    for (qsizetype begin = xml.indexOf('<'); begin >= 0;) {
        const qsizetype end = xml.indexOf('<', begin + 1);
        const qsizetype size = (end < 0 ? xml.size() : end) - begin;
        if (!countSection(QByteArrayView(xml).sliced(begin, size), &counter, declaredAttributes))
            break;
        begin = end;
    }
    return counter.refusal();
}

bool countEntities(const QXmlStreamReader &reader, KRXMLCounter *counter)
{
    const QXmlStreamEntityDeclarations entities = reader.entityDeclarations();
    return std::all_of(entities.cbegin(), entities.cend(), [counter](const QXmlStreamEntityDeclaration &entity) {
        return counter->declareEntity(entity.name().toString(), entity.value().size());
    });
}

bool countElement(const QXmlStreamReader &reader, KRXMLCounter *counter)
{
    const QXmlStreamAttributes attributes = reader.attributes();
    return std::all_of(attributes.cbegin(), attributes.cend(),
                       [counter](const QXmlStreamAttribute &attribute) {
                           return counter->addAttribute(attribute.qualifiedName().size(), attribute.value().size());
                       })
           && counter->enterElement(reader.qualifiedName().size());
}

/// False at an error or a limit.
bool countToken(const QXmlStreamReader &reader, KRXMLCounter *counter)
{
    switch (reader.tokenType()) {
    case QXmlStreamReader::DTD:
        return countEntities(reader, counter);
    case QXmlStreamReader::StartElement:
        return countElement(reader, counter);
    case QXmlStreamReader::EndElement:
        counter->leaveElement();
        return true;
    case QXmlStreamReader::Characters:
        return (!reader.isCDATA() || counter->addMarkup(0, 0)) && counter->addText(reader.text());
    case QXmlStreamReader::Comment:
        return counter->addMarkup(0, reader.text().size());
    case QXmlStreamReader::ProcessingInstruction:
        return counter->addMarkup(reader.processingInstructionTarget().size(),
                                  reader.processingInstructionData().size());
    default:
        return !reader.hasError();
    }
}

/// @p bytes are the same text, in which only ASCII matters.
template <typename Text>
bool passes(const Text &xml, const QByteArray &bytes, KRErrorHistory::Entry *refusal)
{
    qint64 declaredAttributes = 0;
    refusal->reason = refusalOfSections(bytes, &declaredAttributes);
    if (!refusal->reason.isNull())
        return false;
    QXmlStreamReader reader(xml);
    reader.setNamespaceProcessing(false);
    KRXMLCounter counter(xml.size(), bytes.count('&'));
    bool isAccepted = counter.declareAttributes(declaredAttributes);
    while (isAccepted && !reader.atEnd()) {
        reader.readNext();
        isAccepted = countToken(reader, &counter);
    }
    if (isAccepted)
        return true;
    refusal->reason = counter.refusalOr(reader.errorString());
    refusal->line = int(reader.lineNumber());
    refusal->column = int(reader.columnNumber()) + 1;
    return false;
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

bool KRXMLGuard::read(const QByteArray &xml, QDomDocument *document, KRErrorHistory::Entry *refusal)
{
    if (const std::optional<QString> text = decoded(xml))
        return read(*text, document, refusal);
    return passes(xml, xml, refusal) && build(xml, document, refusal);
}

bool KRXMLGuard::read(const QString &xml, QDomDocument *document, KRErrorHistory::Entry *refusal)
{
    return passes(xml, xml.toLatin1(), refusal) && build(xml, document, refusal);
}
