#pragma once

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QList>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include <functional>
#include <utility>

/**
 * Answers the modal dialogs that open while it lives, as a person would who sits in front of them: the first answer
 * goes to the first dialog, and so on. A dialog without an answer is closed and counted; progress needs none.
 */
class KRDialogAnswer
{
public:
    using Answer = std::function<void(QWidget *dialog)>;

    explicit KRDialogAnswer(const QList<Answer> &answers) : m_answers(answers)
    {
        m_timer.setSingleShot(true);
        m_timer.setInterval(20);
        m_timer.start();
        QObject::connect(&m_timer, &QTimer::timeout, [this] { look(); });
    }

    static Answer key(Qt::Key key)
    {
        return [key](QWidget *dialog) { QTest::keyClick(dialog, key); };
    }
    /// Of a message box, whose text goes to @p text.
    static Answer button(QMessageBox::StandardButton button, QString *text = nullptr)
    {
        return [button, text](QWidget *dialog) {
            auto *const box = qobject_cast<QMessageBox *>(dialog);
            QVERIFY(box != nullptr);
            if (text != nullptr)
                *text = box->text();
            QTest::mouseClick(box->button(button), Qt::LeftButton);
        };
    }
    /// Gives a name to a dialog for files, and confirms it.
    static Answer file(const QString &fileName)
    {
        return [fileName](QWidget *dialog) {
            auto *const fileDialog = qobject_cast<QFileDialog *>(dialog);
            QVERIFY(fileDialog != nullptr);
            // Typed, it would be completed, whose list takes the key that follows; alone, it would count for less than
            // what is still selected in the list of files.
            fileDialog->selectFile(fileName);
            auto *const edit = fileDialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
            edit->setText(fileName);
            QTest::keyClick(edit, Qt::Key_Return);
        };
    }
    /// The button whose text begins so, without its mnemonic; a check box is one, too.
    template <typename Button = QAbstractButton>
    static Button *findButton(const QWidget &parent, const char *text)
    {
        for (Button *const button : parent.findChildren<Button *>()) {
            if (button->text().remove(QLatin1Char('&')).startsWith(QString::fromUtf8(text)))
                return button;
        }
        qFatal("no button \"%s\"", text);
    }
    static void press(const QWidget &parent, const char *text)
    {
        QTest::mouseClick(findButton<QPushButton>(parent, text), Qt::LeftButton);
    }

    /// Whether each answer was asked for, and no other.
    bool isDone() const { return m_answers.isEmpty() && m_unexpected == 0; }

private:
    Q_DISABLE_COPY(KRDialogAnswer)

    void look()
    {
        // Before the answer: that may open the next dialog and come back only when it is closed.
        m_timer.start();
        QWidget *const dialog = QApplication::activeModalWidget();
        if (dialog == nullptr || dialog == m_answered || qobject_cast<QProgressDialog *>(dialog) != nullptr)
            return;
        QWidget *const outerDialog = std::exchange(m_answered, dialog);
        if (m_answers.isEmpty()) {
            ++m_unexpected;
            dialog->close();
        } else {
            m_answers.takeFirst()(dialog);
        }
        m_answered = outerDialog;
    }

    QTimer m_timer;
    QList<Answer> m_answers;
    QWidget *m_answered = nullptr;
    int m_unexpected = 0;
};
