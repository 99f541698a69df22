#pragma once

#include <QString>

/**
 * Tells which of the files that a run reads are destroyed by writing to a path, through the links on its way.
 */
class KRInputGuard
{
public:
    /// Whether @p output is the file @p input or, of a document, one of the files that it names or that lie in its
    /// folder.
    static bool isReadFrom(const QString &output, const QString &input);
    /// The same without the document itself.
    static bool isTrackFileOf(const QString &output, const QString &document);
    /// Whether @p output is the source, a file beside it with data of the same MBTiles, or has the place and the name
    /// that a tile of its folder or template may have. A file elsewhere that a tile is a link to is not known.
    /// @param tiles as KRTileSource::open() takes it
    static bool isTileOf(const QString &output, const QString &tiles);
    /// Whether @p output is the document or a file in the folder of track files that it will have.
    static bool isPartOfNew(const QString &output, const QString &document);

private:
    static QString resolved(const QString &path, int mostSteps = 100);
};
