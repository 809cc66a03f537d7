#pragma once

#include <QJsonObject>
#include <QString>

#include <optional>

namespace vantro {

/// How a model is to answer. What is not set is left to the provider.
struct ModelRequestParameters
{
    std::optional<qint64> maxTokens;
    std::optional<qint64> maxCompletionTokens;
    std::optional<double> temperature;
    std::optional<double> topP;
    std::optional<QString> serviceTier;
    std::optional<QString> reasoningEffort;

    [[nodiscard]] bool operator==(const ModelRequestParameters&) const = default;

    /// The stored form: members that are set, under their own names.
    [[nodiscard]] QJsonObject toJson() const;
    /// Nothing when a member is of another type than it should be.
    [[nodiscard]] static std::optional<ModelRequestParameters> fromJson(const QJsonObject& object);
    /// The members of an OpenAI-style request. Empty texts are left out.
    [[nodiscard]] QJsonObject requestMembers() const;
};

} // namespace vantro
