#include "KRTest.h"
#include "KRTestFile.h"

namespace {

const QDir &project()
{
    static const QDir dir(QStringLiteral(KR_DOCS_DIR "/.."));
    return dir;
}

/// What pages of a repository show headings under: in lower case, blanks as hyphens, nothing but letters and digits.
QStringList anchorsOf(const QString &page)
{
    static const QRegularExpression heading(QStringLiteral("^#+ (.*)$"), QRegularExpression::MultilineOption);
    static const QRegularExpression dropped(QStringLiteral("[^\\w\\- ]"),
                                            QRegularExpression::UseUnicodePropertiesOption);
    QStringList anchors;
    auto match = heading.globalMatch(QString::fromUtf8(KRTestFile::content(page)));
    while (match.hasNext()) {
        const QString text = match.next().captured(1).toLower().remove(dropped);
        anchors.append(QString(text).replace(QLatin1Char(' '), QLatin1Char('-')));
    }
    return anchors;
}

} // namespace

/// Follows the links on all our pages to files, folders, pictures and headings of the project.
class tst_KRPageLinks : public QObject
{
    Q_OBJECT

private slots:
    void links_data()
    {
        QTest::addColumn<QString>("page");
        const QStringList folders{QStringLiteral("apps"),     QStringLiteral("benchmarks"), QStringLiteral("data"),
                                  QStringLiteral("docs"),     QStringLiteral("fuzz"),       QStringLiteral("libs"),
                                  QStringLiteral("packaging")};
        QStringList pages = project().entryList({QStringLiteral("*.md")}, QDir::Files);
        for (const QString &folder : folders) {
            QDirIterator iterator(project().filePath(folder), {QStringLiteral("*.md")}, QDir::Files,
                                  QDirIterator::Subdirectories);
            while (iterator.hasNext())
                pages.append(project().relativeFilePath(iterator.next()));
        }
        for (const QString &page : std::as_const(pages))
            QTest::newRow(qPrintable(page)) << project().filePath(page);
    }

    void links()
    {
        QFETCH(QString, page);
        static const QRegularExpression link(QStringLiteral("\\]\\(([^)\\s]+)\\)"));
        auto match = link.globalMatch(QString::fromUtf8(KRTestFile::content(page)));
        while (match.hasNext()) {
            const QString target = match.next().captured(1);
            if (target.contains(QLatin1String("://")) || target.startsWith(QLatin1String("mailto:")))
                continue;
            const QString path = target.section(QLatin1Char('#'), 0, 0);
            const QString anchor = target.section(QLatin1Char('#'), 1);
            const QString file = path.isEmpty() ? page : QFileInfo(page).dir().filePath(path);
            QVERIFY2(QFileInfo::exists(file), qPrintable(target));
            if (!anchor.isEmpty())
                QVERIFY2(anchorsOf(file).contains(anchor), qPrintable(target));
        }
    }
};

template class KRTestRegistration<tst_KRPageLinks>;

#include "tst_KRPageLinks.moc"
