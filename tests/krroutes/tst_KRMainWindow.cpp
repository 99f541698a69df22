#include "KRMainWindow.h"

#include "KRAutosave.h"
#include "KRDialogAnswer.h"
#include "KRImportReportDialog.h"
#include "KRLookEditor.h"
#include "KRMapView.h"
#include "KRPlaceEdit.h"
#include "KRPlacesPanel.h"
#include "KRTestRegistry.h"
#include "KRTrackListView.h"
#include "KRViewerSettings.h"

#include <QAction>
#include <QComboBox>
#include <QDockWidget>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPrintPreviewDialog>
#include <QProgressDialog>
#include <QPushButton>
#include <QSpinBox>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QString sample(const char *name)
{
    return QStringLiteral(KR_SAMPLES_DIR "/") + QLatin1String(name);
}

void press(QWidget *dialog, QMessageBox::StandardButton button)
{
    auto *const box = qobject_cast<QMessageBox *>(dialog);
    QVERIFY(box != nullptr);
    QTest::mouseClick(box->button(button), Qt::LeftButton);
}

/// Clicks the button whose text begins so, without its mnemonic.
void pressText(QWidget *dialog, const QString &text)
{
    const QList<QPushButton *> buttons = dialog->findChildren<QPushButton *>();
    for (QPushButton *const button : buttons) {
        if (button->text().remove(QLatin1Char('&')).startsWith(text)) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    QFAIL("no such button");
}

void chooseFile(QWidget *dialog, const QString &fileName)
{
    auto *const fileDialog = qobject_cast<QFileDialog *>(dialog);
    QVERIFY(fileDialog != nullptr);
    auto *const edit = fileDialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    edit->setText(fileName); // typed, it would be completed, whose list takes the key that follows
    QTest::keyClick(edit, Qt::Key_Return);
}

QByteArray contentOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class tst_KRMainWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void opensSavesAndReopens();
    void asksBeforeChangesAreLost();
    void failedSaveKeepsTheChanges();
    void doesNotOverwriteWhatOthersWrote();
    void tellsWhatIsNotDrawn();
    void importIsCancelled();
    void importKeepsTheWindow();
    void brokenDocumentIsRefusedWithItsReason();
    void filesAreDropped();
    void tracksAreEditedByKeys();
    void clickOnTheMapSelectsTheTrack();
    void trackIsSplitWhereTheMapWasClicked();
    void lookIsChangedAndUndone();
    void placesAndFlightLinesAreAdded();
    void mapIsExportedAndPrinted();
    void everyAreaIsReachedByKey();
    void noKeyStandsForTwoThings();
    void windowIsRemembered();
    void unsavedWorkIsOfferedAfterACrash();

private:
    QString path(const QString &name) const { return m_dir->filePath(name); }
    void makeWindow();
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier)
    {
        // Shortcuts are those of the active window, which a dialog has been until now.
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        QTest::keyClick(m_window.get(), key, modifiers);
    }
    QStringList names() const;
    KRGPXConfiguredTrack track(int row) const { return m_window->workspace()->selection().value(row); }
    /// Once the map has found out where the tracks lie.
    void waitForMap() const;
    QPoint pixelOf(const KRGeoPosition &position) const;

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<KRMainWindow> m_window;
};

static const KRTestRegistration<tst_KRMainWindow> registration;

void tst_KRMainWindow::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    makeWindow();
}

void tst_KRMainWindow::cleanup()
{
    m_window.reset();
}

