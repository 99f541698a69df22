#pragma once

#include "KRCoreExport.h"

#include <QList>
#include <QString>

/**
 * What went wrong while files were read or written, in the order in which it happened.
 *
 * The libraries carry failures in values and empty lists. A caller that wants to tell its user why a file gave
 * nothing hands in a history; whoever loads or saves adds an entry. Each entry also goes to the logging
 * category "kr.io" as one warning, with or without a history. Not for use from several threads at once.
 */
class KRCORE_EXPORT KRErrorHistory
{
public:
    /// One failure.
    struct Entry {
        QString fileName; ///< as it was given, with its path
        int line = 0; ///< counted from 1; 0 where no place in the file is to blame
        int column = 0; ///< counted from 1; 0 where no place in the file is to blame
        QString reason; ///< for users, in their language, without the file name

        /// "name:line:column: reason" for a terminal or a log, in one line, with no more of the place than is known.
        QString toString() const;
    };

    /// Logs the entry and adds it to @p history unless that is null.
    static void report(KRErrorHistory *history, const Entry &entry);
    /// The same where no place in the file is to blame.
    static void report(KRErrorHistory *history, const QString &fileName, const QString &reason);

    /// Adds the entries of @p other, for one history of what several threads have read; they are logged already.
    void append(const KRErrorHistory &other) { m_entries += other.m_entries; }

    const QList<Entry> &entries() const { return m_entries; }
    bool isEmpty() const { return m_entries.isEmpty(); }
    void clear() { m_entries.clear(); }

private:
    QList<Entry> m_entries;
};
