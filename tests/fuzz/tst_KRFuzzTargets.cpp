#include <KRFuzzTargets.h>

#include "KRQuietFiles.h"
#include "KRTest.h"
#include "KRTestFile.h"

/// Replays what fuzzing starts with, and what it has found before.
class tst_KRFuzzTargets : public QObject
{
    Q_OBJECT

private slots:
    void replay_data()
    {
        constexpr qint64 longestInput = 1 << 16; // larger ones take too long under sanitizers
        QTest::addColumn<QString>("target");
        QTest::addColumn<QString>("fileName");
        const QDir fuzzDir(QStringLiteral(KR_FUZZ_DIR));
        const QStringList targets = KRFuzzTargets::all().keys();
        for (const QString &target : targets) {
            QFileInfoList files = QDir(fuzzDir.filePath(QStringLiteral("seeds/") + target)).entryInfoList(QDir::Files);
            QVERIFY2(!files.isEmpty(), qPrintable(QStringLiteral("%1 has no seeds.").arg(target)));
            files += QDir(fuzzDir.filePath(QStringLiteral("findings/") + target)).entryInfoList(QDir::Files);
            files += QDir(QStringLiteral(KR_SAMPLES_DIR)).entryInfoList({QStringLiteral("*.") + target}, QDir::Files);
            for (const QFileInfo &file : std::as_const(files)) {
                if (file.size() <= longestInput)
                    QTest::addRow("%s: %s", qPrintable(target), qPrintable(file.fileName()))
                        << target << file.filePath();
            }
        }
    }

    void replay()
    {
        QFETCH(QString, target);
        QFETCH(QString, fileName);
        QCOMPARE(KRFuzzTargets::all().value(target)(KRTestFile::content(fileName)), QString());
    }

private:
    const KRQuietFiles m_quiet;
};

template class KRTestRegistration<tst_KRFuzzTargets>;

#include "tst_KRFuzzTargets.moc"
