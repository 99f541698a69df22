#include <KRGeoLocation/KRGPXTrackListModel.h>

#include <KRGeoLocation/KRGPXTrackSelection.h>

#include "KRTest.h"

#include <memory>

using Mime = std::unique_ptr<QMimeData>;

namespace {

KRGPXConfiguredTrack namedTrack(const QString &name)
{
    const KRGPXTrack points(name, QStringLiteral("way of ") + name, {}, AutoTrackShape);
    KRGPXTrackConfiguration configuration;
    configuration.setTrackShape(LineStringTrackShape);
    return KRGPXConfiguredTrack(points, configuration);
}

} // namespace

class tst_KRGPXTrackListModel : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        KRGPXConfiguredTrackList tracks;
        for (const char *name : {"A", "B", "C", "D", "E"})
            tracks += namedTrack(QLatin1String(name));
        m_tester.reset();
        m_model = std::make_unique<KRGPXTrackListModel>();
        m_tester = std::make_unique<QAbstractItemModelTester>(m_model.get(),
                                                              QAbstractItemModelTester::FailureReportingMode::QtTest);
        m_model->setSelection(KRGPXTrackSelection(tracks));
    }

    void showsNamesAndDescriptions()
    {
        const QModelIndex first = m_model->index(1, 0);
        const QModelIndex second = m_model->index(1, 1);
        QCOMPARE(first.data(), QVariant(QStringLiteral("B")));
        QVERIFY(!second.data().isValid());
        QCOMPARE(second.data(Qt::EditRole), QVariant(QStringLiteral("B")));
        QCOMPARE(second.data(Qt::ToolTipRole), QVariant(QStringLiteral("way of B")));
        QCOMPARE(m_model->headerData(0, Qt::Horizontal), QVariant(QStringLiteral("Name")));
        QVERIFY(!m_model->headerData(1, Qt::Horizontal).isValid());
        QCOMPARE(m_model->headerData(2, Qt::Vertical), QVariant(3));
        QVERIFY(!m_model->setData(first, QStringLiteral("X")));
        QCOMPARE(m_model->flags(QModelIndex()), Qt::ItemFlags(Qt::ItemIsDropEnabled));
        QVERIFY(m_model->flags(first).testFlag(Qt::ItemIsDragEnabled));
        QCOMPARE(m_model->trackAt(first).name(), QStringLiteral("B"));
        for (const int row : {-1, 5})
            QVERIFY(m_model->trackAt(row) == KRGPXConfiguredTrack());
    }

    void drops()
    {
        // rows dragged, the row dropped in front of, or the one dropped onto
        const KRTestTable<QList<int>, int, int, const char *, int> table{
            {"first row before the last", QList<int>{0}, 4, -1, "BCDEA", 4},
            {"upwards between rows", QList<int>{3, 4}, 1, -1, "ADEBC", 1},
            {"onto a row", QList<int>{4}, -1, 2, "ABECD", 2},
            {"below the last row", QList<int>{1}, 5, -1, "ACDEB", 4},
            {"all to the end", QList<int>{4, 3, 2, 1, 0}, 5, -1, "EDCBA", 4},
            {"several downwards, rows as dragged", QList<int>{0, 1}, 2, -1, "BADCE", 2},
        };
        table.forEach([this](const QList<int> &rows, int row, int parentRow, const char *expected, int target) {
            init();
            QSignalSpy selected(m_model.get(), &KRGPXTrackListModel::pleaseSelectTrack);
            QSignalSpy resets(m_model.get(), &KRGPXTrackListModel::modelReset);
            const Mime data = dragged(rows);
            const QModelIndex parent = m_model->index(parentRow, 0);
            QVERIFY(m_model->dropMimeData(data.get(), Qt::MoveAction, row, row < 0 ? -1 : 0, parent));
            QCOMPARE(names(), QLatin1String(expected));
            QCOMPARE(selected, QList<QVariantList>{QVariantList{target}});
            QVERIFY(resets.isEmpty());
        });
    }

    void survivesAnyPayload()
    {
        const auto list = [](const char *rows) { return QString::fromLatin1(rows).split(QLatin1Char(' ')); };
        const KRTestTable<QStringList, int, KRText> table{
            {"no number", list("x  1"), 0, "ACDEB"},
            {"rows that there are not", list("-1 5 99999999999"), 0, "ACDEB"},
            {"cut off", list("2 1"), 1, "ACEBD"},
        };
        table.forEach([this](const QStringList &rows, int cutBytes, const QString &expected) {
            QByteArray payload;
            QDataStream stream(&payload, QIODevice::WriteOnly);
            for (const QString &row : rows)
                stream << row;
            payload.chop(cutBytes);
            QMimeData data;
            data.setData(QStringLiteral("application/gpxtrack"), payload);
            QVERIFY(m_model->dropMimeData(&data, Qt::MoveAction, -1, -1, QModelIndex()));
            QCOMPARE(names(), expected);
        });
    }

    void refusesOtherData()
    {
        QSignalSpy selected(m_model.get(), &KRGPXTrackListModel::pleaseSelectTrack);
        const Mime data = dragged({0});
        QMimeData text;
        text.setText(QStringLiteral("0"));
        QVERIFY(!m_model->dropMimeData(&text, Qt::MoveAction, -1, -1, QModelIndex()));
        QVERIFY(!m_model->dropMimeData(nullptr, Qt::MoveAction, -1, -1, QModelIndex()));
        QVERIFY(!m_model->dropMimeData(data.get(), Qt::CopyAction, -1, -1, QModelIndex()));
        QVERIFY(m_model->dropMimeData(data.get(), Qt::IgnoreAction, -1, -1, QModelIndex()));
        QCOMPARE(names(), QStringLiteral("ABCDE"));
        m_model->setSelection(KRGPXTrackSelection());
        QVERIFY(m_model->dropMimeData(data.get(), Qt::MoveAction, -1, -1, QModelIndex()));
        QVERIFY(selected.isEmpty());
    }

    void moves()
    {
        QSignalSpy changes(m_model.get(), &KRGPXTrackListModel::dataChanged);
        m_model->moveTrack(3, 1);
        QCOMPARE(names(), QStringLiteral("ADBCE"));
        QCOMPARE(changes.first().first().toModelIndex(), m_model->index(1, 0));
        QCOMPARE(changes.takeFirst().at(1).toModelIndex(), m_model->index(3, 1));
        m_model->moveTrack(2, 2);
        m_model->moveTrack(7, 0);
        QVERIFY(changes.isEmpty());
        m_model->moveTrack(0, 9);
        QCOMPARE(names(), QStringLiteral("DBCEA"));
        QCOMPARE(changes.first().at(1).toModelIndex(), m_model->index(4, 1));
    }

    void resetsOnlyForNewTracks()
    {
        QSignalSpy resets(m_model.get(), &KRGPXTrackListModel::modelReset);
        m_model->setSelection(KRGPXTrackSelection(m_model->tracks()));
        m_model->remove(QModelIndex());
        QVERIFY(resets.isEmpty());
        m_model->addTracks(
            KRGPXConfiguredTrackList({namedTrack(QStringLiteral("F")), namedTrack(QStringLiteral("G"))}));
        m_model->remove(m_model->index(1, 1));
        QCOMPARE(names(), QStringLiteral("ACDEFG"));
        QCOMPARE(resets.count(), 2);
        m_model->setSelection(KRGPXTrackSelection(KRGPXConfiguredTrackList(namedTrack(QStringLiteral("Z")))));
        QCOMPARE(names(), QStringLiteral("Z"));
        QCOMPARE(resets.count(), 3);
    }

    void announcesChangedConfigurations()
    {
        KRGPXTrackConfiguration red = m_model->trackAt(2).configuration();
        QSignalSpy changes(m_model.get(), &KRGPXTrackListModel::dataChanged);
        m_model->setConfiguration(2, red);
        QVERIFY(changes.isEmpty());
        red.setLineColor(Qt::red);
        m_model->setConfiguration(m_model->index(2, 1), red);
        m_model->setConfiguration(5, red);
        m_model->setConfiguration(QModelIndex(), red);
        QCOMPARE(changes.count(), 1);
        QCOMPARE(changes.first().at(0).toModelIndex(), m_model->index(2, 0));
        QCOMPARE(changes.first().at(1).toModelIndex(), m_model->index(2, 1));
        m_model->setConfigurationToAll(red);
        QCOMPARE(changes.count(), 5); // row 2 has it already
        QCOMPARE(m_model->trackAt(4).lineColor(), QColor(Qt::red));
    }

private:
    QString names() const
    {
        QString names;
        for (int row = 0; row < m_model->rowCount(); ++row)
            names += m_model->index(row, 0).data().toString();
        return names;
    }

    Mime dragged(const QList<int> &rows) const
    {
        QModelIndexList indexes;
        for (int row : rows)
            indexes << m_model->index(row, 0) << m_model->index(row, 1); // as a table view does
        return Mime(m_model->mimeData(indexes));
    }

    std::unique_ptr<KRGPXTrackListModel> m_model; // with the tracks A to E
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

template class KRTestRegistration<tst_KRGPXTrackListModel>;

#include "tst_KRGPXTrackListModel.moc"
