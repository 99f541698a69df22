#pragma once

#include <KRGeoLocation/KRGPXTrackSelection.h>

#include <QCoreApplication>
#include <QDir>
#include <QString>
#include <QStringList>

#include <functional>

class KRErrorHistory;
class KRTrackFileWriter;
class QDomDocument;
class QDomElement;
class QFileInfo;

/**
 * A route document: tracks with their looks and the cropping opacity, in one XML file and a folder beside it.
 *
 * The folder holds one file per track, which is never written again: a changed track gets a new file, and so does one
 * whose file is gone or not the same any more. As these are there before the document that names them, it may end at
 * any moment, and several programs may save to one folder: what can be read is one document or the other, whole.
 *
 * Whatever the XML of the library leaves out is kept as well, so that times and descriptions survive any number of
 * saves. A track file that cannot be read leaves an empty track with the name of the file in its place: saving keeps
 * the reference, to whatever folder, and does not touch the file. May be used in any thread, by one at a time.
 */
class KRRouteDocument
{
    Q_DECLARE_TR_FUNCTIONS(KRRouteDocument)

public:
    /// Asked before each track, in the thread that loads or saves; false ends it, which is not reported.
    using GoOn = std::function<bool()>;

    /// Without the dot.
    static QString suffix() { return QStringLiteral("krroute"); }
    /// Goes by the suffix alone, in any case.
    static bool isDocument(const QFileInfo &file);

    /// Where a document that is saved to @p file has its track files.
    static QDir trackFolder(const QFileInfo &file);
    /// What is read with the document that is there: the folder that it names, and its track files, wherever they are.
    static QStringList partsOf(const QFileInfo &file);

    const KRGPXTrackSelection &selection() const { return m_selection; }
    void setSelection(const KRGPXTrackSelection &selection) { m_selection = selection; }

    /// By default loading and saving go on to their end.
    void setGoOnFunction(const GoOn &goOn) { m_goOn = goOn; }

    /// False when the file is no document, or @p file was not read to its end; the selection is as it was then. Track
    /// files that cannot be read, and tracks for which there is no place, are reported as well, but are no failure.
    bool load(const QFileInfo &file, KRErrorHistory *history);

    /// False when the document or one of its track files cannot be written, could not be read again (with more than
    /// some 22,000 tracks), is not wanted any more, or would replace what is no file, such as a pipe; the old document
    /// is whole then, and there is nothing new beside it.
    bool save(const QFileInfo &file, KRErrorHistory *history) const;
    /// The same without a folder: quick for many small tracks, of which fewer are too many, but all points are written
    /// each time. False also when a track has lost its file, which only a document with a folder can name.
    bool saveInOneFile(const QFileInfo &file, KRErrorHistory *history) const;
    /// Whether the last save failed since there are too many tracks and points, which no other place for it changes.
    bool isTooLarge() const { return m_isTooLarge; }

private:
    /// What can be told before anything is built.
    bool mayBeSaved(const QFileInfo &file, KRErrorHistory *history) const;
    /// Tracks that get files in @p folder are left empty; it is QDir("") where they do not.
    QDomDocument build(const QDir &folder) const;
    /// Has the files of the document that is about to be replaced known, so that equal tracks are not written again.
    void learnFilesOf(const QFileInfo &file, const KRTrackFileWriter &writer) const;
    /// Those that are not read, as a document has one of each.
    static void reportFurtherElements(const QFileInfo &file, const QDomElement &root, KRErrorHistory *history);
    /// Unless the document goes beyond what is read.
    static bool write(const QByteArray &xml, const QFileInfo &file, KRErrorHistory *history);
    static QString tooOften();
    void reportTooManyNodes(const QFileInfo &file, KRErrorHistory *history) const;
    static void reportUnreadable(const QFileInfo &file, const QString &reason, KRErrorHistory *history);

    bool goesOn() const { return !m_goOn || m_goOn(); }

    KRGPXTrackSelection m_selection;
    GoOn m_goOn;
    mutable bool m_isTooLarge = false;
};
