#pragma once

#include "KRBaseMapPlace.h"
#include "KRTrackLook.h"

#include <KRGeoLocation/KRGPXTrackRenderer.h>
#include <KRGeoLocation/KRGeoPositionRect.h>

#include <QCoreApplication>
#include <QSize>
#include <QStringList>

#include <optional>

class QCommandLineParser;

/**
 * What the user asks krrender for, read from the command line.
 */
class KRRenderOptions
{
    Q_DECLARE_TR_FUNCTIONS(KRRenderOptions)

public:
    enum class Task {
        Draw,
        PrintTable,
        PrintJson,
        PrintPlaces,
        PrintHelp,
        PrintVersion,
        Complain, ///< problem() says about what
    };

    /// What the tracks are drawn onto.
    enum class Ground {
        BaseMap,
        Picture,
        Tiles,
        None,
    };

    /// A flight line between two places.
    struct Beeline {
        KRBaseMapPlace from;
        KRBaseMapPlace to;
    };

    /// @param arguments the program's name first
    explicit KRRenderOptions(const QStringList &arguments);

    Task task() const { return m_task; }
    QString problem() const { return m_problem; }
    QString helpText() const { return m_helpText; }

    QStringList inputs() const { return m_inputs; }
    /// Whether files go to the importers as they are.
    bool isPlain() const { return m_isPlain; }
    bool splitsSegments() const { return m_splitsSegments; }
    /// Whether it is a failure when something in a file cannot be drawn.
    bool isStrict() const { return m_isStrict; }
    /// Whether what takes very long is drawn all the same.
    bool isPatient() const { return m_isPatient; }
    QList<Beeline> beelines() const { return m_beelines; }
    /// Path of the route document to write, empty for none.
    QString document() const { return m_document; }
    /// Path of the picture or of the exchange file, "-" for the standard output, empty for none.
    QString output() const { return m_output; }
    /// One of KRPictureFile or of KRExchangeFile.
    QByteArray format() const { return m_format; }
    bool writesToStandardOutput() const { return m_output == QLatin1String("-"); }

    /// Size of the picture in its own pixels; not set where the picture of --map decides.
    std::optional<QSize> size() const { return m_size; }
    double scale() const { return m_scale; }
    /// Not valid when the tracks decide.
    KRGeoPositionRect area() const { return m_area; }
    KRTrackLook look() const { return m_look; }
    bool usesPalette() const { return m_usesPalette; }
    TrackRenderOption renderOption() const { return m_renderOption; }
    std::optional<int> croppingOpacity() const { return m_croppingOpacity; }
    Ground ground() const { return m_ground; }
    QString mapFile() const { return m_mapFile; }
    /// As KRTileSource::open() takes it.
    QString tiles() const { return m_tiles; }
    /// Empty where the tiles' own is good enough.
    QString tilesCredit() const { return m_tilesCredit; }
    bool hasScaleBar() const { return m_hasScaleBar; }
    bool hasAttribution() const { return m_hasAttribution; }
    bool hasLegend() const { return m_hasLegend; }
    bool hasLabels() const { return m_hasLabels; }
    bool isQuiet() const { return m_isQuiet; }
    bool isVerbose() const { return m_isVerbose; }

private:
    static void declare(QCommandLineParser &parser);
    void readTask(const QCommandLineParser &parser);
    /// What is no text, empty where a value belongs, or repeated where only one of them would count.
    void refuseValues(const QCommandLineParser &parser, const QStringList &arguments);
    void readBeelines(const QStringList &texts);
    void readArea(const QCommandLineParser &parser);
    void readGround(const QCommandLineParser &parser);
    void readOutput(const QCommandLineParser &parser);
    void readFormat(const QCommandLineParser &parser);
    void protectInputs();
    void readPicture(const QCommandLineParser &parser);
    void readLook(const QCommandLineParser &parser);
    void complain(const QString &problem);

    Task m_task = Task::Draw;
    QString m_problem;
    QString m_helpText;
    QStringList m_inputs;
    bool m_isPlain = false;
    bool m_splitsSegments = false;
    bool m_isStrict = false;
    bool m_isPatient = false;
    QList<Beeline> m_beelines;
    QString m_document;
    QString m_output;
    QByteArray m_format;
    std::optional<QSize> m_size;
    double m_scale = 1.0;
    KRGeoPositionRect m_area;
    KRTrackLook m_look;
    bool m_usesPalette = false;
    TrackRenderOption m_renderOption = StyledRender;
    std::optional<int> m_croppingOpacity;
    Ground m_ground = Ground::BaseMap;
    QString m_mapFile;
    QString m_tiles;
    QString m_tilesCredit;
    bool m_hasScaleBar = true;
    bool m_hasAttribution = true;
    bool m_hasLegend = false;
    bool m_hasLabels = false;
    bool m_isQuiet = false;
    bool m_isVerbose = false;
};
