#include "KRHostApplication.h"
#include "KRRenderProgram.h"

#include <QGuiApplication>

#include <algorithm>

int main(int argc, char *argv[])
{
    // Nothing is shown: no display is needed, be it there, out of reach or of another resolution.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const auto isVerboseOption = [](const char *argument) { return qstrcmp(argument, "--verbose") == 0; };
    if (!KRHostApplication::prepare(std::any_of(argv, argv + argc, isVerboseOption)))
        return 2;
    QGuiApplication application(argc, argv);
    KRHostApplication::setup(application, QStringLiteral("krrender"));
    return KRRenderProgram(KRRenderOptions(QCoreApplication::arguments())).run();
}
