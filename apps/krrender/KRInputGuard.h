#pragma once

#include <QString>

/**
 * Tells which of the files that a run reads are destroyed by writing to a path, through all links.
 */
class KRInputGuard
{
public:
    /// Whether @p output is the file @p input or, of a document, one of the files that it names or that lie in its
    /// folder.
    static bool isReadFrom(const QString &output, const QString &input);
    /// The same without the document itself.
    static bool isTrackFileOf(const QString &output, const QString &document);
    /// Whether @p output is the source, or lies below its folder or the fixed part of its template, as deep as tiles
    /// do or deeper.
    /// @param tiles as KRTileSource::open() takes it
    static bool isTileOf(const QString &output, const QString &tiles);
    /// Whether @p output is the document or a file in the folder of track files that it will have.
    static bool isPartOfNew(const QString &output, const QString &document);

private:
    static QString resolved(const QString &path, int mostSteps = 100);
};
