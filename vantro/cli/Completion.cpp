#include "vantro/cli/Completion.h"

#include "base/Settings.h"
#include "vantro/ai/PromptSettings.h"
#include "vantro/cli/DevicesSession.h"
#include "vantro/cli/ModelsSession.h"
#include "vantro/cli/ProvidersSession.h"

#include <algorithm>
#include <map>

namespace vantro {

namespace {

using Candidates = std::vector<Candidate>;

Candidates modelNames()
{
    const ModelsSession session{{}};
    Candidates names;
    for (const TranscriptionModel& model : session.speech.catalogue.models())
        names.push_back({model.name, model.description});
    return names;
}

Candidates allModelNames()
{
    const ModelsSession session{{}};
    Candidates names = modelNames();
    for (const TranscriptionModel& model : session.speech.languageModels.models())
        names.push_back({model.name, model.description});
    return names;
}

Candidates deviceNames()
{
    const DevicesSession session;
    Candidates names;
    for (const AudioInputDevice& device : session.devices.availableDevices())
        names.push_back({device.uid, device.name});
    return names;
}

Candidates providerNames()
{
    ProvidersSession session;
    Candidates names;
    for (const ProviderConfiguration& provider : session.manager.configurations())
        names.push_back({provider.name, provider.model});
    return names;
}

Candidates modeNames()
{
    ProvidersSession session;
    Candidates names;
    for (const ProcessingMode mode : session.rewriting.prompts().modes())
        names.push_back({rawValue(mode), session.rewriting.prompts().displayName(mode)});
    return names;
}

Candidates settingKeys()
{
    Candidates keys;
    for (const SettingKey* each : setting::documented)
        keys.push_back({each->key, QString::fromUtf8(each->meaning).remove(QLatin1Char('`'))});
    return keys;
}

Candidates texts(const QStringList& list)
{
    Candidates candidates;
    for (const QString& text : list)
        candidates.push_back({text, {}});
    return candidates;
}

/// By command, action and option: the last word of a key is an option, an action, or what stands before the word.
const std::map<QString, std::function<Candidates()>>& places()
{
    const auto words = [](const char* list) {
        return [list] {
            return texts(QString::fromLatin1(list).split(QLatin1Char(' ')));
        };
    };
    static const std::map<QString, std::function<Candidates()>> all{
        {QStringLiteral("models download"), allModelNames},
        {QStringLiteral("models select"), allModelNames},
        {QStringLiteral("models verify"), allModelNames},
        {QStringLiteral("models remove"), allModelNames},
        {QStringLiteral("transcribe --model"), modelNames},
        {QStringLiteral("transcribe --format"), words("txt srt vtt json")},
        {QStringLiteral("start --mode"), modeNames},
        {QStringLiteral("start --model"), modelNames},
        {QStringLiteral("settings get"), settingKeys},
        {QStringLiteral("settings set"), settingKeys},
        {QStringLiteral("settings reset"), settingKeys},
        {QStringLiteral("devices use"), deviceNames},
        {QStringLiteral("devices mode"), words("system custom prioritized")},
        {QStringLiteral("devices bluetooth"), words("on off")},
        {QStringLiteral("devices priority"), words("list add remove move clear")},
        {QStringLiteral("shortcuts set"), words("open stop")},
        {QStringLiteral("shortcuts test"), words("open stop")},
        {QStringLiteral("shortcuts clear"), words("open stop")},
        {QStringLiteral("shortcuts mode"), words("press hold")},
        {QStringLiteral("modes show"), modeNames},
        {QStringLiteral("modes set"), modeNames},
        {QStringLiteral("modes default"), modeNames},
        {QStringLiteral("modes remove"), modeNames},
        {QStringLiteral("modes move"), modeNames},
        {QStringLiteral("modes --provider"), providerNames},
        {QStringLiteral("providers edit"), providerNames},
        {QStringLiteral("providers remove"), providerNames},
        {QStringLiteral("providers test"), providerNames},
        {QStringLiteral("providers models"), providerNames},
        {QStringLiteral("providers --type"), words("OpenAI Anthropic Gemini Custom")},
        {QStringLiteral("history --mode"), modeNames},
        {QStringLiteral("applications --paste-keys"), words("Ctrl+V Ctrl+Shift+V Shift+Insert")},
        {QStringLiteral("history --format"), words("json csv markdown")},
        {QStringLiteral("show"), words("settings history notes guide")},
    };
    return all;
}

Candidates namesAt(const QString& place)
{
    const auto found = places().find(place);
    return found != places().end() ? found->second() : Candidates{};
}

Candidates optionsOf(const Command& command)
{
    Candidates options{{QStringLiteral("--help"), QStringLiteral("Show this text.")}};
    for (const CommandOption& option : command.options)
        options.push_back({QStringLiteral("--") + QLatin1String(option.name), QString::fromStdString(option.help)});
    return options;
}

const CommandOption* optionTaking(const Command& command, const QString& word)
{
    const auto option = std::ranges::find_if(command.options, [&](const CommandOption& candidate) {
        return word == QStringLiteral("--") + QLatin1String(candidate.name) && *candidate.placeholder != '\0';
    });
    return option != command.options.end() ? &*option : nullptr;
}

/// @p words: those after the command's name, the last one unfinished.
Candidates within(const Command& command, const QStringList& words)
{
    const QString name = QLatin1String(command.name);
    if (words.last().startsWith(QLatin1Char('-')))
        return optionsOf(command);
    QStringList before;
    for (qsizetype i = 0; i + 1 < words.size(); ++i) {
        if (const CommandOption* option = optionTaking(command, words[i]); option == nullptr) {
            if (!words[i].startsWith(QLatin1Char('-')))
                before << words[i];
        } else if (++i + 1 == words.size()) {
            return namesAt(name + QStringLiteral(" --") + QLatin1String(option->name));
        }
    }
    const bool hasActions = *command.actions.front().name != '\0';
    if (before.isEmpty() && hasActions) {
        Candidates actions;
        for (const CommandAction& action : command.actions)
            actions.push_back({QLatin1String(action.name), {}});
        return actions;
    }
    if (before.size() > (hasActions ? 1 : 0))
        return {};
    return namesAt((QStringList(name) + before).join(QLatin1Char(' ')));
}

} // namespace

std::vector<Candidate> completions(const std::vector<Command>& commands, const QStringList& words)
{
    Candidates candidates;
    if (words.size() == 1) {
        for (const Command& command : commands)
            candidates.push_back({QLatin1String(command.name), QLatin1String(command.summary)});
        for (const char* option : {"--shortcut", "--model-host", "--verbose", "--help", "--version"})
            candidates.push_back({QLatin1String(option), {}});
    } else if (const auto command = std::ranges::find_if(
                   commands, [&](const Command& c) { return words.value(0) == QLatin1String(c.name); });
               command != commands.end()) {
        candidates = within(*command, words.mid(1));
    }
    std::erase_if(candidates, [&](const Candidate& candidate) {
        return words.isEmpty() || !candidate.text.startsWith(words.last(), Qt::CaseInsensitive);
    });
    return candidates;
}

QStringList completedPlaces()
{
    QStringList keys;
    for (const auto& [key, names] : places())
        keys << key;
    return keys;
}

} // namespace vantro
