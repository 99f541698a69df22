#include <KRTrackListView.h>

#include <KRGeoLocation/KRGPXTrackListModel.h>
#include <KRGeoLocation/KRGPXTrackMultiFunctionDelegateWidget.h>
#include <KRGeoLocation/KRGPXTrackSelection.h>

#include "KRTest.h"
#include "KRTestPicture.h"

#include <QtWidgets>

#include <memory>

using RowWidget = KRGPXTrackMultiFunctionDelegateWidget;

static KRGPXConfiguredTrack named(const QString &name, const QString &description = QString())
{
    return KRGPXConfiguredTrack(KRGPXTrack(name, description, {}, LineStringTrackShape), KRGPXTrackConfiguration());
}

class tst_KRTrackListView : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_model = std::make_unique<KRGPXTrackListModel>();
        m_view = std::make_unique<KRTrackListView>(m_model.get());
        m_view->resize(300, 400);
        m_view->show();
        QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
        m_view->setFocus();
    }

    void cleanup()
    {
        m_view.reset();
        m_model.reset();
    }

    void isUsedByKeys()
    {
        fill(5);
        QSignalSpy current(m_view.get(), &KRTrackListView::currentTrackChanged);
        QSignalSpy edits(m_view.get(), &KRTrackListView::editRequested);
        QSignalSpy zooms(m_view.get(), &KRTrackListView::zoomRequested);
        press(Qt::Key_Down);
        press(Qt::Key_Down);
        press(Qt::Key_Return);
        press(Qt::Key_Space);
        QTest::keyClicks(m_view.get(), QStringLiteral("d"));
        QCOMPARE(edits, QList<QList<QVariant>>{{1}});
        QCOMPARE(zooms, QList<QList<QVariant>>{{1}});
        QCOMPARE(m_view->currentTrack(), 3);
        QCOMPARE(current.last().first().toInt(), 3);
        click(2);
        QCOMPARE(m_view->currentTrack(), 2);
        QTest::mouseDClick(rowWidget(4), Qt::LeftButton, Qt::NoModifier, QPoint(20, 10));
        QCOMPARE(zooms.last().first().toInt(), 4);
    }

    void movesTracksByDragging()
    {
        const KRTestTable<int, int, double, const char *> table{
            {"down, above a row", 0, 3, 0.2, "BCADE"},
            {"down, below a row", 0, 3, 0.8, "BCDAE"},
            {"up, below a row", 4, 1, 0.8, "ABECD"},
            {"below all rows", 1, 4, 3.0, "ACDEB"},
        };
        table.forEach([&](int row, int targetRow, double part, const char *expected) {
            fill(5);
            // A real drag needs a window system; this is what it ends with.
            click(row);
            m_view->dropCurrentTrack(positionIn(targetRow, part));
            QCOMPARE(names(), QString::fromUtf8(expected));
            QCOMPARE(m_model->trackAt(m_view->currentTrack()).name(), QString(QChar('A' + row)));
        });
    }

    void leavesOtherDropsToTheWindow()
    {
        fill(3);
        m_view->selectTrack(0);
        const std::unique_ptr<QMimeData> data(m_model->mimeData({m_model->index(0, 0)})); // of another program
        data->setUrls({QUrl::fromLocalFile(QStringLiteral("/a.gpx"))});
        const QPoint position = positionIn(2, 0.8);
        QDragEnterEvent enter(position, Qt::MoveAction, data.get(), Qt::LeftButton, Qt::NoModifier);
        QDragMoveEvent move(position, Qt::MoveAction, data.get(), Qt::LeftButton, Qt::NoModifier);
        QDropEvent drop(position, Qt::MoveAction, data.get(), Qt::LeftButton, Qt::NoModifier);
        for (QDropEvent *const event : std::initializer_list<QDropEvent *>{&enter, &move, &drop}) {
            QApplication::sendEvent(m_view->viewport(), event);
            QVERIFY(!event->isAccepted());
        }
        QCOMPARE(names(), QStringLiteral("ABC"));
    }

    void keepsTheCurrentTrack()
    {
        fill(5);
        m_view->selectTrack(2); // C
        m_model->moveTrack(0, 4); // as when a move is undone
        QCOMPARE(m_view->currentTrack(), 1);
        m_model->moveTrack(1, 0);
        QCOMPARE(m_view->currentTrack(), 0);
        KRGPXTrackConfiguration configuration = m_model->trackAt(0).configuration();
        configuration.setLineColor(Qt::red);
        m_model->setConfiguration(0, configuration);
        m_model->moveTrack(0, 3);
        QCOMPARE(m_view->currentTrack(), 3); // BDECA
        m_model->remove(m_model->index(0, 0));
        QCOMPARE(m_view->currentTrack(), 2);
        m_model->remove(m_model->index(2, 0));
        QCOMPARE(m_view->currentTrack(), 2); // the next one, A
        m_model->remove(m_model->index(2, 0));
        QCOMPARE(m_view->currentTrack(), 1);
        m_model->setSelection(KRGPXTrackSelection());
        QCOMPARE(m_view->currentTrack(), -1);
        fill(3);
        QCOMPARE(m_view->currentTrack(), -1);
    }

    void opensContextMenus()
    {
        fill(3);
        m_view->selectTrack(1);
        QSignalSpy menus(m_view.get(), &KRTrackListView::contextMenuRequested);
        const auto ask = [](QContextMenuEvent::Reason reason, QWidget *widget, const QPoint &position) {
            QContextMenuEvent event(reason, position, widget->mapToGlobal(position));
            QApplication::sendEvent(widget, &event);
        };
        ask(QContextMenuEvent::Mouse, rowWidget(2)->childAt(20, 10), QPoint(3, 3));
        ask(QContextMenuEvent::Mouse, m_view->viewport(), positionIn(2, 3.0));
        ask(QContextMenuEvent::Keyboard, m_view->viewport(), QPoint());
        QCOMPARE(menus.count(), 3);
        QCOMPARE(menus.at(0).first().toInt(), 2);
        QCOMPARE(menus.at(1).first().toInt(), -1);
        QCOMPARE(menus.at(2).first().toInt(), 1);
        QCOMPARE(menus.at(2).last().toPoint(), rowWidget(1)->mapToGlobal(rowWidget(1)->rect().center()));
    }

    void opensOnlyRowsNearby()
    {
        fill(10000);
        const int rowsPerPage = m_view->viewport()->height() / rowWidget(0)->height() + 2;
        for (int value = 0; value < m_view->verticalScrollBar()->maximum();
             value += m_view->viewport()->height() * 40) {
            m_view->verticalScrollBar()->setValue(value);
            QCoreApplication::processEvents();
        }
        m_view->selectTrack(5);
        press(Qt::Key_End);
        QTRY_VERIFY(rowWidget(9999) != nullptr);
        QTRY_VERIFY(rowWidget(0) == nullptr);
        QVERIFY(openRows() <= 3 * rowsPerPage);
    }

    void sparesFocusedAndBlinkingRows()
    {
        fill(1000);
        m_view->selectTrack(0);
        rowWidget(0)->findChild<QToolButton *>()->setFocus();
        m_view->blinkTrack(500);
        QVERIFY(m_view->viewport()->rect().intersects(m_view->visualRect(m_model->index(500, 0))));
        QVERIFY(rowWidget(500)->isBlinking());
        m_view->verticalScrollBar()->setValue(m_view->verticalScrollBar()->maximum());
        QTRY_VERIFY(rowWidget(999) != nullptr);
        QTest::qWait(20);
        QVERIFY(rowWidget(0) != nullptr);
        QVERIFY(rowWidget(500) != nullptr);
        m_view->setFocus();
        QTRY_VERIFY_WITH_TIMEOUT(!rowWidget(500)->isBlinking(), 3000);
        m_view->verticalScrollBar()->setValue(m_view->verticalScrollBar()->maximum() - 1);
        QTRY_VERIFY(rowWidget(0) == nullptr && rowWidget(500) == nullptr);
        m_view->blinkTrack(-1);
        m_view->blinkTrack(1000);
    }

    void leadsByTabToTheButtonsOfTheCurrentRow()
    {
        fill(5);
        m_view->selectTrack(1);
        m_view->selectTrack(3);
        QSignalSpy marks(m_view.get(), &KRTrackListView::markRequested);
        for (int number = 0; number < 4; ++number)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        QCOMPARE(marks, QList<QList<QVariant>>{{3}});
    }

    void showsTheCurrentRow()
    {
        const auto colorOf = [this](int row) {
            return m_view->viewport()->grab().toImage().pixelColor(positionIn(row, 0.1) + QPoint(100, 0));
        };
        fill(2);
        const QColor usual = colorOf(1);
        m_view->selectTrack(1);
        QVERIFY(colorOf(1) != usual);
        QCOMPARE(colorOf(0), usual);

        // Something stands in for a missing name.
        show({named(QStringLiteral(" "))});
        const QImage name =
            m_view->viewport()->grab(QRect(positionIn(0, 0.0) - QPoint(18, 0), QSize(80, 25))).toImage();
        const QColor background = m_view->palette().color(QPalette::Base);
        const QRect text = KRTestPicture::boundsOf(name, [&](const QColor &color) { return color != background; });
        QVERIFY(text.width() > 30);
    }

    void tellsMoreInToolTips()
    {
        const QByteArray lengthy(999999, 'x');
        const QByteArray cut = "<p><b>A</b></p><p>" + lengthy.left(600) + "\u2026</p>";
        const KRTestTable<const char *, const char *, const char *> table{
            {"plain", "A & B", "up\ndown", "<p><b>A &amp; B</b></p><p>up<br>down</p>"},
            {"web page", "A", "<p>see <img src='/dev/zero'><b>more</b></p>", "<p><b>A</b></p><p>see more</p>"},
            {"markup in the name is shown", "<img>", "", "<p><b>&lt;img&gt;</b></p>"},
            {"shortened", "A", lengthy.constData(), cut.constData()},
        };
        table.forEach([&](const char *name, const char *description, const char *expected) {
            show({named(QLatin1String(name), QLatin1String(description))});
            QToolTip::hideText();
            QWidget *const label = rowWidget(0)->childAt(20, 10);
            QHelpEvent help(QEvent::ToolTip, QPoint(3, 3), label->mapToGlobal(QPoint(3, 3)));
            QApplication::sendEvent(label, &help);
            QCOMPARE(QToolTip::text(), QString::fromUtf8(expected));
        });
    }

