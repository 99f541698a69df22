#include "KRKmzArchive.h"

#include "KRImportReport.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRZIP.h>

#include <QByteArray>
#include <QFileInfo>

#include <algorithm>

QStringList KRKmzArchive::documents(const QStringList &names)
{
    QStringList documents;
    for (const QString &name : names) {
        const bool isOfMacOs = name.startsWith(QLatin1String("__MACOSX/"));
        if (name.endsWith(QLatin1String(".kml"), Qt::CaseInsensitive) && !isOfMacOs)
            documents.append(name);
    }
    const auto chosen = std::find_if(documents.begin(), documents.end(),
                                     [](const QString &name) { return name.endsWith(QLatin1String(".kml")); });
    if (chosen != documents.end())
        std::rotate(documents.begin(), chosen, chosen + 1);
    return documents;
}

QByteArray KRKmzArchive::read(const QFileInfo &file, KRErrorHistory *history, KRImportReport *report)
{
    KRZIP archive(file, history);
    if (!archive.open(KRZIP::read))
        return QByteArray();
    const QStringList names = documents(archive.getFileNameList());
    if (names.isEmpty()) {
        KRErrorHistory::report(history, file.filePath(), tr("Das Archiv enthält kein KML-Dokument."));
        return QByteArray();
    }
    for (const QString &name : names.mid(1))
        report->add(KRImportReport::OtherDocument, 0, name);
    return archive.fileContent(names.first());
}
