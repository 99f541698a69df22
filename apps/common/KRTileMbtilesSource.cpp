#include "KRTileMbtilesSource.h"

#include "KRPlainText.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRFileHandler.h>
#include <KRCore/KRInputLimits.h>

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <QSqlError>
#include <QUrl>
#include <QUuid>
#include <QVariant>

#include <limits>
#include <utility>

#include <sqlite3.h>

namespace {

constexpr int longestCredit = 300; ///< characters
constexpr int headerBytes = 100; ///< of an SQLite file

/// In this mode SQLite writes files beside the database even where it only reads it.
bool hasWriteAheadLog(const QByteArray &header)
{
    constexpr int readVersionPosition = 19;
    constexpr char writeAheadLog = 2;
    return header.size() > readVersionPosition && header.at(readVersionPosition) == writeAheadLog;
}

/// Whoever has the database open keeps a log beside it. Without one nobody is to be waited for, and the file may be
/// read as one that does not change.
QString addressOf(const QString &path, const QByteArray &header)
{
    QUrl address = QUrl::fromLocalFile(path);
    if (hasWriteAheadLog(header) && QFileInfo(path + QStringLiteral("-wal")).size() == 0)
        address.setQuery(QStringLiteral("immutable=1"));
    return address.toString(QUrl::FullyEncoded);
}

QString outermostZoom(const char *direction)
{
    // An index has it at its end, whereas min() and max() in one query read all of it.
    return QStringLiteral("SELECT zoom_level FROM tiles ORDER BY zoom_level %1 LIMIT 1").arg(QLatin1String(direction));
}

} // namespace

KRTileMbtilesSource::KRTileMbtilesSource(const QString &path) : m_path(path) { }

KRTileMbtilesSource::~KRTileMbtilesSource()
{
    const QString name = m_database.connectionName();
    for (QSqlQuery *query : {&m_tileQuery, &m_lowestZoomQuery, &m_highestZoomQuery})
        *query = QSqlQuery();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(name);
}

std::unique_ptr<KRTileSource> KRTileMbtilesSource::open(const QString &fileName, KRErrorHistory *history)
{
    QFile file(fileName);
    if (!KRFileHandler::openForReading(file, history, std::numeric_limits<qint64>::max()))
        return nullptr;
    const QByteArray magic = QByteArrayLiteral("SQLite format 3\0");
    QString problem;
    const QByteArray header = file.read(headerBytes);
    if (!header.startsWith(magic))
        problem = tr("Das ist keine MBTiles-Datei.");
    file.close();

    std::unique_ptr<KRTileMbtilesSource> source(new KRTileMbtilesSource(QFileInfo(fileName).canonicalFilePath()));
    if (problem.isEmpty())
        problem = source->problemBeside();
    if (problem.isEmpty())
        problem = source->connectTo(addressOf(source->m_path, header));
    if (problem.isEmpty())
        return source;
    KRErrorHistory::report(history, fileName, problem);
    return nullptr;
}

QString KRTileMbtilesSource::problemBeside() const
{
    for (const char *suffix : {"-journal", "-wal", "-shm"}) {
        const QFileInfo file(m_path + QLatin1String(suffix));
        if (file.exists() && !file.isFile()) // SQLite would wait for a pipe
            return tr("„%1“ daneben ist keine gewöhnliche Datei.").arg(file.fileName());
    }
    return QString();
}

QString KRTileMbtilesSource::connectTo(const QString &address)
{
    if (!QSqlDatabase::isDriverAvailable(QStringLiteral("QSQLITE")))
        return tr("Auf diesem Rechner fehlt Qts Treiber für SQLite.");
    m_database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QUuid::createUuid().toString());
    m_database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY;QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=2000"));
    m_database.setDatabaseName(address);
    if (!m_database.open())
        return tr("Die Datei kann nicht geöffnet werden: %1").arg(m_database.lastError().databaseText());

    m_guard.protect(m_database);
    QSqlQuery schema(m_database);
    schema.setForwardOnly(true);
    if (!schema.exec(QStringLiteral("SELECT name, type, sql FROM sqlite_master WHERE name IN ('tiles', 'metadata')")))
        return reasonOf(schema.lastError());
    QHash<QString, QString> types;
    QHash<QString, QString> definitions;
    while (schema.next()) {
        types.insert(schema.value(0).toString(), schema.value(1).toString());
        definitions.insert(schema.value(0).toString(), schema.value(2).toString());
    }
    if (!types.contains(QStringLiteral("tiles")))
        return tr("Das ist keine MBTiles-Datei.");
    // A view may compute for ever, and who opens a file does not want to wait.
    if (types.value(QStringLiteral("metadata")) == QLatin1String("table"))
        readMetadata();
    const QString format = m_metadata.value(QStringLiteral("format"));
    if (format == QLatin1String("pbf") || format == QLatin1String("mvt"))
        return tr("Die Datei enthält Vektoren und keine Bilder.");
    const QString attribution = m_metadata.value(QStringLiteral("attribution")); // HTML with links
    m_credit = KRPlainText::beginning(KRPlainText::ofHtml(attribution).simplified(), longestCredit);
    // Columns that are computed have this word in front of how. Without any, a table can only be searched.
    const bool isStored =
        types.value(QStringLiteral("tiles")) == QLatin1String("table")
        && !definitions.value(QStringLiteral("tiles"))
                .contains(QRegularExpression(QStringLiteral("\\bAS\\b"), QRegularExpression::CaseInsensitiveOption));
    return prepareQueries(isStored ? KRInputLimits::storedTileQueryMs : KRInputLimits::tileQueryMs);
}

