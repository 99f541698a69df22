#pragma once

#include <QCoreApplication>
#include <QString>

struct KRTileKey;

/**
 * A path or an address with places for the name of a tile: {z}, {x} and {y}, or {-y} for rows counted from the south.
 * {s} takes turns in a, b and c, for services that have several servers.
 */
class KRTileTemplate
{
    Q_DECLARE_TR_FUNCTIONS(KRTileTemplate)

public:
    explicit KRTileTemplate(const QString &text) : m_text(text) { }

    /// Whether the text has any such place.
    static bool isTemplate(const QString &text);

    /// Why it cannot be used, for users; empty when it can.
    QString problem() const;

    QString expanded(const KRTileKey &key) const;

private:
    QString m_text;
};