private:
    void show(const KRGPXConfiguredTrackList &tracks)
    {
        m_model->setSelection(KRGPXTrackSelection(tracks));
        QTRY_VERIFY(rowWidget(0) != nullptr); // as soon as it has been painted
    }

    void fill(int count)
    {
        KRGPXConfiguredTrackList tracks;
        for (int number = 0; number < count; ++number)
            tracks += named(count <= 26 ? QString(QChar('A' + number)) : QStringLiteral("Track %1").arg(number));
        show(tracks);
    }

    void press(Qt::Key key) { QTest::keyClick(m_view.get(), key); }
    void click(int row) { QTest::mouseClick(rowWidget(row), Qt::LeftButton, Qt::NoModifier, QPoint(20, 10)); }
    QString names() const
    {
        QString names;
        for (int row = 0; row < m_model->rowCount(); ++row)
            names += m_model->trackAt(row).name();
        return names;
    }

    RowWidget *rowWidget(int row) const
    {
        return qobject_cast<RowWidget *>(m_view->indexWidget(m_model->index(row, 0)));
    }

    int openRows() const { return m_view->viewport()->findChildren<RowWidget *>().count(); }
    /// In the text of a row; 0 is its upper, 1 its lower edge.
    QPoint positionIn(int row, double part) const
    {
        const QRect rect = m_view->visualRect(m_model->index(row, 0));
        return QPoint(rect.left() + 20, rect.top() + qRound(part * (rect.height() - 1)));
    }

    std::unique_ptr<KRGPXTrackListModel> m_model;
    std::unique_ptr<KRTrackListView> m_view;
};

template class KRTestRegistration<tst_KRTrackListView>;

#include "tst_KRTrackListView.moc"
