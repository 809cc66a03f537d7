#pragma once

#include "base/SerialExecutor.h"
#include "base/UserDefaults.h"
#include "vantro/models/ModelCatalogue.h"
#include "vantro/whisper/WhisperModelFiles.h"

#include <qcoro/qcorotask.h>

namespace vantro {

/// Prepares whisper models that are already on this machine, before a model is selected: links or copies downloads of
/// the whisper library's own script into the user's folder (once) and verifies unverified files (always). Never changes
/// the script's folder. Hashes on a worker thread. Main thread.
class WhisperModelPreparation
{
public:
    WhisperModelPreparation(const ModelCatalogue& catalogue, const WhisperModelFiles& modelFiles,
                            UserDefaults& defaults, QString legacyFolder = standardLegacyFolder());

    /// That script's folder in a checkout in the user's home: "whisper.cpp/models".
    static QString standardLegacyFolder();

    /// Never throws.
    QCoro::Task<> run();

private:
    void takeOverLegacyFiles() const;
    void takeOver(const TranscriptionModel& model, const QString& legacyFile) const;
    void verifyUncheckedFiles() const;

    const std::vector<TranscriptionModel> models_; ///< a copy for the worker thread
    const WhisperModelFiles& modelFiles_;
    UserDefaults& defaults_;
    QString legacyFolder_;
    SerialExecutor files_{QStringLiteral("model preparation")};
};

} // namespace vantro
