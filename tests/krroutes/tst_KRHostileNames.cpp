#include "KRDialogAnswer.h"
#include "KRGapsWarning.h"
#include "KRGroundMenu.h"
#include "KRGroundSettings.h"
#include "KRImportReportDialog.h"
#include "KRMainWindow.h"
#include "KRMapView.h"
#include "KRProgressDialog.h"
#include "KRRecentFilesMenu.h"
#include "KRRecoveryFolder.h"
#include "KRStatusWarning.h"
#include "KRTest.h"
#include "KRTestFile.h"
#include "KRTestTrack.h"
#include "KRTrackRowDelegate.h"
#include "KRViewerOptions.h"
#include "KRViewerSettings.h"

#include <KRMapGround.h>
#include <KRRouteDocument.h>

#include <QtWidgets>

namespace {

/// What people read.
QString shown(const QString &toolTip)
{
    return Qt::mightBeRichText(toolTip) ? QTextDocumentFragment::fromHtml(toolTip).toPlainText() : toolTip;
}

bool obeysMarkup(const QWidget &dialog)
{
    const QList<QLabel *> labels = dialog.findChildren<QLabel *>();
    return std::any_of(labels.cbegin(), labels.cend(), [](const QLabel *label) {
        return label->textFormat() != Qt::PlainText && Qt::mightBeRichText(label->text());
    });
}

} // namespace

