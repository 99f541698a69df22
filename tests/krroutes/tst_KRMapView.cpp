#include <KRMapGround.h>
#include <KRMapView.h>
#include <KRTestMap.h>
#include <KRTestPicture.h>
#include <KRTestRegistry.h>
#include <KRTestTable.h>
#include <KRTestTrack.h>

#include <QtTest>
#include <QtWidgets>

#include <cmath>

namespace {

constexpr QColor groundColor(90, 160, 90);
constexpr QColor lineColor(255, 145, 0);

/// One colour; waits for a permit before it paints when it is told to.
class PlainGround : public KRMapGround
{
public:
    void paint(QPainter *painter, const QSize &size, const KRMapProjection &, double) override
    {
        if (isSlow.loadAcquire() != 0)
            permits.acquire();
        paintings.ref();
        painter->fillRect(QRect(QPoint(), size), groundColor);
    }

    QAtomicInt isSlow;
    QAtomicInt paintings;
    QSemaphore permits;
};

KRGPXConfiguredTrack lineOf(const QList<KRGeoPosition> &positions)
{
    KRGPXTrackConfiguration look = KRGPXTrackConfiguration::defaultValue();
    look.setLineColor(lineColor);
    look.setLineWidth(10.0);
    return KRGPXConfiguredTrack(KRTestTrack::through(positions, LineStringTrackShape, QStringLiteral("Strecke")), look);
}

/// From west to east in the north, and from north to south in the east.
KRGPXTrackSelection twoTracks()
{
    return KRGPXTrackSelection(
        KRGPXConfiguredTrackList{lineOf({{53.2, 7.5}, {53.2, 8.5}}), lineOf({{53.1, 8.8}, {52.8, 8.8}})});
}

bool isNear(const QColor &a, const QColor &b)
{
    return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue()) < 12;
}

/// The view of a person who has opened two tracks.
class ShownView : public KRMapView
{
public:
    ShownView()
    {
        resize(800, 600);
        setGround(&ground);
        setTracks(twoTracks());
        showAll();
        show();
        isReady = QTest::qWaitForWindowActive(this) && wait();
        setFocus();
    }
    ~ShownView() override
    {
        ground.permits.release(1000);
        setGround(nullptr);
    }

    bool wait()
    {
        return QTest::qWaitFor([this] { return isUpToDate(); });
    }
    QPoint pixelOf(double latitude, double longitude) const
    {
        return viewport().pixelOf(KRGeoPosition(latitude, longitude)).toPoint();
    }
    QColor colorAt(const QPoint &pixel) { return grab().toImage().pixelColor(pixel); }
    bool shows(const QColor &color, const QPoint &pixel) { return isNear(colorAt(pixel), color); }
    bool shows(const QColor &color, double latitude, double longitude)
    {
        return shows(color, pixelOf(latitude, longitude));
    }
    /// Whether the place is still, or again, where it was.
    bool keeps(double latitude, double longitude, const QPoint &pixel) const
    {
        return (pixelOf(latitude, longitude) - pixel).manhattanLength() <= 1;
    }
    void stop() { ground.isSlow.storeRelease(1); }

    PlainGround ground;
    bool isReady = false;
};

