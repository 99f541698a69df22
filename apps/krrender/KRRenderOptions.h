#pragma once

#include "KRMapComposition.h"
#include "KRTrackLook.h"

#include <QCoreApplication>
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
        PrintHelp,
        PrintVersion,
        Complain, ///< problem() says about what
    };

    /// @param arguments the program's name first
    explicit KRRenderOptions(const QStringList &arguments);

    Task task() const { return m_task; }
    QString problem() const { return m_problem; }
    QString helpText() const { return m_helpText; }

    QStringList inputs() const { return m_inputs; }
    /// Path of the picture, "-" for the standard output.
    QString output() const { return m_output; }
    bool writesToStandardOutput() const { return m_output == QLatin1String("-"); }

    /// Size of the picture in its own pixels; not set where the picture of --map decides.
    std::optional<QSize> size() const { return m_size; }
    double scale() const { return m_scale; }
    /// Not valid when the tracks decide.
    KRGeoPositionRect area() const { return m_area; }
    KRTrackLook look() const { return m_look; }
    TrackRenderOption renderOption() const { return m_renderOption; }
    std::optional<int> croppingOpacity() const { return m_croppingOpacity; }
    KRMapComposition::Ground ground() const { return m_ground; }
    QString mapFile() const { return m_mapFile; }
    bool isQuiet() const { return m_isQuiet; }
    bool isVerbose() const { return m_isVerbose; }

private:
    static void declare(QCommandLineParser &parser);
    void readTask(const QCommandLineParser &parser);
    void readOutput(const QCommandLineParser &parser);
    void readPicture(const QCommandLineParser &parser);
    void readLook(const QCommandLineParser &parser);
    void complain(const QString &problem);

    Task m_task = Task::Draw;
    QString m_problem;
    QString m_helpText;
    QStringList m_inputs;
    QString m_output;
    std::optional<QSize> m_size;
    double m_scale = 1.0;
    KRGeoPositionRect m_area;
    KRTrackLook m_look;
    TrackRenderOption m_renderOption = StyledRender;
    std::optional<int> m_croppingOpacity;
    KRMapComposition::Ground m_ground = KRMapComposition::Ground::BaseMap;
    QString m_mapFile;
    bool m_isQuiet = false;
    bool m_isVerbose = false;
};
