#include "KRMainWindow.h"

#include "KRAutosave.h"
#include "KRDocumentActions.h"
#include "KRGroundMenu.h"
#include "KRMapActions.h"
#include "KRMapView.h"
#include "KROutputActions.h"
#include "KRPlaceActions.h"
#include "KRPreferencesDialog.h"
#include "KRProfileView.h"
#include "KRRecoveryOffer.h"
#include "KRStatusWarning.h"
#include "KRTrackActions.h"
#include "KRTrackListView.h"
#include "KRViewerAction.h"
#include "KRViewerDocks.h"
#include "KRViewerIcons.h"
#include "KRViewerSettings.h"

#include <KRMapGround.h>
#include <KRPlainText.h>

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QToolBar>

#include <algorithm>
#include <cmath>

namespace {

constexpr int messageTimeMs = 5000;
constexpr QSize usualSize(1200, 800);
constexpr QSize roomForFrame(16, 48); // of the window, which Qt does not know before it is shown

QStringList localFiles(const QMimeData *mimeData)
{
    QStringList files;
    const QList<QUrl> urls = mimeData->urls();
    for (const QUrl &url : urls) {
        const QString file = url.toLocalFile();
        if (!file.isEmpty())
            files.append(file);
    }
    return files;
}

} // namespace

KRMainWindow::KRMainWindow(const QDir &recoveryPlace, QWidget *parent)
    : QMainWindow(parent), m_recoveryPlace(recoveryPlace),
      m_autosave(new KRAutosave(&m_workspace, recoveryPlace, this)),
      m_documentActions(new KRDocumentActions(&m_workspace, this)),
      m_trackActions(new KRTrackActions(&m_workspace, this)), m_placeActions(new KRPlaceActions(&m_workspace, this)),
      m_groundMenu(new KRGroundMenu(this)), m_map(new KRMapView), m_mapActions(new KRMapActions(m_map, this)),
      m_outputActions(new KROutputActions(&m_workspace, m_map, m_groundMenu, m_mapActions, this)),
      m_docks(new KRViewerDocks(&m_workspace, this)), m_toolBar(addToolBar(tr("Werkzeugleiste"))),
      m_trackMenu(new QMenu(tr("&Route"), this)), m_groundWarning(new KRStatusWarning),
      m_autosaveWarning(new KRStatusWarning), m_positionLabel(new QLabel(this))
{
    setAcceptDrops(true);
    setCentralWidget(m_map);
    m_map->setGround(m_groundMenu->ground());
    m_toolBar->setObjectName(QStringLiteral("toolBar"));
    statusBar()->addPermanentWidget(m_groundWarning);
    statusBar()->addPermanentWidget(m_autosaveWarning);
    statusBar()->addPermanentWidget(m_positionLabel);
    createMenus();
    connectWorkspace();
    connectMap();
    connectTrackList();
    connectWarnings();
    updateTitle();
    restoreWindow();
    m_map->setFocus(); // so that its keys work from the start
}

KRMainWindow::~KRMainWindow()
{
    // Before the tracks and the ground that they show.
    qDeleteAll(findChildren<QDockWidget *>(QString(), Qt::FindDirectChildrenOnly));
    delete m_map;
}

KRTrackListView *KRMainWindow::trackList() const
{
    return m_docks->trackList();
}

void KRMainWindow::openFiles(const QStringList &fileNames)
{
    m_documentActions->openFiles(fileNames);
}

void KRMainWindow::offerRecovery()
{
    std::unique_ptr<KRRecoveryFolder> folder = KRRecoveryOffer::ask(m_recoveryPlace, this);
    if (folder && m_documentActions->recover(*folder))
        m_autosave->adopt(std::move(folder));
}

void KRMainWindow::closeEvent(QCloseEvent *event)
{
    if (!m_documentActions->mayLoseChanges()) {
        event->ignore();
        return;
    }
    KRViewerSettings().setWindow(saveGeometry(), saveState());
    event->accept();
}

void KRMainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (localFiles(event->mimeData()).isEmpty())
        return;
    // Never a move, after which the other program would delete the files.
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void KRMainWindow::dropEvent(QDropEvent *event)
{
    event->setDropAction(Qt::CopyAction);
    event->accept();
    // Later, since the program that the files come from waits until this returns.
    QMetaObject::invokeMethod(
        this, [this, files = localFiles(event->mimeData())] { openFiles(files); }, Qt::QueuedConnection);
}

void KRMainWindow::createMenus()
{
    createFileMenu();
    createEditMenu();
    createTrackMenu();
    createViewMenu();
    createHelpMenu();
}

void KRMainWindow::createFileMenu()
{
    QMenu *const menu = menuBar()->addMenu(tr("&Datei"));
    m_documentActions->addTo(menu);
    menu->addSeparator();
    m_outputActions->addTo(menu);
    menu->addSeparator();
    QAction *const quit =
        KRViewerAction::make(this, QStringLiteral("ico_quit"), tr("&Beenden"), QKeySequence(Qt::CTRL | Qt::Key_Q));
    connect(quit, &QAction::triggered, this, &QWidget::close);
    menu->addAction(quit);
    m_documentActions->addTo(m_toolBar);
    m_outputActions->addTo(m_toolBar);
    m_toolBar->addSeparator();
}