void turnWheel(QWidget *widget, const QPoint &pixel, const QPoint &turn)
{
    QWheelEvent event(pixel, widget->mapToGlobal(pixel), QPoint(), turn, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

void moveWith(Qt::MouseButtons buttons, QWidget *widget, const QPoint &pixel)
{
    QMouseEvent event(QEvent::MouseMove, pixel, widget->mapToGlobal(pixel), Qt::NoButton, buttons, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

} // namespace

class tst_KRMapView : public QObject
{
    Q_OBJECT

private slots:
    void showsGroundAndTracks();
    void clicksTellWhatLiesThere();
    void contextMenuByMouseAndKey();
    void pointerTellsThePosition();
    void dragMovesTheMap();
    void lostReleaseEndsADrag();
    void oldPictureFollowsMeanwhile();
    void zoomsAboutThePointer();
    void fingersPinch();
    void keys();
    void showsWhatIsAskedFor();
    void drawsOnlyWhatChanged();
    void lastRequestWins();
    void worldRepeats();
    void namesTheTracks();
    void drawsEveryPixelOfADenseScreen();
    void groundMayBeDeletedOnceReplaced();
};

template class KRTestRegistration<tst_KRMapView>;

void tst_KRMapView::showsGroundAndTracks()
{
    ShownView view;
    QVERIFY(view.isReady);
    QVERIFY(view.shows(lineColor, 53.2, 8.0));
    QVERIFY(view.shows(lineColor, 53.0, 8.8));
    QVERIFY(view.shows(groundColor, 53.0, 8.0));

    const QPoint besideLine = view.pixelOf(53.2, 8.0) + QPoint(0, 6);
    QVERIFY(view.shows(groundColor, besideLine));
    view.setCurrentTrack(0);
    QVERIFY(view.wait());
    QVERIFY(view.shows(lineColor, 53.2, 8.0));
    QVERIFY(view.colorAt(besideLine).blue() > groundColor.blue() + 40);
    QVERIFY(view.shows(groundColor, view.pixelOf(53.0, 8.8) + QPoint(7, 0)));
    view.setCurrentTrack(-1);
    QVERIFY(view.wait());
    QVERIFY(view.shows(groundColor, besideLine));
    KRGPXTrackSelection cropped = twoTracks();
    cropped.setCroppingOpacity(0);
    view.setTracks(cropped);
    QVERIFY(view.wait());
    QVERIFY(view.shows(Qt::white, 53.0, 8.0) && view.shows(lineColor, 53.2, 8.0));
}

void tst_KRMapView::clicksTellWhatLiesThere()
{
    ShownView view;
    QSignalSpy trackClicked(&view, &KRMapView::trackClicked);
    QSignalSpy positionClicked(&view, &KRMapView::positionClicked);
    QTest::mouseClick(&view, Qt::LeftButton, Qt::NoModifier, view.pixelOf(52.9, 8.8));
    QCOMPARE(trackClicked.takeFirst().first().toInt(), 1);
    QVERIFY(positionClicked.isEmpty());
    const QPoint beside = view.pixelOf(52.9, 8.0);
    QTest::mouseClick(&view, Qt::LeftButton, Qt::NoModifier, beside);
    QVERIFY(trackClicked.isEmpty());
    const auto position = positionClicked.takeFirst().first().value<KRGeoPosition>();
    QCOMPARE(view.viewport().pixelOf(position).toPoint(), beside);
    QTest::mouseClick(&view, Qt::RightButton, Qt::NoModifier, beside);
    QVERIFY(trackClicked.isEmpty() && positionClicked.isEmpty());

    // Rows of tracks that were not looked through yet would be wrong.
    KRGPXTrackSelection swapped = twoTracks();
    swapped.moveTrack(0, 1);
    view.setTracks(swapped);
    QVERIFY(!view.hitAt(view.pixelOf(52.9, 8.8)).isValid());
    QVERIFY(view.wait());
    QCOMPARE(view.hitAt(view.pixelOf(52.9, 8.8)).row, 0);
}

void tst_KRMapView::contextMenuByMouseAndKey()
{
    ShownView view;
    view.setCurrentTrack(1);
    QSignalSpy requested(&view, &KRMapView::trackContextMenuRequested);
    const auto ask = [&](QContextMenuEvent::Reason reason, const QPoint &pixel) {
        QContextMenuEvent event(reason, pixel, view.mapToGlobal(pixel));
        QApplication::sendEvent(&view, &event);
        return requested.isEmpty() ? QVariantList() : requested.takeFirst();
    };
    const QPoint onTrack = view.pixelOf(53.2, 8.0);
    const QVariantList byMouse = ask(QContextMenuEvent::Mouse, onTrack);
    QCOMPARE(byMouse.at(0).toInt(), 0);
    QVERIFY(byMouse.at(1).value<KRGeoPosition>().distance(KRGeoPosition(53.2, 8.0)) < 1.0);
    QCOMPARE(byMouse.at(2).toPoint(), view.mapToGlobal(onTrack));
    QCOMPARE(ask(QContextMenuEvent::Mouse, view.pixelOf(52.9, 8.0)).at(0).toInt(), -1);
    QCOMPARE(ask(QContextMenuEvent::Keyboard, QPoint()).at(0).toInt(), 1);
    // Above the map nothing can be added.
    view.setViewport(view.viewport().zoomed(0.0, QPointF()));
    QVERIFY(ask(QContextMenuEvent::Mouse, QPoint(400, 2)).isEmpty());
}

void tst_KRMapView::pointerTellsThePosition()
{
    ShownView view;
    QSignalSpy hovered(&view, &KRMapView::positionHovered);
    QTest::mouseMove(&view, QPoint(123, 234));
    QVERIFY(!hovered.isEmpty());
    QCOMPARE(view.viewport().pixelOf(hovered.last().first().value<KRGeoPosition>()).toPoint(), QPoint(123, 234));
    QTest::mouseMove(&view, view.pixelOf(53.2, 8.0));
    QCOMPARE(view.cursor().shape(), Qt::PointingHandCursor);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&view, &leave);
    QVERIFY(!hovered.last().first().value<KRGeoPosition>().isValid());
}

void tst_KRMapView::dragMovesTheMap()
{
    ShownView view;
    QSignalSpy clicked(&view, &KRMapView::trackClicked);
    QSignalSpy changed(&view, &KRMapView::viewportChanged);
    const QPoint start = view.pixelOf(53.2, 8.0);
    QTest::mousePress(&view, Qt::LeftButton, Qt::NoModifier, start);
    for (int i = 1; i <= 10; ++i)
        moveWith(Qt::LeftButton, &view, start + i * QPoint(7, 20));
    QTest::mouseRelease(&view, Qt::LeftButton, Qt::NoModifier, start + QPoint(70, 200));
    QVERIFY(view.keeps(53.2, 8.0, start + QPoint(70, 200)));
    QVERIFY(clicked.isEmpty());
    QVERIFY(changed.count() > 3);
    QVERIFY(view.wait());
    QVERIFY(view.shows(lineColor, 53.2, 8.0));
    // The button is up: the map stays.
    const KRMapViewport viewport = view.viewport();
    QTest::mouseMove(&view, start);
    QVERIFY(view.viewport() == viewport);
}

void tst_KRMapView::lostReleaseEndsADrag()
{
    ShownView view;
    QSignalSpy clicked(&view, &KRMapView::trackClicked);
    const QPoint start = view.pixelOf(53.2, 8.0);
    QTest::mousePress(&view, Qt::LeftButton, Qt::NoModifier, start);
    moveWith(Qt::LeftButton, &view, start + QPoint(0, 50));
    QVERIFY(view.keeps(53.2, 8.0, start + QPoint(0, 50)));
    // A menu has got the release.
    moveWith(Qt::NoButton, &view, start + QPoint(0, 150));
    QVERIFY(view.keeps(53.2, 8.0, start + QPoint(0, 50)));
    QCOMPARE(view.cursor().shape(), Qt::ArrowCursor);

    QTest::touchEvent(&view, QTest::createTouchDevice()).press(1, start, &view);
    QTouchEvent cancel(QEvent::TouchCancel);
    QApplication::sendEvent(&view, &cancel);
    moveWith(Qt::LeftButton, &view, start + QPoint(0, 150));
    QVERIFY(view.keeps(53.2, 8.0, start + QPoint(0, 50)));
    QTest::mouseRelease(&view, Qt::LeftButton, Qt::NoModifier, view.pixelOf(53.2, 8.0));
    QVERIFY(clicked.isEmpty());
}

void tst_KRMapView::oldPictureFollowsMeanwhile()
{
    ShownView view;
    view.stop();
    view.setViewport(view.viewport().panned(QPointF(40.0, 30.0)));
    QVERIFY(view.shows(lineColor, 53.2, 8.0));
    // The margin around the window is at hand, too.
    QVERIFY(view.shows(groundColor, QPoint(10, 10)));
    view.setViewport(view.viewport().zoomed(1.7, view.pixelOf(53.2, 7.9)));
    QVERIFY(view.shows(lineColor, 53.2, 8.0));
    QVERIFY(!view.isUpToDate());
    view.ground.isSlow.storeRelease(0);
    view.ground.permits.release(10);
    QVERIFY(view.wait());
}

void tst_KRMapView::zoomsAboutThePointer()
{
    ShownView view;
    const QPoint pointer = view.pixelOf(53.0, 8.8);
    const double before = view.viewport().worldWidth();
    turnWheel(&view, pointer, QPoint(0, 120));
    const double notch = view.viewport().worldWidth() / before;
    QVERIFY(notch > 1.2 && notch < 2.0);
    QVERIFY(view.keeps(53.0, 8.8, pointer));
    // The fine steps of a touch pad come to the same.
    for (int i = 0; i < 40; ++i)
        turnWheel(&view, pointer, QPoint(0, -3));
    QVERIFY(std::abs(view.viewport().worldWidth() / before - 1.0) < 1e-9);
    QVERIFY(view.keeps(53.0, 8.8, pointer));

    view.showAll();
    QSignalSpy clicked(&view, &KRMapView::trackClicked);
    const QPoint pixel = view.pixelOf(53.2, 8.0);
    QTest::mouseClick(&view, Qt::LeftButton, Qt::NoModifier, pixel);
    QTest::mouseDClick(&view, Qt::LeftButton, Qt::NoModifier, pixel);
    QVERIFY(view.viewport().worldWidth() > 1.5 * before);
    QVERIFY(view.keeps(53.2, 8.0, pixel));
    QVERIFY(clicked.count() <= 2);
}

void tst_KRMapView::fingersPinch()
{
    ShownView view;
    auto *const screen = QTest::createTouchDevice();
    const double before = view.viewport().worldWidth();
    const auto moveTo = [&](const QPoint &first, const QPoint &second) {
        QTest::touchEvent(&view, screen).move(1, first, &view).move(2, second, &view);
    };
    QTest::touchEvent(&view, screen).press(1, QPoint(350, 300), &view).press(2, QPoint(450, 300), &view);
    for (int i = 1; i <= 10; ++i)
        moveTo(QPoint(350 - 10 * i, 300), QPoint(450 + 10 * i, 300));
    QTest::touchEvent(&view, screen).release(1, QPoint(250, 300), &view).release(2, QPoint(550, 300), &view);
    const double factor = view.viewport().worldWidth() / before;
    QVERIFY2(std::abs(factor - 3.0) < 0.01, qPrintable(QString::number(factor)));

    // One finger rests while the other moves, then one comes back elsewhere.
    QTest::touchEvent(&view, screen).press(1, QPoint(300, 300), &view).press(2, QPoint(400, 300), &view);
    moveTo(QPoint(200, 300), QPoint(400, 300));
    moveTo(QPoint(200, 300), QPoint(300, 300));
    QTest::touchEvent(&view, screen).release(1, QPoint(200, 300), &view).move(2, QPoint(300, 300), &view);
    QTest::touchEvent(&view, screen).press(1, QPoint(100, 300), &view).move(2, QPoint(300, 300), &view);
    QTest::touchEvent(&view, screen).release(1, QPoint(100, 300), &view).release(2, QPoint(300, 300), &view);
    const double unchanged = view.viewport().worldWidth() / before / factor;
    QVERIFY2(std::abs(unchanged - 1.0) < 0.01, qPrintable(QString::number(unchanged)));

    QSignalSpy clicked(&view, &KRMapView::trackClicked);
    view.showAll();
    const QPoint pixel = view.pixelOf(53.2, 8.0);
    QTest::touchEvent(&view, screen).press(1, pixel, &view);
    QTest::touchEvent(&view, screen).release(1, pixel, &view);
    QCOMPARE(clicked.count(), 1);
    QTest::touchEvent(&view, screen).press(1, pixel, &view);
    QTest::touchEvent(&view, screen).move(1, pixel + QPoint(50, 60), &view);
    QTest::touchEvent(&view, screen).release(1, pixel + QPoint(50, 60), &view);
    QCOMPARE(clicked.count(), 1);
    QVERIFY(view.keeps(53.2, 8.0, pixel + QPoint(50, 60)));
}

void tst_KRMapView::keys()
{
    // where the middle goes, and 1 for a larger scale, -1 for a smaller one
    const KRTestTable<Qt::Key, Qt::KeyboardModifier, QPoint, int> table{
        {"left", Qt::Key_Left, Qt::NoModifier, QPoint(-1, 0), 0},
        {"down, on the keypad", Qt::Key_Down, Qt::KeypadModifier, QPoint(0, 1), 0},
        {"plus", Qt::Key_Plus, Qt::KeypadModifier, QPoint(), 1},
        {"minus", Qt::Key_Minus, Qt::NoModifier, QPoint(), -1},
        {"belongs to the menu", Qt::Key_Plus, Qt::ControlModifier, QPoint(), 0},
    };
    ShownView view;
    const KRMapViewport before = view.viewport();
    table.forEach([&](Qt::Key key, Qt::KeyboardModifier modifier, const QPoint &direction, int scale) {
        QTest::keyClick(&view, key, modifier);
        const QPointF way = before.pixelOf(view.viewport().center()) - QPointF(400.0, 300.0);
        QCOMPARE(QPoint(qRound(way.x() / 150.0), qRound(way.y() / 150.0)), direction);
        QCOMPARE(qRound(std::log2(view.viewport().worldWidth() / before.worldWidth())), scale);
        QTest::keyClick(&view, Qt::Key_Home);
        QVERIFY(view.viewport() == before);
    });
}

void tst_KRMapView::showsWhatIsAskedFor()
{
    ShownView view;
    const auto isInView = [&](double latitude, double longitude) {
        return view.rect().contains(view.pixelOf(latitude, longitude));
    };
    QVERIFY(isInView(53.2, 7.5) && isInView(52.8, 8.8));
    view.showTrack(1);
    QVERIFY(isInView(52.8, 8.8) && isInView(53.1, 8.8) && !isInView(53.2, 7.5));
    const KRMapViewport before = view.viewport();
    view.showTrack(2);
    QVERIFY(view.viewport() == before);

    view.setTracks(KRGPXTrackSelection());
    view.showAll();
    QVERIFY(view.wait());
    QVERIFY(isInView(41.0, -9.0) && isInView(59.0, 29.0) && !isInView(20.0, 60.0));

    // Whoever moves the map while the tracks are looked through no longer asks for them.
    view.setTracks(twoTracks());
    view.showAll();
    turnWheel(&view, QPoint(400, 300), QPoint(120, 0));
    const KRMapViewport moved = view.viewport();
    QVERIFY(view.wait());
    QVERIFY(view.viewport() == moved);
}

void tst_KRMapView::drawsOnlyWhatChanged()
{
    ShownView view;
    const int paintings = view.ground.paintings.loadAcquire();
    KRGPXTrackSelection selection = twoTracks();
    KRGPXTrackConfiguration look = selection.configuration(0);
    look.setLineColor(Qt::magenta);
    selection.setConfiguration(0, look);
    view.setTracks(selection);
    view.setCurrentTrack(1);
    view.setMarker(KRGeoPosition(53.0, 8.0));
    QVERIFY(view.wait());
    QVERIFY(view.shows(Qt::magenta, 53.2, 8.0));
    QVERIFY(view.colorAt(view.pixelOf(53.0, 8.0)).red() > 180 && view.colorAt(view.pixelOf(53.0, 8.0)).green() < 80);
    view.setMarker(KRGeoPosition());
    QVERIFY(view.shows(groundColor, 53.0, 8.0));
    QCOMPARE(view.ground.paintings.loadAcquire(), paintings);
    emit view.ground.changed();
    QVERIFY(view.wait());
    QCOMPARE(view.ground.paintings.loadAcquire(), paintings + 1);
}

void tst_KRMapView::lastRequestWins()
{
    ShownView view;
    view.stop();
    const int paintings = view.ground.paintings.loadAcquire();
    for (int i = 0; i < 50; ++i)
        view.zoomOut();
    for (int i = 0; i < 50; ++i)
        QTest::keyClick(&view, Qt::Key_Right);
    view.ground.permits.release(100);
    QVERIFY(view.wait());
    QVERIFY(view.ground.paintings.loadAcquire() <= paintings + 2);
    view.showAll();
    QVERIFY(view.wait());
    QVERIFY(view.shows(lineColor, 53.2, 8.0));
}

void tst_KRMapView::worldRepeats()
{
    ShownView view;
    view.setTracks(KRGPXTrackSelection(KRGPXConfiguredTrackList{lineOf({{10.0, 150.0}, {10.0, -150.0}})}));
    view.setViewport(KRMapViewport().resized({800, 600}, 1.0).zoomed(0.0, QPointF(400.0, 300.0)));
    QVERIFY(view.wait());
    const int worldWidth = qRound(view.viewport().worldWidth());
    QVERIFY(2 * worldWidth < 800);
    int copies = 0;
    for (QPoint pixel = view.pixelOf(10.0, 170.0) - QPoint(worldWidth, 0); pixel.x() < 800; pixel.rx() += worldWidth) {
        if (pixel.x() < 0)
            continue;
        ++copies;
        QVERIFY(view.shows(lineColor, pixel));
        QCOMPARE(view.hitAt(pixel).row, 0);
    }
    QVERIFY(copies >= 2);
}

void tst_KRMapView::namesTheTracks()
{
    ShownView view;
    // Names stand on light ground, which nothing else here is.
    const auto letters = [&](const QRect &area) {
        return KRTestPicture::boundsOf(view.grab(area).toImage(), [](const QColor &c) { return c.lightness() > 180; });
    };
    const QRect corner(600, 0, 200, 80);
    const QRect free(0, 0, 800, 450);
    QVERIFY(letters(free).isEmpty());
    view.setLabels(true);
    QVERIFY(view.wait());
    QVERIFY(letters(free).width() > 20);
    view.setLabels(false);
    view.setLegend(true);
    QVERIFY(view.wait());
    const QRect legend = letters(corner);
    QVERIFY(legend.width() > 20);
    // It stays where it is.
    view.setViewport(view.viewport().panned(QPointF(0.0, 60.0)));
    QCOMPARE(letters(corner), legend);
    view.setLegend(false);
    QVERIFY(view.wait());
    QVERIFY(letters(corner).isEmpty());
}

void tst_KRMapView::drawsEveryPixelOfADenseScreen()
{
    KRMapTracksThread thread;
    KRMapPicture picture;
    const QObject receiver;
    connect(&thread, &KRMapTracksThread::drawn, &receiver, [&](const KRMapPicture &drawn) { picture = drawn; });
    const KRGeoPositionRect area = KRTestMap{52.8, 53.2, 7.5, 8.8}.area();
    const KRMapViewport viewport = KRMapViewport().resized({300, 200}, 2.0).fitted(area, 20);
    thread.draw({1, viewport, 0, twoTracks(), 1, -1, false, false});
    QTRY_VERIFY(!picture.image.isNull());
    QCOMPARE(picture.image.size(), 2 * picture.viewport.size());
    // A line of 10 pixels is 20 wide here.
    const QPoint middle = (2.0 * picture.viewport.pixelOf(KRGeoPosition(53.2, 8.0))).toPoint();
    QVERIFY(isNear(picture.image.pixelColor(middle + QPoint(0, 8)), lineColor));
    QCOMPARE(picture.image.pixelColor(middle + QPoint(0, 13)).alpha(), 0);
}

void tst_KRMapView::groundMayBeDeletedOnceReplaced()
{
    ShownView view;
    for (int i = 0; i < 20; ++i) {
        PlainGround passing;
        view.setGround(&passing);
        view.zoomIn();
        QTest::qWait(i % 3);
        view.setGround(i % 2 == 0 ? nullptr : &view.ground);
    }
    QVERIFY(view.wait());
    QVERIFY(view.shows(groundColor, QPoint(400, 30)));
}

#include "tst_KRMapView.moc"
