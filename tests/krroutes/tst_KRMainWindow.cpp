#include "KRAutosave.h"
#include "KRDialogAnswer.h"
#include "KRGroundMenu.h"
#include "KRGroundSettings.h"
#include "KRImportReportDialog.h"
#include "KRLookEditor.h"
#include "KRMainWindowTest.h"
#include "KRMapView.h"
#include "KRPlaceEdit.h"
#include "KRPlacesPanel.h"
#include "KRTemporarySettings.h"
#include "KRTest.h"
#include "KRTestFile.h"
#include "KRTrackListView.h"
#include "KRViewerSettings.h"

#include <KRRouteDocument.h>

#include <QPrintPreviewDialog>
#include <QtWidgets>

class tst_KRMainWindow : public KRMainWindowTest
{
    Q_OBJECT

private slots:
    void opensSavesAndReopens()
    {
        {
            KRDialogAnswer answers({KRDialogAnswer::file(m_tour), KRDialogAnswer::file(path("Reise"))});
            key(Qt::Key_O);
            QVERIFY(m_window->isWindowModified());
            key(Qt::Key_S);
            QVERIFY(answers.isDone());
        }
        QVERIFY(!m_window->isWindowModified());
        QVERIFY(m_window->windowTitle().startsWith(QLatin1String("Reise[*]")));
        const QString saved = names();
        QVERIFY(!saved.isEmpty());
        QCOMPARE(KRViewerSettings().recentFiles().first(), path("Reise.krroute"));

        key(Qt::Key_N);
        QVERIFY(names().isEmpty());
        m_window->openFiles({path("Reise.krroute")});
        QCOMPARE(names(), saved);
        QVERIFY(!m_window->isWindowModified());
        key(Qt::Key_Q);
        QVERIFY(!m_window->isVisible());
    }

    void asksBeforeChangesAreLost()
    {
        const QString document = path("Reise.krroute");
        m_window->openFiles({m_tour});
        QVERIFY(save(document));
        workspace()->setCroppingOpacity(99);
        KRDialogAnswer answers({KRDialogAnswer::key(Qt::Key_Escape), KRDialogAnswer::button(QMessageBox::Cancel),
                                KRDialogAnswer::button(QMessageBox::Save),
                                KRDialogAnswer::button(QMessageBox::Discard)});
        key(Qt::Key_Q);
        QVERIFY(m_window->isVisible());
        m_window->openFiles({document});
        QCOMPARE(opacity(), 99);
        QVERIFY(m_window->isWindowModified());
        key(Qt::Key_N);
        QVERIFY(names().isEmpty());
        m_window->openFiles({document});
        QCOMPARE(opacity(), 99);
        workspace()->setCroppingOpacity(98);
        key(Qt::Key_Q);
        QVERIFY(!m_window->isVisible());
        QVERIFY(answers.isDone());
    }

    void failedSaveKeepsTheChanges()
    {
        KRTestFile::write(path("Reise.tracks"), "in the way");
        m_window->openFiles({m_tour});
        QString message;
        KRDialogAnswer answers({KRDialogAnswer::button(QMessageBox::Save), KRDialogAnswer::file(path("Reise")),
                                KRDialogAnswer::button(QMessageBox::Ok, &message)});
        key(Qt::Key_Q);
        QVERIFY(answers.isDone());
        QVERIFY2(message.contains(path("Reise.tracks")), qPrintable(message));
        QVERIFY(m_window->isVisible() && m_window->isWindowModified());
        QVERIFY(workspace()->fileName().isEmpty());
    }

