#pragma once

#include <QCoreApplication>
#include <QLatin1String>
#include <QTranslator>

/// Makes the texts of the base map English for as long as it lives.
class KREnglishTexts : public QTranslator
{
public:
    KREnglishTexts() { QCoreApplication::installTranslator(this); }
    ~KREnglishTexts() override { QCoreApplication::removeTranslator(this); }

    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        if (QLatin1String(context) == QLatin1String("KRBaseMapGraticule") && QLatin1String(text) == QLatin1String("O"))
            return QStringLiteral("E");
        if (QLatin1String(context) == QLatin1String("KRBaseMap") && QLatin1String(text) == QLatin1String("de"))
            return QStringLiteral("en");
        return QString();
    }
};
