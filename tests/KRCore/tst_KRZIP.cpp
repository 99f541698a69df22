#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRInputLimits.h>
#include <KRCore/KRZIP.h>

#include "KRQuietFiles.h"
#include "KRTest.h"
#include "KRTestArchive.h"
#include "KRTestFolder.h"

class tst_KRZIP : public QObject
{
    Q_OBJECT

private slots:
    void readsEntriesInTheOrderOfTheTable()
    {
        KRZIP zip =
            opened(KRTestArchive::bytes({KRTestArchive::deflated("first.kml", "1"),
                                         KRTestArchive::stored("images/", ""), KRTestArchive::stored("third.kml", "3")},
                                        {2, 0, 1}));
        QCOMPARE(zip.getFileNameList(),
                 (QStringList{QStringLiteral("third.kml"), QStringLiteral("first.kml"), QStringLiteral("images/")}));
        QCOMPARE(zip.fileContent(QStringLiteral("first.kml")), QByteArray("1"));
        QCOMPARE(zip.fileContent(QStringLiteral("third.kml")), QByteArray("3"));
        QVERIFY(m_history.isEmpty());
        QVERIFY(!zip.open(KRZIP::OpenMode(2))); // there is no other mode; what was open is not any more
        QVERIFY(zip.getFileNameList().isEmpty());
        QVERIFY(zip.open(KRZIP::read));
        zip.close();
        QVERIFY(zip.getFileNameList().isEmpty() && zip.fileContent(QStringLiteral("third.kml")).isNull());
    }