void KRMainWindow::createEditMenu()
{
    QMenu *const menu = menuBar()->addMenu(tr("&Bearbeiten"));
    QAction *const undo = m_workspace.undoStack()->createUndoAction(this);
    KRViewerIcons::setIcon(undo, QStringLiteral("ico_undo"));
    undo->setShortcut(QKeySequence::Undo);
    QAction *const redo = m_workspace.undoStack()->createRedoAction(this);
    KRViewerIcons::setIcon(redo, QStringLiteral("ico_redo"));
    redo->setShortcuts({QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
    for (QAction *const step : {undo, redo})
        KRViewerAction::keepToolTipPlain(step);
    QAction *const preferences = KRViewerAction::make(this, QStringLiteral("ico_preferences"), tr("&Einstellungen …"),
                                                      QKeySequence::Preferences);
    connect(preferences, &QAction::triggered, this, [this] { KRPreferencesDialog(this).exec(); });

    menu->addActions({undo, redo});
    menu->addSeparator();
    m_placeActions->addTo(menu);
    menu->addSeparator();
    menu->addAction(preferences);
    m_toolBar->addActions({undo, redo});
    m_toolBar->addSeparator();
}

void KRMainWindow::createTrackMenu()
{
    m_trackActions->addTo(m_trackMenu);
    menuBar()->addMenu(m_trackMenu);
}

void KRMainWindow::createViewMenu()
{
    QMenu *const menu = menuBar()->addMenu(tr("&Ansicht"));
    m_mapActions->addTo(menu);
    menu->addMenu(m_groundMenu);
    m_mapActions->addTo(m_toolBar);
    menu->addSeparator();
    m_docks->addTo(menu);
    menu->addAction(m_toolBar->toggleViewAction());
    menu->addSeparator();
    QAction *const next = KRViewerAction::make(this, QString(), tr("&Nächster Bereich"), QKeySequence(Qt::Key_F6));
    QAction *const previous =
        KRViewerAction::make(this, QString(), tr("&Voriger Bereich"), QKeySequence(Qt::SHIFT | Qt::Key_F6));
    connect(next, &QAction::triggered, this, [this] { moveFocus(1); });
    connect(previous, &QAction::triggered, this, [this] { moveFocus(-1); });
    menu->addActions({next, previous});
}

void KRMainWindow::createHelpMenu()
{
    QMenu *const menu = menuBar()->addMenu(tr("&Hilfe"));
    QAction *const about = KRViewerAction::make(this, QStringLiteral("ico_information"), tr("&Über dieses Programm"));
    connect(about, &QAction::triggered, this, &KRMainWindow::showAbout);
    menu->addAction(about);
}

void KRMainWindow::connectWorkspace()
{
    connect(&m_workspace, &KRRouteWorkspace::documentChanged, this, &KRMainWindow::updateTitle);
    connect(&m_workspace, &KRRouteWorkspace::selectionChanged, this,
            [this] { m_map->setTracks(m_workspace.selection()); });
    connect(&m_workspace, &KRRouteWorkspace::documentReplaced, this, [this] {
        trackList()->selectTrack(m_workspace.selection().isEmpty() ? -1 : 0);
        m_map->showAll();
    });
    connect(m_documentActions, &KRDocumentActions::tracksAdded, this, [this](int firstRow) {
        trackList()->selectTrack(firstRow);
        m_map->showAll();
    });
}

void KRMainWindow::connectMap()
{
    connect(m_groundMenu, &KRGroundMenu::groundChanged, m_map, &KRMapView::setGround);
    connect(m_map, &KRMapView::positionHovered, this, &KRMainWindow::showPosition);
    connect(m_map, &KRMapView::trackClicked, this, [this](int row) {
        trackList()->selectTrack(row);
        trackList()->blinkTrack(row);
    });
    connect(m_map, &KRMapView::positionClicked, this, [this] { trackList()->selectTrack(-1); });
    connect(m_map, &KRMapView::trackContextMenuRequested, this,
            [this](int row, const KRGeoPosition &position, const QPoint &globalPosition) {
                if (row < 0) {
                    m_placeActions->showMapMenu(position, globalPosition);
                    return;
                }
                trackList()->selectTrack(row);
                markPosition(position);
                showTrackMenu(row, globalPosition);
            });
    // The mark stays when the pointer leaves the profile: on its way to the action that splits there.
    connect(m_docks, &KRViewerDocks::profilePositionHovered, this, [this](const KRGeoPosition &position) {
        if (position.isValid())
            markPosition(position);
    });
    connect(m_docks->profile(), &QWidget::customContextMenuRequested, this, [this](const QPoint &position) {
        showTrackMenu(trackList()->currentTrack(), m_docks->profile()->mapToGlobal(position));
    });
    m_docks->profile()->setContextMenuPolicy(Qt::CustomContextMenu);
}

void KRMainWindow::connectTrackList()
{
    connect(m_docks, &KRViewerDocks::currentTrackChanged, m_map, &KRMapView::setCurrentTrack);
    connect(m_docks, &KRViewerDocks::currentTrackChanged, this, [this](int row) {
        markPosition(KRGeoPosition());
        m_trackActions->setCurrentRow(row);
    });
    connect(m_docks, &KRViewerDocks::defaultLookChanged, this,
            [this] { statusBar()->showMessage(tr("So werden neue Routen gezeichnet."), messageTimeMs); });

    connect(m_trackActions, &KRTrackActions::rowSuggested, trackList(), &KRTrackListView::selectTrack);
    connect(m_trackActions, &KRTrackActions::zoomRequested, m_map, &KRMapView::showTrack);

    connect(m_docks, &KRViewerDocks::placeChosen, m_placeActions, &KRPlaceActions::addPlace);
    connect(m_placeActions, &KRPlaceActions::placesRequested, m_docks, &KRViewerDocks::showPlaces);
    connect(m_placeActions, &KRPlaceActions::rowSuggested, trackList(), &KRTrackListView::selectTrack);
    connect(m_placeActions, &KRPlaceActions::zoomRequested, m_map, &KRMapView::showTrack);

    connect(trackList(), &KRTrackListView::zoomRequested, m_map, &KRMapView::showTrack);
    connect(trackList(), &KRTrackListView::contextMenuRequested, this, &KRMainWindow::showTrackMenu);
    connect(trackList(), &KRTrackListView::markRequested, trackList(), &KRTrackListView::selectTrack);
    connect(trackList(), &KRTrackListView::editRequested, this, [this](int row) {
        trackList()->selectTrack(row);
        m_docks->showLook();
    });
    connect(trackList(), &KRTrackListView::deleteRequested, this, [this](int row) {
        trackList()->selectTrack(row);
        m_trackActions->remove();
    });
}

void KRMainWindow::connectWarnings()
{
    const auto warnOfGround = [this](const QString &problem) {
        m_groundWarning->setWarning(problem.isEmpty() ? QString() : tr("Karte: %1").arg(problem));
    };
    warnOfGround(m_groundMenu->problem());
    connect(m_groundMenu, &KRGroundMenu::problemChanged, m_groundWarning, warnOfGround);

    connect(m_autosave, &KRAutosave::failed, m_autosaveWarning, [this](const QString &reason) {
        m_autosaveWarning->setWarning(
            tr("Ungesicherte Änderungen sind nicht vor einem Absturz sicher: %1").arg(reason));
    });
    connect(m_autosave, &KRAutosave::written, m_autosaveWarning, [this] { m_autosaveWarning->setWarning(QString()); });
    connect(&m_workspace, &KRRouteWorkspace::documentChanged, m_autosaveWarning, [this] {
        if (!m_workspace.isModified())
            m_autosaveWarning->setWarning(QString());
    });
}

void KRMainWindow::restoreWindow()
{
    const KRViewerSettings settings;
    if (!restoreGeometry(settings.windowGeometry()))
        resize(usualSize.boundedTo(screen()->availableSize() - roomForFrame));
    restoreState(settings.windowState());
}

void KRMainWindow::updateTitle()
{
    const QString fileName = m_workspace.fileName();
    const QString name =
        fileName.isEmpty() ? tr("Unbenannt") : KRPlainText::oneLine(QFileInfo(fileName).completeBaseName());
    setWindowTitle(tr("%1[*] – Routen").arg(name));
    setWindowModified(m_workspace.isModified());
}

void KRMainWindow::showPosition(const KRGeoPosition &position)
{
    constexpr bool inDegreesMinutesSeconds = true;
    constexpr double stepsPerDegree = 36000.0; // tenths of a second, some three metres
    const auto rounded = [](const KRGeoArc &arc) {
        return std::round(arc.decimalDegrees() * stepsPerDegree) / stepsPerDegree;
    };
    m_positionLabel->setText(position.isValid()
                                 ? KRLatitude(rounded(position.latitude())).toString(inDegreesMinutesSeconds)
                                       + QStringLiteral(",  ")
                                       + KRLongitude(rounded(position.longitude())).toString(inDegreesMinutesSeconds)
                                 : QString());
}

void KRMainWindow::markPosition(const KRGeoPosition &position)
{
    m_map->setMarker(position);
    m_trackActions->setMarkedPosition(position);
}

void KRMainWindow::showTrackMenu(int row, const QPoint &globalPosition)
{
    if (row < 0)
        return;
    trackList()->selectTrack(row);
    m_trackMenu->popup(globalPosition);
}

void KRMainWindow::moveFocus(int step)
{
    const QList<QWidget *> areas = QList<QWidget *>{m_map} + m_docks->focusWidgets();
    const auto hasFocus = [](const QWidget *area) {
        return area->hasFocus() || area->isAncestorOf(QApplication::focusWidget());
    };
    const auto present = std::find_if(areas.cbegin(), areas.cend(), hasFocus);
    // From elsewhere forwards to the first, backwards to the last.
    int index = present != areas.cend() ? int(present - areas.cbegin()) : step > 0 ? -1 : 0;
    for (int i = 0; i < areas.size(); ++i) {
        index = (index + step + areas.size()) % areas.size();
        QWidget *const area = areas.at(index);
        if (area->visibleRegion().isEmpty() || !area->isEnabled())
            continue;
        area->setFocus(step > 0 ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        return;
    }
}

void KRMainWindow::showAbout()
{
    QMessageBox::about(this, tr("Über dieses Programm"),
                       tr("<h3>Routen %1</h3><p>Zeigt, bearbeitet und druckt Routen und Orte auf einer Landkarte.</p>"
                          "<p>Eingebaute Karte: Made with Natural Earth.</p>")
                           .arg(QCoreApplication::applicationVersion().toHtmlEscaped()));
}
