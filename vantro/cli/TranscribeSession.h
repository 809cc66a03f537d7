#pragma once

#include "base/UserDefaults.h"
#include "vantro/app/Speech.h"
#include "vantro/cli/Captions.h"

#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace vantro {

/// A recording's text, and how it came about.
struct Transcript
{
    QString file;
    QString text;
    double seconds = 0;
    qint64 readMs = 0;
    qint64 transcribeMs = 0;
    std::vector<TranscribedToken> tokens = {};
    bool hasTokenTimes = false; ///< else the times are of segments
    VocabularyReport vocabulary = {};
};

/// Everything needed to transcribe files.
class TranscribeSession
{
public:
    struct Options
    {
        std::optional<QString> language;  ///< the setting when absent
        std::optional<QStringList> terms; ///< the user's words when absent
        double termWeight = 1;            ///< multiplies the words' own
        QString boostingModel;            ///< file of the model that looks for them; the downloaded one when empty
    };

    /// Returns the model with this catalogue name or file path; for an empty text, the selected one. Ends the command
    /// with ExitCode::noService when it is missing.
    [[nodiscard]] TranscriptionModel model(const QString& nameOrPath);
    /// @p label: stands before the progress.
    [[nodiscard]] Transcript transcribe(const QString& file, const TranscriptionModel& model, const Options& options,
                                        const QString& label);
    /// With the user's replacements.
    [[nodiscard]] std::vector<Caption> captions(const Transcript& transcript) const;

private:
    [[nodiscard]] TranscriptionModel found(const QString& nameOrPath);

    UserDefaults defaults_{UserDefaults::standardPath()};
    VocabularySettings vocabulary_{defaults_};
    Speech speech_{defaults_, vocabulary_};
};

/// Calls @p action, says on standard error what was wrong with @p file if it fails, and returns the exit code.
int transcribing(const QString& file, const std::function<void()>& action);

} // namespace vantro
