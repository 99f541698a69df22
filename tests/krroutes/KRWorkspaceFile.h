#pragma once

#include "KRRecoveryFolder.h"
#include "KRRouteWorkspace.h"

#include <KRRouteDocument.h>

#include <QFileInfo>

/// Reads and writes the files of a workspace as the program does, without a window.
namespace KRWorkspaceFile {

inline bool save(KRRouteWorkspace *workspace, const QString &fileName)
{
    const KRRouteDocument document = workspace->document();
    const bool isSaved = document.save(QFileInfo(fileName), nullptr);
    if (isSaved)
        workspace->setSaved(document, fileName, QFileInfo(fileName).lastModified());
    return isSaved;
}

inline bool open(KRRouteWorkspace *workspace, const QString &fileName)
{
    KRRouteDocument document;
    const bool isRead = document.load(QFileInfo(fileName), nullptr);
    if (isRead)
        workspace->open(document, fileName, QFileInfo(fileName).lastModified());
    return isRead;
}

inline bool recover(KRRouteWorkspace *workspace, const KRRecoveryFolder &folder)
{
    KRRouteDocument document;
    const bool isRead = document.load(QFileInfo(folder.recoveryFile()), nullptr);
    if (isRead)
        workspace->recover(document, folder.documentFile(), folder.documentTime());
    return isRead;
}

} // namespace KRWorkspaceFile
