#include "KRInputGuard.h"

#include "KRRouteDocument.h"
#include "KRTileFolderSource.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

constexpr int partsBelowFolder = 2; // of level/column/row, besides the name itself

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
    if (!KRTileSource::isFolderOrTemplate(name))
        return resolved(output) == resolved(name);
    const bool isTemplate = KRTileTemplate::isTemplate(name);
    const QString fixedPart = isTemplate ? name.left(name.indexOf(QLatin1Char('{'))) : name + QLatin1Char('/');
    const int depth = isTemplate ? name.mid(fixedPart.size()).count(QLatin1Char('/')) : partsBelowFolder;
    const QString beginning = fixedPart.section(QLatin1Char('/'), -1);
    const QString root = resolved(KRTileFolderSource::folderOf(name).path());
    // A link may lead into the folder, and another, within it, out of it.
    for (const QString &path : {QFileInfo(output).absoluteFilePath(), resolved(output)}) {
        for (int parts = depth + 1; parts <= path.count(QLatin1Char('/')); ++parts) {
            const QString folder = path.section(QLatin1Char('/'), 0, -parts - 1) + QLatin1Char('/');
            const QString first = path.section(QLatin1Char('/'), -parts, -parts);
            if (first.startsWith(beginning) && resolved(folder) == root)
                return true;
        }
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
