#pragma once

#include <QApplication>
#include <QList>
#include <QProgressDialog>
#include <QTimer>
#include <QWidget>

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
