#pragma once

#include <KRBaseMapPlace.h>

#include <QVector>
#include <QWidget>

class KRGeoPosition;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

/**
 * Finds places by their names or coordinates, to be added as points.
 *
 * As the user's settings have it, a click on a place (or the Return key) adds it at once, or a button does.
 */
class KRPlacesPanel : public QWidget
{
    Q_OBJECT

public:
    explicit KRPlacesPanel(QWidget *parent = nullptr);

signals:
    /// This place is to be added.
    void placeChosen(const QString &name, const KRGeoPosition &position);

private:
    void showPlaces(const QString &text);
    void addsInstantly(bool isInstant);
    void chooseCurrent();

    QLineEdit *const m_search;
    QListWidget *const m_list;
    QLabel *const m_nothingFound;
    QPushButton *const m_addButton;
    QVector<KRBaseMapPlace> m_places; ///< as they are listed
};
