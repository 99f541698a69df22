#include "KRInputGuard.h"

#include "KRRouteDocument.h"
#include "KRTileFolderSource.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace {

/// How the tiles of a folder or template are named below KRTileFolderSource::folderOf().
QString formBelowRoot(const QString &name)
{
    if (!KRTileTemplate::isTemplate(name))
        return QStringLiteral("{z}/{x}/{y}"); // with any suffix
    const int rootEnd = name.lastIndexOf(QLatin1Char('/'), name.indexOf(QLatin1Char('{')));
    return QDir::cleanPath(name.mid(rootEnd + 1));
}

/// Any text may stand for a number: it may be the name of a link.
QRegularExpression expressionOf(const QString &form)
{
    static const QRegularExpression escapedPlace(QStringLiteral(R"(\\\{(\\-)?[sxyz]\\\})"));
    const QString pattern = QRegularExpression::escape(form).replace(escapedPlace, QStringLiteral("[^/]+"));
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern));
}

} // namespace

bool KRInputGuard::isReadFrom(const QString &output, const QString &input)
{
    if (output.isEmpty() || input.isEmpty())
        return false;
    return resolved(output) == resolved(input) || isTrackFileOf(output, input);
}

bool KRInputGuard::isTrackFileOf(const QString &output, const QString &document)
{
    // What is not there yet cannot be destroyed, and need not have the document read.
    if (!KRRouteDocument::isDocument(QFileInfo(document)) || !QFileInfo::exists(output))
        return false;
    const QString target = resolved(output);
    const QString folder = QFileInfo(target).path();
    const QStringList parts = KRRouteDocument::partsOf(QFileInfo(document));
    return std::any_of(parts.cbegin(), parts.cend(), [&](const QString &part) {
        const QString path = resolved(part);
        return path == target || path == folder;
    });
}

bool KRInputGuard::isTileOf(const QString &output, const QString &tiles)
{
    const QString name = KRTileSource::localName(tiles);
    if (output.isEmpty() || name.isEmpty())
        return false;
    const QString target = resolved(output);
    if (!KRTileSource::isFolderOrTemplate(name)) {
        // Beside an MBTiles file, behind all links to it, others may hold what is not in it yet.
        const auto isTarget = [&](const char *suffix) {
            return resolved(resolved(name) + QLatin1String(suffix)) == target;
        };
        return isTarget("") || isTarget("-wal") || isTarget("-journal") || isTarget("-shm");
    }
    const QString root = resolved(KRTileFolderSource::folderOf(name).path());
    const QString form = formBelowRoot(name);
    const QRegularExpression tile = expressionOf(form);
    const int parts = form.count(QLatin1Char('/')) + 1;
    // A link may lead into the folder, and another, within it, out of it.
    for (const QString &path : {QFileInfo(output).absoluteFilePath(), target}) {
        const QString folder = path.section(QLatin1Char('/'), 0, -parts - 1) + QLatin1Char('/');
        if (tile.match(path.section(QLatin1Char('/'), -parts)).hasMatch() && resolved(folder) == root)
            return true;
    }
    return false;
}

bool KRInputGuard::isPartOfNew(const QString &output, const QString &document)
{
    const QString target = resolved(output);
    return target == resolved(document)
           || QFileInfo(target).path() == resolved(KRRouteDocument::trackFolder(QFileInfo(document)).path());
}

/// Where the path leads through all links, also to a file or folder that is not there yet.
QString KRInputGuard::resolved(const QString &path, int mostSteps)
{
    // Never cleaned as a text: ".." behind a link leads above the folder that the link leads to.
    const QFileInfo file(path);
    if (mostSteps == 0 || file.exists())
        return file.canonicalFilePath();
    if (file.isSymLink())
        return resolved(file.symLinkTarget(), mostSteps - 1);
    return QDir(resolved(file.path(), mostSteps - 1)).filePath(file.fileName());
}