    void readsContent()
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
            // Names are texts and no paths. Without one, an entry ends with its header in the table.
            const QStringList names{QStringLiteral("Süd.kml"), QStringLiteral("../a"), QStringLiteral("/tmp/a"), {}};
            QList<KRTestArchive::Entry> entries;
            for (const QString &name : names)
                entries += entries.size() % 2 == 0 ? KRTestArchive::stored(name.toUtf8(), content)
                                                   : KRTestArchive::deflated(name.toUtf8(), content);
            const KRZIP zip = opened(KRTestArchive::bytes(entries));
            QCOMPARE(zip.getFileNameList(), names);
            for (const QString &name : names) {
                QCOMPARE(zip.fileContent(name), content);
                QVERIFY(!zip.fileContent(name).isNull());
            }
            QVERIFY(m_history.isEmpty());
        });
    }

    void wideNumbers()
    {
        const KRZIP zip = opened(KRTestArchive::wideBytes(
            {KRTestArchive::stored("a", "1"), KRTestArchive::deflated("b", QByteArray(999, 'x'))}));
        QCOMPARE(zip.fileContent(QStringLiteral("a")), QByteArray("1"));
        QCOMPARE(zip.fileContent(QStringLiteral("b")), QByteArray(999, 'x'));
        QVERIFY(m_history.isEmpty());
    }

    void refusesArchive()
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
        Archive::Entry packedBehindTheEnd = b;
        packedBehindTheEnd.packedSize = 0xFFFFFFFE;
        Archive::Entry quoting = Archive::stored("a", "");
        quoting.packed = Archive::bytes({b}).left(35); // the local part of b, which the table lists as well
        quoting.packedSize = quoting.size = quint32(quoting.packed.size());
        Archive::Entry quoted = b;
        quoted.offset = 31;
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
        QByteArray wideEndBeyond = Archive::wideBytes({a});
        wideEndBeyond[wideEndBeyond.indexOf("PK\6\7") + 15] = 1; // the highest byte of its place
        QByteArray packedBeyondNumbers = Archive::wideBytes({a});
        packedBeyondNumbers.replace(packedBeyondNumbers.indexOf("PK\1\2") + 59, 8, QByteArray(8, '\xff'));
        QByteArray headerCutOff = sound;
        headerCutOff.insert(sound.size() - 22, "PK\1\2");
        headerCutOff[headerCutOff.size() - 10] = char(headerCutOff.at(headerCutOff.size() - 10) + 4);
        const QString noEnd = QStringLiteral("Ende fehlt");
        const QString badTable = QStringLiteral("Inhaltsverzeichnis des Archivs ist beschädigt");
        const QString overlap = QStringLiteral("überlappen");
        const KRTestTable<QByteArray, KRText> table{
            {"no archive", QByteArray("<kml>").repeated(1000), noEnd},
            {"bytes behind the end", sound + "\n", noEnd},
            {"two ends", twoEnds, noEnd},
            {"no wide end where it should be", wideEndElsewhere, noEnd},
            {"wide end behind the archive", wideEndBeyond, noEnd},
            {"bytes before the start", "#!" + sound, badTable},
            {"entry behind the table", Archive::bytes({a, outside}), badTable},
            {"entry longer than the file", Archive::bytes({a, packedBehindTheEnd}), badTable},
            {"entry longer than numbers count", packedBeyondNumbers, badTable},
            {"header cut off at the end of the table", headerCutOff, badTable},
            {"wide numbers without a field", wideWithoutField, badTable},
            {"table of 16 MB", QByteArray(17 << 20, ' ') + tooLongTable, "zu groß"},
            {"two entries share their bytes", Archive::bytes({a, sameBytes}), overlap},
            {"an entry within an entry", Archive::bytes({quoting, quoted}), overlap},
            {"an entry reaches into the next", Archive::bytes({packedLonger, b}), overlap},
            {"two entries of one name", Archive::bytes({a, a}), "denselben Namen"},
            {"another name before the bytes", otherLocalName, "Kein lesbares ZIP-Archiv"},
        };
        table.forEach([&](const QByteArray &archive, const QString &reason) {
            const KRZIP zip = opened(archive);
            QVERIFY(zip.getFileNameList().isEmpty());
            QCOMPARE(m_history.entries().size(), 1);
            QVERIFY2(told().contains(reason), qUtf8Printable(told()));
            QVERIFY(zip.fileContent(QStringLiteral("a")).isNull());
        });
    }

    void refusesEntry()
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
        const KRTestTable<KRTestArchive::Entry, KRText> table{
            {"encrypted", encrypted, "verschlüsselt"},
            {"unknown method", unknownMethod, "Packverfahren"},
            {"wrong checksum", wrongChecksum, "beschädigt"},
            {"longer than it claims", claimsLess, "Größe"},
            {"shorter than it claims", claimsMore, "Größe"},
            {"packed bytes missing", packedShorter, "beschädigt"},
            {"bomb", Archive::deflated("a", QByteArray(50 << 20, '\0')), "200:1"},
            {"bomb that claims to be small", bombInDisguise, "200:1"},
        };
        table.forEach([&](const KRTestArchive::Entry &entry, const QString &reason) {
            const KRZIP zip = opened(KRTestArchive::bytes({entry, KRTestArchive::stored("b", "sound")}));
            QVERIFY(zip.fileContent(QStringLiteral("a")).isNull());
            QCOMPARE(m_history.entries().size(), 1);
            QVERIFY2(told().contains(reason), qUtf8Printable(told()));
            QCOMPARE(zip.fileContent(QStringLiteral("b")), QByteArray("sound"));
        });
    }

    void limitOfAnEntry()
    {
        const QByteArray largest(KRInputLimits::archiveEntryBytes, 'x');
        const KRZIP zip = opened(KRTestArchive::bytes(
            {KRTestArchive::stored("largest", largest), KRTestArchive::stored("larger", largest + 'x')}));
        QVERIFY(zip.fileContent(QStringLiteral("largest")) == largest);
        QVERIFY(m_history.isEmpty());
        QVERIFY(zip.fileContent(QStringLiteral("larger")).isNull());
        QVERIFY(told().contains(QStringLiteral("64 MB")));
    }

    void looksAtSoManyEntriesOnly()
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

    void truncatedAnywhereGivesNothing()
    {
        const QByteArray whole = KRTestArchive::bytes(
            {KRTestArchive::deflated("doc.kml", "<kml/>"), KRTestArchive::stored("images/a.png", "PNG")});
        for (int length = 0; length < whole.size(); ++length) {
            const KRZIP zip = opened(whole.left(length));
            QVERIFY2(zip.getFileNameList().isEmpty() && !m_history.isEmpty(), QByteArray::number(length).constData());
        }
    }

    void damagedAnywhereGivesNothingElse()
    {
        const QByteArray kml = QByteArray("<kml>53.1,8.2</kml>").repeated(3);
        const QString name = QStringLiteral("doc.kml");
        const QByteArray whole =
            KRTestArchive::bytes({KRTestArchive::deflated("doc.kml", kml), KRTestArchive::stored("b", "PNG")});
        for (int place = 0; place < whole.size(); ++place) {
            QByteArray damaged = whole;
            damaged[place] = char(damaged.at(place) ^ (1 << place % 8));
            const QByteArray content = opened(damaged).fileContent(name);
            QVERIFY2(content == kml || (content.isNull() && !m_history.isEmpty()),
                     QByteArray::number(place).constData());
        }
    }

    void messagesShowNamesHarmlessly()
    {
        const QString name = QStringLiteral("\u001B[31m\n\u2028\u202E") + QString(1000, QLatin1Char('x'));
        const KRZIP zip = opened(KRTestArchive::bytes({KRTestArchive::stored("a", "")}));
        QVERIFY(zip.fileContent(name).isNull());
        QVERIFY2(told().contains(QStringLiteral("„?[31m???xx")), qUtf8Printable(told()));
        QVERIFY(told().size() < 200);
    }

    void packsAlikeAtAnyTime()
    {
        const QByteArray archive = KRZIP::pack(QStringLiteral("doc.kml"), "<kml/>");
        QCOMPARE(archive.mid(10, 4), QByteArray("\0\0\x21\0", 4));
        QCOMPARE(opened(archive).fileContent(QStringLiteral("doc.kml")), QByteArray("<kml/>"));
    }

    /// At any ratio, around the one from which deflated entries are refused.
    void readsWhatItPacks()
    {
        const QString name = QString(200, QStringLiteral("ü").at(0));
        QByteArray content;
        for (const int line : {40, 1200, 1 << 22}) {
            // A random number in each line of blanks.
            QRandomGenerator numbers(1);
            content.clear();
            while (content.size() < 3 << 20)
                content += QByteArray::number(numbers.generate()) + QByteArray(line, ' ');
            QVERIFY2(opened(KRZIP::pack(name, content)).fileContent(name) == content, content.left(9).constData());
        }
        QVERIFY(KRZIP::pack(name, content).size() > content.size());
        QVERIFY(KRZIP::pack(name, QByteArray(KRInputLimits::archiveEntryBytes + 1, 'x')).isNull());
        QVERIFY(KRZIP::pack(QStringLiteral("a\u0001"), content).isNull());
    }

private:
    /// Puts the archive in place of the last one and opens it; what was reported before is forgotten.
    KRZIP opened(const QByteArray &archive)
    {
        m_history.clear();
        KRZIP zip(m_folder.write(QStringLiteral("a.kmz"), archive), &m_history);
        zip.open(KRZIP::read);
        return zip;
    }

    QString told() const { return m_history.entries().at(0).reason; }

    const KRQuietFiles m_quiet;
    const KRTestFolder m_folder;
    KRErrorHistory m_history;
};

template class KRTestRegistration<tst_KRZIP>;

#include "tst_KRZIP.moc"
