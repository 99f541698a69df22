#include "KRXMLGuard.h"

#include "KRInputLimits.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QDomDocument>

#include <algorithm>

// The sources of the versions of Qt hold decoded() and read().

namespace {

ushort codeOf(char byte)
{
    return uchar(byte);
}

ushort codeOf(QChar character)
{
    return character.unicode();
}

// As the fastest that there is for either kind of text.
int placeOf(const QByteArray &xml, char character, int from)
{
    return int(xml.indexOf(character, from));
}

int placeOf(const QString &xml, char character, int from)
{
    return int(xml.indexOf(QLatin1Char(character), from));
}

template <typename Text>
bool isBlank(const Text &xml)
{
    return std::all_of(xml.cbegin(), xml.cend(), [](auto character) { return QChar(codeOf(character)).isSpace(); });
}

/// Whether @p ascii stands at @p place of the bytes or characters.
template <typename Text>
bool standsAt(const Text &xml, int place, const char *ascii)
{
    for (; *ascii != '\0'; ++ascii, ++place) {
        if (place >= xml.size() || codeOf(xml.at(place)) != uchar(*ascii))
            return false;
    }
    return true;
}

/// Where the first declaration of an element begins, or -1. Few texts have many exclamation marks.
template <typename Text>
int placeOfElementDeclaration(const Text &xml)
{
    for (int at = placeOf(xml, '!', 0); at >= 0; at = placeOf(xml, '!', at + 1)) {
        if (at > 0 && standsAt(xml, at - 1, "<!ELEMENT"))
            return at - 1;
    }
    return -1;
}

/// Whether a declaration "<!ELEMENT …>" nests parentheses beyond the depth of elements: the reader recurses there.
template <typename Text>
bool hasDeepContentModel(const Text &xml)
{
    int depth = 0;
    bool isInDeclaration = false;
    const int first = placeOfElementDeclaration(xml);
    for (int i = std::max(first, 0); first >= 0 && i < xml.size() && depth <= KRInputLimits::depth; ++i) {
        const ushort character = codeOf(xml.at(i));
        if (character == '<') {
            isInDeclaration = standsAt(xml, i, "<!ELEMENT");
            depth = 0;
        } else if (isInDeclaration && character == '(') {
            ++depth;
        } else if (isInDeclaration && character == ')') {
            --depth;
        }
    }
    return depth > KRInputLimits::depth;
}

/// Whether a tag or a comment is so long that its name, an attribute or itself must be, which read() would find out
/// only behind it.
template <typename Text>
bool hasEndlessTag(const Text &xml)
{
    constexpr qint64 mostCharacters = qint64(2) * KRInputLimits::markupCharacters;
    for (int begin = placeOf(xml, '<', 0); begin >= 0;) {
        const int closing = placeOf(xml, '>', begin);
        const int end = closing < 0 ? int(xml.size()) : closing;
        if (end - begin > mostCharacters && !standsAt(xml, begin, "<![CDATA["))
            return true;
        begin = placeOf(xml, '<', end);
    }
    return false;
}

/// What speaks against reading the text; empty if nothing.
template <typename Text>
QString refusalOf(const Text &xml)
{
    const auto isReference = [](auto character) { return codeOf(character) == '&'; };
    if (std::count_if(xml.cbegin(), xml.cend(), isReference) > KRInputLimits::references)
        return QCoreApplication::translate("KRXMLGuard",
                                           "Das Dokument hat mehr als %1 Verweise auf Zeichen und Entitäten.")
            .arg(KRInputLimits::references);
    if (hasDeepContentModel(xml))
        return QCoreApplication::translate("KRXMLGuard", "Der Dokumenttyp ist zu tief geschachtelt.");
    if (hasEndlessTag(xml))
        return QCoreApplication::translate("KRXMLGuard", "Ein Element oder ein Kommentar ist zu lang.");
    return isBlank(xml) ? QCoreApplication::translate("KRXMLGuard", "Die Datei ist leer.") : QString();
}

template <typename Text>
bool buildDom(const Text &xml, QDomDocument *document, KRErrorHistory::Entry *refusal)
{
    if (document->setContent(xml, false, &refusal->reason, &refusal->line, &refusal->column))
        return true;
    refusal->reason = QCoreApplication::translate("KRXMLGuard", "Kein lesbares XML: %1").arg(refusal->reason);
    return false;
}

} // namespace

bool KRXMLGuard::acceptsDeclaration(const QByteArray &xml, KRErrorHistory::Entry *refusal)
{
    constexpr int longestMark = 3; // of the byte order
    // In UTF-16 every other byte is zero.
    const QByteArray beginning = xml.left(KRInputLimits::declarationBytes).replace('\0', "");
    const int place = int(beginning.indexOf("<?xml"));
    if (place < 0 || place > longestMark || xml.size() <= KRInputLimits::declarationBytes || beginning.contains("?>"))
        return true;
    refusal->reason = QCoreApplication::translate("KRXMLGuard", "Die XML-Deklaration ist zu lang.");
    return false;
}

bool KRXMLGuard::acceptsCharacters(const QByteArray &xml, KRErrorHistory::Entry *refusal)
{
    refusal->reason = refusalOf(xml);
    return refusal->reason.isEmpty();
}

bool KRXMLGuard::acceptsCharacters(const QString &xml, KRErrorHistory::Entry *refusal)
{
    refusal->reason = refusalOf(xml);
    return refusal->reason.isEmpty();
}

bool KRXMLGuard::build(const QByteArray &xml, QDomDocument *document, KRErrorHistory::Entry *refusal)
{
    return buildDom(xml, document, refusal);
}

bool KRXMLGuard::build(const QString &xml, QDomDocument *document, KRErrorHistory::Entry *refusal)
{
    return buildDom(xml, document, refusal);
}
