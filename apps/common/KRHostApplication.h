#pragma once

#include <QStringList>

class QCoreApplication;

/**
 * What every program on this library does at its start.
 */
class KRHostApplication
{
public:
    /// Before the application object: lets a program without any display draw all the same, and writing fail with a
    /// reason where it would end the program. Unless it is verbose, log messages of the libraries and of Qt stay away
    /// from the error output, which is the program's own. Returns false, with a line there, where the system opens no
    /// more files.
    static bool prepare(bool isVerbose);

    /// After it: names and version, which settings are read, and the language of the user: German for German locales,
    /// else English. From then on a want of memory that is noticed ends the program with a line that says so and exit
    /// code 2.
    static void setup(QCoreApplication &application, const QString &name);
};
