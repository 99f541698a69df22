// Takes the pictures of the viewer for its documentation, of the real windows with sample routes.
// Arguments: what to take (light, dark or dense), the folder of the pictures, the folder of the samples.

#include <KRHostApplication.h>
#include <KRLookEditor.h>
#include <KRMainWindow.h>
#include <KRMapView.h>
#include <KRPreferencesDialog.h>
#include <KRProfileView.h>
#include <KRTrackListView.h>
#include <KRViewerIcons.h>

#include <QApplication>
#include <QDir>
#include <QDockWidget>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

#include <functional>

namespace {

constexpr int patienceMs = 30000;

QPalette darkPalette()
{
    QPalette palette(QColor(53, 56, 60), QColor(42, 44, 48));
    palette.setColor(QPalette::Base, QColor(32, 34, 37));
    palette.setColor(QPalette::AlternateBase, QColor(40, 42, 46));
    palette.setColor(QPalette::Highlight, QColor(46, 110, 190));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, QColor(60, 63, 68));
    palette.setColor(QPalette::ToolTipText, Qt::white);
    palette.setColor(QPalette::Link, QColor(110, 170, 240));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(130, 133, 138));
    return palette;
}

bool waitFor(const std::function<bool()> &isReached)
{
    return QTest::qWaitFor(isReached, patienceMs);
}

/// Saves what the user sees of the widget.
bool take(QWidget *widget, const QDir &folder, const QString &name)
{
    const bool isSaved = widget->grab().save(folder.filePath(QStringLiteral("krroutes-%1.png").arg(name)));
    if (!isSaved)
        QTextStream(stderr) << "Cannot write the picture " << name << " into " << folder.path() << "\n";
    return isSaved;
}

QDockWidget *dockOf(const QWidget *widget)
{
    QWidget *parent = widget->parentWidget();
    while (parent != nullptr && qobject_cast<QDockWidget *>(parent) == nullptr)
        parent = parent->parentWidget();
    return qobject_cast<QDockWidget *>(parent);
}

bool openSamples(KRMainWindow *window, const QDir &samples)
{
    window->openFiles({samples.filePath(QStringLiteral("oldenburg-radtour.gpx")),
                       samples.filePath(QStringLiteral("nordseekueste-10000.gpx"))});
    KRRouteWorkspace *const workspace = window->workspace();
    if (!waitFor([&] { return workspace->selection().count() == 2; }))
        return false;
    KRGPXTrackConfiguration look = workspace->selection().configuration(0);
    look.setLineWidth(5.0);
    look.setHaloWidth(4.0);
    look.setLineColor(QColor(200, 30, 90));
    workspace->setConfiguration(0, look);
    look = workspace->selection().configuration(1);
    look.setLineWidth(4.0);
    look.setHaloWidth(4.0);
    look.setLineColor(QColor(20, 110, 170));
    workspace->setConfiguration(1, look);
    window->trackList()->selectTrack(0);
    window->map()->showAll();
    return waitFor([&] { return window->map()->isUpToDate(); });
}

bool takeDetails(KRMainWindow *window, const QDir &folder)
{
    const auto *const look = window->findChild<KRLookEditor *>();
    const auto *const profile = window->findChild<KRProfileView *>();
    if (look == nullptr || profile == nullptr)
        return false;
    QDockWidget *const lookDock = dockOf(look);
    lookDock->raise();
    QTest::qWait(200);
    KRPreferencesDialog preferences(window);
    preferences.show();
    QTest::qWait(200);
    return take(lookDock, folder, QStringLiteral("look")) && take(dockOf(profile), folder, QStringLiteral("profile"))
           && take(&preferences, folder, QStringLiteral("preferences"));
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    KRHostApplication::prepare(false);
    QApplication application(argc, argv);
    KRHostApplication::setup(application, QStringLiteral("krroutes"));
    QApplication::setWindowIcon(KRViewerIcons::applicationIcon());
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 4) {
        QTextStream(stderr) << "Usage: " << arguments.first() << " light|dark|dense FOLDER SAMPLES\n";
        return 2;
    }
    const QString kind = arguments.at(1);
    const QDir folder(arguments.at(2));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    if (kind == QLatin1String("dark"))
        QApplication::setPalette(darkPalette());

    const QTemporaryDir recovery;
    KRMainWindow window{QDir(recovery.path())};
    window.resize(1280, 860);
    window.show();
    bool isDone = openSamples(&window, QDir(arguments.at(3)));
    QTest::qWait(500); // until the list has made its rows and the profile is drawn
    isDone = isDone && take(&window, folder, kind);
    if (kind == QLatin1String("light"))
        isDone = isDone && takeDetails(&window, folder);
    return isDone ? 0 : 1;
}
