#include "KRRouteWorkspace.h"

#include <KRRouteDocument.h>

#include <KRGeoLocation/KRGPXTrackFileRegistry.h>
#include <KRGeoLocation/KRGPXTrackFileRegistryKey.h>

#include <QFileInfo>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace {

/// Of all steps together but the last, which is kept whatever it takes.
constexpr qint64 mostBytesOfSteps = 100'000'000;

KRGPXConfiguredTrackList replaced(const KRGPXConfiguredTrackList &old, int row, int count,
                                  const KRGPXConfiguredTrackList &tracks)
{
    return old.mid(0, row) + tracks + old.mid(row + count);
}

/// A track that stands for an unreadable file keeps the name of that file: it shall be referred to after the next save.
void registerUnreadableFiles(const KRGPXTrackSelection &selection, const QDir &folder)
{
    const KRGPXConfiguredTrackList tracks = selection.tracks();
    for (const KRGPXConfiguredTrack &track : tracks) {
        if (!track.track().isValid() && QFileInfo(folder, track.name()).isFile())
            KRGPXTrackFileRegistry::instance().registerFile(KRGPXTrackFileRegistryKey(track.track(), folder),
                                                            track.name());
    }
}

} // namespace

KRRouteWorkspace::KRRouteWorkspace(QObject *parent) : QObject(parent)
{
    connect(&m_undoStack, &QUndoStack::cleanChanged, this, &KRRouteWorkspace::documentChanged);
    // Below a step that has been forgotten there are none but such. A state that was saved among them is not come back
    // to, and must not seem to be so even for a moment: the copy of unsaved work would be removed.
    connect(&m_undoStack, &QUndoStack::indexChanged, this, [this](int index) {
        if (index == 0 || !m_undoStack.command(index - 1)->isObsolete())
            return;
        const bool isSaved = m_undoStack.isClean();
        m_undoStack.resetClean();
        m_undoStack.setIndex(0);
        if (isSaved)
            m_undoStack.setClean();
    });
    // A drop moves its rows one by one and tells at its end; other moves are adopted when control returns.
    connect(&m_model, &KRGPXTrackListModel::pleaseSelectTrack, this, &KRRouteWorkspace::adoptOrderOfModel);
    connect(&m_model, &KRGPXTrackListModel::dataChanged, this, [this] {
        if (!m_isUpdatingModel)
            m_adoptionTimer.start();
    });
    m_adoptionTimer.setSingleShot(true);
    connect(&m_adoptionTimer, &QTimer::timeout, this, &KRRouteWorkspace::adoptOrderOfModel);
}

KRRouteWorkspace::~KRRouteWorkspace()
{
    // The stack tells when its steps go; whoever listens may be half gone itself.
    m_undoStack.blockSignals(true);
}

bool KRRouteWorkspace::isChangedOutside() const
{
    const QFileInfo file(m_fileName);
    return file.exists() && file.lastModified() != m_fileTime;
}

void KRRouteWorkspace::addTracks(const KRGPXConfiguredTrackList &tracks, const QString &text)
{
    replaceTracks(m_selection.count(), 0, tracks, text);
}

void KRRouteWorkspace::replaceTracks(int row, int count, const KRGPXConfiguredTrackList &tracks, const QString &text)
{
    KRGPXTrackSelection changed = upToDateSelection();
    if (row < 0 || count < 0 || row + count > changed.count())
        return;
    changed.setTracks(replaced(changed.tracks(), row, count, tracks));
    push(changed, text);
}

void KRRouteWorkspace::removeTrack(int row)
{
    KRGPXTrackSelection changed = upToDateSelection();
    changed.removeAt(row);
    push(changed, tr("„%1“ löschen").arg(m_selection.value(row).name()));
}

void KRRouteWorkspace::moveTrack(int from, int to)
{
    KRGPXTrackSelection changed = upToDateSelection();
    changed.moveTrack(from, to);
    push(changed, tr("Reihenfolge ändern"));
}

void KRRouteWorkspace::setConfiguration(int row, const KRGPXTrackConfiguration &configuration)
{
    KRGPXTrackSelection changed = upToDateSelection();
    changed.setConfiguration(row, configuration);
    push(changed, tr("Aussehen von „%1“ ändern").arg(m_selection.value(row).name()),
         KRSelectionChange::ConfigurationChange);
}

void KRRouteWorkspace::setConfigurationToAll(const KRGPXTrackConfiguration &configuration)
{
    KRGPXTrackSelection changed = upToDateSelection();
    changed.setConfiguration(configuration);
    push(changed, tr("Aussehen aller Routen ändern"), KRSelectionChange::AllConfigurationsChange);
}

void KRRouteWorkspace::setCroppingOpacity(int opacity)
{
    KRGPXTrackSelection changed = upToDateSelection();
    changed.setCroppingOpacity(opacity);
    push(changed, tr("Deckkraft der Umgebung ändern"), KRSelectionChange::CroppingChange);
}

void KRRouteWorkspace::startNew()
{
    replaceDocument(KRGPXTrackSelection(), QString(), QDateTime());
}

void KRRouteWorkspace::open(const KRRouteDocument &document, const QString &fileName, const QDateTime &fileTime)
{
    replaceDocument(document.selection(), fileName, fileTime);
}

