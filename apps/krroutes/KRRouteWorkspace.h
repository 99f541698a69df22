#pragma once

#include "KRSelectionChange.h"

#include <KRGeoLocation/KRGPXTrackListModel.h>
#include <KRGeoLocation/KRGPXTrackSelection.h>

#include <QDateTime>
#include <QObject>
#include <QTimer>
#include <QUndoStack>

class KRRouteDocument;

/**
 * The route document that the user works on: its tracks, the file it belongs to and an undo step for every change.
 * Where steps take much memory the oldest are forgotten.
 *
 * The list model shows the tracks to the views. It is touched only where it differs from them, so that rows keep their
 * widgets and the selection; what a view moves in it by drag and drop becomes a step as well. GUI thread only.
 */
class KRRouteWorkspace : public QObject
{
    Q_OBJECT

public:
    explicit KRRouteWorkspace(QObject *parent = nullptr);
    ~KRRouteWorkspace() override;

    KRGPXTrackListModel *model() { return &m_model; }
    QUndoStack *undoStack() { return &m_undoStack; }
    KRGPXTrackSelection selection() const { return m_selection; }

    /// Of the document; empty before it is saved for the first time.
    QString fileName() const { return m_fileName; }
    /// Of the last change of that file when it was read or written; not valid without one.
    QDateTime fileTime() const { return m_fileTime; }
    /// Whether there is anything that the file of the document does not hold.
    bool isModified() const { return !m_undoStack.isClean(); }

    /// Whether the file of the document is another one than this workspace has read or written last.
    bool isChangedOutside() const;

    /// @p text names the step for the user. Nothing happens, here and below, where nothing would change.
    void addTracks(const KRGPXConfiguredTrackList &tracks, const QString &text);
    /// Puts @p tracks where @p count tracks from @p row on are.
    void replaceTracks(int row, int count, const KRGPXConfiguredTrackList &tracks, const QString &text);
    void removeTrack(int row);
    void moveTrack(int from, int to);
    /// Quick repetitions for one track make one step.
    void setConfiguration(int row, const KRGPXTrackConfiguration &configuration);
    void setConfigurationToAll(const KRGPXTrackConfiguration &configuration);
    void setCroppingOpacity(int opacity);

    /// Without tracks, file and steps.
    void startNew();
    /// A document that has been read from the file. @p fileTime is that of its last change, taken before: what replaces
    /// the file while it is read is another one.
    void open(const KRRouteDocument &document, const QString &fileName, const QDateTime &fileTime);
    /// A document that was kept as the unsaved state of the file, which is not read. @p fileTime is that of the file
    /// of which it is the state; who has changed it since is asked about before it is written over.
    void recover(const KRRouteDocument &document, const QString &fileName, const QDateTime &fileTime);

    /// What is to be saved.
    KRRouteDocument document();
    /// This has been done: what is here belongs to the file from now on, and is modified only if it has changed
    /// meanwhile. @p fileTime is that of the file as it was written.
    void setSaved(const KRRouteDocument &document, const QString &fileName, const QDateTime &fileTime);

signals:
    void selectionChanged(); ///< tracks, looks or cropping
    void documentChanged(); ///< file name or modified mark
    void documentReplaced(); ///< another document; the tracks have nothing to do with those before

private:
    /// With what a view has just moved in the model.
    KRGPXTrackSelection upToDateSelection();
    void push(const KRGPXTrackSelection &selection, const QString &text,
              KRSelectionChange::Kind kind = KRSelectionChange::UniqueChange);
    void forgetOldSteps();
    void show(const KRGPXTrackSelection &selection);
    void replaceDocument(const KRGPXTrackSelection &selection, const QString &fileName, const QDateTime &fileTime);
    void setFile(const QString &fileName, const QDateTime &fileTime);
    void updateModel();
    void moveInModel(const KRGPXConfiguredTrackList &wanted);
    void configureInModel(const KRGPXConfiguredTrackList &wanted);
    void adoptOrderOfModel();

    KRGPXTrackListModel m_model;
    QTimer m_adoptionTimer;
    QUndoStack m_undoStack;
    KRGPXTrackSelection m_selection;
    QString m_fileName;
    QDateTime m_fileTime;
    bool m_isUpdatingModel = false;
};
