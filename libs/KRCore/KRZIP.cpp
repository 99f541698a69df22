#include "KRZIP.h"

#include "KRErrorHistory.h"
#include "KRFileHandler.h"
#include "KRInputLimits.h"
#include "KRMessageText.h"
#include "KRZIPGuard.h"

#include <QByteArray>
#include <QFile>

#include <algorithm>
#include <array>

#include <unistd.h>
#include <zip.h>

namespace {

struct EntryCloser {
    void operator()(zip_file *entry) const { zip_fclose(entry); }
};
using OpenEntry = std::unique_ptr<zip_file, EntryCloser>;

/// A name out of an archive as part of a message.
QString forMessage(const QString &name)
{
    constexpr int mostCharacters = 80;
    return KRMessageText::printable(name.left(mostCharacters));
}

QString errorText(int code)
{
    if (code == ZIP_ER_EXISTS)
        return KRZIP::tr("zwei Einträge haben denselben Namen");
    zip_error error;
    zip_error_init_with_code(&error, code);
    const QString text = QString::fromUtf8(zip_error_strerror(&error));
    zip_error_fini(&error);
    return text;
}

QStringList entryNames(zip *archive, zip_uint64_t count)
{
    QStringList names;
    for (zip_uint64_t index = 0; index < count; ++index)
        names.append(QString::fromUtf8(zip_get_name(archive, index, ZIP_FL_ENC_GUESS)));
    return names;
}

/// Why the entry is not to be inflated, an empty text when nothing speaks against it.
QString refusal(const zip_stat_t &entry)
{
    constexpr zip_uint64_t needed =
        ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE | ZIP_STAT_COMP_METHOD | ZIP_STAT_ENCRYPTION_METHOD;
    if ((entry.valid & needed) != needed)
        return KRZIP::tr("seine Angaben sind unvollständig");
    if (entry.encryption_method != ZIP_EM_NONE)
        return KRZIP::tr("er ist verschlüsselt");
    // Other methods allocate what the packed bytes ask for.
    if (entry.comp_method != ZIP_CM_STORE && entry.comp_method != ZIP_CM_DEFLATE)
        return KRZIP::tr("sein Packverfahren wird nicht unterstützt");
    return QString();
}

bool isTooDense(zip_uint64_t size, zip_uint64_t packedSize)
{
    return size > KRInputLimits::archiveFreeBytes && size / KRInputLimits::archiveRatio > packedSize;
}

/// All bytes of the entry; @p reason stays empty if they are what @p expected says.
QByteArray inflate(zip_file *entry, const zip_stat_t &expected, QString *reason)
{
    QByteArray content("");
    std::array<char, 1 << 16> piece;
    while (const zip_int64_t count = zip_fread(entry, piece.data(), piece.size())) {
        if (count < 0) {
            *reason = KRZIP::tr("er ist beschädigt (%1)").arg(QString::fromUtf8(zip_file_strerror(entry)));
            break;
        }
        content.append(piece.data(), int(count));
        const auto size = zip_uint64_t(content.size());
        if (size > KRInputLimits::archiveEntryBytes) {
            *reason = KRZIP::tr("er ist zu groß (mehr als %1 MB)").arg(KRInputLimits::archiveEntryBytes >> 20);
            break;
        }
        if (isTooDense(size, expected.comp_size)) {
            *reason = KRZIP::tr("er ist verdächtig dicht gepackt (mehr als %1:1)").arg(KRInputLimits::archiveRatio);
            break;
        }
    }
    if (reason->isEmpty() && zip_uint64_t(content.size()) != expected.size)
        *reason = KRZIP::tr("er hat nicht die angegebene Größe");
    return content;
}

QByteArray contentOf(zip *archive, zip_uint64_t index, QString *reason)
{
    zip_stat_t entry;
    zip_stat_init(&entry);
    zip_stat_index(archive, index, 0, &entry); // what it cannot tell is not valid
    *reason = refusal(entry);
    if (!reason->isEmpty())
        return QByteArray();
    if (const OpenEntry open{zip_fopen_index(archive, index, 0)})
        return inflate(open.get(), entry, reason);
    *reason = KRZIP::tr("er ist beschädigt (%1)").arg(QString::fromUtf8(zip_strerror(archive)));
    return QByteArray();
}

/// The archive with that one entry, packed by one of the methods of libzip.
QByteArray packedBy(zip_int32_t method, const QString &name, const QByteArray &content)
{
    zip_error error;
    zip_error_init(&error);
    zip_source *const bytes = zip_source_buffer_create(nullptr, 0, 1, &error);
    zip *const archive = zip_open_from_source(bytes, ZIP_TRUNCATE, &error); // null of null
    if (!archive) {
        zip_source_free(bytes);
        return QByteArray();
    }
    // The archive gives the source back when it is closed only if somebody else holds it too.
    zip_source_keep(bytes);
    zip_source *const entry = zip_source_buffer(archive, content.constData(), zip_uint64_t(content.size()), 0);
    const zip_int64_t added = zip_file_add(archive, name.toUtf8().constData(), entry, ZIP_FL_ENC_UTF_8);
    if (added < 0)
        zip_source_free(entry);
    const auto index = zip_uint64_t(added);
    // Of 1980-01-01, so that equal content makes equal archives.
    constexpr zip_uint16_t firstDosDate = 1 << 5 | 1;
    const bool isAdded = added >= 0 && zip_set_file_compression(archive, index, method, 0) == 0
                         && zip_file_set_dostime(archive, index, 0, firstDosDate, 0) == 0 && zip_close(archive) == 0;
    QByteArray packed;
    if (!isAdded) {
        zip_discard(archive);
    } else {
        zip_source_open(bytes); // or nothing can be read
        std::array<char, 65536> piece;
        for (zip_int64_t count = 1; count > 0;) {
            count = zip_source_read(bytes, piece.data(), piece.size());
            if (count > 0)
                packed.append(piece.data(), int(count));
        }
        zip_source_close(bytes);
    }
    zip_source_free(bytes);
    return packed;
}

} // namespace