/// Names that are markup, and names that would take for ever to lay out.
class tst_KRHostileNames : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_window = std::make_unique<KRMainWindow>(QDir(m_dir.filePath(QStringLiteral("recovery")))); }
    void cleanup() { m_window.reset(); }

    void toolTips()
    {
        const KRTestTable<std::function<QString(const QString &)>> table{
            {"undo", [this](const QString &name) { return toolTipOf(QKeySequence::Undo, name); }},
            {"redo", [this](const QString &name) { return toolTipOf(QKeySequence::Redo, name); }},
            {"row", [](const QString &name) { return KRTrackRowDelegate::toolTip(name, QString()); }},
            {"description", [](const QString &name) { return KRTrackRowDelegate::toolTip(QString(), escaped(name)); }},
            {"map", [this](const QString &name) { return toolTipOfMap(name); }},
            {"status bar",
             [](const QString &name) {
                 KRStatusWarning warning;
                 warning.setWarning(name);
                 return warning.toolTip();
             }},
            {"recent file",
             [](const QString &name) {
                 KRViewerSettings().addRecentFile(name);
                 return KRRecentFilesMenu().actions().first()->toolTip();
             }},
            {"recent tiles",
             [](const QString &name) {
                 KRGroundSettings().setChoice(KRGroundChoice::tiles(name, QString()));
                 const KRGroundMenu menu;
                 KRGroundSettings().setChoice(KRGroundChoice());
                 return menu.actions().at(3)->toolTip();
             }},
            {"report",
             [](const QString &name) {
                 KRErrorHistory problems;
                 KRErrorHistory::report(&problems, name, QStringLiteral("reason"));
                 const KRImportReportDialog dialog(problems, {});
                 return dialog.findChild<QTreeWidget *>()->topLevelItem(0)->toolTip(0);
             }},
        };
        table.forEach([](const std::function<QString(const QString &)> &toolTip) {
            const QString markup = QStringLiteral("<img src=\"a&#47;b\">");
            QVERIFY2(shown(toolTip(markup)).contains(markup), qPrintable(toolTip(markup)));
            QVERIFY(!toolTip(markup).contains(QLatin1String("<img")));
            const QString plain = shown(toolTip(QString(100000, QLatin1Char('x'))));
            QVERIFY2(plain.contains(QLatin1String("xx")) && plain.size() < 700, qPrintable(plain));
        });
    }

    void messages()
    {
        const QString name = QStringLiteral("<img src=a&#47;b>.krroute");
        const QString document = KRTestFile::write(m_dir.filePath(name), "<routes");
        KRRouteWorkspace *const workspace = m_window->workspace();
        const KRTestTable<std::function<void()>> table{
            {"unreadable", [&] { m_window->openFiles({document}); }},
            {"not saved",
             [&] {
                 workspace->setSaved(workspace->document(), document, QDateTime());
                 workspace->setCroppingOpacity(50);
                 m_window->close();
             }},
            {"changed by others", [&] { QTest::keyClick(m_window.get(), Qt::Key_S, Qt::ControlModifier); }},
            {"gaps",
             [&] {
                 KRGapsWarning::show(m_window.get(), QString(), {1, name});
             }},
            {"left behind",
             [&] {
                 leaveBehind(document);
                 m_window->offerRecovery();
             }},
        };
        const auto refuse = [&](QWidget *dialog) {
            auto *const box = qobject_cast<QMessageBox *>(dialog);
            QVERIFY(box != nullptr && box->text().contains(name));
            QVERIFY(!obeysMarkup(*box));
            QTest::keyClick(box, Qt::Key_Escape);
        };
        m_window->show();
        table.forEach([&](const std::function<void()> &act) {
            KRDialogAnswer answers({refuse});
            activate();
            act();
            QVERIFY(answers.isDone());
        });

        KRDialogAnswer answers({KRDialogAnswer::file(document), refuse, KRDialogAnswer::key(Qt::Key_Escape)});
        activate();
        QTest::keyClick(m_window.get(), Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(answers.isDone());

        const KRProgressDialog progress(name, 0, m_window.get());
        QVERIFY(progress.labelText() == name && !obeysMarkup(progress));
    }

    void reportIsShortened()
    {
        const QString name(5000, QLatin1Char('x'));
        KRImportReport report(name);
        for (int i = 0; i < KRImportReport::maximumItems; ++i)
            report.add(KRImportReport::NetworkLink, 0, QString::number(i));
        const KRImportReportDialog dialog(KRErrorHistory(), {report, report, report});
        const auto *const tree = dialog.findChild<QTreeWidget *>();
        QVERIFY(tree->topLevelItem(0)->text(0).size() < 400);
        QCOMPARE(tree->topLevelItemCount(), 3); // two reports, of which one is not whole, and a note
        QVERIFY(tree->topLevelItem(2)->text(0).contains(QLatin1String("1003")));
        QCOMPARE(dialog.text().count(name), 3);
        QCOMPARE(dialog.text().count(QLatin1String("999")), 3);
    }

    void emptyOnesAreLeftOut()
    {
        const KRViewerOptions options({QStringLiteral("krroutes"), QString(), QStringLiteral("/a.gpx")});
        QCOMPARE(options.fileNames(), QStringList(QStringLiteral("/a.gpx")));
    }

private:
    /// As in a description that is HTML.
    static QString escaped(const QString &text) { return QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped()); }

    void activate() const
    {
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }

    void leaveBehind(const QString &document) const
    {
        const std::unique_ptr<KRRecoveryFolder> folder =
            KRRecoveryFolder::create(QDir(m_dir.filePath(QStringLiteral("recovery"))));
        QVERIFY(folder->setDocument(document, QDateTime()));
        QVERIFY(m_window->workspace()->document().save(QFileInfo(folder->recoveryFile()), nullptr));
    }

    QString toolTipOf(QKeySequence::StandardKey key, const QString &name)
    {
        KRRouteWorkspace *const workspace = m_window->workspace();
        workspace->addTracks(KRGPXConfiguredTrackList(track(name)), name);
        if (key == QKeySequence::Redo)
            workspace->undoStack()->undo();
        for (const QToolButton *const button : m_window->findChildren<QToolButton *>()) {
            if (button->defaultAction() && button->defaultAction()->shortcuts().contains(QKeySequence(key)))
                return button->toolTip();
        }
        return QString();
    }

    static QString toolTipOfMap(const QString &name)
    {
        KRMapView map;
        map.resize(300, 300);
        map.show();
        map.setTracks(KRGPXTrackSelection(KRGPXConfiguredTrackList(track(name))));
        map.showAll();
        const auto middle = [&map] { return map.viewport().pixelOf(KRGeoPosition(53.0, 8.0)).toPoint(); };
        if (!QTest::qWaitFor([&] { return map.hitAt(middle()).isValid(); }))
            return QString();
        QHelpEvent help(QEvent::ToolTip, middle(), map.mapToGlobal(middle()));
        QApplication::sendEvent(&map, &help);
        return QToolTip::text();
    }

    static KRGPXConfiguredTrack track(const QString &name)
    {
        return KRGPXConfiguredTrack(KRTestTrack::through({{53.0, 7.0}, {53.0, 9.0}}, LineStringTrackShape, name),
                                    KRGPXTrackConfiguration::defaultValue());
    }

    QTemporaryDir m_dir;
    std::unique_ptr<KRMainWindow> m_window;
};

template class KRTestRegistration<tst_KRHostileNames>;

#include "tst_KRHostileNames.moc"
