#pragma once

#include <QDateTime>
#include <QDir>
#include <QLockFile>

#include <memory>
#include <vector>

/**
 * The folder in which one running program keeps its unsaved work.
 *
 * A lock beside it ends with the process, however that ends: a folder without one has been left behind. As long as an
 * object lives nobody else gets at its folder.
 */
class KRRecoveryFolder
{
public:
    /// Where the folders of all running programs of this user lie.
    static QDir standardPlace();
    /// A new one, empty; null when it cannot be made.
    static std::unique_ptr<KRRecoveryFolder> create(const QDir &place);
    /// Those that hold work and that no running program owns, the newest first, up to fifty. Of those that hold none
    /// up to two hundred are cleared away, unless there is anything in them that no KRRecoveryFolder has put there.
    static std::vector<std::unique_ptr<KRRecoveryFolder>> leftBehind(const QDir &place);

    /// Keeps what is in the folder.
    ~KRRecoveryFolder() = default;

    /// Where the unsaved work belongs.
    QString recoveryFile() const;
    bool holdsWork() const;
    QDateTime lastChange() const;

    /// The document of which this is the unsaved state; empty when it has never been saved, and when what is said
    /// here is no route document: nothing else is to be written over.
    QString documentFile() const;
    /// Of the last change of that file as far as the program knew it; not valid without one.
    QDateTime documentTime() const;
    /// Work that was kept for another state is removed: it must not pass for changes of this one. False when that
    /// cannot be written.
    bool setDocument(const QString &fileName, const QDateTime &fileTime);

    /// Track files that have been written once are kept for the next time.
    void removeWork();
    /// The folder is gone afterwards, unless somebody else has put something into it, which stays.
    void discard();

private:
    Q_DISABLE_COPY(KRRecoveryFolder)
    KRRecoveryFolder(const QDir &place, const QString &name);
    /// Null when a running program owns it.
    static std::unique_ptr<KRRecoveryFolder> take(const QDir &place, const QString &name);

    QString recordFile() const;
    QString record() const;

    QDir m_dir;
    QLockFile m_lock;
};