QString KRTileMbtilesSource::prepareQueries(int freeMs)
{
    const QString tile =
        QStringLiteral("SELECT length(tile_data), CASE WHEN length(tile_data) <= %1 THEN tile_data END FROM tiles "
                       "WHERE zoom_level = ? AND tile_column = ? AND tile_row = ? LIMIT 1")
            .arg(KRInputLimits::tileBytes);
    const std::pair<QSqlQuery *, QString> texts[] = {
        {&m_tileQuery, tile}, {&m_lowestZoomQuery, outermostZoom("ASC")}, {&m_highestZoomQuery, outermostZoom("DESC")}};
    for (const auto &[query, text] : texts) {
        *query = QSqlQuery(m_database);
        query->setForwardOnly(true);
        if (!query->prepare(text))
            return reasonOf(query->lastError());
    }
    m_guard.seal(freeMs);
    return m_guard.hasInterrupted() ? reasonOf(QSqlError()) : QString();
}

QString KRTileMbtilesSource::reasonOf(const QSqlError &error) const
{
    if (m_guard.hasInterrupted())
        return tr("Die Datei antwortet zu langsam.");
    if (m_guard.hasSchemaChanged())
        return tr("Die Datei wurde verändert, während sie offen war.");
    switch (error.nativeErrorCode().toInt()) {
    case SQLITE_NOMEM:
        return tr("Die Datei braucht zu viel Speicher.");
    case SQLITE_AUTH:
        return tr("Die Datei rechnet ihre Kacheln aus, statt sie zu enthalten.");
    default:
        return tr("Die Datei kann nicht gelesen werden: %1").arg(error.databaseText());
    }
}

void KRTileMbtilesSource::readMetadata()
{
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    query.exec(QStringLiteral("SELECT name, substr(value, 1, %1) FROM metadata LIMIT %2")
                   .arg(KRInputLimits::tileMetadataCharacters)
                   .arg(KRInputLimits::tileMetadataRows));
    while (query.next())
        m_metadata.insert(query.value(0).toString().left(KRInputLimits::tileMetadataCharacters),
                          query.value(1).toString());
}

bool KRTileMbtilesSource::hasNumber(const QString &key) const
{
    bool isNumber = false;
    m_metadata.value(key).toInt(&isNumber);
    return isNumber;
}

std::optional<int> KRTileMbtilesSource::firstNumber(QSqlQuery *query)
{
    if (!problemBeside().isEmpty())
        return std::nullopt;
    m_guard.startQuery();
    query->exec();
    const std::optional<int> number = query->next() ? std::optional<int>(query->value(0).toInt()) : std::nullopt;
    query->finish();
    m_guard.endQuery();
    return number;
}

KRIntRange KRTileMbtilesSource::zoomRange()
{
    const QString lowest = QStringLiteral("minzoom");
    const QString highest = QStringLiteral("maxzoom");
    KRIntRange range(m_metadata.value(lowest).toInt(), m_metadata.value(highest).toInt());
    if (!hasNumber(lowest) || !hasNumber(highest)) {
        range = KRIntRange(firstNumber(&m_lowestZoomQuery).value_or(range.minimum()),
                           firstNumber(&m_highestZoomQuery).value_or(range.maximum()));
    }
    const int minimum = qBound(0, range.minimum(), int(KRTileKey::largestZoom));
    return KRIntRange(minimum, qBound(minimum, range.maximum(), int(KRTileKey::largestZoom)));
}

void KRTileMbtilesSource::request(const KRTileKey &key)
{
    emit answered(key, read(key));
}

KRTileAnswer KRTileMbtilesSource::read(const KRTileKey &key)
{
    KRTileAnswer answer;
    answer.reason = problemBeside();
    if (!answer.reason.isEmpty()) {
        answer.kind = KRTileAnswer::Failed;
        return answer;
    }
    m_tileQuery.bindValue(0, key.zoom);
    m_tileQuery.bindValue(1, key.x);
    m_tileQuery.bindValue(2, key.rowFromSouth());
    m_guard.startQuery();
    const bool hasRow = m_tileQuery.exec() && m_tileQuery.next();
    if (m_guard.hasInterrupted() || m_tileQuery.lastError().isValid()) {
        answer.kind = KRTileAnswer::Failed;
        answer.reason = reasonOf(m_tileQuery.lastError());
    } else if (hasRow) {
        const bool isTooLarge = m_tileQuery.value(0).toLongLong() > KRInputLimits::tileBytes;
        answer.kind = isTooLarge ? KRTileAnswer::Failed : KRTileAnswer::Found;
        answer.bytes = m_tileQuery.value(1).toByteArray();
        answer.reason = isTooLarge ? tr("Eine Kachel ist zu groß.") : QString();
    }
    m_tileQuery.finish();
    m_guard.endQuery();
    return answer;
}
