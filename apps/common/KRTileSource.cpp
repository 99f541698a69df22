#include "KRTileSource.h"

#include "KRTileFolderSource.h"
#include "KRTileMbtilesSource.h"
#include "KRTileUrlSource.h"

#include <QFileInfo>
#include <QUrl>

namespace {

QString nameOf(const QString &text)
{
    const QString trimmed = text.trimmed();
    return trimmed.startsWith(QLatin1String("file:")) ? QUrl(trimmed).toLocalFile() : trimmed;
}

bool isAddress(const QString &name)
{
    return name.contains(QLatin1String("://"));
}

} // namespace

std::unique_ptr<KRTileSource> KRTileSource::open(const QString &text, KRErrorHistory *history)
{
    const QString name = nameOf(text);
    if (isAddress(name))
        return KRTileUrlSource::open(name, history);
    return isFolderOrTemplate(name) ? KRTileFolderSource::open(name, history)
                                    : KRTileMbtilesSource::open(name, history);
}

QString KRTileSource::localName(const QString &text)
{
    const QString name = nameOf(text);
    return isAddress(name) ? QString() : name;
}

bool KRTileSource::isFolderOrTemplate(const QString &name)
{
    return QFileInfo(name).isDir() || (KRTileTemplate::isTemplate(name) && !QFileInfo::exists(name));
}

void KRTileSource::cancel(const KRTileKey & /*key*/) { }

void KRTileSource::forget(const KRTileKey & /*key*/, const KRTileAnswer & /*answer*/) { }
