#pragma once

#include <KRCore/KRConfigItem.h>
#include <KRCore/KRSettings.h>

#include <QByteArray>
#include <QSize>

/**
 * What the user last chose for an exported map. Made where it is needed; save() writes at once. GUI thread only.
 */
class KRExportSettings : private KRSettings
{
public:
    KRExportSettings();

    /// One of KRPictureFile or of KRExchangeFile.
    QByteArray format() const { return m_format.value(); }
    QSize size() const { return m_size.value(); }
    double factor() const { return m_factor.value(); }
    bool showsAllTracks() const { return m_showsAllTracks.value(); }
    bool hasGround() const { return m_hasGround.value(); }

    void setFormat(const QByteArray &format) { m_format.setValue(format); }
    void setSize(const QSize &size) { m_size.setValue(size); }
    void setFactor(double factor) { m_factor.setValue(factor); }
    void setShowsAllTracks(bool showsAllTracks) { m_showsAllTracks.setValue(showsAllTracks); }
    void setGround(bool hasGround) { m_hasGround.setValue(hasGround); }

    void save() const;

private:
    KRConfigItem<QByteArray> m_format;
    KRConfigItem<QSize> m_size;
    KRConfigItem<double> m_factor;
    KRConfigItem<bool> m_showsAllTracks;
    KRConfigItem<bool> m_hasGround;
};
