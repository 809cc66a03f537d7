#pragma once

#include <QString>

#include <optional>

namespace vantro {

/// Which engine runs a model.
enum class TranscriptionEngine { fluid, whisper };

enum class SupportedLanguages { multilingual, english };

/// A model of the neural engine: the repository it is published in, whether it is the multilingual variant, and the
/// address its container is fetched from.
struct FluidModel
{
    QString repository;
    bool isMultilingual = false;
    QString url = {};
};

/// One speech model of the catalogue. Identified by `name`, which is also what is stored as the selection.
struct TranscriptionModel
{
    QString name;
    QString size;        ///< download size as shown
    double speed = 0;    ///< relative, 0..1
    double accuracy = 0; ///< relative, 0..1
    double ramUsage = 0; ///< GB, as shown
    QString description;
    SupportedLanguages supportedLanguages = SupportedLanguages::multilingual;
    QString hash; ///< expected SHA-1, 40 lower-case hex digits; empty for fluid models
    QString url;  ///< empty for fluid models
    TranscriptionEngine engine = TranscriptionEngine::whisper;
    std::optional<FluidModel> fluidModel;

    /// Where the file is fetched from.
    [[nodiscard]] QString address() const { return fluidModel ? fluidModel->url : url; }
    /// The file's name on disk.
    [[nodiscard]] QString fileName() const { return address().section(QLatin1Char('/'), -1); }
};

} // namespace vantro
