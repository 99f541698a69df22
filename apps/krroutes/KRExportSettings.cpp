#include "KRExportSettings.h"

KRExportSettings::KRExportSettings()
    : m_format(QStringLiteral("export/format"), QByteArrayLiteral("png")),
      m_size(QStringLiteral("export/size"), QSize(1600, 1200)), m_factor(QStringLiteral("export/factor"), 1.0),
      m_showsAllTracks(QStringLiteral("export/allTracks"), false), m_hasGround(QStringLiteral("export/ground"), true)
{
    load(m_format);
    load(m_size);
    load(m_factor);
    load(m_showsAllTracks);
    load(m_hasGround);
}

void KRExportSettings::save() const
{
    KRSettings::save(m_format);
    KRSettings::save(m_size);
    KRSettings::save(m_factor);
    KRSettings::save(m_showsAllTracks);
    KRSettings::save(m_hasGround);
}
