#include "KRTest.h"
#include "KRTestFile.h"

#include <KRRouteDocument.h>
#include <KRRouteImport.h>

namespace {

const QString documentType = QStringLiteral("application/vnd.krgeolocation.routes+xml");
const QString desktopDir = QStringLiteral(KR_PACKAGING_DIR "/desktop/");

QStringList typesOfDesktopFile()
{
    static const QRegularExpression line(QStringLiteral("^MimeType=(.*);$"), QRegularExpression::MultilineOption);
    const QString text =
        QString::fromUtf8(KRTestFile::content(desktopDir + QStringLiteral("de.krgeolocation.krroutes.desktop")));
    return line.match(text).captured(1).split(QLatin1Char(';'));
}

/// A document with the routes of a sample, saved to @p fileName.
bool saveDocument(const QString &fileName, bool isInOneFile)
{
    KRRouteImport import;
    import.read({QStringLiteral(KR_SAMPLES_DIR "/oldenburg-radtour.gpx")});
    KRRouteDocument document;
    document.setSelection(KRGPXTrackSelection(import.tracks()));
    return isInOneFile ? document.saveInOneFile(QFileInfo(fileName), nullptr)
                       : document.save(QFileInfo(fileName), nullptr);
}

} // namespace

/// What desktops are told about the files that the viewer opens.
class tst_KRDesktopFiles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        const QString common = QStringLiteral("/usr/share/mime/packages/freedesktop.org.xml");
        if (!QFileInfo::exists(common))
            QSKIP("There is no database of types (shared-mime-info).");
        const QString name = QStringLiteral("de.krgeolocation.krroutes.xml");
        const QDir packages(m_data.filePath(QStringLiteral("mime/packages")));
        QVERIFY(packages.mkpath(QStringLiteral(".")));
        QVERIFY(QFile::copy(desktopDir + name, packages.filePath(name)));
        QVERIFY(QFile::copy(common, packages.filePath(QStringLiteral("freedesktop.org.xml"))));
        // Both in one folder, as when installed: Qt does not weigh the contents of several folders against each other.
        qputenv("XDG_DATA_DIRS", m_data.path().toLocal8Bit());
    }

    void desktopSendsWhatTheViewerOpens()
    {
        const QString document = m_data.filePath(QStringLiteral("Reise.krroute"));
        QVERIFY(saveDocument(document, false));
        QFileInfoList files = QDir(QStringLiteral(KR_SAMPLES_DIR)).entryInfoList({QStringLiteral("*.[gk]*")});
        QVERIFY(files.size() > 3);
        files.append(QFileInfo(document));
        for (const QFileInfo &file : std::as_const(files)) {
            const QString type = QMimeDatabase().mimeTypeForFile(file).name();
            QVERIFY2(typesOfDesktopFile().contains(type), qPrintable(file.fileName() + QStringLiteral(": ") + type));
        }
    }

    void documentIsKnownByItsContents()
    {
        const QMimeDatabase database;
        for (const bool isInOneFile : {false, true}) {
            const QString nameless = m_data.filePath(QStringLiteral("nameless"));
            QVERIFY(saveDocument(nameless, isInOneFile));
            QCOMPARE(database.mimeTypeForFile(nameless).name(), documentType);
        }
        QVERIFY(database.mimeTypeForName(documentType).inherits(QStringLiteral("application/xml")));
        const QByteArray otherRoutes = "<?xml version=\"1.0\"?>\n<routes><route path=\"/\"/></routes>";
        QCOMPARE(database.mimeTypeForData(otherRoutes).name(), QStringLiteral("application/xml"));
    }

    void metainfoSaysTheSame()
    {
        const QString text = QString::fromUtf8(
            KRTestFile::content(desktopDir + QStringLiteral("de.krgeolocation.krroutes.metainfo.xml.in")));
        static const QRegularExpression element(QStringLiteral("<mediatype>(.*)</mediatype>"));
        QStringList types;
        for (auto found = element.globalMatch(text); found.hasNext();)
            types.append(found.next().captured(1));
        QCOMPARE(types, typesOfDesktopFile());
    }

private:
    QTemporaryDir m_data;
};

template class KRTestRegistration<tst_KRDesktopFiles>;

#include "tst_KRDesktopFiles.moc"
