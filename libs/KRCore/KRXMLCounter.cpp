#include "KRXMLCounter.h"

#include "KRInputLimits.h"

#include <QCoreApplication>

KRXMLCounter::KRXMLCounter(qint64 characters, qint64 ampersands)
    : m_charactersLeft(characters + KRInputLimits::entityCharacters), m_ampersands(ampersands)
{ }

bool KRXMLCounter::declareEntity(qint64 characters)
{
    // Before anything is expanded: a reader hands a text over only once it is complete.
    return m_ampersands * characters <= KRInputLimits::entityCharacters || refuseExpansion();
}

bool KRXMLCounter::enterElement(int attributes, qint64 charactersInAttributes)
{
    m_nodes += 1 + attributes;
    m_charactersLeft -= charactersInAttributes;
    if (++m_depth > KRInputLimits::depth)
        return refuse(QCoreApplication::translate("KRXMLGuard", "Die Elemente sind tiefer als %1 Ebenen geschachtelt.")
                          .arg(KRInputLimits::depth));
    return isWithinLimits();
}

bool KRXMLCounter::addText(qint64 characters, bool isBlank)
{
    m_nodes += isBlank ? 0 : 1;
    m_charactersLeft -= characters;
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

bool KRXMLCounter::addDeclaration(qint64 nameCharacters, qint64 characters)
{
    if (++m_declarations > KRInputLimits::declarations)
        return refuse(QCoreApplication::translate("KRXMLGuard", "Der Dokumenttyp hat mehr als %1 Vereinbarungen.")
                          .arg(KRInputLimits::declarations));
    return addMarkup(nameCharacters, characters);
}

bool KRXMLCounter::isWithinLimits()
{
    if (m_nodes > KRInputLimits::nodes)
        return refuse(QCoreApplication::translate("KRXMLGuard", "Das Dokument hat mehr als %1 Knoten.")
                          .arg(KRInputLimits::nodes));
    return m_charactersLeft >= 0 || refuseExpansion();
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
