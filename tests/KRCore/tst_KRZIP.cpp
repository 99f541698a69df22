#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRInputLimits.h>
#include <KRCore/KRZIP.h>

#include "KRQuietFiles.h"
#include "KRTestArchive.h"
#include "KRTestFolder.h"
#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <QtTest>

class tst_KRZIP : public QObject
{
    Q_OBJECT

private slots:

    void readsEntriesInTheOrderOfTheTable();
    void readsContent();
    void wideNumbers();
    void refusesArchive();
    void refusesEntry();
    void limitOfAnEntry();
    void looksAtSoManyEntriesOnly();
    void truncatedAnywhereGivesNothing();
    void damagedAnywhereGivesNothingElse();
    void messagesShowNamesHarmlessly();
    void packsAlikeAtAnyTime();
    void readsWhatItPacks();

private:
    /// Puts the archive in place of the last one and opens it; what was reported before is forgotten.
    KRZIP opened(const QByteArray &archive);

    const KRQuietFiles m_quiet;
    const KRTestFolder m_folder;
    KRErrorHistory m_history;
};

KRZIP tst_KRZIP::opened(const QByteArray &archive)
{
    m_history.clear();
    KRZIP zip(m_folder.write(QStringLiteral("a.kmz"), archive), &m_history);
    zip.open(KRZIP::read);
    return zip;
}

void tst_KRZIP::readsEntriesInTheOrderOfTheTable()
{
    const KRZIP zip =
        opened(KRTestArchive::bytes({KRTestArchive::deflated("first.kml", "1"), KRTestArchive::stored("images/", ""),
                                     KRTestArchive::stored("third.kml", "3")},
                                    {2, 0, 1}));
    QCOMPARE(zip.getFileNameList(),
             (QStringList{QStringLiteral("third.kml"), QStringLiteral("first.kml"), QStringLiteral("images/")}));
    QCOMPARE(zip.fileContent(QStringLiteral("first.kml")), QByteArray("1"));
    QCOMPARE(zip.fileContent(QStringLiteral("third.kml")), QByteArray("3"));
    QVERIFY(m_history.isEmpty());
}

void tst_KRZIP::readsContent()
{
    QByteArray allBytes;
    for (quint32 i = 0; i < 100000; ++i)
        allBytes += char((i * i) >> 3);
    const KRTestTable<QByteArray> table{
        {"zero bytes inside", QByteArray("a\0b", 3)},
        {"more than one piece", allBytes},
        {"dense, but small", QByteArray(KRInputLimits::archiveFreeBytes, ' ')},
        {"empty", ""},
    };
    table.forEach([this](const QByteArray &content) {
        const QString umlaut = QStringLiteral("Süd.kml");
        const KRZIP zip = opened(KRTestArchive::bytes(
            {KRTestArchive::stored("s", content), KRTestArchive::deflated(umlaut.toUtf8(), content)}));
        for (const QString &name : {QStringLiteral("s"), umlaut}) {
            QCOMPARE(zip.fileContent(name), content);
            QVERIFY(!zip.fileContent(name).isNull());
        }
        QVERIFY(m_history.isEmpty());
    });
}

void tst_KRZIP::wideNumbers()
{
    const KRZIP zip = opened(KRTestArchive::wideBytes(
        {KRTestArchive::stored("a", "1"), KRTestArchive::deflated("b", QByteArray(999, 'x'))}));
    QCOMPARE(zip.fileContent(QStringLiteral("a")), QByteArray("1"));
    QCOMPARE(zip.fileContent(QStringLiteral("b")), QByteArray(999, 'x'));
    QVERIFY(m_history.isEmpty());
}

