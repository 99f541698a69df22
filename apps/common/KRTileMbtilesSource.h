#pragma once

#include "KRSqliteGuard.h"
#include "KRTileSource.h"

#include <QSqlDatabase>
#include <QSqlQuery>

#include <optional>

class QSqlError;

/**
 * Tiles in an MBTiles file: an SQLite database with the tables or views "tiles" and "metadata", rows counted from the
 * south. It is only read, within KRInputLimits.
 */
class KRTileMbtilesSource : public KRTileSource
{
    Q_OBJECT

public:
    /// Null with its reason in the history where the file is no MBTiles file or holds no pictures.
    static std::unique_ptr<KRTileSource> open(const QString &fileName, KRErrorHistory *history);
    ~KRTileMbtilesSource() override;

    QString credit() const override { return m_credit; }
    KRIntRange zoomRange() override;
    void request(const KRTileKey &key) override;

private:
    explicit KRTileMbtilesSource(const QString &path);

    /// Why it cannot be used, empty when it can. @p address is the file as a URI for SQLite.
    QString connectTo(const QString &address);
    /// Why SQLite must not touch the files that belong to it, empty when it may. It looks for them before each query.
    QString problemBeside() const;
    QString prepareQueries(int freeMs);
    QString reasonOf(const QSqlError &error) const;
    void readMetadata();
    bool hasNumber(const QString &key) const;
    /// Of the first row; not set without any.
    std::optional<int> firstNumber(QSqlQuery *query);
    KRTileAnswer read(const KRTileKey &key);

    const QString m_path; ///< as SQLite knows it
    KRSqliteGuard m_guard;
    QSqlDatabase m_database;
    QSqlQuery m_tileQuery; ///< prepared, as the others
    QSqlQuery m_lowestZoomQuery;
    QSqlQuery m_highestZoomQuery;
    QHash<QString, QString> m_metadata;
    QString m_credit;
};
