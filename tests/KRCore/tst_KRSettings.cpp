#include <KRCore/KRInputLimits.h>
#include <KRCore/KRSettings.h>

#include "KRFileSizeLimit.h"
#include "KRTemporarySettings.h"
#include "KRTest.h"
#include "KRTestFile.h"

#include <QSettings>

#include <sys/stat.h>

namespace {

class PlaceSettings : public KRSettings
{
public:
    void loadAll()
    {
        load(isVisible);
        load(name);
    }
    void saveAll() const
    {
        save(isVisible);
        save(name);
    }

    KRConfigItem<bool> isVisible{QStringLiteral("visible"), true};
    KRConfigItem<QString> name{QStringLiteral("name"), QStringLiteral("Ort")};
};

struct NoForeignTypes {
    NoForeignTypes() { KRSettings::refuseForeignTypes(true); }
    ~NoForeignTypes() { KRSettings::refuseForeignTypes(false); }
};

} // namespace

class tst_KRSettings : public QObject
{
    Q_OBJECT

private slots:
    void keepsValues()
    {
        const NoForeignTypes noForeignTypes;
        const KRTemporarySettings file;
        // umlauts, what INI files treat specially, and nothing
        for (const QString &name : {QStringLiteral("Gößnitz"),
                                    QStringLiteral("<a b=\"%1\" c='[x]; y=z, w'/>\n@Invalid()"), QStringLiteral("")}) {
            PlaceSettings written;
            written.isVisible.setValue(false);
            written.name.setValue(name);
            written.saveAll();
            PlaceSettings read;
            read.loadAll();
            QCOMPARE(read.isVisible.value(), false);
            QCOMPARE(read.name.value(), name);
        }
        KRSettings::setFileName(file.dir().filePath(QStringLiteral("other.ini")));
        PlaceSettings read;
        read.isVisible.setValue(false);
        read.loadAll();
        QCOMPARE(read.isVisible.value(), true);
        QCOMPARE(read.name.value(), QStringLiteral("Ort"));
    }

    void othersOfTheOrganisationAreNotRead()
    {
        const KRTemporarySettings temporary;
        const QString organisation = QCoreApplication::organizationName();
        const QString program = QCoreApplication::applicationName();
        QSettings(QSettings::IniFormat, QSettings::UserScope, organisation)
            .setValue(QStringLiteral("name"), QStringLiteral("fremd"));
        QSettings(QSettings::IniFormat, QSettings::UserScope, organisation, program).clear();
        KRSettings::setFileName(QString());
        PlaceSettings settings;
        settings.loadAll();
        QCOMPARE(settings.name.value(), QStringLiteral("Ort"));
        settings.name.setValue(QStringLiteral("eigen"));
        settings.saveAll();
        PlaceSettings read;
        read.loadAll();
        QCOMPARE(read.name.value(), QStringLiteral("eigen"));
    }

    void fullDiskKeepsTheOldSettings()
    {
        const KRTemporarySettings temporary;
        const QString old(1000, QLatin1Char('a'));
        const QString next(1000, QLatin1Char('n'));
        PlaceSettings settings;
        settings.name.setValue(old);
        settings.saveAll();
        {
            const KRFileSizeLimit fullDisk(500); // enough for the file that QSettings locks with
            settings.name.setValue(next);
            const QRegularExpression report(QStringLiteral("Die Einstellungen konnten nicht"));
            QTest::ignoreMessage(QtWarningMsg, report);
            QTest::ignoreMessage(QtWarningMsg, report);
            settings.saveAll();
        }
        QVERIFY(KRTestFile::content(temporary.fileName()).contains("name=" + old.toLatin1()));
        settings.saveAll();
        settings.loadAll();
        QCOMPARE(settings.name.value(), next);
    }

    void whatIsNoFileOfSettings()
    {
        const KRTestTable<std::function<void(const QString &)>> table{
            {"pipe", [](const QString &name) { QCOMPARE(::mkfifo(QFile::encodeName(name).constData(), 0600), 0); }},
            {"folder", [](const QString &name) { QVERIFY(QDir().mkdir(name)); }},
            {"list of any length", [](const QString &name) { KRTestFile::write(name, "name=@Variant(\\0\\0\\0\\t)"); }},
            {"the same in other letters",
             [](const QString &name) {
                 KRTestFile::write(name, "a=b, \"\\x10040\" V\\141r\\\r\niant(\\0\\0\\0\\t\\x7f\\xff\\xff\\xff)");
             }},
            {"time", [](const QString &name) { KRTestFile::write(name, "[a]\nb=\\q@DateTime()"); }},
            {"large",
             [](const QString &name) {
                 const QByteArray line("name=b\n");
                 KRTestFile::write(name, line.repeated(KRInputLimits::settingsBytes / line.size() + 1));
             }},
        };
        const NoForeignTypes noForeignTypes;
        table.forEach([](const std::function<void(const QString &)> &make) {
            const KRTemporarySettings temporary;
            make(temporary.fileName());
            const qint64 size = QFileInfo(temporary.fileName()).size();
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("es gelten die üblichen")));
            PlaceSettings settings;
            settings.loadAll();
            QCOMPARE(settings.name.value(), QStringLiteral("Ort"));
            const QRegularExpression failure(QStringLiteral("Die Einstellungen konnten nicht"));
            QTest::ignoreMessage(QtWarningMsg, failure);
            QTest::ignoreMessage(QtWarningMsg, failure);
            settings.saveAll();
            QCOMPARE(QFileInfo(temporary.fileName()).size(), size);
        });
    }

    void foreignTypesOfTheHost()
    {
        const KRTemporarySettings temporary;
        QSettings(temporary.fileName(), QSettings::IniFormat).setValue(QStringLiteral("when"), QTime(8, 30));
        QVERIFY(KRTestFile::content(temporary.fileName()).contains("@Variant("));
        PlaceSettings settings;
        settings.name.setValue(QStringLiteral("eigen"));
        settings.saveAll();
        PlaceSettings read;
        read.loadAll();
        QCOMPARE(read.name.value(), QStringLiteral("eigen"));
    }

    void pipeInThePlaceOfTheLock()
    {
        const KRTemporarySettings temporary;
        const QByteArray lock = QFile::encodeName(temporary.fileName() + QStringLiteral(".lock"));
        QCOMPARE(::mkfifo(lock.constData(), 0600), 0);
        PlaceSettings settings;
        const QRegularExpression failure(QStringLiteral("Die Einstellungen konnten nicht"));
        QTest::ignoreMessage(QtWarningMsg, failure);
        QTest::ignoreMessage(QtWarningMsg, failure);
        settings.saveAll();
        QVERIFY(!QFile::exists(temporary.fileName()));
    }
};

template class KRTestRegistration<tst_KRSettings>;

#include "tst_KRSettings.moc"
