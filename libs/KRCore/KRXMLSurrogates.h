#pragma once

class QString;

/**
 * Characters beyond U+FFFF in an XML text, which UTF-16 writes as two surrogates.
 *
 * Qt 5's DOM keeps the lower 16 bits of a reference like "&#x1F600;", see KRQtCompat::domCutsReferences. References to
 * the two surrogates it reads as the character that is meant.
 */
class KRXMLSurrogates
{
public:
    /// The text with each reference beyond U+FFFF written as two, apart from comments, CDATA and instructions, in which
    /// nothing is a reference. What is no reference stays as it is.
    static QString splitReferences(const QString &xml);
};
