#pragma once

#include "KRDialogAnswer.h"
#include "KRMainWindow.h"
#include "KRTest.h"

#include <memory>

/// What tests of the main window begin with: the window, a folder for its files, and what they do with both.
class KRMainWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        makeWindow();
    }
    void cleanup() { m_window.reset(); }

protected:
    QString path(const char *name) const { return m_dir->filePath(QLatin1String(name)); }
    void makeWindow()
    {
        m_window = std::make_unique<KRMainWindow>(QDir(path("recovery")));
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }

    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier)
    {
        // Shortcuts are those of the active window, which a dialog has been until now.
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        QTest::keyClick(m_window.get(), key, modifiers);
    }

    bool save(const QString &document)
    {
        KRDialogAnswer answers({KRDialogAnswer::file(document)});
        key(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
        return answers.isDone() && workspace()->fileName() == document && !m_window->isWindowModified();
    }

    /// Of all tracks, with slashes between them.
    QString names() const
    {
        QStringList list;
        for (const KRGPXConfiguredTrack &track : workspace()->selection().tracks())
            list.append(track.name());
        return list.join(QLatin1Char('/'));
    }

    KRRouteWorkspace *workspace() const { return m_window->workspace(); }
    KRGPXConfiguredTrack track(int row) const { return workspace()->selection().value(row); }
    int opacity() const { return workspace()->selection().nominalCroppingOpacity(); }

    const QString m_tour = QStringLiteral(KR_SAMPLES_DIR "/oldenburg-radtour.gpx");
    const QString m_lake = QStringLiteral(KR_SAMPLES_DIR "/zwischenahner-meer-ufer.gpx");
    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<KRMainWindow> m_window;
};
