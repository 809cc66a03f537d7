#include "base/LogOutput.h"
#include "base/Logger.h"
#include "base/Translations.h"
#include "platform/SystemLog.h"
#include "platform/ThisProcess.h"
#include "platform/WindowSystem.h"
#include "vantro/cli/CommandLine.h"
#include "vantro/main/Program.h"

#include <QApplication>
#include <QCoreApplication>
#include <QQuickWindow>

#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <optional>

namespace {

void nameApplication()
{
    QCoreApplication::setApplicationName(QStringLiteral("vantro"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VANTRO_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("com.vantro.app"));
}

/// OpenMP threads spin while they wait for each other, by default for so long that a transcription takes ten times as
/// long when another program keeps a core busy. Spinning only briefly costs a few per cent on an idle machine
/// (docs/decisions/openmp-spin.md). The runtime reads the environment when it is loaded, before main(), so the program
/// executes itself again. The user's own settings take precedence.
void limitOpenMpSpin(char** argv)
{
    if (std::getenv("GOMP_SPINCOUNT") != nullptr || std::getenv("OMP_WAIT_POLICY") != nullptr)
        return;
    setenv("GOMP_SPINCOUNT", "300", 1);
    if (const auto program = vantro::process::programFile(); !program.empty())
        execv(program.c_str(), argv);
    // If that fails, transcriptions are slower on a busy machine.
}

/// ggml sets this variable where it is not set, on the thread that loads the first model, while other threads may read
/// the environment: the program crashed in getenv() now and then, in the first dictation after its start.
void settleEnvironment()
{
    setenv("KMP_BLOCKTIME", "200", 0);
}

std::vector<vantro::LogSink> logSinksFor(const vantro::CommandLine& commandLine)
{
    if (commandLine.startsProgram())
        return vantro::systemlog::sinks();
    return {commandLine.isVerbose() ? vantro::logToStandardError : vantro::logErrorsToStandardError};
}

int run(int argc, char** argv)
{
    settleEnvironment();
    const vantro::CommandLine commandLine(argc, argv);
    if (commandLine.recognisesSpeech())
        limitOpenMpSpin(argv);
    vantro::installLogOutput(commandLine.isVerbose(), logSinksFor(commandLine));
    nameApplication();
    if (!commandLine.startsProgram()) {
        vantro::printToStandardError();
        const QCoreApplication application(argc, argv);
        std::optional<vantro::Translations> translations;
        if (!commandLine.speaksToPrograms())
            QCoreApplication::installTranslator(&translations.emplace());
        return commandLine.run();
    }
    vantro::process::traceFaults();
    // The reader of its output may end first.
    std::signal(SIGPIPE, SIG_IGN);
    // A panel of 500 x 200 needs no GPU; its drivers would take more memory and time than everything else.
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    std::optional<vantro::windowsystem::Choice> windowSystem(std::in_place);
    QApplication application(argc, argv); // the embedded tray icon and the tray menu are widgets
    windowSystem.reset();
    application.setQuitOnLastWindowClosed(false);
    vantro::Translations translations;
    QCoreApplication::installTranslator(&translations);
    return vantro::runProgram(commandLine.programOptions());
}

} // namespace

int main(int argc, char** argv)
{
    vantro::process::end(run(argc, argv));
}
