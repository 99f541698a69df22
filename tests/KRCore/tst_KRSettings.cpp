#include <KRCore/KRSettings.h>

#include "KRFileSizeLimit.h"
#include "KRTemporarySettings.h"
#include "KRTestRegistry.h"

#include <QDir>
#include <QRegularExpression>
#include <QtTest>

#include <memory>

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

} // namespace

class tst_KRSettings : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void keepsValues_data();
    void keepsValues();
    void reportsWhatItCannotSave();
    void fullDiskKeepsTheOldSettings();

private:
    std::unique_ptr<KRTemporarySettings> m_settings;
};

void tst_KRSettings::init()
{
    m_settings.reset(); // before the next one, which remembers the present file
    m_settings = std::make_unique<KRTemporarySettings>();
}

void tst_KRSettings::keepsValues_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("umlauts") << QStringLiteral("Gößnitz");
    QTest::newRow("what INI files treat specially") << QStringLiteral("<a b=\"%1\" c='[x]; y=z, w'/>\n@Invalid()");
    QTest::newRow("empty") << QStringLiteral("");
}

void tst_KRSettings::keepsValues()
{
    QFETCH(QString, name);
    PlaceSettings written;
    written.isVisible.setValue(false);
    written.name.setValue(name);
    written.saveAll();
    QVERIFY(QFile::exists(m_settings->fileName()));

    PlaceSettings read;
    read.loadAll();
    QCOMPARE(read.isVisible.value(), false);
    QCOMPARE(read.name.value(), name);

    KRSettings::setFileName(m_settings->dir().filePath(QStringLiteral("other.ini")));
    read.loadAll();
    QCOMPARE(read.isVisible.value(), true);
    QCOMPARE(read.name.value(), QStringLiteral("Ort"));
}

void tst_KRSettings::reportsWhatItCannotSave()
{
    const QString directory = m_settings->dir().filePath(QStringLiteral("directory.ini"));
    QVERIFY(QDir().mkdir(directory));
    KRSettings::setFileName(directory);
    PlaceSettings settings;
    const QRegularExpression report(QStringLiteral("directory\\.ini: Die Einstellungen konnten nicht"));
    QTest::ignoreMessage(QtWarningMsg, report);
    QTest::ignoreMessage(QtWarningMsg, report);
    settings.saveAll();
    QVERIFY(QFileInfo(directory).isDir());
}

void tst_KRSettings::fullDiskKeepsTheOldSettings()
{
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
    QFile file(m_settings->fileName());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains("name=" + old.toLatin1()));
    settings.saveAll();
    settings.loadAll();
    QCOMPARE(settings.name.value(), next);
}

static const KRTestRegistration<tst_KRSettings> registration;

#include "tst_KRSettings.moc"
