#pragma once

#include <QString>

#include <optional>

namespace vantro {

/// Which engine runs a model. The last one rewrites texts; the others recognise speech.
enum class TranscriptionEngine { fluid, whisper, llama };

enum class SupportedLanguages { multilingual, english };

/// A Parakeet model: the repository it is published in, whether it is multilingual, and its container's URL.
struct FluidModel
{
    QString repository;
    bool isMultilingual = false;
    QString url = {};
};

/// A model, identified by `name`, which is also stored as the selection.
struct TranscriptionModel
{
    QString name;
    QString size;        ///< download size as shown
    double speed = 0;    ///< relative, 0..1
    double accuracy = 0; ///< relative, 0..1
    double ramUsage = 0; ///< GB, as shown
    QString description;
    SupportedLanguages supportedLanguages = SupportedLanguages::multilingual;
    QString license = {}; ///< of a language model: its short name, such as "Apache-2.0"
    QString hash;         ///< expected SHA-1, 40 lower-case hex digits; empty for fluid models
    QString url;          ///< empty for fluid models
    TranscriptionEngine engine = TranscriptionEngine::whisper;
    std::optional<FluidModel> fluidModel;

    /// Whether it rewrites texts; the others recognise speech.
    [[nodiscard]] bool isLanguageModel() const { return engine == TranscriptionEngine::llama; }
    /// The download URL.
    [[nodiscard]] QString address() const { return fluidModel ? fluidModel->url : url; }
    /// The file name on disk.
    [[nodiscard]] QString fileName() const { return address().section(QLatin1Char('/'), -1); }
};

} // namespace vantro
