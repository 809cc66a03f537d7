#include "vantro/ui/settings/ModesModel.h"

#include "base/Error.h"
#include "base/Settings.h"
#include "vantro/ai/BuiltInPrompts.h"
#include "vantro/ai/DefaultMode.h"

#include <QPointer>

#include <algorithm>
#include <iterator>
#include <utility>

namespace vantro {

namespace {

std::optional<ProcessingMode> modeAt(const std::vector<ProcessingMode>& modes, int index)
{
    if (index < 0 || index >= static_cast<int>(modes.size()))
        return std::nullopt;
    return modes.at(static_cast<std::size_t>(index));
}

bool asksModel(ProcessingMode mode)
{
    return mode != ProcessingMode::Normal;
}

bool takesRules(ProcessingMode mode)
{
    return mode != ProcessingMode::Notes;
}

} // namespace

ModesModel::ModesModel(Parts parts)
    : parts_(std::move(parts))
    , list_(
          parts_.prompts, [this](ProcessingMode mode) { return parts_.isUsable(mode); },
          [this](ProcessingMode mode) { return noteOf(mode); })
{
    connect(this, &ModesModel::changed, this, [this] {
        const int before = shown();
        list_.refresh();
        if (shown() != before)
            Q_EMIT shownChanged();
    });
    connect(&parts_.prompts, &PromptSettings::changed, this, &ModesModel::changed);
    connect(&parts_.prompts, &PromptSettings::selectedModeChanged, this, [this] {
        forgetTrial();
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

int ModesModel::shown() const
{
    const auto& modes = list_.modes();
    const auto found = std::ranges::find(modes, mode());
    return isShown_ && found != modes.end() ? static_cast<int>(found - modes.begin()) : -1;
}

void ModesModel::add()
{
    const auto taken = [this](const QString& name) {
        return parts_.prompts.find(name).has_value();
    };
    QString name = tr("New mode");
    for (int number = 2; taken(name); ++number)
        name = tr("New mode %1").arg(number);
    if (const auto added = parts_.prompts.add(name))
        setShown(static_cast<int>(std::ranges::find(list_.modes(), *added) - list_.modes().begin()));
}

void ModesModel::remove(int index)
{
    const auto removed = modeAt(list_.modes(), index);
    if (!removed || !isAddedMode(*removed))
        return;
    PromptSettings& prompts = parts_.prompts; // the window may be closed before the answer
    parts_.confirmRemoval(prompts.displayName(*removed), [&prompts, removed] { prompts.remove(*removed); });
}

void ModesModel::move(int index, int by)
{
    const auto moved = modeAt(list_.modes(), index);
    const int place = index + by;
    if (moved && place >= 0 && place < list_.rowCount())
        parts_.prompts.move(*moved, place);
}

std::vector<ProcessingMode> ModesModel::usableModes() const
{
    std::vector<ProcessingMode> modes;
    std::ranges::copy_if(parts_.prompts.modes(), std::back_inserter(modes), parts_.isUsable);
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
    const auto wanted = modeAt(list_.modes(), index);
    if (std::exchange(isShown_, wanted.has_value()) != isShown_ || (wanted && *wanted == mode()))
        Q_EMIT shownChanged();
    if (wanted)
        parts_.prompts.setSelectedMode(*wanted);
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
    case ProcessingMode::Notes:
        return tr("The text is added to today's notes, which a language model summarises.");
    default:
        return tr("You can customize the name and prompt to suit your needs.");
    }
}

bool ModesModel::hasBuiltInPrompt() const
{
    return builtInPrompt(mode()).has_value();
}

QString ModesModel::name() const
{
    return parts_.prompts.hasName(mode()) ? parts_.prompts.displayName(mode()) : QString();
}

QString ModesModel::builtInName() const
{
    return PromptSettings::builtInName(mode());
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

std::vector<ModesModel::Choice> ModesModel::choicesOf(ProcessingMode mode) const
{
    const QString local = vantro::asksModel(mode) ? parts_.localModel() : QString();
    std::vector<Choice> choices;
    if (local.isEmpty())
        choices = {{tr("None"), {}}};
    else
        choices = {{tr("This computer (%1)").arg(local), {.useLocalAI = true}}};
    if (takesRules(mode))
        choices.push_back({tr("Rules on this computer"), {.cleans = true}});
    if (!vantro::asksModel(mode))
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
    for (const Choice& choice : choicesOf(mode()))
        names << choice.label;
    return names;
}

int ModesModel::provider() const
{
    return choiceOf(mode());
}

int ModesModel::choiceOf(ProcessingMode mode) const
{
    const ModeConfiguration configuration = parts_.prompts.configuration(mode);
    // The first one, if it has none.
    if (configuration == ModeConfiguration())
        return 0;
    const auto list = choicesOf(mode);
    const auto found = std::ranges::find_if(list, [&](const Choice& choice) {
        if (configuration.cleans || configuration.useLocalAI)
            return choice.configuration.cleans == configuration.cleans &&
                   choice.configuration.useLocalAI == configuration.useLocalAI;
        return choice.configuration.providerConfigId == configuration.providerConfigId;
    });
    if (found != list.end())
        return static_cast<int>(found - list.begin());
    return vantro::asksModel(mode) ? -1 : 0;
}

void ModesModel::setProvider(int index)
{
    const auto list = choicesOf(mode());
    if (index >= 0 && index < static_cast<int>(list.size()) && index != provider())
        parts_.prompts.setConfiguration(mode(), list[static_cast<std::size_t>(index)].configuration);
}

QString ModesModel::overview() const
{
    QStringList others;
    for (const ProcessingMode each : parts_.prompts.modes()) {
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

QString ModesModel::noteOf(ProcessingMode mode) const
{
    if (mode == ProcessingMode::Normal && !parts_.prompts.configuration(mode).cleans)
        return tr("As you said it");
    if (!parts_.isUsable(mode))
        return tr("To be set up");
    const auto list = choicesOf(mode);
    const int choice = choiceOf(mode);
    return choice < 0 ? tr("A removed provider") : list.at(static_cast<std::size_t>(choice)).label;
}

bool ModesModel::canTry() const
{
    const bool isKept = mode() == ProcessingMode::Normal && !cleans();
    return !isKept && mode() != ProcessingMode::Notes && parts_.isUsable(mode());
}

void ModesModel::forgetTrial()
{
    ++trial_;
    isTrying_ = false;
    trialResult_.clear();
    trialProblem_.clear();
    Q_EMIT trialChanged();
}

QCoro::Task<> ModesModel::rewriteTrial(QString text)
{
    if (isTrying_ || text.trimmed().isEmpty() || !canTry())
        co_return;
    forgetTrial();
    const int trial = trial_;
    const QPointer<ModesModel> self(this);
    QString result;
    QString problem;
    isTrying_ = true;
    Q_EMIT trialChanged();
    try {
        const auto rewriting = parts_.rewrite(mode(), text.trimmed());
        result = co_await rewriting;
    } catch (const Error& error) {
        problem = error.localizedDescription();
    }
    if (!self || trial != trial_)
        co_return;
    isTrying_ = false;
    trialResult_ = result;
    trialProblem_ = problem;
    Q_EMIT trialChanged();
}

QString ModesModel::lacking() const
{
    if (parts_.isUsable(mode()))
        return {};
    if (isOwnMode(mode()) && prompt().isEmpty())
        return tr("To use this mode, write a prompt and choose a provider, or the rules.");
    if (parts_.prompts.configuration(mode()).useLocalAI)
        return tr("To use this mode, download a language model under Settings, Models.");
    return tr("To use this mode, choose an enabled provider, or the rules. Set up providers and their keys under "
              "Settings, Providers, or download a language model for this computer under Settings, Models.");
}

} // namespace vantro
