#pragma once

#include <QStringList>
#include <QTranslator>

/// Installed in the application while it lives, it notes what texts are asked for and translates none.
class KRRecordingTranslator : public QTranslator
{
public:
    KRRecordingTranslator();
    ~KRRecordingTranslator() override;

    /// "context|text|comment" of every request so far, oldest first.
    QStringList requests() const { return m_requests; }

    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *comment, int n) const override;

private:
    mutable QStringList m_requests;
};
