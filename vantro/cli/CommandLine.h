#pragma once

#include <QStringList>

namespace vantro {

/// The options of the desktop program.
struct ProgramOptions
{
    QString shortcut;  ///< the shortcut to set, as "Ctrl+Alt+D"; empty keeps the stored one
    QString modelHost; ///< the model host for this run; empty: as in the settings
};

/// Parses the arguments of the process, before the application object, whose kind depends on them, is created.
class CommandLine
{
public:
    CommandLine(int argc, char** argv);

    /// Whether to start the desktop program; false for commands, --help and wrong usage.
    [[nodiscard]] bool startsProgram() const { return command_.isEmpty(); }
    /// Whether a speech engine will run in this process.
    [[nodiscard]] bool recognisesSpeech() const
    {
        return startsProgram() || command_ == QLatin1String("transcribe") || command_ == QLatin1String("retry");
    }
    /// Whether a program reads the output, which is in English then: JSON, and the candidates for the shells.
    [[nodiscard]] bool speaksToPrograms() const
    {
        return command_ == QLatin1String("complete") || arguments_.contains(QLatin1String("--json"));
    }
    [[nodiscard]] bool isVerbose() const { return isVerbose_; }
    [[nodiscard]] const ProgramOptions& programOptions() const { return options_; }
    /// Runs the command and returns the exit code. Needs an application object.
    [[nodiscard]] int run() const;

private:
    [[nodiscard]] int runCommand() const;
    void takeModelHost();
    void takeProgramOptions();
    /// @p reason: noted for translation, with %1 for the value.
    void refuse(const QString& option, const char* reason, const QString& value);

    QStringList arguments_;
    QString command_;
    const char* usageError_ = nullptr;
    QString refusedValue_;
    ProgramOptions options_;
    bool isVerbose_ = false;
};

} // namespace vantro