void tst_KRZIP::refusesArchive()
{
    using Archive = KRTestArchive;
    const Archive::Entry a = Archive::stored("a", "aaaa");
    const Archive::Entry b = Archive::stored("b", "bbbb");
    const QByteArray sound = Archive::bytes({a, b});
    Archive::Entry sameBytes = b;
    sameBytes.name = a.name;
    sameBytes.offset = 0;
    Archive::Entry packedLonger = a;
    packedLonger.packedSize += 10;
    Archive::Entry outside = b;
    outside.offset = 100000;
    QByteArray otherLocalName = sound;
    otherLocalName[30] = 'c';
    QByteArray twoEnds = sound;
    twoEnds[twoEnds.size() - 2] = 22;
    twoEnds += sound.right(22);
    QByteArray tooLongTable = sound;
    tooLongTable[tooLongTable.size() - 7] = 1; // the highest byte of its length
    QByteArray wideWithoutField = Archive::wideBytes({a});
    wideWithoutField[wideWithoutField.indexOf("PK\1\2") + 47] = 9; // the kind of the extra field
    QByteArray wideEndElsewhere = Archive::wideBytes({a});
    wideEndElsewhere[wideEndElsewhere.indexOf("PK\6\6")] = 'p';
    const QString noEnd = QStringLiteral("Ende fehlt");
    const QString badTable = QStringLiteral("Inhaltsverzeichnis des Archivs ist beschädigt");
    const QString overlap = QStringLiteral("überlappen");
    const KRTestTable<QByteArray, QString> table{
        {"no archive", QByteArray("<kml>").repeated(1000), noEnd},
        {"bytes behind the end", sound + "\n", noEnd},
        {"two ends", twoEnds, noEnd},
        {"no wide end where it should be", wideEndElsewhere, noEnd},
        {"bytes before the start", "#!" + sound, badTable},
        {"entry behind the table", Archive::bytes({a, outside}), badTable},
        {"wide numbers without a field", wideWithoutField, badTable},
        {"table of 16 MB", QByteArray(17 << 20, ' ') + tooLongTable, QStringLiteral("zu groß")},
        {"two entries share their bytes", Archive::bytes({a, sameBytes}), overlap},
        {"an entry reaches into the next", Archive::bytes({packedLonger, b}), overlap},
        {"two entries of one name", Archive::bytes({a, a}), QStringLiteral("denselben Namen")},
        {"another name before the bytes", otherLocalName, QStringLiteral("Kein lesbares ZIP-Archiv")},
    };
    table.forEach([&](const QByteArray &archive, const QString &reason) {
        const KRZIP zip = opened(archive);
        QVERIFY(zip.getFileNameList().isEmpty());
        QCOMPARE(m_history.entries().size(), 1);
        QVERIFY2(m_history.entries().at(0).reason.contains(reason), qUtf8Printable(m_history.entries().at(0).reason));
        QVERIFY(zip.fileContent(QStringLiteral("a")).isNull());
    });
}

void tst_KRZIP::refusesEntry()
{
    using Archive = KRTestArchive;
    const Archive::Entry sound = Archive::deflated("a", QByteArray(5000, 'x'));
    Archive::Entry encrypted = sound;
    encrypted.flags = 1;
    Archive::Entry unknownMethod = sound;
    unknownMethod.method = 14;
    Archive::Entry wrongChecksum = sound;
    ++wrongChecksum.crc;
    Archive::Entry claimsLess = sound;
    claimsLess.size = 10;
    Archive::Entry claimsMore = sound;
    claimsMore.size = 6000;
    Archive::Entry packedShorter = sound;
    packedShorter.packedSize -= 4;
    Archive::Entry bombInDisguise = Archive::deflated("a", QByteArray(4 << 20, ' '));
    bombInDisguise.size = 100;
    const KRTestTable<KRTestArchive::Entry, QString> table{
        {"encrypted", encrypted, QStringLiteral("verschlüsselt")},
        {"unknown method", unknownMethod, QStringLiteral("Packverfahren")},
        {"wrong checksum", wrongChecksum, QStringLiteral("beschädigt")},
        {"longer than it claims", claimsLess, QStringLiteral("Größe")},
        {"shorter than it claims", claimsMore, QStringLiteral("Größe")},
        {"packed bytes missing", packedShorter, QStringLiteral("beschädigt")},
        {"bomb", Archive::deflated("a", QByteArray(50 << 20, '\0')), QStringLiteral("200:1")},
        {"bomb that claims to be small", bombInDisguise, QStringLiteral("200:1")},
    };
    table.forEach([&](const KRTestArchive::Entry &entry, const QString &reason) {
        const KRZIP zip = opened(KRTestArchive::bytes({entry, KRTestArchive::stored("b", "sound")}));
        QVERIFY(zip.fileContent(QStringLiteral("a")).isNull());
        QCOMPARE(m_history.entries().size(), 1);
        QVERIFY2(m_history.entries().at(0).reason.contains(reason), qUtf8Printable(m_history.entries().at(0).reason));
        QCOMPARE(zip.fileContent(QStringLiteral("b")), QByteArray("sound"));
    });
}

