#include "KRTileFolderSource.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRFileHandler.h>
#include <KRCore/KRInputLimits.h>

#include <QFileInfo>

namespace {

/// The levels that have a folder of their own; empty when there is none.
KRIntRange levelsIn(const QDir &folder)
{
    KRIntRange levels(KRTileKey::largestZoom + 1, -1);
    for (int zoom = 0; zoom <= KRTileKey::largestZoom; ++zoom) {
        if (QFileInfo(folder.filePath(QString::number(zoom))).isDir())
            levels = KRIntRange(qMin(levels.minimum(), zoom), zoom);
    }
    return levels;
}

} // namespace

KRTileFolderSource::KRTileFolderSource(const QVector<KRTileTemplate> &names, const KRIntRange &zoomRange)
    : m_names(names), m_zoomRange(zoomRange)
{ }

std::unique_ptr<KRTileSource> KRTileFolderSource::open(const QString &text, KRErrorHistory *history)
{
    const auto refuse = [&](const QString &reason) {
        KRErrorHistory::report(history, text, reason);
        return nullptr;
    };
    QVector<KRTileTemplate> names;
    const bool isTemplate = KRTileTemplate::isTemplate(text);
    if (isTemplate) {
        names << KRTileTemplate(text);
    } else {
        for (const char *suffix : {"png", "jpg", "jpeg", "webp"})
            names << KRTileTemplate(QStringLiteral("%1/{z}/{x}/{y}.%2").arg(text, QLatin1String(suffix)));
    }
    const QString problem = isTemplate ? names.first().problem() : QString();
    if (!problem.isEmpty())
        return refuse(problem);

    const QDir folder = folderOf(text);
    if (!folder.exists())
        return refuse(tr("Der Ordner „%1“ ist nicht da.").arg(folder.path()));
    if (!folder.isReadable())
        return refuse(tr("Der Ordner „%1“ ist nicht lesbar.").arg(folder.path()));
    const KRIntRange levels = levelsIn(folder);
    if (levels.maximum() >= 0)
        return std::unique_ptr<KRTileSource>(new KRTileFolderSource(names, levels));
    if (!isTemplate)
        return refuse(tr("Der Ordner enthält keine Kacheln der Form Stufe/Spalte/Zeile."));
    return std::unique_ptr<KRTileSource>(new KRTileFolderSource(names, KRIntRange(0, KRTileKey::largestZoom)));
}

QDir KRTileFolderSource::folderOf(const QString &text)
{
    if (!KRTileTemplate::isTemplate(text))
        return QDir(text);
    const QString fixedPart = text.left(text.indexOf(QLatin1Char('{')));
    return QDir(QFileInfo(fixedPart + QLatin1Char('x')).path());
}

void KRTileFolderSource::request(const KRTileKey &key)
{
    emit answered(key, read(key));
}

KRTileAnswer KRTileFolderSource::read(const KRTileKey &key) const
{
    for (const KRTileTemplate &name : m_names) {
        const QFileInfo file(name.expanded(key));
        if (!file.exists() && !file.isSymLink())
            continue;
        KRErrorHistory history;
        const QByteArray bytes = KRFileHandler::readAll(file, &history, KRInputLimits::tileBytes);
        if (!history.isEmpty())
            return {KRTileAnswer::Failed, QByteArray(), history.entries().first().toString()};
        return {KRTileAnswer::Found, bytes, QString()};
    }
    return {};
}
