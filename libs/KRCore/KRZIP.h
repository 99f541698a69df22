#pragma once

#include "KRCoreExport.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStringList>

#include <memory>

class KRErrorHistory;
class QByteArray;
struct zip;

/**
 * Reads ZIP archives of unknown origin, entry by entry and into memory only; packs such as it reads.
 *
 * Entries are known by their names, which are nothing but texts here: no name is ever taken for a path, and nothing is
 * written to disk. Entries may be stored or deflated; encrypted ones are refused, and so is an archive in which two
 * entries have the same name or overlap. What headers say about sizes is not believed: the limits of KRInputLimits hold
 * for the bytes that really come out.
 *
 * Failures show as false, an empty list or a null array; the reason goes to the history, if there is one, which has
 * to outlive this object. One thread at a time; a moved-from object may only be assigned or destroyed.
 */
class KRCORE_EXPORT KRZIP
{
    Q_DECLARE_TR_FUNCTIONS(KRZIP)

public:
    /// What is opened is only read.
    enum OpenMode : int {
        read = 1,
    };

    explicit KRZIP(const QFileInfo &file, KRErrorHistory *history = nullptr);

    /// Reads the table of contents. Only regular files are opened, and only archives without contradictions.
    bool open(OpenMode mode);
    /// The names of all entries, folders included, as the table of contents has them; empty unless open.
    QStringList getFileNameList() const { return m_names; }
    /// The inflated bytes, checked against their checksum; not null for an entry that is empty.
    QByteArray fileContent(const QString &name) const;
    void close();

    /// The bytes of an archive with one entry, deflated unless it would be too dense to be read again; a null array
    /// when the content is more than that, the name has control characters, or memory runs out.
    static QByteArray pack(const QString &name, const QByteArray &content);

private:
    struct Closer {
        void operator()(zip *archive) const;
    };

    void report(const QString &reason) const;

    QFileInfo m_file;
    KRErrorHistory *m_history;
    std::unique_ptr<zip, Closer> m_archive;
    QStringList m_names; // the position is the index of the entry
};
