#pragma once

#include "KRGroundChoice.h"

#include <KRMapGround.h>

#include <QMenu>

#include <memory>

class QActionGroup;

/**
 * Lets the user choose the map under the tracks, and owns it. The choice is kept between two runs.
 */
class KRGroundMenu : public QMenu
{
    Q_OBJECT

public:
    /// With the map of the last run.
    explicit KRGroundMenu(QWidget *parent = nullptr);
    ~KRGroundMenu() override;

    /// Null for no map.
    KRMapGround *ground() const { return m_ground.get(); }
    KRGroundChoice choice() const { return m_choice; }
    /// Why there is no map or not all of it, for users; empty where all goes well.
    QString problem() const { return m_problem; }

public slots:
    void setChoice(const KRGroundChoice &choice);

signals:
    /// The ground before lives until all receivers are done.
    void groundChanged(KRMapGround *ground);
    void problemChanged(const QString &problem);

private:
    void fill();
    void addChoice(const KRGroundChoice &choice, const QString &text);
    void addRecentTiles();
    void askForTiles();
    void show(const KRGroundChoice &choice);
    void checkForProblem();

    QActionGroup *m_choices; ///< one of them is the present one
    KRGroundChoice m_choice;
    std::unique_ptr<KRMapGround> m_ground;
    QString m_problem;
};
