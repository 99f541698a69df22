#include "KRXMLSurrogates.h"

#include <QString>

#include <algorithm>
#include <array>

namespace {

bool standsAt(const QString &xml, int place, QLatin1String text)
{
    return QStringView(xml).mid(place).startsWith(text);
}

/// -1 for what is no digit.
int digitOf(QChar character, bool isHexadecimal)
{
    const ushort code = character.unicode();
    if (code >= '0' && code <= '9')
        return code - '0';
    const int letter = (code | 0x20) - 'a';
    return isHexadecimal && letter >= 0 && letter < 6 ? 10 + letter : -1;
}

/// The code that the reference "&#8364;" or "&#x20AC;" at @p place stands for, 0 if there is none; @p end is where its
/// semicolon stands.
uint codeOfReference(const QString &xml, int place, int *end)
{
    const bool isHexadecimal = standsAt(xml, place, QLatin1String("&#x"));
    const uint base = isHexadecimal ? 16 : 10;
    uint code = 0;
    int at = place + (isHexadecimal ? 3 : 2);
    for (; at < xml.size(); ++at) {
        const int digit = digitOf(xml.at(at), isHexadecimal);
        if (digit < 0)
            break;
        // Beyond all codes it stays there.
        code = std::min<uint>(code * base + uint(digit), QChar::LastValidCodePoint + 1);
    }
    *end = at;
    return standsAt(xml, at, QLatin1String(";")) ? code : 0;
}

/// Where a section at @p place ends in which nothing is a reference: a comment, CDATA or an instruction; @p place if
/// there is none.
int endOfLiteralSection(const QString &xml, int place)
{
    struct Section {
        QLatin1String opening;
        QLatin1String closing;
    };
    const std::array<Section, 3> sections{{{QLatin1String("<!--"), QLatin1String("-->")},
                                           {QLatin1String("<![CDATA["), QLatin1String("]]>")},
                                           {QLatin1String("<?"), QLatin1String("?>")}}};
    for (const auto &[opening, closing] : sections) {
        if (!standsAt(xml, place, opening))
            continue;
        const int end = int(xml.indexOf(closing, place + int(opening.size())));
        return end < 0 ? int(xml.size()) : end;
    }
    return place;
}

} // namespace

QString KRXMLSurrogates::splitReferences(const QString &xml)
{
    QString result;
    int copied = 0;
    for (int i = 0; i < xml.size(); ++i) {
        if (xml.at(i) == QLatin1Char('<')) {
            i = endOfLiteralSection(xml, i);
        } else if (standsAt(xml, i, QLatin1String("&#"))) {
            int end = 0;
            const uint code = codeOfReference(xml, i, &end);
            if (!QChar::requiresSurrogates(code) || code > QChar::LastValidCodePoint)
                continue;
            result += xml.mid(copied, i - copied);
            result += QStringLiteral("&#%1;&#%2").arg(QChar::highSurrogate(code)).arg(QChar::lowSurrogate(code));
            copied = end;
        }
    }
    return copied == 0 ? xml : result + xml.mid(copied);
}
