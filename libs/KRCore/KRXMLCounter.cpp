#include "KRXMLCounter.h"

#include "KRXMLGuard.h"

#include <QCoreApplication>

KRXMLCounter::KRXMLCounter(qint64 characters, qint64 ampersands)
    : m_charactersLeft(characters + KRXMLGuard::maximumExpansion), m_ampersands(ampersands)
{ }

bool KRXMLCounter::declareEntity(qint64 characters)
{
    // Before anything is expanded: a reader hands a text over only once it is complete.
    return m_ampersands * characters <= KRXMLGuard::maximumExpansion || refuseExpansion();
}

bool KRXMLCounter::enterElement(int attributes, qint64 charactersInAttributes)
{
    m_nodes += 1 + attributes;
    m_charactersLeft -= charactersInAttributes;
    if (++m_depth > KRXMLGuard::maximumDepth)
        return refuse(QCoreApplication::translate("KRXMLGuard", "Die Elemente sind tiefer als %1 Ebenen geschachtelt.")
                          .arg(KRXMLGuard::maximumDepth));
    return isWithinLimits();
}

bool KRXMLCounter::addText(qint64 characters)
{
    ++m_nodes;
    m_charactersLeft -= characters;
    return isWithinLimits();
}

bool KRXMLCounter::isWithinLimits()
{
    if (m_nodes > KRXMLGuard::maximumNodes)
        return refuse(QCoreApplication::translate("KRXMLGuard", "Das Dokument hat mehr als %1 Knoten.")
                          .arg(KRXMLGuard::maximumNodes));
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
