#pragma once

#include "KRGUIWidgetsExport.h"

#include <KRCore/KRSingleton.h>

#include <QString>

#include <functional>

/// What the caller wants to do with the file that the user chooses.
enum KRDiskAccessMode : int {
    ReadDiskAccess = 1,
};

/**
 * Asks the user for a file, by a dialog of the platform.
 *
 * A host with a dialog of its own, or a test, hands in a function that answers instead. GUI thread only.
 */
class KRGUIWIDGETS_EXPORT KRRequestDiskAccess : public KRSingleton<KRRequestDiskAccess>
{
public:
    using OpenFileNameFunction = std::function<QString(KRDiskAccessMode mode, const QString &title,
                                                       const QString &directory, const QString &filter)>;

    /**
     * The path of an existing file, or an empty text when the user cancelled.
     * @param filter patterns separated by blanks, such as "*.gpx *.kml"
     */
    QString getOpenFileName(KRDiskAccessMode mode, const QString &title, const QString &directory,
                            const QString &filter) const;

    /// Replaces the dialog; an empty function brings it back.
    void setOpenFileNameFunction(const OpenFileNameFunction &function) { m_openFileName = function; }

private:
    OpenFileNameFunction m_openFileName;
};
