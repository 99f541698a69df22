#pragma once

#include "KRGeoLocationExport.h"

#include <cstddef>
#include <cstring>
#include <string_view>

/**
 * Moves through the bytes of XML and takes what every XML reader takes alike: text and values of attributes without
 * references, entities and control characters, names of ASCII letters. In UTF-8 also characters beyond ASCII.
 *
 * Each function that takes something returns false when it is not there, whole, or is of a form that is left to an XML
 * reader; the place is undefined then.
 */
class KRGEOLOCATION_EXPORT KRGPXByteCursor
{
public:
    KRGPXByteCursor() = default;
    KRGPXByteCursor(const char *begin, const char *end, bool isUtf8) : m_at(begin), m_end(end), m_isUtf8(isUtf8) { }

    const char *at() const { return m_at; }
    bool isAtEnd() const { return m_at == m_end; }
    bool startsWith(char byte) const { return !isAtEnd() && *m_at == byte; }
    /// Puts the cursor back to where it was.
    void returnTo(const char *place) { m_at = place; }

    /// Takes exactly @p text; otherwise the place stays.
    template <std::size_t size>
    bool skip(const char (&text)[size])
    {
        constexpr std::size_t length = size - 1; // without the zero at the end
        if (std::size_t(m_end - m_at) < length || std::memcmp(m_at, text, length) != 0)
            return false;
        m_at += length;
        return true;
    }

    /// Whether there were any.
    bool skipBlanks();
    /// With one prefix at most.
    bool readName(std::string_view *name);
    /// Up to the next tag; may be empty.
    bool readText(std::string_view *text);
    /// Between quotation marks of either kind.
    bool readValue(std::string_view *value);
    /// Digits with or without decimals, not at the end of what is there: the number might go on.
    bool readDecimal(double *value);

private:
    const char *endOfCharacters(char stop) const;
    int lengthOfCharacter(const char *at) const;

    const char *m_at = nullptr;
    const char *m_end = nullptr;
    bool m_isUtf8 = true;
};
