#include "base/Logger.h"
#include "vantro/app/Program.h"
#include "vantro/cli/CommandLine.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QQuickWindow>

namespace {

void nameApplication()
{
    QCoreApplication::setApplicationName(QStringLiteral("vantro"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VANTRO_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("com.vantro.app"));
}

} // namespace

int main(int argc, char** argv)
{
    const vantro::CommandLine commandLine(argc, argv);
    vantro::installLogOutput(commandLine.isVerbose());
    nameApplication();
    if (!commandLine.startsProgram()) {
        vantro::printToStandardError();
        const QCoreApplication application(argc, argv);
        return commandLine.run();
    }
    // A panel of 500 x 200 needs no GPU, whose drivers would cost more memory and time than all the rest.
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    return vantro::runProgram(commandLine.programOptions());
}
