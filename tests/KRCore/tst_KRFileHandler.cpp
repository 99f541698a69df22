#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRFileHandler.h>
#include <KRCore/KRFileState.h>
#include <KRCore/KRInputLimits.h>

#include "KRFileSizeLimit.h"
#include "KRQuietFiles.h"
#include "KRTest.h"
#include "KRTestFile.h"
#include "KRTestFolder.h"

#include <QThread>

#include <array>
#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

class tst_KRFileHandler : public QObject
{
    Q_OBJECT

private slots:
    void readsLines()
    {
        const QString umlaut = QStringLiteral("ü");
        const KRTestTable<QByteArray, QStringList> table{
            {"nothing", {}, {}},
            {"end of the last line missing", "\xC3\xBC\nb", QStringList{umlaut, QStringLiteral("b")}},
            {"carriage returns", "\xC3\xBC\r\n\r\n", QStringList{umlaut, QString()}},
            {"low byte first", QByteArray("\xFF\xFE\xFC\0\n\0a\0", 8), QStringList{umlaut, QStringLiteral("a")}},
            {"umlaut across the pieces that are read", QByteArray(16383, 'x') + "\xC3\xBC",
             QStringList{QString(16383, QLatin1Char('x')) + umlaut}},
        };
        table.forEach([&](const QByteArray &content, const QStringList &expected) {
            KRErrorHistory history;
            QCOMPARE(KRFileHandler::readTextFile(written(content), &history), expected);
            QVERIFY(history.isEmpty());
        });
        QVERIFY(!KRFileHandler::readAll(written(QByteArray()), nullptr, 100).isNull()); // null tells a failure
    }

    void refusesText()
    {
        const KRTestTable<QByteArray, bool> table{
            {"as long as allowed", QByteArray(KRInputLimits::documentBytes, 'x'), true},
            {"longer", QByteArray(KRInputLimits::documentBytes + 1, 'x'), false},
            {"as many lines as allowed", QByteArray(KRInputLimits::textLines, '\n'), true},
            {"one line more", QByteArray(KRInputLimits::textLines, '\n') + 'x', false},
        };
        table.forEach([&](const QByteArray &content, bool isAccepted) {
            KRErrorHistory history;
            QCOMPARE(!KRFileHandler::readTextFile(written(content), &history).isEmpty(), isAccepted);
            QCOMPARE(history.entries().size(), isAccepted ? 0 : 1);
        });
    }

    void refusesWhatIsNoFile()
    {
        for (const QString &path : {m_folder.dir().path(), m_folder.path(QStringLiteral("missing/missing")),
                                    QStringLiteral("/dev/zero"), QStringLiteral("")}) {
            KRErrorHistory history;
            QVERIFY(KRFileHandler::readTextFile(QFileInfo(path), &history).isEmpty());
            QCOMPARE(history.entries().size(), 1);
        }
    }

    void writesIntoPipes()
    {
        const QByteArray path = QFile::encodeName(m_folder.path(QStringLiteral("pipe")));
        QCOMPARE(::mkfifo(path.constData(), 0600), 0);
        const int reader = ::open(path.constData(), O_RDONLY | O_NONBLOCK);
        QVERIFY(reader >= 0);
        QVERIFY(KRFileHandler::writeAll(QFileInfo(QFile::decodeName(path)), "through the pipe", nullptr));
        QByteArray bytes(100, '\0');
        bytes.truncate(int(::read(reader, bytes.data(), size_t(bytes.size()))));
        ::close(reader);
        QCOMPARE(bytes, QByteArray("through the pipe"));
        QVERIFY(!QFileInfo(QFile::decodeName(path)).isFile());
    }

    void waitsForRoomInPipes()
    {
        std::array<int, 2> ends{};
        QCOMPARE(::pipe2(ends.data(), O_NONBLOCK), 0);
        const QByteArray bytes(1000000, 'x');
        QByteArray received;
        const std::unique_ptr<QThread> reader(QThread::create([&] {
            QByteArray piece(1 << 16, '\0');
            while (received.size() < bytes.size()) {
                pollfd end = {ends[0], POLLIN, 0};
                ::poll(&end, 1, -1);
                const ssize_t count = ::read(ends[0], piece.data(), std::size_t(piece.size()));
                if (count <= 0)
                    return;
                received.append(piece.constData(), int(count));
            }
        }));
        reader->start();
        const bool isWritten = KRFileHandler::writeToChannel(ends[1], bytes);
        ::close(ends[1]);
        reader->wait();
        ::close(ends[0]);
        QVERIFY(isWritten);
        QVERIFY(received == bytes);
    }