void tst_KRMainWindow::makeWindow()
{
    m_window = std::make_unique<KRMainWindow>(QDir(path(QStringLiteral("recovery"))));
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

QStringList tst_KRMainWindow::names() const
{
    QStringList list;
    const KRGPXConfiguredTrackList tracks = m_window->workspace()->selection().tracks();
    for (const KRGPXConfiguredTrack &track : tracks)
        list.append(track.name());
    return list;
}

void tst_KRMainWindow::waitForMap() const
{
    constexpr double worldWidthOfCountiesPx = 20000.0;
    QTRY_VERIFY(m_window->map()->viewport().worldWidth() > worldWidthOfCountiesPx);
    QTRY_VERIFY(m_window->map()->isUpToDate());
}

QPoint tst_KRMainWindow::pixelOf(const KRGeoPosition &position) const
{
    return m_window->map()->viewport().pixelOf(position).toPoint();
}

void tst_KRMainWindow::opensSavesAndReopens()
{
    {
        KRDialogAnswer answers({[](QWidget *dialog) { chooseFile(dialog, sample("oldenburg-radtour.gpx")); },
                                [this](QWidget *dialog) { chooseFile(dialog, path(QStringLiteral("Reise"))); }});
        key(Qt::Key_O);
        QVERIFY(m_window->isWindowModified());
        key(Qt::Key_S);
        QVERIFY(answers.isDone());
    }
    QVERIFY(!m_window->isWindowModified());
    QVERIFY(m_window->windowTitle().startsWith(QLatin1String("Reise[*]")));
    const QStringList saved = names();
    QVERIFY(!saved.isEmpty());
    const QString document = path(QStringLiteral("Reise.krroute"));
    QCOMPARE(KRViewerSettings().recentFiles().first(), document);

    key(Qt::Key_N);
    QVERIFY(names().isEmpty());
    m_window->openFiles({document});
    QCOMPARE(names(), saved);
    QVERIFY(!m_window->isWindowModified());
    key(Qt::Key_Q);
    QVERIFY(!m_window->isVisible());
}

void tst_KRMainWindow::asksBeforeChangesAreLost()
{
    const QString document = path(QStringLiteral("Reise.krroute"));
    m_window->openFiles({sample("oldenburg-radtour.gpx")});
    QVERIFY(m_window->workspace()->save(document, nullptr));
    m_window->workspace()->setCroppingOpacity(99);
    KRDialogAnswer answers({[](QWidget *dialog) { QTest::keyClick(dialog, Qt::Key_Escape); },
                            [](QWidget *dialog) { press(dialog, QMessageBox::Cancel); },
                            [](QWidget *dialog) { press(dialog, QMessageBox::Save); },
                            [](QWidget *dialog) { press(dialog, QMessageBox::Discard); }});
    key(Qt::Key_Q);
    QVERIFY(m_window->isVisible());
    m_window->openFiles({document});
    QCOMPARE(m_window->workspace()->selection().nominalCroppingOpacity(), 99);
    QVERIFY(m_window->isWindowModified());
    key(Qt::Key_N);
    QVERIFY(names().isEmpty());
    m_window->openFiles({document});
    QCOMPARE(m_window->workspace()->selection().nominalCroppingOpacity(), 99);
    m_window->workspace()->setCroppingOpacity(98);
    key(Qt::Key_Q);
    QVERIFY(!m_window->isVisible());
    QVERIFY(answers.isDone());
}

void tst_KRMainWindow::failedSaveKeepsTheChanges()
{
    QFile inTheWay(path(QStringLiteral("Reise.tracks")));
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    m_window->openFiles({sample("oldenburg-radtour.gpx")});
    QString message;
    KRDialogAnswer answers({[](QWidget *dialog) { press(dialog, QMessageBox::Save); },
                            [this](QWidget *dialog) { chooseFile(dialog, path(QStringLiteral("Reise"))); },
                            [&](QWidget *dialog) {
                                message = qobject_cast<QMessageBox *>(dialog)->text();
                                press(dialog, QMessageBox::Ok);
                            }});
    key(Qt::Key_Q);
    QVERIFY(answers.isDone());
    QVERIFY2(message.contains(inTheWay.fileName()), qPrintable(message));
    QVERIFY(m_window->isVisible());
    QVERIFY(m_window->isWindowModified());
}

void tst_KRMainWindow::doesNotOverwriteWhatOthersWrote()
{
    const QString document = path(QStringLiteral("Reise.krroute"));
    QVERIFY(m_window->workspace()->save(document, nullptr));
    m_window->openFiles({sample("oldenburg-radtour.gpx")});
    QTest::qWait(20);
    QFile other(document);
    QVERIFY(other.open(QIODevice::WriteOnly));
    other.write("newer");
    other.close();
    {
        KRDialogAnswer answers({[](QWidget *dialog) { QTest::keyClick(dialog, Qt::Key_Return); }});
        key(Qt::Key_S);
        QVERIFY(answers.isDone());
    }
    QCOMPARE(contentOf(document), QByteArray("newer"));
    QVERIFY(m_window->isWindowModified());

    // A route of another program that the user names is not replaced by a document either.
    const QString gpx = path(QStringLiteral("tour.gpx"));
    QVERIFY(QFile::copy(sample("oldenburg-radtour.gpx"), gpx));
    KRDialogAnswer answers(
        {[&](QWidget *dialog) { chooseFile(dialog, gpx); }, [](QWidget *dialog) { press(dialog, QMessageBox::Yes); }});
    key(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(answers.isDone());
    QCOMPARE(contentOf(gpx), contentOf(sample("oldenburg-radtour.gpx")));
    QCOMPARE(m_window->workspace()->fileName(), gpx + QStringLiteral(".krroute"));
}

void tst_KRMainWindow::tellsWhatIsNotDrawn()
{
    QFile kml(path(QStringLiteral("Karte.kml")));
    QVERIFY(kml.open(QIODevice::WriteOnly));
    kml.write("<kml><Document><NetworkLink><name>Wetter</name></NetworkLink><Placemark><name>Ort</name><Point>"
              "<coordinates>8.2,53.1</coordinates></Point></Placemark></Document></kml>");
    kml.close();
    const auto *const map = m_window->findChild<KRMapView *>();
    QString text;
    KRGeoPosition seenMeanwhile;
    KRDialogAnswer answers({[&](QWidget *dialog) {
        seenMeanwhile = map->viewport().center();
        text = qobject_cast<KRImportReportDialog *>(dialog)->text();
        QTest::keyClick(dialog, Qt::Key_Escape);
    }});
    m_window->openFiles({kml.fileName(), path(QStringLiteral("fehlt.gpx"))});
    QVERIFY(answers.isDone());
    QCOMPARE(seenMeanwhile, map->viewport().center());
    QCOMPARE(names(), QStringList(QStringLiteral("Ort")));
    QCOMPARE(KRViewerSettings().recentFiles().first(), kml.fileName());
    QVERIFY2(text.contains(QLatin1String("Wetter")) && text.contains(QLatin1String("fehlt.gpx")), qPrintable(text));
}

void tst_KRMainWindow::importIsCancelled()
{
    QTimer::singleShot(0, m_window.get(), [this] { m_window->findChild<QProgressDialog *>()->cancel(); });
    m_window->openFiles({sample("oldenburg-radtour.gpx"), sample("zwischenahner-meer-ufer.gpx")});
    QVERIFY(names().isEmpty());
    QVERIFY(!m_window->isWindowModified());
    m_window->openFiles({sample("oldenburg-radtour.gpx")});
    QVERIFY(!names().isEmpty());
}

void tst_KRMainWindow::importKeepsTheWindow()
{
    const QString document = path(QStringLiteral("Reise.krroute"));
    QVERIFY(m_window->workspace()->save(document, nullptr));
    bool isAlive = false;
    QTimer::singleShot(0, m_window.get(), [&] {
        isAlive = names().isEmpty();
        m_window->close();
        m_window->openFiles({sample("zwischenahner-meer-ufer.gpx")});
        m_window->openFiles({document});
    });
    m_window->openFiles({sample("oldenburg-radtour.gpx")});
    QVERIFY(isAlive);
    QVERIFY(m_window->isVisible());
    const QStringList imported = names();
    m_window->workspace()->startNew();
    m_window->openFiles({sample("oldenburg-radtour.gpx")});
    QCOMPARE(imported, names());
}

void tst_KRMainWindow::brokenDocumentIsRefusedWithItsReason()
{
    QFile broken(path(QStringLiteral("Kaputt.krroute")));
    QVERIFY(broken.open(QIODevice::WriteOnly));
    broken.write("<routes>\n<selection");
    broken.close();
    QString message;
    KRDialogAnswer answers({[&](QWidget *dialog) {
        message = qobject_cast<QMessageBox *>(dialog)->text();
        press(dialog, QMessageBox::Ok);
    }});
    m_window->openFiles({broken.fileName()});
    QVERIFY(answers.isDone());
    QVERIFY2(message.contains(broken.fileName() + QStringLiteral(":2:")), qPrintable(message));
    QVERIFY(m_window->workspace()->fileName().isEmpty());
}

void tst_KRMainWindow::filesAreDropped()
{
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(sample("oldenburg-radtour.gpx")),
                   QUrl::fromLocalFile(sample("zwischenahner-meer-ufer.gpx"))});
    QDragEnterEvent entering(QPoint(10, 10), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_window.get(), &entering);
    QVERIFY(entering.isAccepted());
    QDropEvent drop(QPointF(10, 10), Qt::CopyAction | Qt::MoveAction, &files, Qt::LeftButton, Qt::ShiftModifier);
    drop.setDropAction(Qt::MoveAction);
    QCoreApplication::sendEvent(m_window.get(), &drop);
    QCOMPARE(drop.dropAction(), Qt::CopyAction); // or the file manager deletes the files
    QTRY_VERIFY(!names().isEmpty());
    QCOMPARE(m_window->workspace()->undoStack()->count(), 1);
    QVERIFY(m_window->workspace()->undoStack()->undoText().contains(QString::number(names().size())));
}

