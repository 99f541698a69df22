#include <KRFiguresPanel.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>
#include <KRProfileView.h>
#include <KRTest.h>

#include <QLabel>

#include <memory>

namespace {

/// Northwards from 10 degrees, a thousandth of a degree (111 m) and ten seconds from point to point.
KRGPXTrack spawnTrack(int count, int elevation = 100)
{
    KRGPXTrackSegment segment;
    for (int i = 0; i < count; ++i)
        segment.append(10.0 + i * 0.001, 8.0, elevation == 0 ? 0 : elevation + i % 100,
                       QDateTime::fromSecsSinceEpoch(10 * i, Qt::UTC), QString());
    return KRGPXTrack(QStringLiteral("T"), QString(), {segment}, LineStringTrackShape);
}

} // namespace

class tst_KRProfileView : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_view = std::make_unique<KRProfileView>();
        m_view->resize(500, 160);
        m_view->show();
        QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
        m_spy = std::make_unique<QSignalSpy>(m_view.get(), &KRProfileView::positionHovered);
    }

    void cleanup()
    {
        m_spy.reset();
        m_view.reset();
    }

    void markerFollowsPointer()
    {
        m_view->setTrack(spawnTrack(101));
        QTest::mouseMove(m_view.get(), QPoint(499, 80));
        QCOMPARE(hovered().latitude().decimalDegrees(), 10.1);
        QTest::mouseMove(m_view.get(), QPoint(1, 80));
        QCOMPARE(hovered().latitude().decimalDegrees(), 10.0);
        QTest::mouseMove(m_view.get(), QPoint(280, 80));
        QVERIFY(hovered().latitude().decimalDegrees() > 10.03 && hovered().latitude().decimalDegrees() < 10.07);
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(m_view.get(), &leave);
        QVERIFY(!hovered().isValid());
        // The same track again changes nothing, another one hides the marker.
        QTest::mouseMove(m_view.get(), QPoint(300, 80));
        m_view->setTrack(spawnTrack(101));
        QVERIFY(hovered().isValid());
        m_view->setTrack(spawnTrack(50));
        QVERIFY(!hovered().isValid());
    }

    void markerByKeys()
    {
        m_view->setTrack(spawnTrack(101));
        m_view->setFocus();
        // Each press moves on by a point at least, and never beyond the ends.
        const QVector<QPair<Qt::Key, double>> latitudes{
            {Qt::Key_Right, 10.0},   {Qt::Key_Right, 10.001}, {Qt::Key_Left, 10.0}, {Qt::Key_Left, 10.0},
            {Qt::Key_PageUp, 10.01}, {Qt::Key_End, 10.1},     {Qt::Key_Right, 10.1}};
        for (const auto &[key, latitude] : latitudes) {
            QTest::keyClick(m_view.get(), key);
            QCOMPARE(hovered().latitude().decimalDegrees(), latitude);
        }
        QVERIFY(m_view->accessibleDescription().contains(QStringLiteral("40")));
        QTest::keyClick(m_view.get(), Qt::Key_Escape);
        QVERIFY(!hovered().isValid());
    }

    void emptyStates()
    {
        const auto stateOf = [this](const KRGPXTrack &track) {
            m_view->setTrack(track);
            return m_view->accessibleDescription();
        };
        const QString cleared = m_view->accessibleDescription();
        QVERIFY(!cleared.isEmpty());
        QVERIFY(stateOf(spawnTrack(10, 0)) != stateOf(spawnTrack(1)));
        QCOMPARE(stateOf(KRGPXTrack()), stateOf(spawnTrack(10, 0)));
        QTest::mouseMove(m_view.get(), QPoint(250, 80));
        QTest::keyClick(m_view.get(), Qt::Key_Right);
        QCOMPARE(m_spy->count(), 0);
        QVERIFY(stateOf(spawnTrack(10)).isEmpty());
        m_view->clear();
        QCOMPARE(m_view->accessibleDescription(), cleared);
    }

    void readsLargeTracks()
    {
        m_view->setTrack(spawnTrack(6000));
        m_view->setTrack(spawnTrack(7001));
        const auto lastLatitude = [this] {
            QTest::keyClick(m_view.get(), Qt::Key_End);
            return hovered().latitude().decimalDegrees();
        };
        QTRY_COMPARE(lastLatitude(), 17.0);
        // Read, but not shown yet: a marker on the old profile might lie beyond the end of the new one.
        m_view->setTrack(spawnTrack(6001));
        QVERIFY(QThreadPool::globalInstance()->waitForDone(10000));
        QTest::keyClick(m_view.get(), Qt::Key_End);
        QVERIFY(!hovered().isValid());
        QTRY_COMPARE(lastLatitude(), 16.0);
        // What is still being read when the track is taken away must not appear later.
        m_view->setTrack(spawnTrack(8000));
        m_view->clear();
        QTest::qWait(50);
        QVERIFY(!m_view->accessibleDescription().isEmpty());
    }

    void figures()
    {
        QLocale::setDefault(QLocale(QLocale::German));
        KRFiguresPanel panel;
        const auto texts = [&] {
            QStringList values;
            for (const QLabel *label : panel.findChildren<QLabel *>()) {
                if (label->buddy() == nullptr && !label->text().endsWith(QLatin1Char(':')))
                    values.append(label->text());
            }
            return values.join(QLatin1Char('|'));
        };
        const QString nothing = texts();
        panel.setTrack(spawnTrack(91));
        QVERIFY2(texts().startsWith(QStringLiteral("10,01 km|90 m|0 m|100 bis 190 m|91|1|")), qPrintable(texts()));
        QVERIFY2(texts().endsWith(QStringLiteral("|0:15:00 h|40,0 km/h|40,0 km/h")), qPrintable(texts()));
        panel.setTrack(KRGPXTrack());
        QCOMPARE(texts(), QStringLiteral("0 m|–|–|–|0|0|–|–|–|–|–"));
        panel.setTrack(spawnTrack(6000));
        QTRY_VERIFY(texts().contains(QStringLiteral("6.000")));
        panel.clear();
        QCOMPARE(texts(), nothing);
        QLocale::setDefault(QLocale::c());
    }

private:
    KRGeoPosition hovered() const
    {
        return m_spy->isEmpty() ? KRGeoPosition() : m_spy->last().first().value<KRGeoPosition>();
    }

    std::unique_ptr<KRProfileView> m_view;
    std::unique_ptr<QSignalSpy> m_spy;
};

template class KRTestRegistration<tst_KRProfileView>;

#include "tst_KRProfileView.moc"
