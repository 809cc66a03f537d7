#include "vantro/ui/settings/ModesModel.h"

#include "base/Settings.h"
#include "vantro/ai/BuiltInPrompts.h"
#include "vantro/ai/DefaultMode.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace vantro {

namespace {

std::optional<ProcessingMode> modeAt(int index)
{
    if (index < 0 || index >= static_cast<int>(allProcessingModes.size()))
        return std::nullopt;
    return allProcessingModes.at(static_cast<std::size_t>(index));
}

} // namespace

ModesModel::ModesModel(Parts parts) : parts_(std::move(parts))
{
    connect(&parts_.prompts, &PromptSettings::changed, this, &ModesModel::changed);
    connect(&parts_.prompts, &PromptSettings::selectedModeChanged, this, [this] {
        Q_EMIT shownChanged();
        Q_EMIT changed();
    });
    connect(&parts_.cleaning, &CleaningSettings::changed, this, [this] {
        // The field already shows what is typed into it.
        if (!isStoringRules_)
            Q_EMIT rulesChanged();
    });
    connect(&parts_.providers, &ProviderConfigurationManager::configurationsChanged, this, &ModesModel::changed);
    connect(&parts_.defaults, &UserDefaults::changed, this, [this](const QString& key) {
        if (key == setting::defaultProcessingMode.key)
            Q_EMIT changed();
    });
}

QStringList ModesModel::modes() const
{
    QStringList names;
    for (const ProcessingMode mode : allProcessingModes)
        names << parts_.prompts.displayName(mode);
    return names;
}

std::vector<ProcessingMode> ModesModel::usableModes() const
{
    std::vector<ProcessingMode> modes;
    std::ranges::copy_if(allProcessingModes, std::back_inserter(modes), parts_.isUsable);
    return modes;
}

QStringList ModesModel::defaultModes() const
{
    QStringList names;
    for (const ProcessingMode mode : usableModes())
        names << parts_.prompts.displayName(mode);
    return names;
}

int ModesModel::defaultMode() const
{
    const auto modes = usableModes();
    const auto chosen = std::ranges::find(modes, vantro::defaultMode(parts_.defaults));
    return chosen != modes.end() ? static_cast<int>(chosen - modes.begin()) : 0;
}

void ModesModel::setDefaultMode(int index)
{
    const auto modes = usableModes();
    if (index >= 0 && index < static_cast<int>(modes.size()))
        vantro::setDefaultMode(parts_.defaults, modes[static_cast<std::size_t>(index)]);
}

QString ModesModel::defaultNote() const
{
    const ProcessingMode chosen = vantro::defaultMode(parts_.defaults);
    return parts_.isUsable(chosen) ? QString()
                                   : tr("%1 was chosen, but is not set up. Until it is, your text stays as it is.")
                                         .arg(parts_.prompts.displayName(chosen));
}

void ModesModel::setShown(int index)
{
    if (const auto mode = modeAt(index))
        parts_.prompts.setSelectedMode(*mode);
}

QString ModesModel::purpose() const
{
    switch (mode()) {
    case ProcessingMode::Normal:
        return tr("The text is kept as recognised; only your replacements are applied.");
    case ProcessingMode::Email:
        return tr("A language model turns the text into an email.");
    case ProcessingMode::Grammar:
        return tr("A language model corrects grammar, spelling and punctuation.");
    case ProcessingMode::Custom:
        return tr("You can customize the name and prompt to suit your needs.");
    case ProcessingMode::Notes:
        return tr("The text is added to today's notes, which a language model summarises.");
    }
    return {};
}

bool ModesModel::hasBuiltInPrompt() const
{
    return builtInPrompt(mode()).has_value();
}

QString ModesModel::name() const
{
    const QString shown = parts_.prompts.displayName(mode());
    return shown == rawValue(mode()) ? QString() : shown;
}

void ModesModel::setName(const QString& name)
{
    if (name.trimmed() != this->name())
        parts_.prompts.setCustomModeName(mode(), name.trimmed());
}

void ModesModel::setPrompt(const QString& prompt)
{
    if (prompt != this->prompt())
        parts_.prompts.setPrompt(mode(), prompt);
}

