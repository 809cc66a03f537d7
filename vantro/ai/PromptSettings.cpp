#include "vantro/ai/PromptSettings.h"

#include "base/Settings.h"
#include "vantro/ai/BuiltInPrompts.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>
#include <optional>

namespace vantro {

namespace {

/// Decodes a stored JSON object of one value per mode; unknown modes are ignored. Nullopt when it is not an object or a
/// value cannot be decoded.
template <typename Value, typename Decode>
std::optional<std::map<ProcessingMode, Value>> decoded(const QByteArray& json, Decode decode)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
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
    configuration.cleans = value.toObject().value(QLatin1String("cleans")).toBool();
    if (id.isUndefined() || id.isNull())
        return configuration;
    configuration.providerConfigId = QUuid::fromString(id.toString());
    return configuration.providerConfigId->isNull() ? std::nullopt : std::optional(configuration);
}

QJsonValue configurationToJson(const ModeConfiguration& configuration)
{
    QJsonObject object{{QStringLiteral("useLocalAI"), configuration.useLocalAI}};
    if (configuration.cleans)
        object.insert(QStringLiteral("cleans"), true);
    if (configuration.providerConfigId)
        object.insert(QStringLiteral("providerConfigId"),
                      configuration.providerConfigId->toString(QUuid::WithoutBraces).toUpper());
    return object;
}

/// Reads @p map from @p setting; leaves it unchanged when the setting is missing or unreadable.
template <typename Map, typename Decode>
void load(UserDefaults& defaults, const Setting<QByteArray>& setting, Map& map, Decode decode)
{
    if (!defaults.contains(setting.key))
        return;
    if (auto values = decoded<typename Map::mapped_type>(defaults.get(setting), decode))
        map = std::move(*values);
    else
        defaults.keepUnreadable(setting.key);
}

} // namespace

PromptSettings::PromptSettings(UserDefaults& defaults) : defaults_(defaults)
{
    loadAll();
    complete();
    connect(&defaults, &UserDefaults::changed, this, &PromptSettings::read);
}

void PromptSettings::loadAll()
{
    loadPrompts();
    loadCustomModeNames();
    loadModeConfigurations();
    loadOrder();
}

void PromptSettings::loadPrompts()
{
    load(defaults_, setting::customPrompts, prompts_, stringFromJson);
}

void PromptSettings::loadCustomModeNames()
{
    customModeNames_.clear();
    load(defaults_, setting::customModeNames, customModeNames_, stringFromJson);
}

void PromptSettings::loadModeConfigurations()
{
    load(defaults_, setting::modeConfigurations, modeConfigurations_, configurationFromJson);
}

void PromptSettings::complete()
{
    const bool isComplete = std::ranges::all_of(allProcessingModes, [this](ProcessingMode mode) {
        return isAddedMode(mode) ||
               (modeConfigurations_.contains(mode) && (prompts_.contains(mode) || !builtInPrompt(mode)));
    });
    if (isComplete)
        return;
    defaults_.change([this] {
        loadAll();
        for (const ProcessingMode mode : allProcessingModes) {
            if (const auto prompt = builtInPrompt(mode))
                prompts_.try_emplace(mode, *prompt);
            if (!isAddedMode(mode))
                modeConfigurations_.try_emplace(mode);
        }
        savePrompts();
        saveModeConfigurations();
    });
}

void PromptSettings::read(const QString& key)
{
    if (key == setting::customPrompts.key)
        loadPrompts();
    else if (key == setting::customModeNames.key)
        loadCustomModeNames();
    else if (key == setting::modeConfigurations.key)
        loadModeConfigurations();
    else if (key == setting::modeOrder.key)
        loadOrder();
    else
        return;
    Q_EMIT changed();
}

void PromptSettings::savePrompts()
{
    defaults_.set(setting::customPrompts, encoded(prompts_, stringToJson));
}

void PromptSettings::saveCustomModeNames()
{
    defaults_.set(setting::customModeNames, encoded(customModeNames_, stringToJson));
}

void PromptSettings::saveModeConfigurations()
{
    defaults_.set(setting::modeConfigurations, encoded(modeConfigurations_, configurationToJson));
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
    defaults_.change([&] {
        prompts_[mode] = prompt;
        savePrompts();
    });
}

