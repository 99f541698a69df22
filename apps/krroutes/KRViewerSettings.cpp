#include "KRViewerSettings.h"

#include <QCryptographicHash>
#include <QFileInfo>

namespace {

QByteArray checksum(const QByteArray &geometry, const QByteArray &state)
{
    return QCryptographicHash::hash(geometry + state, QCryptographicHash::Sha256).toHex();
}

} // namespace

KRViewerSettings::KRViewerSettings()
    : m_windowGeometry(QStringLiteral("viewer/windowGeometry"), QByteArray()),
      m_windowState(QStringLiteral("viewer/windowState"), QByteArray()),
      m_windowChecksum(QStringLiteral("viewer/windowChecksum"), QByteArray()),
      m_recentFiles(QStringLiteral("viewer/recentFiles"), QStringList()),
      m_lastFolder(QStringLiteral("viewer/lastFolder"), QString()),
      m_showsLabels(QStringLiteral("viewer/showsLabels"), false),
      m_showsLegend(QStringLiteral("viewer/showsLegend"), false)
{
    load(m_windowGeometry);
    load(m_windowState);
    load(m_windowChecksum);
    if (m_windowChecksum.value() != checksum(windowGeometry(), windowState())) {
        m_windowGeometry.setValue(QByteArray());
        m_windowState.setValue(QByteArray());
    }
    load(m_recentFiles);
    load(m_lastFolder);
    load(m_showsLabels);
    load(m_showsLegend);
}

void KRViewerSettings::setWindow(const QByteArray &geometry, const QByteArray &state)
{
    m_windowGeometry.setValue(geometry);
    m_windowState.setValue(state);
    m_windowChecksum.setValue(checksum(geometry, state));
    save(m_windowGeometry);
    save(m_windowState);
    save(m_windowChecksum);
}

void KRViewerSettings::addRecentFile(const QString &fileName)
{
    const QString path = QFileInfo(fileName).absoluteFilePath();
    QStringList files = recentFiles();
    files.removeAll(path);
    files.prepend(path);
    m_recentFiles.setValue(files.mid(0, maximumRecentFiles));
    save(m_recentFiles);
}

void KRViewerSettings::clearRecentFiles()
{
    m_recentFiles.setValue(QStringList());
    save(m_recentFiles);
}

void KRViewerSettings::setLastFolder(const QString &folder)
{
    if (m_lastFolder.setValue(folder))
        save(m_lastFolder);
}

void KRViewerSettings::setNames(bool showsLabels, bool showsLegend)
{
    m_showsLabels.setValue(showsLabels);
    m_showsLegend.setValue(showsLegend);
    save(m_showsLabels);
    save(m_showsLegend);
}
