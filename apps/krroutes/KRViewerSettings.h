#pragma once

#include <KRCore/KRConfigItem.h>
#include <KRCore/KRSettings.h>

#include <QByteArray>
#include <QStringList>

/**
 * What the viewer remembers between two runs.
 *
 * An object holds what is stored at the moment when it is made: make one where it is needed, since other running
 * viewers write too. Setters save at once. GUI thread only.
 */
class KRViewerSettings : private KRSettings
{
public:
    static constexpr int maximumRecentFiles = 10;

    KRViewerSettings();

    /// Both are empty where they are not what setWindow() has stored: Qt trusts them, and may crash over damaged ones.
    QByteArray windowGeometry() const { return m_windowGeometry.value(); }
    /// Docks and tool bars.
    QByteArray windowState() const { return m_windowState.value(); }
    void setWindow(const QByteArray &geometry, const QByteArray &state);

    /// Absolute paths, the last one used first.
    QStringList recentFiles() const { return m_recentFiles.value().mid(0, maximumRecentFiles); }
    void addRecentFile(const QString &fileName);
    void clearRecentFiles();

    /// Where the user has last chosen a file; empty at first.
    QString lastFolder() const { return m_lastFolder.value(); }
    void setLastFolder(const QString &folder);

    /// Of the tracks, on the map.
    bool showsLabels() const { return m_showsLabels.value(); }
    bool showsLegend() const { return m_showsLegend.value(); }
    void setNames(bool showsLabels, bool showsLegend);

private:
    KRConfigItem<QByteArray> m_windowGeometry;
    KRConfigItem<QByteArray> m_windowState;
    KRConfigItem<QByteArray> m_windowChecksum;
    KRConfigItem<QStringList> m_recentFiles;
    KRConfigItem<QString> m_lastFolder;
    KRConfigItem<bool> m_showsLabels;
    KRConfigItem<bool> m_showsLegend;
};
