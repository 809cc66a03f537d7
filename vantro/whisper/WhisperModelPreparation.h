#pragma once

#include "base/SerialExecutor.h"
#include "base/UserDefaults.h"
#include "vantro/models/ModelCatalogue.h"
#include "vantro/whisper/WhisperModelFiles.h"

#include <qcoro/qcorotask.h>

namespace vantro {

/// Makes the whisper models that already lie on this machine usable before the selection is settled: once, moves what
/// the whisper library's own download script has fetched into the user's folder; always, verifies files that nobody has
/// verified yet. All hashing is done on a worker thread. Main thread.
class WhisperModelPreparation
{
public:
    WhisperModelPreparation(const ModelCatalogue& catalogue, const WhisperModelFiles& modelFiles,
                            UserDefaults& defaults, QString legacyFolder = standardLegacyFolder());

    /// Where that script puts its files in a checkout in the user's home: "whisper.cpp/models".
    static QString standardLegacyFolder();

    /// Never throws.
    QCoro::Task<> run();

private:
    void migrateLegacyFiles() const;
    void migrate(const TranscriptionModel& model, const QString& legacyFile) const;
    void verifyUncheckedFiles() const;

    const std::vector<TranscriptionModel> models_; ///< a copy of its own, for the worker thread
    const WhisperModelFiles& modelFiles_;
    UserDefaults& defaults_;
    QString legacyFolder_;
    SerialExecutor files_{QStringLiteral("model preparation")};
};

} // namespace vantro