ModeConfiguration PromptSettings::configuration(ProcessingMode mode) const
{
    const auto entry = modeConfigurations_.find(mode);
    return entry != modeConfigurations_.end() ? entry->second : ModeConfiguration();
}

void PromptSettings::setConfiguration(ProcessingMode mode, const ModeConfiguration& configuration)
{
    defaults_.change([&] {
        modeConfigurations_[mode] = configuration;
        saveModeConfigurations();
    });
}

QString PromptSettings::builtInName(ProcessingMode mode)
{
    constexpr std::array names{
        QT_TRANSLATE_NOOP("ProcessingMode", "Normal"), QT_TRANSLATE_NOOP("ProcessingMode", "Email"),
        QT_TRANSLATE_NOOP("ProcessingMode", "Grammar"), QT_TRANSLATE_NOOP("ProcessingMode", "Custom"),
        QT_TRANSLATE_NOOP("ProcessingMode", "Notes")};
    const auto place = static_cast<std::size_t>(mode);
    // What the history has of a mode that the user has removed.
    return place < names.size() ? QCoreApplication::translate("ProcessingMode", names.at(place)) : rawValue(mode);
}

bool PromptSettings::hasName(ProcessingMode mode) const
{
    const auto entry = customModeNames_.find(mode);
    return entry != customModeNames_.end() && !entry->second.isEmpty();
}

QString PromptSettings::displayName(ProcessingMode mode) const
{
    return hasName(mode) ? customModeNames_.at(mode) : builtInName(mode);
}

void PromptSettings::setCustomModeName(ProcessingMode mode, const QString& name)
{
    defaults_.change([&] {
        if (!name.isEmpty())
            customModeNames_[mode] = name;
        else if (!isAddedMode(mode))
            customModeNames_.erase(mode);
        saveCustomModeNames();
    });
}

void PromptSettings::loadOrder()
{
    order_.clear();
    const QJsonArray stored = QJsonDocument::fromJson(defaults_.get(setting::modeOrder)).array();
    for (const QJsonValue& value : stored) {
        if (const auto mode = processingModeFromRawValue(value.toString()))
            order_.push_back(*mode);
    }
}

bool PromptSettings::exists(ProcessingMode mode) const
{
    return !isAddedMode(mode) || customModeNames_.contains(mode);
}

std::vector<ProcessingMode> PromptSettings::modes() const
{
    std::vector<ProcessingMode> modes;
    const auto take = [&](ProcessingMode mode) {
        if (exists(mode) && std::ranges::find(modes, mode) == modes.end())
            modes.push_back(mode);
    };
    std::ranges::for_each(order_, take);
    std::ranges::for_each(allProcessingModes, take);
    return modes;
}

std::optional<ProcessingMode> PromptSettings::find(const QString& name) const
{
    const auto all = modes();
    const auto found = std::ranges::find_if(all, [&](ProcessingMode mode) {
        return name.compare(rawValue(mode), Qt::CaseInsensitive) == 0 ||
               name.compare(displayName(mode), Qt::CaseInsensitive) == 0;
    });
    return found != all.end() ? std::optional(*found) : std::nullopt;
}

std::optional<ProcessingMode> PromptSettings::add(const QString& name)
{
    std::optional<ProcessingMode> added;
    defaults_.change([&] {
        for (const ProcessingMode mode : allProcessingModes) {
            if (!added && !exists(mode))
                added = mode;
        }
        if (added) {
            prompts_.erase(*added);
            modeConfigurations_.erase(*added);
            setCustomModeName(*added, name);
        }
    });
    return added;
}

void PromptSettings::remove(ProcessingMode mode)
{
    if (!isAddedMode(mode))
        return;
    defaults_.change([&] {
        customModeNames_.erase(mode);
        prompts_.erase(mode);
        modeConfigurations_.erase(mode);
        saveCustomModeNames();
        savePrompts();
        saveModeConfigurations();
    });
}

void PromptSettings::move(ProcessingMode mode, int place)
{
    defaults_.change([&] {
        auto all = modes();
        if (std::erase(all, mode) == 0)
            return;
        all.insert(all.begin() + std::clamp(place, 0, static_cast<int>(all.size())), mode);
        QJsonArray order;
        for (const ProcessingMode each : all)
            order.append(rawValue(each));
        defaults_.set(setting::modeOrder, QJsonDocument(order).toJson(QJsonDocument::Compact));
    });
}

} // namespace vantro