    void doesNotOverwriteWhatOthersWrote()
    {
        const QString document = path("Reise.krroute");
        QVERIFY(save(document));
        m_window->openFiles({m_tour});
        QTest::qWait(20);
        KRTestFile::write(document, "newer");
        {
            KRDialogAnswer answers({KRDialogAnswer::key(Qt::Key_Return)});
            key(Qt::Key_S);
            QVERIFY(answers.isDone());
        }
        QCOMPARE(KRTestFile::content(document), QByteArray("newer"));
        QVERIFY(m_window->isWindowModified());

        // A route of another program that the user names is not replaced by a document either.
        const QString gpx = KRTestFile::write(path("tour.gpx"), "of others");
        // What would be replaced is asked for.
        KRTestFile::write(gpx + QStringLiteral(".krroute"), "older");
        KRDialogAnswer answers({KRDialogAnswer::file(gpx), KRDialogAnswer::key(Qt::Key_Escape),
                                KRDialogAnswer::file(gpx),
                                [](QWidget *dialog) { KRDialogAnswer::press(*dialog, "Überschreiben"); }});
        key(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(answers.isDone());
        QCOMPARE(KRTestFile::content(gpx), QByteArray("of others"));
        QCOMPARE(workspace()->fileName(), gpx + QStringLiteral(".krroute"));
    }

    void tellsWhatIsNotDrawn()
    {
        const QString kml =
            KRTestFile::write(path("Karte.kml"),
                              "<kml><Document><NetworkLink><name>Wetter</name></NetworkLink><Placemark><name>Ort</name>"
                              "<Point><coordinates>8.2,53.1</coordinates></Point></Placemark></Document></kml>");
        const QString broken = KRTestFile::write(path("Kaputt.krroute"), "<routes>\n<selection");
        QString text;
        QString message;
        KRGeoPosition seenMeanwhile;
        KRDialogAnswer answers({[&](QWidget *dialog) {
                                    seenMeanwhile = m_window->map()->viewport().center();
                                    text = qobject_cast<KRImportReportDialog *>(dialog)->text();
                                    QTest::keyClick(dialog, Qt::Key_Escape);
                                },
                                KRDialogAnswer::button(QMessageBox::Ok, &message)});
        m_window->openFiles({kml, path("fehlt.gpx")});
        QCOMPARE(seenMeanwhile, m_window->map()->viewport().center());
        QCOMPARE(names(), QStringLiteral("Ort"));
        QCOMPARE(KRViewerSettings().recentFiles().first(), kml);
        QVERIFY2(text.contains(QLatin1String("Wetter")) && text.contains(QLatin1String("fehlt.gpx")), qPrintable(text));

        workspace()->undoStack()->setClean();
        m_window->openFiles({broken});
        QVERIFY(answers.isDone());
        QVERIFY2(message.contains(broken + QStringLiteral(":2:")), qPrintable(message));
        QVERIFY(workspace()->fileName().isEmpty());
        QCOMPARE(names(), QStringLiteral("Ort"));
    }

    void filesAreDropped()
    {
        QMimeData files;
        files.setUrls({QUrl::fromLocalFile(m_tour), QUrl(QStringLiteral("file:")), QUrl::fromLocalFile(m_lake)});
        QDragEnterEvent entering(QPoint(10, 10), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_window.get(), &entering);
        QVERIFY(entering.isAccepted());
        QDropEvent drop(QPointF(10, 10), Qt::CopyAction | Qt::MoveAction, &files, Qt::LeftButton, Qt::ShiftModifier);
        drop.setDropAction(Qt::MoveAction);
        QCoreApplication::sendEvent(m_window.get(), &drop);
        QCOMPARE(drop.dropAction(), Qt::CopyAction); // or the file manager deletes the files
        QTRY_VERIFY(!names().isEmpty());
        QCOMPARE(workspace()->undoStack()->count(), 1);
        QVERIFY(workspace()->undoStack()->undoText().contains(QString::number(workspace()->selection().count())));
    }

    void tracksAreEditedByKeys()
    {
        m_window->openFiles({m_tour});
        const KRGPXTrackSelection opened = workspace()->selection();
        const auto rename = [](QWidget *dialog) {
            QTest::keyClicks(dialog->findChild<QLineEdit *>(), QStringLiteral("Tour"));
            QTest::keyClick(dialog, Qt::Key_Return);
        };
        KRDialogAnswer answers({rename, rename});
        key(Qt::Key_F2, Qt::NoModifier);
        QCOMPARE(names(), QStringLiteral("Tour"));
        key(Qt::Key_R);
        QVERIFY(track(0).firstPoint() == opened.lastPoint());
        key(Qt::Key_D);
        QCOMPARE(names(), QStringLiteral("Tour/Tour (Kopie)"));
        key(Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(names(), QStringLiteral("Tour (Kopie)/Tour"));
        key(Qt::Key_Down, Qt::AltModifier);
        key(Qt::Key_F2, Qt::NoModifier); // still the copy
        QCOMPARE(names(), QStringLiteral("Tour/Tour"));
        m_window->trackList()->selectTrack(0);
        key(Qt::Key_J);
        QCOMPARE(names(), QStringLiteral("Tour"));
        QCOMPARE(track(0).track().countPoints(), 2 * opened.value(0).track().countPoints());
        key(Qt::Key_Delete, Qt::NoModifier);
        QVERIFY(names().isEmpty());
        QVERIFY(answers.isDone());

        for (int step = 0; step < 8; ++step)
            key(Qt::Key_Z);
        QVERIFY(workspace()->selection() == opened);
        QVERIFY(!workspace()->model()->tracks().isEmpty());
    }

    void unreadableTracksAreNotChanged()
    {
        const QString document = path("Reise.krroute");
        m_window->openFiles({m_tour, m_lake});
        QVERIFY(save(document));
        const KRGPXTrackSelection saved = workspace()->selection();
        QDir share(path("Reise.tracks"));
        for (const QString &name : share.entryList(QDir::Files))
            QVERIFY(share.rename(name, name + QStringLiteral(".away")));
        {
            KRDialogAnswer answers({KRDialogAnswer::key(Qt::Key_Escape)});
            m_window->openFiles({document});
            QVERIFY(answers.isDone());
        }
        KRDialogAnswer answers({});
        for (int row = 0; row < 2; ++row) {
            m_window->trackList()->selectTrack(row);
            key(Qt::Key_F2, Qt::NoModifier);
            for (const Qt::Key letter : {Qt::Key_D, Qt::Key_R, Qt::Key_J})
                key(letter);
        }
        QVERIFY(answers.isDone());
        key(Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(workspace()->undoStack()->count(), 1);
        key(Qt::Key_S);
        for (const QString &name : share.entryList(QDir::Files))
            QVERIFY(share.rename(name, name.chopped(5)));
        m_window->openFiles({document});
        QCOMPARE(names(), saved.value(1).name() + QLatin1Char('/') + saved.value(0).name());
        QCOMPARE(track(1).track().countPoints(), saved.value(0).track().countPoints());
    }

    void tracksAreChosenAndSplitOnTheMap()
    {
        m_window->openFiles({m_tour, m_lake});
        waitForMap();
        KRMapView *const map = m_window->map();
        QCOMPARE(m_window->trackList()->currentTrack(), 0);
        QTest::mouseClick(map, Qt::LeftButton, Qt::NoModifier, pixelOf(track(1).allPoints().at(50)));
        QTRY_COMPARE(m_window->trackList()->currentTrack(), 1);
        QTest::mouseClick(map, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
        QTRY_COMPARE(m_window->trackList()->currentTrack(), -1);

        const KRGeoPosition position = track(0).allPoints().at(30);
        QContextMenuEvent event(QContextMenuEvent::Mouse, pixelOf(position), map->mapToGlobal(pixelOf(position)));
        QCoreApplication::sendEvent(map, &event);
        QTRY_VERIFY(QApplication::activePopupWidget() != nullptr);
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_T);
        QCOMPARE(workspace()->selection().count(), 3);
        QVERIFY(track(0).lastPoint().distance(position) < 0.3);
    }

    void lookIsChangedAndUndone()
    {
        m_window->openFiles({m_tour, m_lake});
        const double before = track(0).lineWidth().toDouble();
        const KRGPXTrackShape shape = track(1).configuration().trackShape();
        auto *const editor = m_window->findChild<KRLookEditor *>();
        const QList<QSpinBox *> boxes = editor->findChildren<QSpinBox *>();
        const auto width = std::find_if(boxes.cbegin(), boxes.cend(),
                                        [=](const QSpinBox *box) { return box->value() == qRound(before); });
        QVERIFY(width != boxes.cend());
        QTest::keyClick(*width, Qt::Key_Up);
        QTest::keyClick(*width, Qt::Key_Up);
        QCOMPARE(track(0).lineWidth().toDouble(), before + 2.0);
        QVERIFY(track(1).lineWidth().toDouble() != before + 2.0);
        KRDialogAnswer::press(*editor, "Für alle Routen");
        QCOMPARE(track(1).lineWidth().toDouble(), before + 2.0);
        QCOMPARE(track(1).configuration().trackShape(), shape);
        key(Qt::Key_Z);
        key(Qt::Key_Z);
        QCOMPARE(track(0).lineWidth().toDouble(), before);
        QCOMPARE((*width)->value(), qRound(before));
    }

    void placesAndFlightLinesAreAdded()
    {
        key(Qt::Key_L);
        auto *const search = m_window->findChild<KRPlacesPanel *>()->findChild<QLineEdit *>();
        QTest::keyClicks(search, QStringLiteral("Sydney"));
        QTest::keyClick(search, Qt::Key_Return);
        QCOMPARE(names(), QStringLiteral("Sydney"));
        QVERIFY(track(0).isSinglePoint());

        KRDialogAnswer answers({[](QWidget *dialog) {
            const QList<KRPlaceEdit *> places = dialog->findChildren<KRPlaceEdit *>();
            QTest::keyClicks(places.at(0)->findChild<QComboBox *>(), QStringLiteral("Oldenburg"));
            QTest::keyClicks(places.at(1)->findChild<QComboBox *>(), QStringLiteral("Sydney"));
            KRDialogAnswer::press(*dialog, "Einfügen");
        }});
        key(Qt::Key_F);
        QVERIFY(answers.isDone());
        QCOMPARE(names(), QStringLiteral("Sydney/Oldenburg – Sydney"));
        QVERIFY(track(1).track().countPoints() > 50);
        QCOMPARE(m_window->trackList()->currentTrack(), 1);
    }

    void mapIsExportedAndPrinted()
    {
        m_window->openFiles({m_tour});
        waitForMap();
        key(Qt::Key_G);
        const QString file = path("Tour.gpx");
        QString proposal;
        bool isPreview = false;
        KRDialogAnswer answers({[&](QWidget *dialog) {
                                    for (const char *const option : {"legend", "labels"})
                                        if (dialog->findChild<QCheckBox *>(QLatin1String(option))->isChecked())
                                            proposal += QLatin1String(option) + QLatin1Char(' ');
                                    auto *const edit = dialog->findChild<QLineEdit *>(QStringLiteral("file"));
                                    proposal += QFileInfo(edit->text()).completeBaseName();
                                    QTest::keyClicks(dialog->findChild<QComboBox *>(), QStringLiteral("GPX"));
                                    edit->clear();
                                    QTest::keyClicks(edit, file);
                                    KRDialogAnswer::press(*dialog, "Exportieren");
                                },
                                [&](QWidget *dialog) {
                                    isPreview = qobject_cast<QPrintPreviewDialog *>(dialog) != nullptr;
                                    dialog->close();
                                }});
        key(Qt::Key_E);
        QCOMPARE(proposal, QStringLiteral("legend Radtour um Oldenburg"));
        QVERIFY(KRTestFile::content(file).contains("Radtour um Oldenburg"));
        QVERIFY(m_window->statusBar()->currentMessage().contains(file));
        key(Qt::Key_P);
        QVERIFY(isPreview && answers.isDone());
    }

    void everyAreaIsReachedByKey()
    {
        m_window->openFiles({m_tour});
        QSet<QWidget *> areas;
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(QApplication::focusWidget() == m_window->map(), i == 0);
            areas.insert(QApplication::focusWidget());
            key(Qt::Key_F6, Qt::NoModifier);
        }
        QCOMPARE(areas.size(), 4);
        QVERIFY(QApplication::focusWidget() == m_window->map());
        key(Qt::Key_F6, Qt::ShiftModifier);
        QVERIFY(QApplication::focusWidget() != m_window->map());
    }

    void noKeyStandsForTwoThings()
    {
        const auto ambiguous = [](const QStringList &texts) {
            QHash<QString, QString> textsOfKeys;
            QStringList found;
            for (const QString &text : texts) {
                const QString key = QKeySequence::mnemonic(text).toString();
                if (!key.isEmpty() && textsOfKeys.contains(key))
                    found << textsOfKeys.value(key) << text;
                textsOfKeys.insert(key, text);
            }
            return found.join(QLatin1Char(' '));
        };
        const auto textsOf = [](const QWidget *menu) {
            QStringList texts;
            for (const QAction *action : menu->actions())
                texts += action->text();
            return texts;
        };
        workspace()->addTracks({KRGPXConfiguredTrack()}, QStringLiteral("Hin & zurück"));
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
        QCOMPARE(workspace()->undoStack()->undoText(), QStringLiteral("Hin && zurück"));
    }

    void warningsStay()
    {
        const auto isWarned = [this](const char *word) {
            const QList<QLabel *> labels = m_window->statusBar()->findChildren<QLabel *>();
            return std::any_of(labels.cbegin(), labels.cend(), [&](const QLabel *label) {
                return label->isVisible() && label->text().contains(QLatin1String(word));
            });
        };
        KRGroundSettings().setChoice(KRGroundChoice::tiles(QStringLiteral("/nowhere/a.mbtiles"), QString()));
        KRTestFile::write(path("file"), "in the way of the folder");
        m_window = std::make_unique<KRMainWindow>(QDir(path("file")));
        m_window->show();
        KRGroundSettings().setChoice(KRGroundChoice());
        QVERIFY(isWarned("gefunden") && !isWarned("Absturz"));
        workspace()->setCroppingOpacity(7);
        QTRY_VERIFY(isWarned("Absturz"));
        // They give way to a narrow window, however long they are.
        QVERIFY(m_window->statusBar()->minimumSizeHint().width() < 200);
        m_window->statusBar()->showMessage(QStringLiteral("Tip"));
        m_window->statusBar()->clearMessage();
        QVERIFY(isWarned("gefunden") && isWarned("Absturz"));

        QVERIFY(save(path("Reise.krroute")));
        m_window->findChild<KRGroundMenu *>()->setChoice(KRGroundChoice());
        QVERIFY(!isWarned("gefunden") && !isWarned("Absturz"));
    }

    void windowIsRemembered()
    {
        const auto dock = [this](const char *name) { return m_window->findChild<QDockWidget *>(QLatin1String(name)); };
        m_window->resize(1000, 700);
        dock("profile")->toggleViewAction()->trigger();
        QVERIFY(m_window->close());
        makeWindow();
        QVERIFY(!dock("profile")->isVisible());
        QVERIFY(dock("figures")->isVisible());
        QCOMPARE(m_window->size(), QSize(1000, 700));
        dock("profile")->show();
        m_window->close();

        const KRViewerSettings whole;
        QVERIFY(!whole.windowGeometry().isEmpty() && !whole.windowState().isEmpty());
        const KRTemporarySettings temporary;
        KRViewerSettings().setWindow(whole.windowGeometry(), whole.windowState());
        QCOMPARE(KRViewerSettings().windowState(), whole.windowState());
        QSettings(temporary.fileName(), QSettings::IniFormat)
            .setValue(QStringLiteral("viewer/windowState"), whole.windowState().replace(40, 4, "\x7f\xff\xff\xff"));
        QVERIFY(KRViewerSettings().windowState().isEmpty() && KRViewerSettings().windowGeometry().isEmpty());
    }

    void allPanelsFitOnASmallScreen()
    {
        constexpr QSize smallScreen(1280, 680); // without the bars of the desktop and the frame
        const QFont usualFont = QApplication::font();
        const auto restoreFont = qScopeGuard([&] { QApplication::setFont(usualFont); });
        QFont largeFont = usualFont;
        largeFont.setPixelSize(15); // 11 points on most screens
        QApplication::setFont(largeFont);
        makeWindow();
        m_window->openFiles({m_tour});
        const QList<QDockWidget *> docks = m_window->findChildren<QDockWidget *>(QString(), Qt::FindDirectChildrenOnly);
        QCOMPARE(docks.size(), 5);
        const auto fits = [&] {
            const QSize needed = m_window->minimumSizeHint();
            return needed == needed.boundedTo(smallScreen);
        };
        QTRY_VERIFY(fits());
        for (QDockWidget *const dock : docks)
            m_window->addDockWidget(Qt::RightDockWidgetArea, dock, Qt::Vertical);
        m_window->resize(smallScreen);
        QTRY_VERIFY(fits());
        QCOMPARE(m_window->size(), smallScreen);
    }

    void unsavedWorkIsOfferedAfterACrash()
    {
        {
            // A folder of which nobody holds the lock any more.
            const std::unique_ptr<KRRecoveryFolder> folder = KRRecoveryFolder::create(QDir(path("recovery")));
            QVERIFY(folder->setDocument(path("Reise.krroute"), QDateTime()));
            KRRouteWorkspace crashed;
            crashed.setCroppingOpacity(7);
            QVERIFY(crashed.document().save(QFileInfo(folder->recoveryFile()), nullptr));
        }
        {
            KRDialogAnswer answers({KRDialogAnswer::key(Qt::Key_Escape)});
            m_window->offerRecovery();
            QVERIFY(answers.isDone());
        }
        QVERIFY(!m_window->isWindowModified());
        KRDialogAnswer answers({[](QWidget *dialog) { KRDialogAnswer::press(*dialog, "Wiederherstellen"); }});
        m_window->offerRecovery();
        m_window->offerRecovery();
        QVERIFY(answers.isDone());
        QCOMPARE(opacity(), 7);
        QVERIFY(m_window->isWindowModified());
        QVERIFY(m_window->windowTitle().startsWith(QLatin1String("Reise[*]")));
    }

private:
    /// Once the map has found out where the tracks lie.
    void waitForMap() const
    {
        constexpr double worldWidthOfCountiesPx = 20000.0;
        QTRY_VERIFY(m_window->map()->viewport().worldWidth() > worldWidthOfCountiesPx);
        QTRY_VERIFY(m_window->map()->isUpToDate());
    }

    QPoint pixelOf(const KRGeoPosition &position) const
    {
        return m_window->map()->viewport().pixelOf(position).toPoint();
    }
};

template class KRTestRegistration<tst_KRMainWindow>;

#include "tst_KRMainWindow.moc"
