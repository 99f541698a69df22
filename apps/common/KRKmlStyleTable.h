#pragma once

#include "KRKmlStyle.h"

#include <QHash>

/// How a placemark, or a style by its name, is to look: another style, if one is named, and what is said on top of it.
struct KRKmlLook {
    QString reference; ///< "#id", perhaps with the address of a document in front; empty for none
    KRKmlStyle style;
};

/**
 * The named styles of a KML document, wherever in the document they stand: "Style", "StyleMap" (for which its normal
 * style stands) and "gx:CascadingStyle". Of several with one name the last one counts.
 */
class KRKmlStyleTable
{
public:
    /// True for the elements that readLook() reads.
    static bool isStyle(const KRXmlStream &stream);
    /// What a "styleUrl" says.
    static QString readReference(KRXmlStream &stream);
    /// What a "Style", "StyleMap" or "gx:CascadingStyle" says.
    static KRKmlLook readLook(KRXmlStream &stream);

    void add(const QString &id, const KRKmlLook &look) { m_looks.insert(id, look); }

    /// The style with all that it refers to; not set when nothing is known about the look.
    std::optional<KRKmlStyle> resolved(const KRKmlLook &look) const;

private:
    const KRKmlLook *find(const QString &reference) const;

    QHash<QString, KRKmlLook> m_looks; // by the id of the style
};