KRZIP::KRZIP(const QFileInfo &file, KRErrorHistory *history) : m_file(file), m_history(history) { }

bool KRZIP::open(OpenMode mode)
{
    close();
    if (mode != read)
        return false;
    QFile file(m_file.filePath());
    if (!KRFileHandler::openForReading(file, m_history, KRInputLimits::streamedFileBytes))
        return false;
    QString reason = KRZIPGuard::refusal(&file);
    if (!reason.isEmpty()) {
        report(reason);
        return false;
    }

    // The file that was looked at, not one that may have got its name since.
    const int descriptor = ::dup(file.handle());
    int error = 0;
    m_archive.reset(zip_fdopen(descriptor, ZIP_CHECKCONS, &error));
    if (!m_archive) {
        ::close(descriptor);
        report(tr("Kein lesbares ZIP-Archiv: %1").arg(errorText(error)));
        return false;
    }
    const auto count = zip_uint64_t(zip_get_num_entries(m_archive.get(), 0));
    if (count > KRInputLimits::archiveEntries)
        report(tr("Das Archiv hat %1 Einträge, nur die ersten %2 werden beachtet.")
                   .arg(count)
                   .arg(KRInputLimits::archiveEntries));
    m_names = entryNames(m_archive.get(), std::min<zip_uint64_t>(count, KRInputLimits::archiveEntries));
    return true;
}

QByteArray KRZIP::fileContent(const QString &name) const
{
    const int index = m_names.indexOf(name);
    if (index < 0) {
        report(tr("Das Archiv hat keinen Eintrag „%1“.").arg(forMessage(name)));
        return QByteArray();
    }
    QString reason;
    const QByteArray content = contentOf(m_archive.get(), zip_uint64_t(index), &reason);
    if (reason.isEmpty())
        return content;
    report(tr("Der Eintrag „%1“ kann nicht gelesen werden: %2.").arg(forMessage(name), reason));
    return QByteArray();
}

void KRZIP::close()
{
    m_names.clear();
    m_archive.reset();
}

void KRZIP::report(const QString &reason) const
{
    KRErrorHistory::report(m_history, m_file.filePath(), reason);
}

void KRZIP::Closer::operator()(zip *archive) const
{
    // Unlike closing it, discarding an archive never writes.
    zip_discard(archive);
}

QByteArray KRZIP::pack(const QString &name, const QByteArray &content)
{
    if (content.size() > KRInputLimits::archiveEntryBytes)
        return QByteArray();
    const QByteArray deflated = packedBy(ZIP_CM_DEFLATE, name, content);
    // With room for the headers, which have the name twice and are not part of what is packed.
    const int headerBytes = std::min(deflated.size(), 256 + 2 * name.toUtf8().size());
    const bool isReadable = !isTooDense(zip_uint64_t(content.size()), zip_uint64_t(deflated.size() - headerBytes));
    return isReadable || deflated.isNull() ? deflated : packedBy(ZIP_CM_STORE, name, content);
}
