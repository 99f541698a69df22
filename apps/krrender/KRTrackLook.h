#pragma once

#include <KRGeoLocation/KRGPXTrackConfiguration.h>

#include <QCoreApplication>
#include <QString>

#include <functional>
#include <vector>

/**
 * How the user wants the tracks of one call to look: changes to be made to each track's own configuration.
 *
 * Every set function reads the text of a command line option and returns what is wrong with it, an empty text
 * when nothing is.
 */
class KRTrackLook
{
    Q_DECLARE_TR_FUNCTIONS(KRTrackLook)

public:
    QString setLineColor(const QString &text);
    QString setLineWidth(const QString &text);
    QString setFillColor(const QString &text);
    QString setHaloWidth(const QString &text);
    QString setMarkerShape(const QString &text);
    QString setTrackShape(const QString &text);
    QString setDisplayOptions(const QString &text);
    QString setPenStyle(const QString &text);
    QString setSmoothing(const QString &text);

    KRGPXTrackConfiguration appliedTo(const KRGPXTrackConfiguration &configuration) const;

private:
    using Change = std::function<void(KRGPXTrackConfiguration &)>;

    QString addColor(const QString &text, bool (KRGPXTrackConfiguration::*set)(const QColor &));
    QString addWidth(const QString &text, bool (KRGPXTrackConfiguration::*set)(const KRDistance &));

    std::vector<Change> m_changes;
};
