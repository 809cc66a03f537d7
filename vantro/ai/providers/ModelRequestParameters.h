#pragma once

#include <QJsonObject>
#include <QString>

#include <optional>

namespace vantro {

/// Parameters of a request to a model. Unset ones are left to the provider.
struct ModelRequestParameters
{
    std::optional<qint64> maxTokens;
    std::optional<qint64> maxCompletionTokens;
    std::optional<double> temperature;
    std::optional<double> topP;
    std::optional<QString> serviceTier;
    std::optional<QString> reasoningEffort;

    [[nodiscard]] bool operator==(const ModelRequestParameters&) const = default;

    /// The stored form: the members that are set, under their own names.
    [[nodiscard]] QJsonObject toJson() const;
    /// Nullopt when a member has the wrong type.
    [[nodiscard]] static std::optional<ModelRequestParameters> fromJson(const QJsonObject& object);
    /// The members of an OpenAI-style request. Empty texts are left out.
    [[nodiscard]] QJsonObject requestMembers() const;
};

} // namespace vantro
