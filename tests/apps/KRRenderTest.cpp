#include "KRRenderTest.h"

void KRRenderTest::initTestCase()
{
    qputenv("PATH", QFileInfo(QStringLiteral(KR_KRRENDER)).path().toLocal8Bit() + ':' + qgetenv("PATH"));
    qputenv("tour", KR_SAMPLES_DIR "/oldenburg-radtour.gpx");
    qputenv("lake", KR_SAMPLES_DIR "/zwischenahner-meer-ufer.gpx");
    qputenv("samples", KR_SAMPLES_DIR);
    qunsetenv("LANGUAGE");
    qputenv("LC_ALL", "de_DE.UTF-8");
}

KRRenderTest::Outcome KRRenderTest::run(const QByteArray &command) const
{
    QProcess process;
    process.setWorkingDirectory(m_dir->path());
    process.start(QStringLiteral("sh"), {QStringLiteral("-c"), QString::fromUtf8(command)});
    if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), process.readAllStandardOutput(), QString::fromUtf8(process.readAllStandardError())};
}

QImage KRRenderTest::draw(const QByteArray &options) const
{
    const Outcome outcome = run("krrender -o - " + options);
    const bool isGood = outcome.exitCode == 0 && outcome.err.isEmpty();
    return isGood ? QImage::fromData(outcome.out, "png") : QImage();
}

QJsonArray KRRenderTest::tracks(const QByteArray &options) const
{
    const Outcome outcome = run("krrender --json " + options);
    return QJsonDocument::fromJson(outcome.out).object().value(QLatin1String("tracks")).toArray();
}
