#include "KRFencedBlocks.h"
#include "KRRouteImport.h"
#include "KRTestFile.h"
#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <QImage>
#include <QtTest>

/**
 * Runs every command in docs/cookbook.md, in a directory with nothing but the sample routes.
 *
 * Blocks with the mark "run" are commands; "output" behind them is what they print, to the letter, "files" what they
 * leave behind: "name: 800 x 600" for pictures, "name: 3 tracks" for routes. A block with the property "file" is a
 * piece of that source file.
 */
class tst_KRCookbook : public QObject
{
    Q_OBJECT

private slots:
    void commands_data();
    void commands();
    void examplesTellWhatFails();
    void piecesOfSources();

private:
    static QList<KRFencedBlock> page() { return fencedBlocksOf(QStringLiteral(KR_DOCS_DIR "/cookbook.md")); }
};

namespace {

bool needsExamples(const KRFencedBlock &block)
{
    return block.hasMark(QStringLiteral("examples"));
}

/// Like "800 x 600" or "3 tracks"; empty for a picture of a single colour and for what is neither.
QString describe(const QString &fileName)
{
    static const QRegularExpression routes(QStringLiteral("\\.(gpx|kml|kmz|krroute)$"));
    if (fileName.contains(routes)) {
        KRRouteImport import;
        import.read({fileName});
        return QStringLiteral("%1 tracks").arg(import.tracks().size());
    }
    const QImage image(fileName);
    QSet<QRgb> colors;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            colors.insert(image.pixel(x, y));
    return colors.size() > 1 ? QStringLiteral("%1 x %2").arg(image.width()).arg(image.height()) : QString();
}

bool runsToItsEnd(QProcess *shell, const QString &dir, const QString &commands)
{
    shell->setWorkingDirectory(dir);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    environment.remove(QStringLiteral("LANGUAGE"));
    environment.insert(QStringLiteral("PATH"),
                       QStringLiteral(KR_PROGRAMS_DIR ":") + environment.value(QStringLiteral("PATH")));
    shell->setProcessEnvironment(environment);
    shell->start(QStringLiteral("bash"),
                 {QStringLiteral("-euo"), QStringLiteral("pipefail"), QStringLiteral("-c"), commands});
    return shell->waitForFinished(120000) && shell->exitStatus() == QProcess::NormalExit;
}

void compareFiles(const QDir &dir, const KRFencedBlock &files)
{
    const QStringList lines = files.text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        const QString name = line.section(QLatin1Char(':'), 0, 0);
        const QString described = describe(dir.filePath(name));
        QVERIFY2(line == name + QLatin1String(": ") + described, qPrintable(name + QLatin1String(": ") + described));
    }
}

} // namespace

void tst_KRCookbook::commands_data()
{
    QTest::addColumn<int>("index");
    const QList<KRFencedBlock> blocks = page();
    for (int i = 0; i < blocks.size(); ++i) {
        if (blocks.at(i).hasMark(QStringLiteral("run")) && (KR_HAS_EXAMPLES || !needsExamples(blocks.at(i))))
            QTest::newRow(qPrintable(blocks.at(i).place())) << i;
    }
}

void tst_KRCookbook::commands()
{
    QFETCH(int, index);
    const QList<KRFencedBlock> blocks = page();
    const QTemporaryDir dir;
    const QFileInfoList samples = QDir(QStringLiteral(KR_SAMPLES_DIR)).entryInfoList(QDir::Files);
    for (const QFileInfo &sample : samples)
        QVERIFY(QFile::copy(sample.filePath(), dir.filePath(sample.fileName())));

    QProcess shell;
    QVERIFY(runsToItsEnd(&shell, dir.path(), blocks.at(index).text));
    const QString output = QString::fromUtf8(shell.readAllStandardOutput());
    QVERIFY2(shell.exitCode() == 0, shell.readAllStandardError().constData());

    for (int i = index + 1; i < blocks.size() && blocks.at(i).language == QLatin1String("text"); ++i) {
        if (blocks.at(i).hasMark(QStringLiteral("output")))
            QCOMPARE(output, blocks.at(i).text);
        else
            compareFiles(QDir(dir.path()), blocks.at(i));
    }
}

void tst_KRCookbook::examplesTellWhatFails()
{
    if (!KR_HAS_EXAMPLES)
        QSKIP("the examples are not built");
    // Readers copy these programs, so they are to end as programs should.
    const KRTestTable<const char *, QByteArray> table{
        {"picture without tracks", "draw_map a.png none.gpx", "none.gpx: no tracks"},
        {"importer", "own_importer none.csv", "none.csv: no tracks"},
        {"projection", "own_projection a.png none.gpx", "none.gpx: no tracks"},
        {"document without tracks", "store_tracks a.xml none.gpx", "none.gpx: no tracks"},
        {"figures", "track_figures none.gpx", "none.gpx"},
        {"list", "track_list none.gpx", "none.gpx: no tracks"},
        {"picture in no folder", "draw_map none/a.png $tour", "none/a.png: "},
        {"document in no folder", "store_tracks none/a.xml $tour", "none/a.xml: "},
        {"window in no folder", "track_list --picture none/a.png $tour", "none/a.png: "},
    };
    const QString tour = QStringLiteral("tour=" KR_SAMPLES_DIR "/oldenburg-radtour.gpx; ");
    table.forEach([&](const char *command, const QByteArray &words) {
        const QTemporaryDir dir;
        QProcess shell;
        QVERIFY(runsToItsEnd(&shell, dir.path(), tour + QLatin1String(command)));
        QCOMPARE(shell.exitCode(), 1);
        const QByteArray complaint = shell.readAllStandardError();
        QVERIFY2(complaint.contains(words), complaint.constData());
    });
}

void tst_KRCookbook::piecesOfSources()
{
    int count = 0;
    const QList<KRFencedBlock> blocks = page();
    for (const KRFencedBlock &block : blocks) {
        if (!block.properties.contains(QStringLiteral("file")))
            continue;
        ++count;
        const QString source = QStringLiteral(KR_DOCS_DIR "/../") + block.properties.value(QStringLiteral("file"));
        QVERIFY2(QString::fromUtf8(KRTestFile::content(source)).contains(block.text), qPrintable(block.place()));
    }
    QVERIFY(count > 0);
}

template class KRTestRegistration<tst_KRCookbook>;

#include "tst_KRCookbook.moc"
