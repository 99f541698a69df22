#pragma once

#include <KRGeoLocation/KRGPXTrackSelection.h>

#include <QCoreApplication>
#include <QDir>
#include <QString>

class KRErrorHistory;
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
 * the reference and does not touch the file. Belongs to the GUI thread; only saving may run in another one, on an
 * object of its own.
 */
class KRRouteDocument
{
    Q_DECLARE_TR_FUNCTIONS(KRRouteDocument)

public:
    /// Without the dot.
    static QString suffix() { return QStringLiteral("krroute"); }
    /// Goes by the suffix alone, in any case.
    static bool isDocument(const QFileInfo &file);

    /// Where a document that is saved to @p file has its track files.
    static QDir trackFolder(const QFileInfo &file);

    const KRGPXTrackSelection &selection() const { return m_selection; }
    void setSelection(const KRGPXTrackSelection &selection) { m_selection = selection; }

    /// False when the file is no document. Track files that cannot be read are reported as well, but are no failure.
    bool load(const QFileInfo &file, KRErrorHistory *history);

    /// False when the document or one of its track files cannot be written, or when the document has grown beyond what
    /// could be read again (some 28,000 tracks); the old document is whole then.
    bool save(const QFileInfo &file, KRErrorHistory *history) const;
    /// The same without a folder: quick for many small tracks, but all points are written each time.
    bool saveInOneFile(const QFileInfo &file, KRErrorHistory *history) const;

private:
    KRGPXConfiguredTrack restoredTrack(const KRGPXConfiguredTrack &track, const QDomElement &configuredTrack,
                                       const QDomElement &kept, const QDir &folder, KRErrorHistory *history) const;
    /// @p folder is QDir("") for no folder.
    bool writeDocument(const QFileInfo &file, const QDir &folder, KRErrorHistory *history) const;
    bool writeTrackFiles(const QDir &folder, KRErrorHistory *history) const;
    /// Whether the document stays within the limits of what is read; reports when it does not.
    static bool isReadable(const QDomDocument &document, const QFileInfo &file, KRErrorHistory *history);

    KRGPXTrackSelection m_selection;
};
