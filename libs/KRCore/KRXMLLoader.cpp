#include "KRXMLLoader.h"

#include "KRErrorHistory.h"
#include "KRFileHandler.h"
#include "KRInputLimits.h"
#include "KRQtCompat.h"
#include "KRXMLGuard.h"

#include <QCoreApplication>
#include <QDomDocument>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <utility>

namespace {

ushort codeOf(char byte)
{
    return uchar(byte);
}

ushort codeOf(QChar character)
{
    return character.unicode();
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

/// -1 for what is no digit.
int digitOf(ushort character, bool isHexadecimal)
{
    if (character >= '0' && character <= '9')
        return character - '0';
    const int letter = (character | 0x20) - 'a';
    return isHexadecimal && letter >= 0 && letter < 6 ? 10 + letter : -1;
}

/// The code that the reference "&#8364;" or "&#x20AC;" at @p place stands for, 0 if there is none; @p end is where its
/// semicolon stands.
template <typename Text>
uint codeOfReference(const Text &xml, int place, int *end)
{
    const bool isHexadecimal = standsAt(xml, place, "&#x");
    const uint base = isHexadecimal ? 16 : 10;
    uint code = 0;
    int at = place + (isHexadecimal ? 3 : 2);
    for (; at < xml.size(); ++at) {
        const int digit = digitOf(codeOf(xml.at(at)), isHexadecimal);
        if (digit < 0)
            break;
        // Beyond all codes it stays there.
        code = std::min<uint>(code * base + uint(digit), QChar::LastValidCodePoint + 1);
    }
    *end = at;
    return standsAt(xml, at, ";") ? code : 0;
}

/// Where a section at @p place ends in which nothing is a reference: a comment, CDATA or an instruction; @p place if
/// there is none.
template <typename Text>
int endOfLiteralSection(const Text &xml, int place)
{
    constexpr std::array<std::pair<const char *, const char *>, 3> sections{
        {{"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}}};
    for (const auto &[opening, closing] : sections) {
        if (!standsAt(xml, place, opening))
            continue;
        int end = place + int(std::strlen(opening));
        while (end < xml.size() && !standsAt(xml, end, closing))
            ++end;
        return end;
    }
    return place;
}

/// Writes each character reference beyond U+FFFF as the references of its two surrogates.
template <typename Text>
Text withSurrogateReferences(const Text &xml)
{
    Text result;
    int copied = 0;
    for (int i = 0; i < xml.size(); ++i) {
        const ushort character = codeOf(xml.at(i));
        if (character == '<') {
            i = endOfLiteralSection(xml, i);
        } else if (character == '&' && standsAt(xml, i, "&#")) {
            int end = 0;
            const uint code = codeOfReference(xml, i, &end);
            if (!QChar::requiresSurrogates(code) || code > QChar::LastValidCodePoint)
                continue;
            const Text opening = xml.mid(i, 2);
            result += xml.mid(copied, i - copied) + opening + Text::number(QChar::highSurrogate(code)) + xml.mid(end, 1)
                      + opening + Text::number(QChar::lowSurrogate(code));
            copied = end;
        }
    }
    return copied == 0 ? xml : result + xml.mid(copied);
}

/// Whether a declaration "<!ELEMENT …>" nests parentheses beyond the depth of elements: the reader recurses there.
template <typename Text>
bool hasDeepContentModel(const Text &xml)
{
    int depth = 0;
    bool isInDeclaration = false;
    for (int i = 0; i < xml.size() && depth <= KRInputLimits::depth; ++i) {
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

/// In UTF-16 every other byte is zero.
bool hasEndlessDeclaration(const QByteArray &xml)
{
    constexpr int longestMark = 3; // of the byte order
    const QByteArray beginning = xml.left(KRInputLimits::declarationBytes).replace('\0', "");
    const int place = beginning.indexOf("<?xml");
    return place >= 0 && place <= longestMark && xml.size() > KRInputLimits::declarationBytes
           && !beginning.contains("?>");
}

/// Whether a tag or a comment is so long that its name, an attribute or itself must be, which the guard would find out
/// only behind it.
template <typename Text>
bool hasEndlessTag(const Text &xml)
{
    constexpr qint64 mostCharacters = 2 * KRInputLimits::markupCharacters;
    auto at = xml.cbegin();
    const auto isOpening = [](auto character) { return codeOf(character) == '<'; };
    const auto isClosing = [](auto character) { return codeOf(character) == '>'; };
    while ((at = std::find_if(at, xml.cend(), isOpening)) != xml.cend()) {
        const int begin = int(at - xml.cbegin());
        at = std::find_if(at, xml.cend(), isClosing);
        if (at - xml.cbegin() - begin > mostCharacters && !standsAt(xml, begin, "<![CDATA["))
            return true;
    }
    return false;
}

/// What speaks against reading the text, before anything is done with it; empty if nothing.
template <typename Text>
QString refusalOf(const Text &xml)
{
    const auto isReference = [](auto character) { return codeOf(character) == '&'; };
    if (std::count_if(xml.cbegin(), xml.cend(), isReference) > KRInputLimits::references)
        return QCoreApplication::translate("KRXMLLoader",
                                           "Das Dokument hat mehr als %1 Verweise auf Zeichen und Entitäten.")
            .arg(KRInputLimits::references);
    if (hasDeepContentModel(xml))
        return QCoreApplication::translate("KRXMLLoader", "Der Dokumenttyp ist zu tief geschachtelt.");
    if (hasEndlessTag(xml))
        return QCoreApplication::translate("KRXMLLoader", "Ein Element oder ein Kommentar ist zu lang.");
    return isBlank(xml) ? QCoreApplication::translate("KRXMLLoader", "Die Datei ist leer.") : QString();
}

/// Of a text as bytes or as characters.
template <typename Text>
QDomElement documentElement(const Text &source, const QString &fileName, KRErrorHistory *history)
{
    KRErrorHistory::Entry refusal;
    refusal.fileName = fileName;
    refusal.reason = refusalOf(source);
    if (refusal.reason.isEmpty()) {
        const Text xml = KRQtCompat::domCutsReferences ? withSurrogateReferences(source) : source;
        // A failed setContent() leaves the tree that it had read so far.
        QDomDocument document;
        if (KRXMLGuard::accepts(xml, &refusal)
            && document.setContent(xml, false, &refusal.reason, &refusal.line, &refusal.column))
            return document.documentElement();
    }
    KRErrorHistory::report(history, refusal);
    return QDomElement();
}

} // namespace

QDomElement KRXMLLoader::loadDocumentElement(const QFileInfo &file, KRErrorHistory *history)
{
    const QByteArray xml = KRFileHandler::readAll(file, history, KRInputLimits::documentBytes);
    return xml.isNull() ? QDomElement() : parseDocumentElement(xml, file.filePath(), history);
}

QDomElement KRXMLLoader::parseDocumentElement(const QByteArray &xml, const QString &fileName, KRErrorHistory *history)
{
    if (hasEndlessDeclaration(xml)) {
        KRErrorHistory::report(history, fileName,
                               QCoreApplication::translate("KRXMLLoader", "Die XML-Deklaration ist zu lang."));
        return QDomElement();
    }
    if (const std::optional<QString> text = KRXMLGuard::decoded(xml))
        return documentElement(*text, fileName, history);
    return documentElement(xml, fileName, history);
}

QDomElement KRXMLLoader::parseDocumentElement(const QString &xml, const QString &fileName, KRErrorHistory *history)
{
    return documentElement(xml, fileName, history);
}
