#include <KRCore/KRSettings.h>

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

static const KRTestRegistration<tst_KRSettings> registration;

#include "tst_KRSettings.moc"