void tst_KRMainWindow::tracksAreEditedByKeys()
{
    const QString tour = QStringLiteral("Radtour um Oldenburg");
    m_window->openFiles({sample("oldenburg-radtour.gpx")});
    const KRGPXTrackSelection opened = m_window->workspace()->selection();
    QCOMPARE(names(), QStringList(tour));
    const auto rename = [](QWidget *dialog) {
        QTest::keyClicks(dialog->findChild<QLineEdit *>(), QStringLiteral("Tour"));
        QTest::keyClick(dialog, Qt::Key_Return);
    };
    KRDialogAnswer answers({rename, rename});
    key(Qt::Key_F2, Qt::NoModifier);
    QCOMPARE(names(), QStringList(QStringLiteral("Tour")));
    key(Qt::Key_R);
    QVERIFY(track(0).firstPoint() == opened.lastPoint());
    key(Qt::Key_D);
    QCOMPARE(names(), QStringList({QStringLiteral("Tour"), QStringLiteral("Tour (Kopie)")}));
    key(Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(names(), QStringList({QStringLiteral("Tour (Kopie)"), QStringLiteral("Tour")}));
    key(Qt::Key_Down, Qt::AltModifier);
    key(Qt::Key_F2, Qt::NoModifier); // still the copy
    QCOMPARE(names(), QStringList({QStringLiteral("Tour"), QStringLiteral("Tour")}));
    m_window->trackList()->selectTrack(0);
    key(Qt::Key_J);
    QCOMPARE(names().size(), 1);
    QCOMPARE(track(0).track().countPoints(), 2 * opened.value(0).track().countPoints());
    key(Qt::Key_Delete, Qt::NoModifier);
    QVERIFY(names().isEmpty());
    QVERIFY(answers.isDone());

    for (int step = 0; step < 8; ++step)
        key(Qt::Key_Z);
    QVERIFY(m_window->workspace()->selection() == opened);
    QVERIFY(!m_window->workspace()->model()->tracks().isEmpty());
}

void tst_KRMainWindow::clickOnTheMapSelectsTheTrack()
{
    m_window->openFiles({sample("oldenburg-radtour.gpx"), sample("zwischenahner-meer-ufer.gpx")});
    waitForMap();
    const QPoint place = pixelOf(track(1).allPoints().at(50));
    QCOMPARE(m_window->map()->hitAt(place).row, 1);
    QCOMPARE(m_window->trackList()->currentTrack(), 0);
    QTest::mouseClick(m_window->map(), Qt::LeftButton, Qt::NoModifier, place);
    QTRY_COMPARE(m_window->trackList()->currentTrack(), 1);
    QTest::mouseClick(m_window->map(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    QTRY_COMPARE(m_window->trackList()->currentTrack(), -1);
}

void tst_KRMainWindow::trackIsSplitWhereTheMapWasClicked()
{
    m_window->openFiles({sample("oldenburg-radtour.gpx")});
    const KRGeoPosition position = track(0).allPoints().at(30);
    waitForMap();
    QCOMPARE(m_window->map()->hitAt(pixelOf(position)).row, 0);
    QContextMenuEvent event(QContextMenuEvent::Mouse, pixelOf(position),
                            m_window->map()->mapToGlobal(pixelOf(position)));
    QCoreApplication::sendEvent(m_window->map(), &event);
    QTRY_VERIFY(QApplication::activePopupWidget() != nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_T);
    QCOMPARE(names().size(), 2);
    QVERIFY(track(0).lastPoint().distance(position) < 0.1);
}

void tst_KRMainWindow::lookIsChangedAndUndone()
{
    m_window->openFiles({sample("oldenburg-radtour.gpx"), sample("zwischenahner-meer-ufer.gpx")});
    const double before = track(0).lineWidth().toDouble();
    const KRGPXTrackShape shape = track(1).configuration().trackShape();
    auto *const editor = m_window->findChild<KRLookEditor *>();
    const QList<QSpinBox *> boxes = editor->findChildren<QSpinBox *>();
    const auto width =
        std::find_if(boxes.cbegin(), boxes.cend(), [=](const QSpinBox *box) { return box->value() == qRound(before); });
    QVERIFY(width != boxes.cend());
    QTest::keyClick(*width, Qt::Key_Up);
    QTest::keyClick(*width, Qt::Key_Up);
    QCOMPARE(track(0).lineWidth().toDouble(), before + 2.0);
    QVERIFY(track(1).lineWidth().toDouble() != before + 2.0);
    emit editor->applyToAllRequested();
    QCOMPARE(track(1).lineWidth().toDouble(), before + 2.0);
    QCOMPARE(track(1).configuration().trackShape(), shape);
    key(Qt::Key_Z);
    key(Qt::Key_Z);
    QCOMPARE(track(0).lineWidth().toDouble(), before);
    QCOMPARE((*width)->value(), qRound(before));
}

void tst_KRMainWindow::placesAndFlightLinesAreAdded()
{
    key(Qt::Key_L);
    auto *const search = m_window->findChild<KRPlacesPanel *>()->findChild<QLineEdit *>();
    QTest::keyClicks(search, QStringLiteral("Sydney"));
    QTest::keyClick(search, Qt::Key_Return);
    QCOMPARE(names(), QStringList(QStringLiteral("Sydney")));
    QVERIFY(track(0).isSinglePoint());

    KRDialogAnswer answers({[](QWidget *dialog) {
        const QList<KRPlaceEdit *> places = dialog->findChildren<KRPlaceEdit *>();
        QTest::keyClicks(places.at(0)->findChild<QComboBox *>(), QStringLiteral("Oldenburg"));
        QTest::keyClicks(places.at(1)->findChild<QComboBox *>(), QStringLiteral("Sydney"));
        pressText(dialog, QStringLiteral("Einfügen"));
    }});
    key(Qt::Key_F);
    QVERIFY(answers.isDone());
    QCOMPARE(names().size(), 2);
    QVERIFY(track(1).track().countPoints() > 50);
    QCOMPARE(m_window->trackList()->currentTrack(), 1);
}

void tst_KRMainWindow::mapIsExportedAndPrinted()
{
    m_window->openFiles({sample("oldenburg-radtour.gpx")});
    waitForMap();
    const QString file = path(QStringLiteral("Tour.gpx"));
    bool isPreview = false;
    KRDialogAnswer answers({[&](QWidget *dialog) {
                                QTest::keyClicks(dialog->findChild<QComboBox *>(), QStringLiteral("GPX"));
                                auto *const edit = dialog->findChild<QLineEdit *>(QStringLiteral("file"));
                                edit->clear();
                                QTest::keyClicks(edit, file);
                                pressText(dialog, QStringLiteral("Exportieren"));
                            },
                            [&](QWidget *dialog) {
                                isPreview = qobject_cast<QPrintPreviewDialog *>(dialog) != nullptr;
                                dialog->close();
                            }});
    key(Qt::Key_E);
    QVERIFY(contentOf(file).contains("Radtour um Oldenburg"));
    QVERIFY(m_window->statusBar()->currentMessage().contains(file));
    key(Qt::Key_P);
    QVERIFY(isPreview);
    QVERIFY(answers.isDone());
}

void tst_KRMainWindow::everyAreaIsReachedByKey()
{
    m_window->openFiles({sample("oldenburg-radtour.gpx")});
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(m_window->map()));
    QSet<QWidget *> areas;
    for (int i = 0; i < 4; ++i) {
        areas.insert(QApplication::focusWidget());
        key(Qt::Key_F6, Qt::NoModifier);
    }
    QCOMPARE(areas.size(), 4);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(m_window->map()));
    key(Qt::Key_F6, Qt::ShiftModifier);
    QVERIFY(QApplication::focusWidget() != m_window->map());
}

void tst_KRMainWindow::noKeyStandsForTwoThings()
{
    const auto ambiguous = [](const QStringList &texts) {
        QMultiMap<QString, QString> textsOfKeys;
        for (const QString &text : texts)
            textsOfKeys.insert(QKeySequence::mnemonic(text).toString(), text);
        QStringList found;
        for (const QString &key : textsOfKeys.uniqueKeys()) {
            if (!key.isEmpty() && textsOfKeys.count(key) > 1)
                found += textsOfKeys.values(key);
        }
        return found.join(QLatin1Char(' '));
    };
    const auto textsOf = [](const QWidget *menu) {
        QStringList texts;
        for (const QAction *action : menu->actions())
            texts += action->text();
        return texts;
    };
    m_window->workspace()->addTracks({KRGPXConfiguredTrack()}, QStringLiteral("Hin & zurück"));
    for (const QMenu *menu : m_window->findChildren<QMenu *>())
        QCOMPARE(ambiguous(textsOf(menu)), QString());

    QStringList texts = textsOf(m_window->menuBar());
    for (const QLabel *label : m_window->findChildren<QLabel *>()) {
        if (label->buddy() != nullptr)
            texts += label->text();
    }
    for (const QAbstractButton *button : m_window->findChildren<QAbstractButton *>())
        texts += button->text();
    QCOMPARE(ambiguous(texts), QString());
    QCOMPARE(m_window->workspace()->undoStack()->undoText(), QStringLiteral("Hin && zurück"));
}

void tst_KRMainWindow::windowIsRemembered()
{
    m_window->resize(1000, 700);
    auto *const profile = m_window->findChild<QDockWidget *>(QStringLiteral("profile"));
    profile->toggleViewAction()->trigger();
    QVERIFY(m_window->close());
    makeWindow();
    QVERIFY(!m_window->findChild<QDockWidget *>(QStringLiteral("profile"))->isVisible());
    QVERIFY(m_window->findChild<QDockWidget *>(QStringLiteral("figures"))->isVisible());
    QCOMPARE(m_window->size(), QSize(1000, 700));
    m_window->findChild<QDockWidget *>(QStringLiteral("profile"))->show();
    m_window->close();
}

void tst_KRMainWindow::unsavedWorkIsOfferedAfterACrash()
{
    const QDir place(path(QStringLiteral("recovery")));
    {
        // A folder of which nobody holds the lock any more.
        const std::unique_ptr<KRRecoveryFolder> folder = KRRecoveryFolder::create(place);
        QVERIFY(folder->setDocumentFile(path(QStringLiteral("Reise.krroute"))));
        KRRouteWorkspace crashed;
        crashed.addTracks(m_window->workspace()->selection().tracks(), QString());
        crashed.setCroppingOpacity(7);
        QVERIFY(crashed.save(folder->recoveryFile(), nullptr));
    }
    {
        KRDialogAnswer answers({[](QWidget *dialog) { QTest::keyClick(dialog, Qt::Key_Escape); }});
        m_window->offerRecovery();
        QVERIFY(answers.isDone());
    }
    QVERIFY(!m_window->isWindowModified());
    KRDialogAnswer answers({[](QWidget *dialog) { pressText(dialog, QStringLiteral("Wiederherstellen")); }});
    m_window->offerRecovery();
    m_window->offerRecovery();
    QVERIFY(answers.isDone());
    QCOMPARE(m_window->workspace()->selection().nominalCroppingOpacity(), 7);
    QVERIFY(m_window->isWindowModified());
    QVERIFY(m_window->windowTitle().startsWith(QLatin1String("Reise[*]")));
}

#include "tst_KRMainWindow.moc"
