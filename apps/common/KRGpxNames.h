#pragma once

#include <QStringList>

class KRXmlStream;

/**
 * Tells GPX's own elements in a document, whether they have a prefix ("gpx:trk") or not. Elements of extensions keep
 * their prefixes, so that a "vendor:time" is not taken for GPX's "time".
 */
class KRGpxNames
{
public:
    KRGpxNames() = default;
    /// The stream stands at the document element.
    explicit KRGpxNames(const KRXmlStream &document);

    /// The name of the current element, without the prefix if that is GPX's.
    QStringView name(const KRXmlStream &stream) const;
    bool isAt(const KRXmlStream &stream, const QString &elementName) const { return name(stream) == elementName; }
    /// Whether the current element is one of GPX's with a prefix.
    bool isPrefixed(const KRXmlStream &stream) const;

    QStringList prefixes() const { return m_prefixes; }

private:
    QStringList m_prefixes;
};