void ModesModel::useBuiltInPrompt()
{
    const auto builtIn = builtInPrompt(mode());
    if (!builtIn || prompt() == *builtIn)
        return;
    PromptSettings& prompts = parts_.prompts; // the window may be closed before the answer
    parts_.confirmReplacement([&prompts, replaced = mode(), builtIn] { prompts.setPrompt(replaced, *builtIn); });
}

std::vector<ModesModel::Choice> ModesModel::choices() const
{
    const QString local = asksModel() ? parts_.localModel() : QString();
    std::vector<Choice> choices;
    if (local.isEmpty())
        choices = {{tr("None"), {}}};
    else
        choices = {{tr("This computer (%1)").arg(local), {.useLocalAI = true}}};
    if (takesRules())
        choices.push_back({tr("Rules on this computer"), {.cleans = true}});
    if (!asksModel())
        return choices;
    for (const ProviderConfiguration& provider : parts_.providers.configurations())
        choices.push_back({provider.isEnabled ? provider.name : tr("%1 (disabled)").arg(provider.name),
                           {.providerConfigId = provider.id}});
    if (local.isEmpty())
        choices.push_back({tr("This computer (needs a language model)"), {.useLocalAI = true}});
    return choices;
}

QStringList ModesModel::providers() const
{
    QStringList names;
    for (const Choice& choice : choices())
        names << choice.label;
    return names;
}

int ModesModel::provider() const
{
    const ModeConfiguration configuration = parts_.prompts.configuration(mode());
    // The first one, if it has none.
    if (configuration == ModeConfiguration())
        return 0;
    const auto list = choices();
    const auto found = std::ranges::find_if(list, [&](const Choice& choice) {
        if (configuration.cleans || configuration.useLocalAI)
            return choice.configuration.cleans == configuration.cleans &&
                   choice.configuration.useLocalAI == configuration.useLocalAI;
        return choice.configuration.providerConfigId == configuration.providerConfigId;
    });
    if (found != list.end())
        return static_cast<int>(found - list.begin());
    return takesRules() && !asksModel() ? 0 : -1;
}

void ModesModel::setProvider(int index)
{
    const auto list = choices();
    if (index >= 0 && index < static_cast<int>(list.size()) && index != provider())
        parts_.prompts.setConfiguration(mode(), list[static_cast<std::size_t>(index)].configuration);
}

QString ModesModel::overview() const
{
    QStringList others;
    for (const ProcessingMode each : allProcessingModes) {
        if (!parts_.isUsable(each))
            others << parts_.prompts.displayName(each);
    }
    const QString ready = tr("Ready: %1.").arg(defaultModes().join(QStringLiteral(", ")));
    return others.isEmpty()
               ? ready
               : ready + QLatin1Char(' ') + tr("To be set up below: %1.").arg(others.join(QStringLiteral(", ")));
}

QString ModesModel::ruleCode() const
{
    return CleaningSettings::languages().value(ruleLanguage_);
}

QStringList ModesModel::ruleLanguages() const
{
    return {tr("English"), tr("German"), tr("Spanish"), tr("French")};
}

void ModesModel::setRuleLanguage(int index)
{
    if (index < 0 || index >= CleaningSettings::languages().size() || index == ruleLanguage_)
        return;
    ruleLanguage_ = index;
    Q_EMIT rulesChanged();
}

QString ModesModel::rules() const
{
    return CleaningSettings::asText(parts_.cleaning.rules(ruleCode()));
}

void ModesModel::setRules(const QString& text)
{
    const auto wanted = CleaningSettings::fromText(text);
    if (wanted == parts_.cleaning.rules(ruleCode()))
        return;
    isStoringRules_ = true;
    parts_.cleaning.setRules(ruleCode(), wanted);
    isStoringRules_ = false;
}

void ModesModel::useBuiltInRules()
{
    parts_.cleaning.reset(ruleCode());
}

QString ModesModel::lacking() const
{
    if (parts_.isUsable(mode()))
        return {};
    if (mode() == ProcessingMode::Custom && prompt().isEmpty())
        return tr("To use this mode, write a prompt and choose a provider, or the rules.");
    if (parts_.prompts.configuration(mode()).useLocalAI)
        return tr("To use this mode, download a language model under Settings, Models.");
    return tr("To use this mode, choose an enabled provider, or the rules. Set up providers and their keys under "
              "Settings, Providers, or download a language model for this computer under Settings, Models.");
}

} // namespace vantro
