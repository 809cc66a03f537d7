#include "vantro/ai/providers/ModelRequestParameters.h"

#include <cmath>

namespace vantro {

namespace {

template <typename Value>
void insert(QJsonObject& object, const char* name, const std::optional<Value>& value)
{
    if (value)
        object.insert(QLatin1String(name), *value);
}

void insertText(QJsonObject& object, const char* name, const std::optional<QString>& text)
{
    if (text && !text->isEmpty())
        object.insert(QLatin1String(name), *text);
}

void take(std::optional<qint64>& member, const QJsonValue& value, bool& isSound)
{
    const double number = value.toDouble();
    isSound = isSound && value.isDouble() && std::trunc(number) == number;
    member = static_cast<qint64>(number);
}

void take(std::optional<double>& member, const QJsonValue& value, bool& isSound)
{
    isSound = isSound && value.isDouble();
    member = value.toDouble();
}

void take(std::optional<QString>& member, const QJsonValue& value, bool& isSound)
{
    isSound = isSound && value.isString();
    member = value.toString();
}

template <typename Value>
void read(const QJsonObject& object, const char* name, std::optional<Value>& member, bool& isSound)
{
    const QJsonValue value = object.value(QLatin1String(name));
    if (!value.isUndefined() && !value.isNull())
        take(member, value, isSound);
}

} // namespace

QJsonObject ModelRequestParameters::toJson() const
{
    QJsonObject object;
    insert(object, "maxTokens", maxTokens);
    insert(object, "maxCompletionTokens", maxCompletionTokens);
    insert(object, "temperature", temperature);
    insert(object, "topP", topP);
    insert(object, "serviceTier", serviceTier);
    insert(object, "reasoningEffort", reasoningEffort);
    return object;
}

std::optional<ModelRequestParameters> ModelRequestParameters::fromJson(const QJsonObject& object)
{
    ModelRequestParameters parameters;
    bool isSound = true;
    read(object, "maxTokens", parameters.maxTokens, isSound);
    read(object, "maxCompletionTokens", parameters.maxCompletionTokens, isSound);
    read(object, "temperature", parameters.temperature, isSound);
    read(object, "topP", parameters.topP, isSound);
    read(object, "serviceTier", parameters.serviceTier, isSound);
    read(object, "reasoningEffort", parameters.reasoningEffort, isSound);
    return isSound ? std::optional(parameters) : std::nullopt;
}

QJsonObject ModelRequestParameters::requestMembers() const
{
    QJsonObject members;
    insert(members, "max_tokens", maxTokens);
    insert(members, "max_completion_tokens", maxCompletionTokens);
    insert(members, "temperature", temperature);
    insert(members, "top_p", topP);
    insertText(members, "service_tier", serviceTier);
    insertText(members, "reasoning_effort", reasoningEffort);
    return members;
}

} // namespace vantro