void KRRouteWorkspace::recover(const KRRouteDocument &document, const QString &fileName, const QDateTime &fileTime)
{
    if (!fileName.isEmpty())
        registerUnreadableFiles(document.selection(), KRRouteDocument::trackFolder(QFileInfo(fileName)));
    replaceDocument(document.selection(), fileName, fileTime);
    m_undoStack.resetClean();
}

KRRouteDocument KRRouteWorkspace::document()
{
    KRRouteDocument document;
    document.setSelection(upToDateSelection());
    return document;
}

void KRRouteWorkspace::setSaved(const KRRouteDocument &document, const QString &fileName, const QDateTime &fileTime)
{
    setFile(fileName, fileTime);
    // A step may have been taken back, or have grown, so that its number tells nothing.
    if (document.selection() == m_selection)
        m_undoStack.setClean();
    else
        m_undoStack.resetClean();
    emit documentChanged();
}

KRGPXTrackSelection KRRouteWorkspace::upToDateSelection()
{
    adoptOrderOfModel();
    return m_selection;
}

void KRRouteWorkspace::push(const KRGPXTrackSelection &selection, const QString &text, KRSelectionChange::Kind kind)
{
    if (selection == m_selection)
        return;
    // Names may be of any length; the end says what was done. The menus take a single "&" for the mark of a key.
    constexpr int longestHalf = 40;
    QString menuText = text.simplified();
    if (menuText.size() > 2 * longestHalf)
        menuText = menuText.left(longestHalf) + QChar(0x2026) + menuText.right(longestHalf);
    menuText.replace(QLatin1Char('&'), QLatin1String("&&"));
    const auto apply = [this](int row, int count, const KRGPXTrackSelection &part) {
        KRGPXTrackSelection changed(replaced(m_selection.tracks(), row, count, part.tracks()));
        changed.setCroppingOpacity(part.nominalCroppingOpacity());
        show(changed);
    };
    m_undoStack.push(new KRSelectionChange(m_selection, selection, menuText, apply, kind));
    forgetOldSteps();
}

void KRRouteWorkspace::forgetOldSteps()
{
    qint64 bytes = 0;
    for (int index = m_undoStack.count() - 1; index >= 0; --index) {
        // The stack hands out its own steps as constant, since most changes would bring it out of step.
        auto *const step = static_cast<KRSelectionChange *>(const_cast<QUndoCommand *>(m_undoStack.command(index)));
        bytes += step->bytes();
        if (bytes > mostBytesOfSteps && index < m_undoStack.count() - 1)
            step->forget();
    }
}

void KRRouteWorkspace::show(const KRGPXTrackSelection &selection)
{
    m_selection = selection;
    updateModel();
    emit selectionChanged();
}

void KRRouteWorkspace::replaceDocument(const KRGPXTrackSelection &selection, const QString &fileName,
                                       const QDateTime &fileTime)
{
    m_undoStack.clear();
    setFile(fileName, fileTime);
    show(selection);
    emit documentReplaced();
    emit documentChanged();
}

void KRRouteWorkspace::setFile(const QString &fileName, const QDateTime &fileTime)
{
    m_fileName = fileName.isEmpty() ? QString() : QFileInfo(fileName).absoluteFilePath();
    m_fileTime = fileTime;
}

void KRRouteWorkspace::updateModel()
{
    const QScopedValueRollback<bool> guard(m_isUpdatingModel, true);
    const KRGPXConfiguredTrackList wanted = m_selection.tracks();
    if (wanted.size() == m_model.rowCount()) {
        moveInModel(wanted);
        configureInModel(wanted);
    }
    m_model.setSelection(m_selection); // resets the model unless it shows these tracks by now
}

/// Where one move makes the model equal it does without a reset.
void KRRouteWorkspace::moveInModel(const KRGPXConfiguredTrackList &wanted)
{
    const KRGPXConfiguredTrackList shown = m_model.tracks();
    int first = 0;
    while (first < shown.size() && shown.at(first) == wanted.at(first))
        ++first;
    int last = shown.size() - 1;
    while (last > first && shown.at(last) == wanted.at(last))
        --last;
    if (first >= last)
        return;
    for (const auto &[from, to] : {std::make_pair(first, last), std::make_pair(last, first)}) {
        KRGPXConfiguredTrackList moved = shown;
        moved.moveTrack(from, to);
        if (moved == wanted) {
            m_model.moveTrack(from, to);
            return;
        }
    }
}

/// Where the tracks are the same their looks change without a reset.
void KRRouteWorkspace::configureInModel(const KRGPXConfiguredTrackList &wanted)
{
    const KRGPXConfiguredTrackList shown = m_model.tracks();
    const auto isSameTrack = [](const KRGPXConfiguredTrack &a, const KRGPXConfiguredTrack &b) {
        return a.track() == b.track();
    };
    if (!std::equal(shown.cbegin(), shown.cend(), wanted.cbegin(), wanted.cend(), isSameTrack))
        return;
    for (int row = 0; row < wanted.size(); ++row)
        m_model.setConfiguration(row, wanted.configuration(row));
}

void KRRouteWorkspace::adoptOrderOfModel()
{
    if (m_isUpdatingModel)
        return;
    KRGPXTrackSelection changed = m_selection;
    changed.setTracks(m_model.tracks());
    push(changed, tr("Reihenfolge ändern"));
}