void tst_KRZIP::limitOfAnEntry()
{
    const QByteArray largest(KRInputLimits::archiveEntryBytes, 'x');
    const KRZIP zip = opened(KRTestArchive::bytes(
        {KRTestArchive::stored("largest", largest), KRTestArchive::stored("larger", largest + 'x')}));
    QVERIFY(zip.fileContent(QStringLiteral("largest")) == largest);
    QVERIFY(m_history.isEmpty());
    QVERIFY(zip.fileContent(QStringLiteral("larger")).isNull());
    QVERIFY(m_history.entries().at(0).reason.contains(QStringLiteral("64 MB")));
}

void tst_KRZIP::looksAtSoManyEntriesOnly()
{
    QList<KRTestArchive::Entry> entries;
    for (int i = 0; i <= KRInputLimits::archiveEntries; ++i)
        entries += KRTestArchive::stored(QByteArray::number(i), "x");
    const KRZIP zip = opened(KRTestArchive::bytes(entries));
    QCOMPARE(zip.getFileNameList().size(), KRInputLimits::archiveEntries);
    QCOMPARE(m_history.entries().size(), 1);
    QCOMPARE(zip.fileContent(QStringLiteral("9999")), QByteArray("x"));
    QVERIFY(zip.fileContent(QStringLiteral("10000")).isNull());
}

void tst_KRZIP::truncatedAnywhereGivesNothing()
{
    const QByteArray whole = KRTestArchive::bytes(
        {KRTestArchive::deflated("doc.kml", "<kml/>"), KRTestArchive::stored("images/a.png", "PNG")});
    for (int length = 0; length < whole.size(); ++length) {
        const KRZIP zip = opened(whole.left(length));
        QVERIFY2(zip.getFileNameList().isEmpty() && !m_history.isEmpty(), QByteArray::number(length).constData());
    }
}

void tst_KRZIP::damagedAnywhereGivesNothingElse()
{
    const QByteArray kml = QByteArray("<kml>53.1,8.2</kml>").repeated(3);
    const QString name = QStringLiteral("doc.kml");
    const QByteArray whole =
        KRTestArchive::bytes({KRTestArchive::deflated("doc.kml", kml), KRTestArchive::stored("b", "PNG")});
    for (int position = 0; position < whole.size(); ++position) {
        QByteArray damaged = whole;
        damaged[position] = char(damaged.at(position) ^ (1 << position % 8));
        const QByteArray content = opened(damaged).fileContent(name);
        QVERIFY2(content == kml || (content.isNull() && !m_history.isEmpty()),
                 QByteArray::number(position).constData());
    }
}

void tst_KRZIP::messagesShowNamesHarmlessly()
{
    const QString name = QStringLiteral("\u001B[31m\n\u2028\u202E") + QString(1000, QLatin1Char('x'));
    const KRZIP zip = opened(KRTestArchive::bytes({KRTestArchive::stored("a", "")}));
    QVERIFY(zip.fileContent(name).isNull());
    const QString reason = m_history.entries().at(0).reason;
    QVERIFY2(reason.contains(QStringLiteral("„?[31m???xx")), qUtf8Printable(reason));
    QVERIFY(reason.size() < 200);
}

void tst_KRZIP::packsAlikeAtAnyTime()
{
    const QByteArray archive = KRZIP::pack(QStringLiteral("doc.kml"), "<kml/>");
    QCOMPARE(archive.mid(10, 4), QByteArray("\0\0\x21\0", 4));
    QCOMPARE(opened(archive).fileContent(QStringLiteral("doc.kml")), QByteArray("<kml/>"));
}

/// At any ratio, around the one from which deflated entries are refused.
void tst_KRZIP::readsWhatItPacks()
{
    const QString name = QString(200, QStringLiteral("ü").at(0));
    QByteArray content;
    for (const int line : {40, 1200, 1 << 22}) {
        // A random number in each line of blanks.
        QRandomGenerator numbers(1);
        content.clear();
        while (content.size() < 3 << 20)
            content += QByteArray::number(numbers.generate()) + QByteArray(line, ' ');
        QVERIFY2(opened(KRZIP::pack(name, content)).fileContent(name) == content, qPrintable(QString::number(line)));
    }
    QVERIFY(KRZIP::pack(name, content).size() > content.size());
    QVERIFY(KRZIP::pack(name, QByteArray(KRInputLimits::archiveEntryBytes + 1, 'x')).isNull());
}

static const KRTestRegistration<tst_KRZIP> registration;

#include "tst_KRZIP.moc"
