#include "KRXMLCounter.h"

#include "KRInputLimits.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace {

struct Words {
    int count = 0;
    int longest = 0; // of them and of the blanks between them
};

Words wordsOf(QStringView text)
{
    Words words;
    bool isInWord = false;
    const QChar *begin = text.cbegin();
    for (const QChar *at = begin; at != text.cend(); ++at) {
        const bool wasInWord = isInWord;
        isInWord = at->unicode() > ' ';
        if (isInWord == wasInWord)
            continue;
        words.count += isInWord ? 1 : 0;
        words.longest = std::max(words.longest, int(at - begin));
        begin = at;
    }
    words.longest = std::max(words.longest, int(text.cend() - begin));
    return words;
}

} // namespace

KRXMLCounter::KRXMLCounter(qint64 characters, qint64 ampersands)
    : m_charactersLeft(characters + KRInputLimits::entityCharacters), m_ampersands(ampersands)
{ }

bool KRXMLCounter::declareEntity(const QString &name, qint64 characters)
{
    // They may hide declarations from everyone who looks at the text.
    if (name.startsWith(QLatin1Char('%')))
        return refuse(QCoreApplication::translate("KRXMLGuard", "Der Dokumenttyp hat Parameter-Entitäten."));
    // Before anything is expanded: a reader hands a text over only once it is complete.
    if (m_ampersands * characters > KRInputLimits::entityCharacters)
        return refuseExpansion();
    return addDeclaration(name.size(), characters);
}

bool KRXMLCounter::declareAttributes(qint64 count)
{
    m_declaredAttributes += count;
    m_nodes += int(count);
    return mayDeclare(count);
}

bool KRXMLCounter::addDeclaration(qint64 nameCharacters, qint64 characters)
{
    return mayDeclare(1) && addMarkup(nameCharacters, characters);
}

bool KRXMLCounter::addAttribute(qint64 nameCharacters, qint64 characters)
{
    ++m_attributes;
    m_charactersLeft -= characters;
    return addMarkup(nameCharacters, characters);
}

bool KRXMLCounter::enterElement(qint64 nameCharacters)
{
    m_attributePairs += m_declaredAttributes;
    if (!compareAttributes(std::exchange(m_attributes, 0)))
        return false;
    if (++m_depth > KRInputLimits::depth)
        return refuse(QCoreApplication::translate("KRXMLGuard", "Die Elemente sind tiefer als %1 Ebenen geschachtelt.")
                          .arg(KRInputLimits::depth));
    return addMarkup(nameCharacters, 0);
}

bool KRXMLCounter::compareAttributes(qint64 count)
{
    if (count > KRInputLimits::manyAttributes)
        m_attributePairs += count * count;
    if (m_attributePairs > KRInputLimits::attributePairs)
        return refuse(QCoreApplication::translate("KRXMLGuard", "Die Elemente haben zu viele Attribute."));
    return true;
}

bool KRXMLCounter::addText(QStringView text)
{
    const Words words = wordsOf(text);
    m_nodes += words.count > 0 ? 1 : 0;
    m_charactersLeft -= text.size();
    m_words += words.count;
    if (m_words > KRInputLimits::words)
        return refuse(QCoreApplication::translate("KRXMLGuard", "Die Texte des Dokuments haben mehr als %1 Wörter.")
                          .arg(KRInputLimits::words));
    if (words.longest > KRInputLimits::wordCharacters)
        return refuse(QCoreApplication::translate("KRXMLGuard", "Ein Text hat ein zu langes Wort oder zu viele "
                                                                "Leerzeichen."));
    return isWithinLimits();
}

bool KRXMLCounter::addMarkup(qint64 nameCharacters, qint64 characters)
{
    ++m_nodes;
    if (nameCharacters > KRInputLimits::nameCharacters || characters > KRInputLimits::markupCharacters)
        return refuse(
            QCoreApplication::translate("KRXMLGuard", "Ein Name, ein Attribut oder ein Kommentar ist zu lang."));
    return isWithinLimits();
}

QString KRXMLCounter::refusalOr(const QString &readerError) const
{
    return !m_refusal.isNull() ? m_refusal
                               : QCoreApplication::translate("KRXMLGuard", "Kein lesbares XML: %1").arg(readerError);
}

bool KRXMLCounter::mayDeclare(qint64 count)
{
    m_declarations += count;
    if (m_declarations > KRInputLimits::declarations)
        return refuse(QCoreApplication::translate("KRXMLGuard", "Der Dokumenttyp hat mehr als %1 Vereinbarungen.")
                          .arg(KRInputLimits::declarations));
    return true;
}

bool KRXMLCounter::isWithinLimits()
{
    if (m_nodes > KRInputLimits::nodes)
        return refuse(QCoreApplication::translate("KRXMLGuard", "Das Dokument hat mehr als %1 Knoten.")
                          .arg(KRInputLimits::nodes));
    if (m_charactersLeft < 0)
        return refuseExpansion();
    return true;
}

bool KRXMLCounter::refuse(const QString &refusal)
{
    m_refusal = refusal;
    return false;
}

bool KRXMLCounter::refuseExpansion()
{
    return refuse(QCoreApplication::translate("KRXMLGuard", "Die Entitäten des Dokuments werden zu lang."));
}
