#include <KRGeoLocation/KRGPXTrackMultiFunctionDelegate.h>

#include <KRGUIWidgets/KRElidedLabel.h>
#include <KRGeoLocation/KRGPXTrackMultiFunctionDelegateWidget.h>

#include "KRTest.h"

#include <QListView>
#include <QStandardItemModel>
#include <QToolButton>

#include <memory>

using RowWidget = KRGPXTrackMultiFunctionDelegateWidget;

class tst_KRGPXTrackMultiFunctionDelegate : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_model = std::make_unique<QStandardItemModel>();
        for (const char *name : {"A", "B", "C", "D"})
            m_model->appendRow(new QStandardItem(QLatin1String(name)));
        m_view = std::make_unique<QListView>();
        m_view->setModel(m_model.get());
        m_delegate = new KRGPXTrackMultiFunctionDelegate(m_view.get(), AllTrackEditOptions);
        m_view->setItemDelegate(m_delegate);
        m_view->resize(300, 300);
        m_view->show();
        QTRY_VERIFY(rowWidget(3) != nullptr); // as soon as it has been painted
    }

    void cleanup()
    {
        m_view.reset();
        m_model.reset();
    }

    void laysOutTheButtons()
    {
        const QString edit = QStringLiteral("A bearbeiten");
        const QString remove = QStringLiteral("A löschen");
        const QString zoom = QStringLiteral("<b>Zoome auf</b> A");
        const QString mark = QStringLiteral("<b>Markiere</b> A");
        const KRTestTable<int, QStringList> table{
            {"none", 0, QStringList()},
            {"all, not in the order of their bits", 15, QStringList{edit, remove, zoom, mark}},
            {"mark and edit", 9, QStringList{edit, mark}},
        };
        table.forEach([this](int options, const QStringList &expected) {
            RowWidget row(m_model->index(0, 0), KRGPXTrackEditOptions(options), nullptr);
            row.resize(row.sizeHint());
            row.show();
            QStringList toolTips;
            int right = row.findChild<KRElidedLabel *>()->geometry().right();
            const QList<QToolButton *> buttons = row.findChildren<QToolButton *>();
            for (const QToolButton *toolButton : buttons) {
                toolTips += toolButton->toolTip();
                QVERIFY(toolButton->x() > right);
                QVERIFY(!toolButton->icon().isNull());
                right = toolButton->geometry().right();
            }
            QCOMPARE(toolTips, expected);
        });

        // Markup in names is text.
        m_model->item(0)->setText(QStringLiteral("<i>1</i> & 2"));
        const RowWidget row(m_model->index(0, 0), AllTrackEditOptions, nullptr);
        const QList<QToolButton *> buttons = row.findChildren<QToolButton *>();
        QCOMPARE(buttons.at(0)->toolTip(), QStringLiteral("<qt>&lt;i&gt;1&lt;/i&gt; &amp; 2 bearbeiten</qt>"));
        QCOMPARE(buttons.at(2)->toolTip(), QStringLiteral("<b>Zoome auf</b> &lt;i&gt;1&lt;/i&gt; &amp; 2"));
    }

    void tellsWhichButtonWasClicked()
    {
        const KRTestTable<int, const char *, bool> table{
            {"edit", 0, SIGNAL(editItem(int)), false},
            {"delete", 1, SIGNAL(deleteItem(int)), true},
            {"zoom", 2, SIGNAL(zoomToItem(int)), true},
            {"mark", 3, SIGNAL(addItem(int)), false},
        };
        table.forEach([this](int number, const char *signal, bool isQueued) {
            QSignalSpy clicked(m_delegate, signal);
            QTest::mouseClick(button(2, number), Qt::LeftButton);
            QCOMPARE(clicked.count(), isQueued ? 0 : 1);
            QTRY_COMPARE(clicked.count(), 1);
            QCOMPARE(clicked.first().first().toInt(), 2);
        });
        // A row may be removed by its own button.
        connect(m_delegate, &KRGPXTrackMultiFunctionDelegate::deleteItem, m_model.get(),
                [this](int row) { m_model->removeRow(row); });
        QTest::mouseClick(button(1, 1), Qt::LeftButton);
        QTRY_COMPARE(m_model->rowCount(), 3);
        QCOMPARE(m_model->item(1)->text(), QStringLiteral("C"));
    }

    void followsTheModel()
    {
        const QSignalBlocker blocker(m_model.get()); // one announcement for all, as below
        for (int row = 0; row < 4; ++row)
            m_model->item(row)->setText(QStringLiteral("new"));
        for (int row = 0; row < 4; ++row)
            rowWidget(row)->modelDataChanged(m_model->index(1, 0), m_model->index(2, 0));
        QCOMPARE(labelText(0) + labelText(1) + labelText(2) + labelText(3), QStringLiteral("AnewnewD"));
        QCOMPARE(button(1, 0)->toolTip(), QStringLiteral("B bearbeiten")); // as it was made
    }

    void forgetsClosedRows()
    {
        const QPointer<RowWidget> closed = rowWidget(0);
        m_view->closePersistentEditor(m_model->index(0, 0));
        m_delegate->animate(0);
        QVERIFY(!closed || !closed->isBlinking());

        const QPointer<RowWidget> reset = rowWidget(1);
        m_view->reset(); // hands in an invalid index
        m_delegate->animate(1);
        QVERIFY(!reset || !reset->isBlinking());

        QTRY_VERIFY(rowWidget(2) != nullptr);
        delete rowWidget(2);
        m_delegate->animate(2);

        auto other = std::make_unique<QListView>();
        QWidget *const editor = m_delegate->createEditor(other.get(), QStyleOptionViewItem(), m_model->index(3, 0));
        QVERIFY(editor != nullptr);
        other.reset(); // with the editor, and without a word to the delegate
        m_delegate->animate(3);
    }

private:
    RowWidget *rowWidget(int row) const
    {
        return qobject_cast<RowWidget *>(m_view->indexWidget(m_model->index(row, 0)));
    }

    QToolButton *button(int row, int number) const { return rowWidget(row)->findChildren<QToolButton *>().at(number); }
    QString labelText(int row) const { return rowWidget(row)->findChild<KRElidedLabel *>()->text(); }

    std::unique_ptr<QStandardItemModel> m_model; // with the rows A to D
    std::unique_ptr<QListView> m_view;
    KRGPXTrackMultiFunctionDelegate *m_delegate = nullptr; // belongs to the view
};

template class KRTestRegistration<tst_KRGPXTrackMultiFunctionDelegate>;

#include "tst_KRGPXTrackMultiFunctionDelegate.moc"
