#include "vantro/ai/PromptSettings.h"

#include "vantro/ai/BuiltInPrompts.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <optional>

namespace vantro {

namespace {

/// The members of a stored object that are named after a mode, each decoded. Nothing when the object or one of its
/// members is of another kind.
template <typename Value, typename Decode>
std::optional<std::map<ProcessingMode, Value>> decoded(const std::optional<QByteArray>& json, Decode decode)
{
    const QJsonDocument document = QJsonDocument::fromJson(json.value_or(QByteArray()));
    if (!document.isObject())
        return std::nullopt;
    std::map<ProcessingMode, Value> values;
    const QJsonObject object = document.object();
    for (auto member = object.begin(); member != object.end(); ++member) {
        const std::optional<Value> value = decode(member.value());
        if (!value)
            return std::nullopt;
        if (const auto mode = processingModeFromRawValue(member.key()))
            values[*mode] = *value;
    }
    return values;
}

template <typename Value, typename Encode>
QByteArray encoded(const std::map<ProcessingMode, Value>& values, Encode encode)
{
    QJsonObject object;
    for (const auto& [mode, value] : values)
        object.insert(rawValue(mode), encode(value));
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

std::optional<QString> stringFromJson(const QJsonValue& value)
{
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

QJsonValue stringToJson(const QString& text)
{
    return text;
}

std::optional<ModeConfiguration> configurationFromJson(const QJsonValue& value)
{
    const QJsonValue useLocalAI = value.toObject().value(QLatin1String("useLocalAI"));
    const QJsonValue id = value.toObject().value(QLatin1String("providerConfigId"));
    if (!useLocalAI.isBool())
        return std::nullopt;
    ModeConfiguration configuration{useLocalAI.toBool()};
    if (id.isUndefined() || id.isNull())
        return configuration;
    configuration.providerConfigId = QUuid::fromString(id.toString());
    return configuration.providerConfigId->isNull() ? std::nullopt : std::optional(configuration);
}

QJsonValue configurationToJson(const ModeConfiguration& configuration)
{
    QJsonObject object{{QStringLiteral("useLocalAI"), configuration.useLocalAI}};
    if (configuration.providerConfigId)
        object.insert(QStringLiteral("providerConfigId"),
                      configuration.providerConfigId->toString(QUuid::WithoutBraces).toUpper());
    return object;
}

/// Reads @p map from @p key; absent or unreadable leaves it as it is.
template <typename Map, typename Decode>
void load(UserDefaults& defaults, const QString& key, Map& map, Decode decode)
{
    if (!defaults.contains(key))
        return;
    if (auto values = decoded<typename Map::mapped_type>(defaults.data(key), decode))
        map = std::move(*values);
    else
        defaults.keepUnreadable(key);
}

} // namespace

PromptSettings::PromptSettings(UserDefaults& defaults) : defaults_(defaults)
{
    loadPrompts();
    loadCustomModeNames();
    loadModeConfigurations();
    complete();
    connect(&defaults, &UserDefaults::changedElsewhere, this, &PromptSettings::read);
}

void PromptSettings::loadPrompts()
{
    load(defaults_, userDefaultsKey_, prompts_, stringFromJson);
}

void PromptSettings::loadCustomModeNames()
{
    load(defaults_, customModeNamesKey_, customModeNames_, stringFromJson);
}

void PromptSettings::loadModeConfigurations()
{
    load(defaults_, modeConfigurationsKey_, modeConfigurations_, configurationFromJson);
}

void PromptSettings::complete()
{
    for (const ProcessingMode mode : allProcessingModes) {
        if (const auto prompt = builtInPrompt(mode))
            prompts_.try_emplace(mode, *prompt);
        modeConfigurations_.try_emplace(mode);
    }
    savePrompts();
    saveModeConfigurations();
}

void PromptSettings::read(const QStringList& keys)
{
    if (keys.contains(userDefaultsKey_))
        loadPrompts();
    if (keys.contains(customModeNamesKey_)) {
        customModeNames_.clear();
        loadCustomModeNames();
    }
    if (keys.contains(modeConfigurationsKey_))
        loadModeConfigurations();
    Q_EMIT changed();
}

void PromptSettings::savePrompts()
{
    defaults_.setData(userDefaultsKey_, encoded(prompts_, stringToJson));
}

void PromptSettings::saveCustomModeNames()
{
    defaults_.setData(customModeNamesKey_, encoded(customModeNames_, stringToJson));
}

void PromptSettings::saveModeConfigurations()
{
    defaults_.setData(modeConfigurationsKey_, encoded(modeConfigurations_, configurationToJson));
}

void PromptSettings::setSelectedMode(ProcessingMode mode)
{
    if (selectedMode_ == mode)
        return;
    selectedMode_ = mode;
    Q_EMIT selectedModeChanged();
}

QString PromptSettings::prompt(ProcessingMode mode) const
{
    const auto entry = prompts_.find(mode);
    return entry != prompts_.end() ? entry->second : builtInPrompt(mode).value_or(QString());
}

void PromptSettings::setPrompt(ProcessingMode mode, const QString& prompt)
{
    prompts_[mode] = prompt;
    savePrompts();
    Q_EMIT changed();
}

ModeConfiguration PromptSettings::configuration(ProcessingMode mode) const
{
    const auto entry = modeConfigurations_.find(mode);
    return entry != modeConfigurations_.end() ? entry->second : ModeConfiguration();
}

void PromptSettings::setConfiguration(ProcessingMode mode, const ModeConfiguration& configuration)
{
    modeConfigurations_[mode] = configuration;
    saveModeConfigurations();
    Q_EMIT changed();
}

QString PromptSettings::displayName(ProcessingMode mode) const
{
    const auto entry = customModeNames_.find(mode);
    return entry != customModeNames_.end() && !entry->second.isEmpty() ? entry->second : rawValue(mode);
}

void PromptSettings::setCustomModeName(ProcessingMode mode, const QString& name)
{
    if (name.isEmpty())
        customModeNames_.erase(mode);
    else
        customModeNames_[mode] = name;
    saveCustomModeNames();
    Q_EMIT changed();
}

} // namespace vantro
