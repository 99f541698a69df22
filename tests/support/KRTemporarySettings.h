#pragma once

#include <KRCore/KRSettings.h>

#include <QDir>
#include <QTemporaryDir>

/// While it lives all settings are kept in a file of their own, which does not exist at first.
class KRTemporarySettings
{
public:
    KRTemporarySettings() : m_previousFileName(KRSettings::fileName()) { KRSettings::setFileName(fileName()); }
    ~KRTemporarySettings() { KRSettings::setFileName(m_previousFileName); }

    QString fileName() const { return m_dir.filePath(QStringLiteral("settings.ini")); }
    QDir dir() const { return QDir(m_dir.path()); }

private:
    Q_DISABLE_COPY(KRTemporarySettings)

    QTemporaryDir m_dir;
    QString m_previousFileName;
};
