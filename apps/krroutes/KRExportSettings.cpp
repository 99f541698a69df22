#include "KRExportSettings.h"

KRExportSettings::KRExportSettings()
    : m_format(QStringLiteral("export/format"), QByteArrayLiteral("png")),
      m_size(QStringLiteral("export/size"), QSize(1600, 1200)), m_factor(QStringLiteral("export/factor"), 1.0),
      m_showsAllTracks(QStringLiteral("export/allTracks"), false), m_hasGround(QStringLiteral("export/ground"), true),
      m_hasLegend(QStringLiteral("export/legend"), false), m_hasLabels(QStringLiteral("export/labels"), false)
{
    load(m_format);
    load(m_size);
    load(m_factor);
    load(m_showsAllTracks);
    load(m_hasGround);
    load(m_hasLegend);
    load(m_hasLabels);
}

void KRExportSettings::save() const
{
    KRSettings::save(m_format);
    KRSettings::save(m_size);
    KRSettings::save(m_factor);
    KRSettings::save(m_showsAllTracks);
    KRSettings::save(m_hasGround);
    KRSettings::save(m_hasLegend);
    KRSettings::save(m_hasLabels);
}
