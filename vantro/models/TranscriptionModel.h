#pragma once

#include <QString>
#include <QUuid>

#include <optional>

namespace vantro {

/// Which engine runs a model.
enum class TranscriptionEngine { fluid, whisper };

enum class SupportedLanguages { multilingual, english };

/// A model of the neural engine: the repository it is published in, whether it is the multilingual variant, and the
/// file of its container with the address it is fetched from.
struct FluidModel
{
    QString repository;
    bool isMultilingual = false;
    QString file = {};
    QString url = {};
};

/// One speech model of the catalogue. Identified by `name`, which is also what is stored as the selection.
struct TranscriptionModel
{
    QUuid id; ///< made fresh when the catalogue is built
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

    /// The file's name on disk: the URL's last path component.
    [[nodiscard]] QString fileName() const { return url.section(QLatin1Char('/'), -1); }
};

} // namespace vantro
