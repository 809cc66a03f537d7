#pragma once

#include <QStringList>

namespace vantro {

/// What the desktop program was started with.
struct ProgramOptions
{
    QString shortcut;  ///< the shortcut to set, as "Ctrl+Alt+D"; empty keeps the stored one
    QString modelHost; ///< where models come from in this run; empty leaves it to the settings
};

/// The arguments of the process, taken apart before any application object exists: which kind is needed depends on
/// them.
class CommandLine
{
public:
    CommandLine(int argc, char** argv);

    /// True for the desktop program itself, false for a command (also --help, and wrong usage).
    [[nodiscard]] bool startsProgram() const { return command_.isEmpty(); }
    /// Whether a speech engine will run in this process.
    [[nodiscard]] bool recognisesSpeech() const { return startsProgram() || command_ == QLatin1String("transcribe"); }
    [[nodiscard]] bool isVerbose() const { return isVerbose_; }
    [[nodiscard]] const ProgramOptions& programOptions() const { return options_; }
    /// Carries out the command and answers the exit code. Needs an application object.
    [[nodiscard]] int run() const;

private:
    void takeModelHost();
    void takeProgramOptions();
    void refuse(const QString& option, const QString& reason);

    QStringList arguments_;
    QString command_;
    QString usageError_;
    ProgramOptions options_;
    bool isVerbose_ = false;
};

} // namespace vantro
