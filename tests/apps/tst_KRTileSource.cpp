#include "KRTileSource.h"

#include "KRTest.h"
#include "KRTestPictures.h"
#include "KRTestTiles.h"
#include "KRTileDecoder.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRInputLimits.h>

#include <QBuffer>
#include <QImage>

#include <sys/stat.h>

using Texts = QHash<QString, QString>;

class tst_KRTileSource : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_dir = std::make_unique<QTemporaryDir>(); }

    void tilesAreFound()
    {
        const KRTestTable<const char *> table{
            {"MBTiles, rows from the south", "a.mbtiles"},
            {"folder", "folder"},
            {"folder as an address", "file:folder"},
            {"template", "folder/{z}/{x}/{y}.png"},
            {"template, rows from the south", "flipped/{z}-{x}-{-y}.tile"},
        };
        const KRTileKeyList keys = KRTestTiles::pyramid(0, 3);
        KRTestTiles::writeMbtiles(path(QStringLiteral("a.mbtiles")), keys);
        KRTestTiles::writeFolder(path(QStringLiteral("folder")), keys);
        for (const KRTileKey &key : keys) {
            const int row = (1 << key.zoom) - 1 - key.y;
            KRTestTiles::writeFile(path(QStringLiteral("flipped/%1-%2-%3.tile")).arg(key.zoom).arg(key.x).arg(row),
                                   KRTestTiles::picture(key));
        }
        table.forEach([&](const char *given) {
            const QString text = QLatin1String(given);
            const bool isAddress = text.startsWith(QLatin1String("file:"));
            const QString name = isAddress ? QStringLiteral("file://") + path(text.mid(5)) : path(text);

            const std::unique_ptr<KRTileSource> source = KRTileSource::open(name, nullptr);
            QVERIFY(source != nullptr);
            for (const KRTileKey &key : keys)
                QCOMPARE(colorOf(ask(source.get(), key)), KRTestTiles::color(key));
            QCOMPARE(ask(source.get(), {4, 3, 3}).kind, KRTileAnswer::Absent);
        });
    }

    void whatCannotBeOpened()
    {
        // word: of the reason
        const KRTestTable<const char *, const char *> table{
            {"nothing there", "@missing.mbtiles", "gefunden"},
            {"a database of something else", "@other.mbtiles", "keine MBTiles"},
            {"a damaged database", "@damaged.mbtiles", "gelesen"},
            {"vectors", "@vectors.mbtiles", "Vektoren"},
            {"a pipe for the journal", "@journal.mbtiles", "„journal.mbtiles-journal“"},
            {"a folder for the log", "@log.mbtiles", "„log.mbtiles-wal“"},
            {"a pipe", "@pipe.mbtiles", "keine gewöhnliche Datei"},
            {"a folder without tiles", "@empty", "keine Kacheln"},
            {"no folder for the template", "@nowhere/{z}/{x}/{y}.png", "Ordner"},
            {"no row", "https://tiles.example/{z}/{x}.png", "{y}"},
            {"unknown place", "https://tiles.example/{z}/{x}/{y}{r}.png", "{r}"},
            {"another protocol", "ftp://tiles.example/{z}/{x}/{y}.png", "http://"},
        };
        KRTestTiles::writeFile(path(QStringLiteral("damaged.mbtiles")),
                               QByteArrayLiteral("SQLite format 3\0") + QByteArray(5000, 'x'));
        KRTestTiles::runSql(path(QStringLiteral("other.mbtiles")), {QStringLiteral("CREATE TABLE songs (name text)")});
        KRTestTiles::writeMbtiles(path(QStringLiteral("vectors.mbtiles")), {},
                                  {{QStringLiteral("format"), QStringLiteral("pbf")}});
        for (const char *name : {"journal.mbtiles", "log.mbtiles"})
            KRTestTiles::writeMbtiles(path(QLatin1String(name)), {});
        QCOMPARE(::mkfifo(QFile::encodeName(path(QStringLiteral("pipe.mbtiles"))).constData(), 0600), 0);
        QCOMPARE(::mkfifo(QFile::encodeName(path(QStringLiteral("journal.mbtiles-journal"))).constData(), 0600), 0);
        for (const char *folder : {"empty", "log.mbtiles-wal"})
            QVERIFY(QDir(m_dir->path()).mkdir(QLatin1String(folder)));

        table.forEach([&](const char *given, const char *word) {
            KRErrorHistory history;
            const QString text = QLatin1String(given);
            const QString name = text.startsWith(QLatin1Char('@')) ? path(text.mid(1)) : text;
            QVERIFY(KRTileSource::open(name, &history) == nullptr);
            QCOMPARE(history.entries().size(), 1);
            QVERIFY2(history.entries().first().reason.contains(QString::fromUtf8(word)),
                     qPrintable(history.entries().first().reason));
        });
    }

    void creditIsPlainText()
    {
        const KRTestTable<KRText, KRText> table{
            {"link", "&copy; <a title='>' href=\"https://x.example\">Stadt</a>\n<img src=\"x\"/> &amp; Land",
             "© Stadt & Land"},
            {"blocks", "<P>B&uuml;ro<br/>Stadt</P><p>L<b>an</b>d", "Büro Stadt Land"},
            {"no tags", "a < b &lt;i&gt; 'c", "a < b <i> 'c"},
            {"nothing to see", "<!-- a > b --><style>p {}</style>Stadt", "Stadt"},
            {"a table that would fill the memory", "<table><tr><td colspan=30000 rowspan=30000>Stadt</td></tr></table>",
             "Stadt"},
            {"long", QString(4096, QLatin1Char('<')), QString(300, QLatin1Char('<'))},
        };
        table.forEach([](const QString &html, const QString &expected) {
            const QTemporaryDir dir;
            const QString file = dir.filePath(QStringLiteral("a.mbtiles"));
            KRTestTiles::writeMbtiles(file, {}, {{QStringLiteral("attribution"), html}});
            QCOMPARE(KRTileSource::open(file, nullptr)->credit(), expected);
        });
    }

    void nothingIsWrittenBeside()
    {
        const QString file = path(QStringLiteral("a b%20?#.mbtiles"));
        KRTestTiles::writeMbtiles(file, KRTestTiles::pyramid(0, 0));
        KRTestTiles::runSql(file, {QStringLiteral("PRAGMA journal_mode = WAL")});
        QVERIFY(QFile::link(file, path(QStringLiteral("link.mbtiles"))));
        const QStringList before = QDir(m_dir->path()).entryList();
        for (const QString &name : {file, path(QStringLiteral("link.mbtiles"))}) {
            const std::unique_ptr<KRTileSource> source = KRTileSource::open(name, nullptr);
            QVERIFY(source != nullptr);
            QCOMPARE(ask(source.get(), {0, 0, 0}).kind, KRTileAnswer::Found);
            QCOMPARE(QDir(m_dir->path()).entryList(), before);
        }
    }

    void levels()
    {
        const QString lowest = QStringLiteral("minzoom");
        const QString highest = QStringLiteral("maxzoom");
        const KRTestTable<Texts, KRIntRange> table{
            {"as the file says", Texts{{lowest, QStringLiteral("1")}, {highest, QStringLiteral("4")}},
             KRIntRange(1, 4)},
            {"as the tiles are", Texts{}, KRIntRange(2, 3)},
            {"beyond all bounds", Texts{{lowest, QStringLiteral("-5")}, {highest, QStringLiteral("2000000")}},
             KRIntRange(0, KRTileKey::largestZoom)},
            {"the wrong way round", Texts{{lowest, QStringLiteral("4")}, {highest, QStringLiteral("1")}},
             KRIntRange(4, 4)},
        };
        table.forEach([&](const Texts &metadata, const KRIntRange &expected) {
            init();
            const QString file = path(QStringLiteral("a.mbtiles"));
            KRTestTiles::writeMbtiles(file, KRTestTiles::pyramid(2, 3), metadata);
            const KRIntRange range = KRTileSource::open(file, nullptr)->zoomRange();
            QCOMPARE(range.minimum(), expected.minimum());
            QCOMPARE(range.maximum(), expected.maximum());
        });
    }

    void levelsOfLargeFiles()
    {
        // Few rows that take long stand for very many.
        const QString file = path(QStringLiteral("a.mbtiles"));
        KRTestTiles::runSql(
            file,
            {QStringLiteral("CREATE TABLE map (zoom_level int, tile_column int, tile_row int, tile_data blob)"),
             QStringLiteral("CREATE INDEX levels ON map (zoom_level)"),
             QStringLiteral("WITH RECURSIVE numbers(n) AS (SELECT 0 UNION ALL SELECT n + 1 FROM numbers LIMIT 8000) "
                            "INSERT INTO map SELECT 3 + n % 6, n, n, 'x' FROM numbers"),
             QStringLiteral("CREATE VIEW tiles AS SELECT * FROM map "
                            "WHERE NOT EXISTS (SELECT 1 FROM map other WHERE other.tile_row < 0 * map.tile_row)")});
        const std::unique_ptr<KRTileSource> source = KRTileSource::open(file, nullptr);
        const KRIntRange range = source->zoomRange();
        QCOMPARE(range.minimum(), 3);
        QCOMPARE(range.maximum(), 8);
        QCOMPARE(ask(source.get(), {3, 0, 7}).kind, KRTileAnswer::Found);
    }

    void viewsAndComputedColumns()
    {
        const auto view = [](const QString &select) { return QStringLiteral("CREATE VIEW tiles AS ") + select; };
        const auto tile = [view](const QString &value) {
            return view(
                QStringLiteral("SELECT 0 AS zoom_level, 0 AS tile_column, 0 AS tile_row, %1 AS tile_data").arg(value));
        };
        QString longText = QStringLiteral("SELECT 'Kachel' AS x");
        for (int i = 0; i < 7; ++i)
            longText =
                QStringLiteral("SELECT x || x || x || x || x || x || x || x AS x FROM (%1) LIMIT 1").arg(longText);
        QStringList longTexts;
        for (int i = 0; i < 60; ++i)
            longTexts << QStringLiteral("x || %1").arg(i);
        QStringList multiplied;
        QString part = QStringLiteral("SELECT 0 AS i");
        for (int i = 0; i < 3; ++i) {
            multiplied << QStringLiteral("CREATE VIEW v%1 AS ").arg(i) + part
                              + (QStringLiteral(" UNION ALL ") + part).repeated(39);
            part = QStringLiteral("SELECT i FROM v%1").arg(i);
        }

        // word: of the problem; none where the tile is found
        const KRTestTable<QStringList, const char *> table{
            {"map and pictures",
             {QStringLiteral("CREATE TABLE map (zoom_level int, tile_column int, tile_row int, tile_id text)"),
              QStringLiteral("CREATE TABLE images (tile_id text, tile_data blob)"),
              QStringLiteral("INSERT INTO map VALUES (0, 0, 0, 'a')"),
              QStringLiteral("INSERT INTO images VALUES ('a', 'Kachel')"),
              view(
                  QStringLiteral("SELECT map.zoom_level AS zoom_level, map.tile_column AS tile_column, map.tile_row AS "
                                 "tile_row, images.tile_data AS tile_data FROM map JOIN images ON images.tile_id = "
                                 "map.tile_id"))},
             ""},
            {"harmless functions", {tile(QStringLiteral("coalesce(substr(lower('X'), 1, max(1, abs(-1))), 'y')"))}, ""},
            {"another function", {tile(QStringLiteral("instr('abc', 'b')"))}, "rechnet"},
            {"a pattern", {tile(QStringLiteral("'abc' LIKE '%b%'"))}, "rechnet"},
            {"a column that is a function",
             {QStringLiteral("CREATE TABLE tiles (zoom_level, tile_column, tile_row, tile_data AS (hex(tile_row)))"),
              QStringLiteral("INSERT INTO tiles VALUES (0, 0, 0)")},
             "rechnet"},
            {"such a column elsewhere",
             {QStringLiteral("CREATE TABLE metadata (name, value AS (replace('pbx', 'x', 'f')))"),
              QStringLiteral("INSERT INTO metadata VALUES ('format')"), tile(QStringLiteral("'Kachel'"))},
             ""},
            {"recursion",
             {tile(QStringLiteral("(WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n LIMIT 3) SELECT i "
                                  "FROM n)"))},
             "rechnet"},
            {"a virtual table", {tile(QStringLiteral("(SELECT value FROM json_each('[1]'))"))}, "json_each"},
            {"views that multiply", multiplied << tile(QStringLiteral("(SELECT i FROM v2 LIMIT 1)")), "Speicher"},
            {"long values",
             {tile(
                 QStringLiteral("(SELECT length(max(%1)) FROM (%2))").arg(longTexts.join(QLatin1Char(',')), longText))},
             "Speicher"},
            {"rows without end",
             {QStringLiteral("CREATE TABLE n (i)"), QStringLiteral("INSERT INTO n VALUES (0), (1), (2), (3), (4), (5)"),
              tile(QStringLiteral("(SELECT 1 FROM n a, n b, n c, n d, n e, n f, n g, n h, n i, n j, n k "
                                  "WHERE a.i + b.i + c.i + d.i + e.i + f.i + g.i + h.i + i.i + j.i + k.i < 0)"))},
             "langsam"},
        };
        table.forEach([&](const QStringList &statements, const char *word) {
            init();
            const QString file = path(QStringLiteral("a.mbtiles"));
            KRTestTiles::runSql(file, statements);
            KRErrorHistory history;
            const std::unique_ptr<KRTileSource> source = KRTileSource::open(file, &history);
            const KRTileAnswer answer = source ? ask(source.get(), {0, 0, 0}) : KRTileAnswer();
            const QString reason = source ? answer.reason : history.entries().first().reason;
            QCOMPARE(answer.kind == KRTileAnswer::Found, *word == '\0');
            QVERIFY2(reason.contains(QLatin1String(word)), qPrintable(reason));
        });
    }

    void slowTilesAddUp()
    {
        const QString file = path(QStringLiteral("a.mbtiles"));
        KRTestTiles::runSql(
            file, {QStringLiteral("CREATE TABLE n (i)"), QStringLiteral("INSERT INTO n VALUES (0), (1), (2), (3), (4)"),
                   QStringLiteral("CREATE VIEW tiles AS SELECT 0 AS zoom_level, 0 AS tile_column, 0 AS tile_row, "
                                  "coalesce((SELECT 1 FROM n a, n b, n c, n d, n e, n f, n g, n h WHERE a.i + b.i + "
                                  "c.i + d.i + e.i + f.i + g.i + h.i < 0), 'Kachel') AS tile_data")});
        const std::unique_ptr<KRTileSource> source = KRTileSource::open(file, nullptr);
        QVERIFY(source != nullptr);
        QCOMPARE(ask(source.get(), {0, 0, 0}).kind, KRTileAnswer::Found);
        KRTileAnswer answer;
        for (int i = 0; i < 100 && answer.kind != KRTileAnswer::Failed; ++i)
            answer = ask(source.get(), {0, 0, 0});
        QVERIFY2(answer.reason.contains(QLatin1String("langsam")), qPrintable(answer.reason));
    }

    void tilesWithoutAnIndex()
    {
        const auto filled = [](const char *table, const char *values) {
            return QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n LIMIT 50000) "
                                  "INSERT INTO %1 SELECT %2 FROM n")
                .arg(QLatin1String(table), QLatin1String(values));
        };
        // count: of tiles; those of the plain table take more time together than any file may beyond that of each query
        const KRTestTable<QStringList, int> table{
            {"plain table, whose pictures of two pages come before their numbers",
             {QStringLiteral("PRAGMA page_size = 512"),
              QStringLiteral("CREATE TABLE tiles (tile_data blob, zoom_level int, tile_column int, tile_row int)"),
              filled("tiles", "zeroblob(850), 9, i / 512, i % 512")},
             20},
            {"map and pictures",
             {QStringLiteral("CREATE TABLE metadata (name text, value text)"),
              QStringLiteral("INSERT INTO metadata VALUES ('minzoom', 9), ('maxzoom', 9)"),
              QStringLiteral("CREATE TABLE map (zoom_level int, tile_column int, tile_row int, tile_id text)"),
              QStringLiteral("CREATE TABLE images (tile_id text, tile_data blob)"),
              filled("map", "9, i / 512, i % 512, 't' || i"), filled("images", "'t' || i, zeroblob(500)"),
              QStringLiteral("CREATE VIEW tiles AS SELECT zoom_level, tile_column, tile_row, tile_data FROM map "
                             "JOIN images ON images.tile_id = map.tile_id")},
             12},
        };
        table.forEach([&](const QStringList &statements, int count) {
            init();
            const QString file = path(QStringLiteral("a.mbtiles"));
            KRTestTiles::runSql(file, QStringList(QStringLiteral("PRAGMA synchronous = OFF")) + statements);
            const std::unique_ptr<KRTileSource> source = KRTileSource::open(file, nullptr);
            QVERIFY(source != nullptr);
            QCOMPARE(source->zoomRange().minimum(), 9);
            // The last ones: who searches for them passes all others.
            for (int i = 49999; i > 49999 - count; --i) {
                const KRTileAnswer answer = ask(source.get(), {9, i / 512, 511 - i % 512});
                QVERIFY2(answer.kind == KRTileAnswer::Found, qPrintable(answer.reason));
            }
        });
    }

    void schemaChangesWhileOpen()
    {
        const QString file = path(QStringLiteral("a.mbtiles"));
        KRTestTiles::writeMbtiles(file, KRTestTiles::pyramid(0, 1));
        const std::unique_ptr<KRTileSource> source = KRTileSource::open(file, nullptr);
        QCOMPARE(ask(source.get(), {0, 0, 0}).kind, KRTileAnswer::Found);
        KRTestTiles::runSql(file, {QStringLiteral("DELETE FROM tiles WHERE zoom_level = 0")});
        QCOMPARE(ask(source.get(), {0, 0, 0}).kind, KRTileAnswer::Absent);
        QCOMPARE(ask(source.get(), {1, 0, 0}).kind, KRTileAnswer::Found);
        KRTestTiles::runSql(file, {QStringLiteral("ALTER TABLE tiles RENAME TO others"),
                                   QStringLiteral("CREATE VIEW tiles AS SELECT * FROM others")});
        const KRTileAnswer answer = ask(source.get(), {1, 0, 0});
        QCOMPARE(answer.kind, KRTileAnswer::Failed);
        QVERIFY2(answer.reason.contains(QStringLiteral("verändert")), qPrintable(answer.reason));
    }

    void pipesBesideAnOpenFile()
    {
        const QString file = path(QStringLiteral("a.mbtiles"));
        KRTestTiles::writeMbtiles(file, KRTestTiles::pyramid(1, 1));
        const std::unique_ptr<KRTileSource> source = KRTileSource::open(file, nullptr);
        for (const char *suffix : {"-journal", "-wal"}) {
            const QString pipe = file + QLatin1String(suffix);
            QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
            const KRTileAnswer answer = ask(source.get(), {1, 0, 0});
            QCOMPARE(answer.kind, KRTileAnswer::Failed);
            QVERIFY2(answer.reason.contains(QFileInfo(pipe).fileName()), qPrintable(answer.reason));
            QCOMPARE(source->zoomRange().maximum(), 0);
            QVERIFY(QFile::remove(pipe));
            QCOMPARE(ask(source.get(), {1, 0, 0}).kind, KRTileAnswer::Found);
        }
    }

    void severalThreadsReadOneFile()
    {
        const QString file = path(QStringLiteral("a.mbtiles"));
        const KRTileKeyList keys = KRTestTiles::pyramid(0, 4);
        KRTestTiles::writeMbtiles(file, keys);
        QAtomicInt wrong = 0;
        std::vector<std::unique_ptr<QThread>> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back(QThread::create([&] {
                const std::unique_ptr<KRTileSource> source = KRTileSource::open(file, nullptr);
                for (const KRTileKey &key : keys) {
                    if (colorOf(ask(source.get(), key)) != KRTestTiles::color(key))
                        wrong.ref();
                }
            }));
            threads.back()->start();
        }
        for (const auto &thread : threads)
            QVERIFY(thread->wait(60000));
        QCOMPARE(wrong.loadAcquire(), 0);
    }

    void brokenTiles()
    {
        const QByteArray good = KRTestTiles::picture({2, 1, 1});
        QByteArray huge = good;
        huge.replace(16, 8, QByteArray::fromHex("0000753000007530")); // width and height in the header
        // word: of the problem; none where there is a picture
        const KRTestTable<QByteArray, const char *> table{
            {"good PNG", good, ""},
            {"good JPEG", KRTestTiles::picture({2, 1, 1}, 256, "jpg"), ""},
            {"good JPEG of many scans", KRTestPictures::jpeg({KRInputLimits::jpegScans}), ""},
            {"JPEG of too many scans", KRTestPictures::jpeg({20, 1024}), "Durchgängen"},
            {"PNG of many texts", KRTestPictures::pngWith(good, "zTXt", QByteArray(99, '\0'), 1000), ""},
            {"PNG with something behind it", good + QByteArray("SEFT trailer"), ""},
            {"PNG of many chunks",
             KRTestPictures::pngWith(good, "IDAT", {}, KRInputLimits::pictureBytesBesidePixels / 12), "Pixeln"},
            {"good WebP", KRTestTiles::picture({2, 1, 1}, 256, "webp"), ""},
            {"large, reduced", KRTestTiles::picture({2, 1, 1}, KRInputLimits::tileSide), ""},
            {"a web page", "<html>Login</html>", "weder"},
            {"a bitmap", KRTestTiles::picture({2, 1, 1}, 256, "bmp"), "weder"},
            {"30000 pixels wide", huge, "Größe"},
            {"cut off in the header", good.left(20), "e"},
        };
        table.forEach([](const QByteArray &bytes, const char *word) {
            QString problem;
            const QImage image = KRTileDecoder::decode(bytes, &problem);
            QCOMPARE(problem.isEmpty(), *word == '\0');
            QCOMPARE(image.isNull(), !problem.isEmpty());
            QVERIFY2(problem.contains(QString::fromUtf8(word)), qPrintable(problem));
            QVERIFY(image.width() == image.height() && image.width() <= KRTileDecoder::largestSide);
        });
    }

    void picturesOfTilesHaveNoTexts()
    {
        QImage tile(256, 256, QImage::Format_ARGB32_Premultiplied);
        tile.fill(Qt::green);
        tile.setText(QStringLiteral("Title"), QStringLiteral("Karte"));
        for (const char *format : {"png", "jpg"}) {
            QBuffer buffer;
            QVERIFY(tile.save(&buffer, format));
            QVERIFY(!QImage::fromData(buffer.data()).textKeys().isEmpty());
            QString problem;
            const QImage picture = KRTileDecoder::decode(buffer.data(), &problem);
            QCOMPARE(picture.size(), tile.size());
            QCOMPARE(picture.textKeys(), QStringList());
        }
    }

    void filesThatAreNoFiles()
    {
        const QString folder = path(QStringLiteral("tiles"));
        KRTestTiles::writeFile(folder + QStringLiteral("/0/0/0.png"), KRTestTiles::picture({0, 0, 0}));
        KRTestTiles::writeFile(folder + QStringLiteral("/1/0/0.png"), QByteArray(KRInputLimits::tileBytes + 1, ' '));
        QVERIFY(QDir().mkpath(folder + QStringLiteral("/1/0/1.png")));
        QVERIFY(QDir().mkpath(folder + QStringLiteral("/1/1")));
        QCOMPARE(::mkfifo(QFile::encodeName(folder + QStringLiteral("/1/1/0.png")).constData(), 0600), 0);
        QVERIFY(QFile::link(QStringLiteral("1.png"), folder + QStringLiteral("/1/1/1.png")));

        const std::unique_ptr<KRTileSource> source = KRTileSource::open(folder, nullptr);
        QVERIFY(source != nullptr);
        for (const KRTileKey &key : KRTestTiles::pyramid(1, 1)) {
            const KRTileAnswer answer = ask(source.get(), key);
            QCOMPARE(answer.kind, KRTileAnswer::Failed);
            QVERIFY(!answer.reason.isEmpty());
        }

        const QString file = path(QStringLiteral("a.mbtiles"));
        KRTestTiles::writeMbtiles(file, {});
        KRTestTiles::runSql(file, {QStringLiteral("INSERT INTO tiles VALUES (0, 0, 0, zeroblob(9000000))")});
        QCOMPARE(ask(KRTileSource::open(file, nullptr).get(), {0, 0, 0}).kind, KRTileAnswer::Failed);
    }

private:
    QString path(const QString &name) const { return m_dir->filePath(name); }
    static KRTileAnswer ask(KRTileSource *source, const KRTileKey &key)
    {
        KRTileAnswer found;
        found.kind = KRTileAnswer::Overloaded;
        const QObject receiver;
        connect(source, &KRTileSource::answered, &receiver, [&](const KRTileKey &answered, const KRTileAnswer &answer) {
            if (answered == key)
                found = answer;
        });
        source->request(key);
        return found;
    }

    static QColor colorOf(const KRTileAnswer &answer)
    {
        QString problem;
        const QImage image = KRTileDecoder::decode(answer.bytes, &problem);
        return image.isNull() ? QColor() : image.pixelColor(image.rect().center());
    }

    std::unique_ptr<QTemporaryDir> m_dir;
};

template class KRTestRegistration<tst_KRTileSource>;

#include "tst_KRTileSource.moc"
