#pragma once

#include "KRTileSource.h"
#include "KRTileTemplate.h"

#include <QDir>
#include <QVector>

/**
 * Tiles as files of their own, in a folder <level>/<column>/<row> or where a template says.
 */
class KRTileFolderSource : public KRTileSource
{
    Q_OBJECT

public:
    /// A folder or a template; null with its reason in the history where nothing is there.
    static std::unique_ptr<KRTileSource> open(const QString &text, KRErrorHistory *history);
    /// That folder, or the one above the first part of the template that differs from tile to tile.
    static QDir folderOf(const QString &text);

    KRIntRange zoomRange() override { return m_zoomRange; }
    void request(const KRTileKey &key) override;

private:
    KRTileFolderSource(const QVector<KRTileTemplate> &names, const KRIntRange &zoomRange);

    KRTileAnswer read(const KRTileKey &key) const;

    /// One for each kind of picture; the first file that is there counts.
    QVector<KRTileTemplate> m_names;
    KRIntRange m_zoomRange;
};
