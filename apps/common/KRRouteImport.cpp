#include "KRRouteImport.h"

#include "KRRouteDocument.h"

#include <KRCore/KRFileHandler.h>
#include <KRGeoLocation/KRGPXTrackFile.h>
#include <KRGeoLocation/KRTrackSelectionFactory.h>

#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <limits>

void KRRouteImport::read(const QStringList &fileNames)
{
    for (int i = 0; i < fileNames.size(); ++i) {
        if (m_progress)
            m_progress(fileNames.at(i), i + 1, fileNames.size());
        readFile(fileNames.at(i));
    }
}

void KRRouteImport::readFile(const QString &fileName)
{
    if (KRRouteDocument::isDocument(QFileInfo(fileName))) {
        readDocument(fileName);
        return;
    }
    const KRTrackSelectionFactory *const factory = KRTrackSelectionFactory::instance();
    const QUrl url = QUrl::fromLocalFile(QFileInfo(fileName).absoluteFilePath());
    if (factory->supportsFile(url)) {
        const KRGPXConfiguredTrackList tracks = factory->createConfiguredTrackList(url);
        if (tracks.isValid()) {
            m_tracks += tracks;
            return;
        }
    }
    explain(fileName);
}

void KRRouteImport::readDocument(const QString &fileName)
{
    KRRouteDocument document;
    if (!document.load(QFileInfo(fileName), &m_problems))
        return;
    m_tracks += document.selection().tracks();
    m_croppingOpacity = document.selection().nominalCroppingOpacity();
}

void KRRouteImport::explain(const QString &fileName)
{
    QFile file(fileName);
    if (!KRFileHandler::openForReading(file, &m_problems, std::numeric_limits<qint64>::max()))
        return;
    file.close();

    const KRTrackSelectionFactory *const factory = KRTrackSelectionFactory::instance();
    if (!factory->supportsFile(QUrl::fromLocalFile(fileName))) {
        const QStringList formats =
            factory->supportedFileFormats() + QStringList(QStringLiteral("*.") + KRRouteDocument::suffix());
        addProblem(
            fileName,
            tr("Dieses Dateiformat wird nicht unterstützt (lesbar sind %1).").arg(formats.join(QStringLiteral(", "))));
        return;
    }
    // The importers tell nothing: read once more what failed, for its reason.
    const int known = m_problems.entries().size();
    const KRGPXTrackFile reading(QFileInfo(fileName), &m_problems);
    if (m_problems.entries().size() == known)
        addProblem(fileName, tr("Die Datei enthält keine Strecke."));
}

void KRRouteImport::addProblem(const QString &fileName, const QString &reason)
{
    KRErrorHistory::Entry problem;
    problem.fileName = fileName;
    problem.reason = reason;
    KRErrorHistory::report(&m_problems, problem);
}