    void refusesWhatChangesMeanwhile()
    {
        const QFileInfo file = written(QByteArray(30000000, 'a'));
        std::atomic<bool> isOver{false};
        const std::unique_ptr<QThread> writer(QThread::create([&] {
            QFile changed(file.filePath());
            for (changed.open(QIODevice::ReadWrite | QIODevice::Unbuffered); !isOver; QThread::usleep(500)) {
                changed.seek(0);
                changed.write("b");
            }
        }));
        writer->start();
        // The writer may not come to it in each of them.
        KRErrorHistory history;
        for (int i = 0; i < 100 && history.isEmpty(); ++i)
            KRFileHandler::readAll(file, &history, file.size());
        isOver = true;
        writer->wait();
        QVERIFY(!history.isEmpty());
        QCOMPARE(history.entries().first().reason, KRFileState::textOfChange());
        QCOMPARE(KRFileHandler::readAll(file, nullptr, file.size()).size(), int(file.size()));
    }

    void writesIntoOpenChannels()
    {
        const QByteArray path = QFile::encodeName(written("before, ").filePath());
        const int channel = ::open(path.constData(), O_WRONLY | O_APPEND);
        const QString name = QStringLiteral("/dev/fd/%1").arg(channel);
        const QString link = m_folder.path(QStringLiteral("link"));
        QVERIFY(channel >= 0 && QFile::link(name, link));
        QVERIFY(KRFileHandler::writeAll(QFileInfo(name), "after, ", nullptr));
        QVERIFY(KRFileHandler::writeAll(QFileInfo(link), "at last", nullptr));
        QCOMPARE(KRTestFile::content(QFile::decodeName(path)), QByteArray("before, after, at last"));

        // A file that has lost its name gets none again.
        QVERIFY(QFile::remove(QFile::decodeName(path)));
        QVERIFY(KRFileHandler::writeAll(QFileInfo(name), "unseen", nullptr));
        QCOMPARE(m_folder.dir().entryList({QStringLiteral("text*")}), QStringList());
        ::close(channel);
        KRErrorHistory history;
        QVERIFY(!KRFileHandler::writeAll(QFileInfo(name), "nowhere", &history));
        QCOMPARE(history.entries().first().reason, qt_error_string(EBADF));
        QVERIFY(QFile::remove(link));
    }

    void failedWritesKeepTheOldFile()
    {
        const QByteArray old = "what was there before";
        const QFileInfo file = written(old);
        const auto entries = [this] { return m_folder.dir().entryList(QDir::NoDotAndDotDot | QDir::AllEntries); };
        const QStringList before = entries();
        // Few bytes wait in a buffer, many are written at once.
        for (const int count : {1, 30, 1000, 1000000}) {
            const KRFileSizeLimit fullDisk(rlim_t(count / 2));
            KRErrorHistory history;
            QVERIFY(!KRFileHandler::writeAll(file, QByteArray(count, 'x'), &history));
            QCOMPARE(history.entries().size(), 1);
            QCOMPARE(history.entries().first().fileName, file.filePath());
            QCOMPARE(history.entries().first().reason, qt_error_string(EFBIG));
        }
        const QString tooLong = m_folder.path(QString(256, QLatin1Char('n')));
        for (const QString &path : {m_folder.path(QString()), m_folder.path(QStringLiteral("missing/file")), tooLong,
                                    m_folder.path(QStringLiteral("text/file")), QStringLiteral("/dev/full")}) {
            KRErrorHistory history;
            QVERIFY(!KRFileHandler::writeAll(QFileInfo(path), old, &history));
            QCOMPARE(history.entries().size(), 1);
            QVERIFY(!history.entries().first().reason.isEmpty());
        }
        QCOMPARE(KRFileHandler::readAll(file, nullptr, 100), old);
        QCOMPARE(entries(), before);
    }

private:
    QFileInfo written(const QByteArray &content) const { return m_folder.write(QStringLiteral("text"), content); }

    const KRQuietFiles m_quiet;
    const KRTestFolder m_folder;
};

template class KRTestRegistration<tst_KRFileHandler>;

#include "tst_KRFileHandler.moc"
