#include "KRXMLSkimmer.h"

#include "KRXMLCounter.h"

#include <algorithm>
#include <array>

namespace {

bool isBlank(QChar character)
{
    return character == QLatin1Char(' ') || character == QLatin1Char('\n') || character == QLatin1Char('\t')
           || character == QLatin1Char('\r');
}

/// A reader is stricter, and ends where the name does not.
bool endsName(QChar character)
{
    return isBlank(character) || character == QLatin1Char('/') || character == QLatin1Char('>')
           || character == QLatin1Char('=') || character == QLatin1Char('<') || character == QLatin1Char('"')
           || character == QLatin1Char('\'');
}

/// Whether all references are to characters or to the five entities that need no declaration.
bool hasKnownReferences(QStringView text)
{
    static constexpr std::array<const char *, 6> known{"&#", "&amp;", "&lt;", "&gt;", "&quot;", "&apos;"};
    for (int at = int(text.indexOf(QLatin1Char('&'))); at >= 0; at = int(text.indexOf(QLatin1Char('&'), at + 1))) {
        const QStringView reference = text.mid(at, 6);
        if (std::none_of(known.cbegin(), known.cend(),
                         [&](const char *name) { return reference.startsWith(QLatin1String(name)); }))
            return false;
    }
    return true;
}

} // namespace

KRXMLSkimmer::KRXMLSkimmer(const QString &xml, KRXMLCounter *counter) : m_xml(xml), m_counter(counter) { }

KRXMLSkimmer::Result KRXMLSkimmer::skim()
{
    Result result = Counted;
    while (result == Counted && !isAtEnd()) {
        const int markup = int(m_xml.indexOf(QLatin1Char('<'), m_place));
        const QStringView text = m_xml.mid(m_place, markup < 0 ? -1 : markup - m_place);
        m_place += int(text.size());
        result = skimText(text);
        if (result == Counted && !isAtEnd())
            result = skimMarkup();
    }
    return result == Counted && m_depth > 0 ? LeftToReader : result;
}

int KRXMLSkimmer::line() const
{
    return int(std::count(m_xml.cbegin(), m_xml.cbegin() + m_place, QLatin1Char('\n'))) + 1;
}

int KRXMLSkimmer::column() const
{
    int begin = m_place;
    while (begin > 0 && m_xml.at(begin - 1) != QLatin1Char('\n'))
        --begin;
    return m_place - begin + 1;
}

KRXMLSkimmer::Result KRXMLSkimmer::skimText(QStringView text)
{
    if (!text.isEmpty() && !m_counter->addText(text))
        return Refused;
    return hasKnownReferences(text) ? Counted : LeftToReader;
}

KRXMLSkimmer::Result KRXMLSkimmer::skimMarkup()
{
    QStringView content;
    if (standsHere(QLatin1String("<!--"))) {
        m_place += 4;
        if (skimTo(QLatin1String("-->"), &content) == LeftToReader)
            return LeftToReader;
        return m_counter->addMarkup(0, content.size()) ? Counted : Refused;
    }
    if (standsHere(QLatin1String("<![CDATA["))) {
        m_place += 9;
        if (skimTo(QLatin1String("]]>"), &content) == LeftToReader)
            return LeftToReader;
        return m_counter->addMarkup(0, 0) && m_counter->addText(content) ? Counted : Refused;
    }
    if (standsHere(QLatin1String("<?"))) {
        m_place += 2;
        if (skimTo(QLatin1String("?>"), &content) == LeftToReader)
            return LeftToReader;
        const auto endOfName = std::find_if(content.cbegin(), content.cend(), endsName);
        return m_counter->addMarkup(endOfName - content.cbegin(), content.size()) ? Counted : Refused;
    }
    if (standsHere(QLatin1String("</"))) {
        m_place += 2;
        m_counter->leaveElement();
        return --m_depth < 0 ? LeftToReader : skimTo(QLatin1String(">"), &content);
    }
    if (standsHere(QLatin1String("<!DOCTYPE")))
        return skimDocumentType();
    return standsHere(QLatin1String("<!")) ? LeftToReader : skimElement();
}

/// Only one that declares nothing.
KRXMLSkimmer::Result KRXMLSkimmer::skimDocumentType()
{
    QStringView content;
    if (skimTo(QLatin1String(">"), &content) == LeftToReader)
        return LeftToReader;
    const bool mayDeclare =
        content.contains(QLatin1Char('[')) || content.contains(QLatin1Char('"')) || content.contains(QLatin1Char('\''));
    if (mayDeclare)
        return LeftToReader;
    return m_counter->addDeclaration(content.size(), content.size()) ? Counted : Refused;
}

KRXMLSkimmer::Result KRXMLSkimmer::skimElement()
{
    const int begin = ++m_place;
    skipName();
    const int nameLength = m_place - begin;
    const Result result = skimAttributes();
    if (result != Counted)
        return result;
    ++m_depth;
    if (!m_counter->enterElement(nameLength))
        return Refused;
    if (standsHere(QLatin1String("/>"))) {
        m_counter->leaveElement();
        --m_depth;
        ++m_place;
    }
    if (!standsHere(QLatin1String(">")))
        return LeftToReader;
    ++m_place;
    return Counted;
}

KRXMLSkimmer::Result KRXMLSkimmer::skimAttributes()
{
    for (skipBlanks(); !isAtEnd() && !endsName(m_xml.at(m_place)); skipBlanks()) {
        const int begin = m_place;
        skipName();
        const int nameLength = m_place - begin;
        skipBlanks();
        if (!standsHere(QLatin1String("=")))
            return LeftToReader;
        ++m_place;
        skipBlanks();
        const bool isDouble = standsHere(QLatin1String("\""));
        if (!isDouble && !standsHere(QLatin1String("'")))
            return LeftToReader;
        ++m_place;
        QStringView value;
        if (skimTo(QLatin1String(isDouble ? "\"" : "'"), &value) == LeftToReader || !hasKnownReferences(value))
            return LeftToReader;
        if (!m_counter->addAttribute(nameLength, value.size()))
            return Refused;
    }
    return Counted;
}

KRXMLSkimmer::Result KRXMLSkimmer::skimTo(QLatin1String closing, QStringView *content)
{
    const int end = int(m_xml.indexOf(closing, m_place));
    if (end < 0)
        return LeftToReader;
    *content = m_xml.mid(m_place, end - m_place);
    m_place = end + int(closing.size());
    return Counted;
}

void KRXMLSkimmer::skipBlanks()
{
    while (!isAtEnd() && isBlank(m_xml.at(m_place)))
        ++m_place;
}

void KRXMLSkimmer::skipName()
{
    while (!isAtEnd() && !endsName(m_xml.at(m_place)))
        ++m_place;
}
