#pragma once

#include <QCoreApplication>
#include <QList>
#include <QMap>
#include <QString>

/**
 * What of one file could not be drawn: how much of each kind, and where it stands in the file.
 *
 * Counts are exact. Places and names are kept for the first maximumItems only, so that a file made of nothing else
 * costs no memory.
 */
class KRImportReport
{
    Q_DECLARE_TR_FUNCTIONS(KRImportReport)

public:
    /// In the order in which summary() names them.
    enum Kind : int {
        TrackWithoutPosition = 0,
        RouteWithoutPosition = 1,
        WayPointWithoutPosition = 2,
        PlacemarkWithoutGeometry = 3,
        PlacemarkWithoutPosition = 4,
        GeometryWithoutPosition = 5, ///< of a placemark that has others
        UnreadablePosition = 6, ///< left out of a geometry that is drawn
        Model = 7,
        GroundOverlay = 8,
        ScreenOverlay = 9,
        PhotoOverlay = 10,
        Tour = 11,
        NetworkLink = 12,
        OtherDocument = 13, ///< one more KML document in an archive
    };

    struct Item {
        Kind kind = TrackWithoutPosition;
        int line = 0; ///< counted from 1, of the first one; 0 where it is not known
        QString name; ///< as the file has it; may be empty
        int count = 1;
    };

    static constexpr int maximumItems = 1000;

    explicit KRImportReport(const QString &fileName = QString()) : m_fileName(fileName) { }

    /// A name for programs, such as "networkLink".
    static QString key(Kind kind);
    /// As it was given, with its path.
    QString fileName() const { return m_fileName; }
    bool isEmpty() const { return m_counts.isEmpty(); }
    int count(Kind kind) const { return m_counts.value(kind); }
    /// The kinds met, in their order.
    QList<Kind> kinds() const { return m_counts.keys(); }
    /// In the order of the file.
    const QList<Item> &items() const { return m_items; }

    /// @p count of them in one place make one item.
    void add(Kind kind, int line, const QString &name = QString(), int count = 1);
    /// Takes over what @p other has, but for its file name.
    KRImportReport &operator+=(const KRImportReport &other);

    /// One sentence for users, such as "3 ground overlays, 1 network link not drawn"; empty when there is nothing.
    QString summary() const;
    /// For users, in their language: the kind and, where there is one, the name, such as "1 network link "Weather"".
    static QString describe(const Item &item);

private:
    static QString describe(Kind kind, int count);

    QString m_fileName;
    QMap<Kind, int> m_counts;
    QList<Item> m_items;
};
