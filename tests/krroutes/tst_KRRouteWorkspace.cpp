#include "KRRouteWorkspace.h"

#include "KRTest.h"
#include "KRTestTrack.h"
#include "KRWorkspaceFile.h"

#include <KRTrackEditing.h>

namespace {

KRGPXConfiguredTrack track(const QString &name)
{
    return KRGPXConfiguredTrack(KRTestTrack::through({{53.1, 8.2}, {53.2, 8.3}}, LineStringTrackShape, name),
                                KRGPXTrackConfiguration::defaultValue());
}

KRGPXConfiguredTrackList tracks(const char *letters)
{
    KRGPXConfiguredTrackList list;
    for (const QChar letter : QString::fromLatin1(letters))
        list.append(track(letter));
    return list;
}

KRGPXTrackConfiguration withWidth(double width)
{
    KRGPXTrackConfiguration configuration = track(QString()).configuration();
    configuration.setLineWidth(width);
    return configuration;
}

} // namespace

using Edit = std::function<void(KRRouteWorkspace *)>;

class tst_KRRouteWorkspace : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_workspace = std::make_unique<KRRouteWorkspace>();
        m_workspace->addTracks(tracks("ABCD"), QStringLiteral("hinzufügen"));
    }

    void everyEditIsUndone()
    {
        const KRTestTable<Edit, const char *> table{
            {"add", Edit([](auto *w) { w->addTracks(tracks("EF"), QString()); }), "ABCDEF"},
            {"replace", Edit([](auto *w) { w->replaceTracks(1, 2, tracks("X"), QString()); }), "AXD"},
            {"add the same once more", Edit([](auto *w) { w->replaceTracks(3, 0, tracks("DD"), QString()); }),
             "ABCDDD"},
            {"remove", Edit([](auto *w) { w->removeTrack(3); }), "ABC"},
            {"move down", Edit([](auto *w) { w->moveTrack(0, 2); }), "BCAD"},
            {"look of one", Edit([](auto *w) { w->setConfiguration(2, withWidth(3.0)); }), "ABCD"},
            {"look of all", Edit([](auto *w) { w->setConfigurationToAll(withWidth(3.0)); }), "ABCD"},
            {"cropping", Edit([](auto *w) { w->setCroppingOpacity(40); }), "ABCD"},
        };
        table.forEach([&](const Edit &edit, const char *names) {
            init();
            const KRGPXTrackSelection before = m_workspace->selection();
            QSignalSpy changes(m_workspace.get(), &KRRouteWorkspace::selectionChanged);

            edit(m_workspace.get());
            const KRGPXTrackSelection after = m_workspace->selection();
            QVERIFY(after != before);
            QCOMPARE(shown(), QString::fromUtf8(names));
            QCOMPARE(changes.count(), 1);

            m_workspace->undoStack()->undo();
            QVERIFY(m_workspace->selection() == before);
            QVERIFY(m_workspace->model()->tracks() == before.tracks());
            m_workspace->undoStack()->redo();
            QVERIFY(m_workspace->selection() == after);
            QVERIFY(m_workspace->model()->tracks() == after.tracks());
            QCOMPARE(changes.count(), 3);
        });
    }

    void editsOfNothingAreNoSteps()
    {
        m_workspace->removeTrack(4);
        m_workspace->moveTrack(1, 1);
        m_workspace->replaceTracks(3, 2, tracks("X"), QString());
        m_workspace->replaceTracks(-1, 1, tracks("X"), QString());
        m_workspace->setConfiguration(0, withWidth(10.0));
        m_workspace->setCroppingOpacity(255);
        QCOMPARE(m_workspace->undoStack()->count(), 1);
        QCOMPARE(shown(), QStringLiteral("ABCD"));
    }

    void rowsSurviveWhereTheyCan()
    {
        QSignalSpy resets(m_workspace->model(), &QAbstractItemModel::modelReset);
        QSignalSpy changes(m_workspace->model(), &QAbstractItemModel::dataChanged);
        m_workspace->setConfiguration(2, withWidth(3.0));
        QCOMPARE(changes.count(), 1);
        QCOMPARE(changes.first().at(0).value<QModelIndex>().row(), 2);
        m_workspace->moveTrack(0, 3);
        m_workspace->undoStack()->undo();
        m_workspace->undoStack()->undo();
        QCOMPARE(resets.count(), 0);
        m_workspace->removeTrack(0);
        QCOMPARE(resets.count(), 1);
    }

    void dropIsOneStep()
    {
        KRGPXTrackListModel *const model = m_workspace->model();
        const std::unique_ptr<QMimeData> dragged(model->mimeData({model->index(0, 0), model->index(1, 0)}));
        QVERIFY(model->dropMimeData(dragged.get(), Qt::MoveAction, model->rowCount(), 0, QModelIndex()));
        QCOMPARE(m_workspace->undoStack()->count(), 2);
        QCOMPARE(shown(), QStringLiteral("CDAB"));
        QCoreApplication::processEvents();
        QCOMPARE(m_workspace->undoStack()->count(), 2);
        m_workspace->undoStack()->undo();
        QCOMPARE(shown(), QStringLiteral("ABCD"));
    }

    void moveInTheModelComesBeforeTheNextEdit()
    {
        m_workspace->model()->moveTrack(0, 3);
        m_workspace->removeTrack(0);
        QCOMPARE(shown(), QStringLiteral("CDA"));
        m_workspace->undoStack()->undo();
        m_workspace->undoStack()->undo();
        QCOMPARE(shown(), QStringLiteral("ABCD"));

        m_workspace->model()->moveTrack(0, 3);
        QTRY_COMPARE(m_workspace->undoStack()->count(), 2);
        QCOMPARE(shown(), QStringLiteral("BCDA"));
    }

    void longNamesDoNotFillTheMenu()
    {
        m_workspace->addTracks({track(QString(1000, QLatin1Char('x')))}, QString());
        m_workspace->removeTrack(4);
        const QString text = m_workspace->undoStack()->undoText();
        QVERIFY2(text.size() < 100 && text.endsWith(QStringLiteral("löschen")), qPrintable(text));
    }

    void quickRepetitionsMerge()
    {
        for (int width = 1; width < 10; ++width)
            m_workspace->setConfiguration(1, withWidth(width));
        QCOMPARE(m_workspace->undoStack()->count(), 2);
        m_workspace->setConfiguration(2, withWidth(3.0));
        QCOMPARE(m_workspace->undoStack()->count(), 3);
        QTest::qWait(1100);
        m_workspace->setConfiguration(2, withWidth(4.0));
        QCOMPARE(m_workspace->undoStack()->count(), 4);
        m_workspace->setCroppingOpacity(100);
        m_workspace->setCroppingOpacity(255); // the way back leaves no step
        QCOMPARE(m_workspace->undoStack()->count(), 4);
        m_workspace->undoStack()->setIndex(1);
        QCOMPARE(m_workspace->selection().value(1).lineWidth().toDouble(), 10.0);
    }

    void oldStepsAreForgottenWhereAllTakeMuchMemory()
    {
        const auto many = [](int letter) {
            KRGPXConfiguredTrackList list;
            for (int i = 0; i < 50000; ++i)
                list.append(i == 0 ? track(QChar(letter)) : list.first());
            return list;
        };
        const auto replaceAll = [&](int letter) {
            m_workspace->replaceTracks(0, m_workspace->selection().count(), many(letter), QString(QChar(letter)));
        };
        for (int letter = 'A'; letter <= 'H'; ++letter)
            replaceAll(letter);
        QUndoStack *const stack = m_workspace->undoStack();
        const QSignalSpy cleanChanges(stack, &QUndoStack::cleanChanged);
        int undone = 0;
        for (; stack->canUndo(); ++undone) {
            QCOMPARE(stack->undoText(), QString(QChar('H' - undone)));
            stack->undo();
            QCOMPARE(m_workspace->selection().value(0).name(), QString(QChar('G' - undone)));
        }
        QVERIFY2(undone > 1 && undone < 7, qPrintable(QString::number(undone)));
        QVERIFY(m_workspace->isModified());
        QCOMPARE(cleanChanges.count(), 0);
        QCOMPARE(stack->count(), undone);
        stack->setIndex(undone);
        QVERIFY(m_workspace->selection().tracks() == many('H'));

        // The last state that is come back to may be the saved one.
        m_workspace->startNew();
        for (int letter = 'A'; letter <= 'H'; ++letter) {
            replaceAll(letter);
            if (letter == 'H' - undone)
                stack->setClean();
        }
        while (stack->canUndo())
            stack->undo();
        QCOMPARE(m_workspace->selection().value(0).name(), QString(QChar('H' - undone)));
        QVERIFY(!m_workspace->isModified());

        // What both states share counts for nothing.
        QList<KRGeoPosition> positions;
        for (int i = 0; i < 1000; ++i)
            positions.append(KRGeoPosition(53.0, 8.0 + i / 1000.0));
        const KRGPXConfiguredTrack way(KRTestTrack::through(positions), KRGPXTrackConfiguration::defaultValue());
        const KRGPXConfiguredTrack other = track(QStringLiteral("other"));
        const auto bytes = [&](const KRGPXConfiguredTrackList &after) {
            const KRGPXConfiguredTrackList before{way, other};
            return KRSelectionChange(KRGPXTrackSelection(before), KRGPXTrackSelection(after), {}, {}).bytes();
        };
        QVERIFY(bytes({KRTrackEditing::renamed(way, QStringLiteral("new")), other}) < 1000);
        QVERIFY(bytes({other, way}) < 1000);
        QVERIFY(bytes({KRTrackEditing::reversed(way), other}) > 16000);
    }

    void savedStateIsNotModified()
    {
        const QTemporaryDir dir;
        const QString file = dir.filePath(QStringLiteral("Reise.krroute"));
        m_workspace->setCroppingOpacity(100);
        QVERIFY(m_workspace->isModified());
        QVERIFY(KRWorkspaceFile::save(m_workspace.get(), file));
        QVERIFY(!m_workspace->isModified());
        // Nothing merges with a step that has been saved.
        m_workspace->setCroppingOpacity(99);
        QVERIFY(m_workspace->isModified());
        m_workspace->undoStack()->undo();
        QVERIFY(!m_workspace->isModified());

        KRRouteWorkspace other;
        QSignalSpy replaced(&other, &KRRouteWorkspace::documentReplaced);
        QVERIFY(KRWorkspaceFile::open(&other, file));
        QVERIFY(other.selection() == m_workspace->selection());
        QCOMPARE(other.fileName(), file);
        QVERIFY(!other.isModified());
        QVERIFY(!other.undoStack()->canUndo());
        other.startNew();
        QVERIFY(other.selection().isEmpty());
        QCOMPARE(replaced.count(), 2);
    }

private:
    QString shown() const
    {
        const QString names = KRTestTrack::names(m_workspace->selection().tracks(), {});
        return names == KRTestTrack::names(m_workspace->model()->tracks(), {}) ? names
                                                                               : QStringLiteral("model differs");
    }

    std::unique_ptr<KRRouteWorkspace> m_workspace;
};

template class KRTestRegistration<tst_KRRouteWorkspace>;

#include "tst_KRRouteWorkspace.moc"
