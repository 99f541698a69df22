#include "KRTileSource.h"

#include "KRTileFolderSource.h"
#include "KRTileMbtilesSource.h"
#include "KRTileUrlSource.h"

#include <QFileInfo>
#include <QUrl>

std::unique_ptr<KRTileSource> KRTileSource::open(const QString &text, KRErrorHistory *history)
{
    const QString trimmed = text.trimmed();
    const QString name = trimmed.startsWith(QLatin1String("file:")) ? QUrl(trimmed).toLocalFile() : trimmed;
    if (name.contains(QLatin1String("://")))
        return KRTileUrlSource::open(name, history);
    const bool isFolder = QFileInfo(name).isDir();
    if (isFolder || (KRTileTemplate::isTemplate(name) && !QFileInfo::exists(name)))
        return KRTileFolderSource::open(name, history);
    return KRTileMbtilesSource::open(name, history);
}

void KRTileSource::cancel(const KRTileKey & /*key*/) { }

void KRTileSource::forget(const KRTileKey & /*key*/, const KRTileAnswer & /*answer*/) { }
