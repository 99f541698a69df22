#include "KRTileTemplate.h"

#include "KRTileKey.h"

#include <QRegularExpression>
#include <QStringList>

namespace {

const QString level = QStringLiteral("{z}");
const QString column = QStringLiteral("{x}");
const QString row = QStringLiteral("{y}");
const QString rowFromSouth = QStringLiteral("{-y}");
const QString server = QStringLiteral("{s}");

} // namespace

bool KRTileTemplate::isTemplate(const QString &text)
{
    return text.contains(level) || text.contains(column) || text.contains(row) || text.contains(rowFromSouth);
}

QString KRTileTemplate::problem() const
{
    if (!m_text.contains(level) || !m_text.contains(column) || !(m_text.contains(row) || m_text.contains(rowFromSouth)))
        return tr("Die Vorlage braucht {z}, {x} und {y} oder {-y}.");
    static const QRegularExpression anyPlace(QStringLiteral("\\{[^{}]*\\}"));
    QRegularExpressionMatchIterator places = anyPlace.globalMatch(m_text);
    while (places.hasNext()) {
        const QString place = places.next().captured();
        if (!QStringList{level, column, row, rowFromSouth, server}.contains(place))
            return tr("Die Vorlage enthält „%1“, was niemand ersetzt.").arg(place);
    }
    return QString();
}

QString KRTileTemplate::expanded(const KRTileKey &key) const
{
    QString text = m_text;
    text.replace(level, QString::number(key.zoom));
    text.replace(column, QString::number(key.x));
    text.replace(row, QString::number(key.y));
    text.replace(rowFromSouth, QString::number(key.rowFromSouth()));
    text.replace(server, QString(QLatin1Char("abc"[(key.x + key.y) % 3])));
    return text;
}
