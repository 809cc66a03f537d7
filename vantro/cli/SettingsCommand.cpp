#include "base/Settings.h"
#include "base/Translations.h"
#include "vantro/ai/PromptSettings.h"
#include "vantro/cli/Commands.h"
#include "vantro/cli/ModelsSession.h"
#include "vantro/cli/Terminal.h"
#include "vantro/models/ModelHost.h"
#include "vantro/models/SpokenLanguages.h"
#include "vantro/store/Retention.h"

#include <QJsonDocument>

#include <algorithm>
#include <array>

namespace vantro {

namespace {

constexpr const char* description =
    QT_TRANSLATE_NOOP("Command", R"(The settings, each by its key. The running program follows a change at once.

  list             List all settings with their values. The default.
  get KEY          Show one setting's value.
  set KEY VALUE    Change a setting.
  reset KEY        Go back to its default.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such setting, 5 the settings cannot be written.)");

const SettingKey& settingFrom(const QString& name)
{
    const auto found = std::ranges::find_if(setting::documented, [&name](const SettingKey* candidate) {
        return name.compare(candidate->key, Qt::CaseInsensitive) == 0;
    });
    if (found == setting::documented.end())
        throw CommandError(ExitCode::notFound,
                           Command::tr("there is no setting \"%1\": vantro settings lists them").arg(name));
    return **found;
}

QString meaningOf(const SettingKey& setting)
{
    return QCoreApplication::translate("SettingMeaning", setting.meaning).remove(QLatin1Char('`'));
}

WrongUsage notA(const QString& value, const QString& what)
{
    return WrongUsage(Command::tr("\"%1\" is not %2").arg(value, what));
}

QString oneOf(const QString& value, const QStringList& values)
{
    for (const QString& each : values) {
        if (each.compare(value, Qt::CaseInsensitive) == 0)
            return each;
    }
    throw notA(value, Command::tr("one of: ") + values.join(QStringLiteral(", ")));
}

QString mode(const QString& value)
{
    UserDefaults defaults(UserDefaults::standardPath());
    const PromptSettings prompts(defaults);
    if (const auto found = prompts.find(value))
        return rawValue(*found);
    QStringList names;
    for (const ProcessingMode each : prompts.modes())
        names << rawValue(each);
    return oneOf(value, names);
}

QString language(const QString& value)
{
    const QString code = value.toLower();
    if (!isSpokenLanguage(code))
        throw notA(value, Command::tr("a language the models know: use a code such as en, de or fr, or auto"));
    return code;
}

QString nameOf(const std::vector<TranscriptionModel>& models, const QString& value, const char* refusal)
{
    const auto* found = match(models, value);
    if (found == nullptr)
        throw notA(value, Command::tr(refusal));
    return found->name;
}

QString model(const QString& value)
{
    return nameOf(ModelsSession({}).speech.catalogue.models(), value,
                  QT_TRANSLATE_NOOP("Command", "a speech model: vantro models lists them"));
}

QString languageModel(const QString& value)
{
    return nameOf(ModelsSession({}).speech.languageModels.models(), value,
                  QT_TRANSLATE_NOOP("Command", "a language model: vantro models lists them"));
}

QString modelHost(const QString& value)
{
    if (!ModelHost::usable(value))
        throw notA(value, Command::tr("a model host: use an address that starts with http:, https: or file:"));
    return value;
}

QString keeping(const QString& value)
{
    const auto days = Retention::daysFrom(value.toLower());
    if (!days && value.toLower() != Retention::textOf(std::nullopt))
        throw notA(value, Command::tr("a number of days, \"forever\" or \"never\""));
    return Retention::textOf(days);
}

QString megabytes(const QString& value)
{
    bool isNumber = false;
    const qint64 number = value.toLongLong(&isNumber);
    if (!isNumber || number < 1)
        throw notA(value, Command::tr("a number of megabytes"));
    return QString::number(number);
}

struct Rule
{
    const SettingKey& setting;
    QString (*check)(const QString&); ///< returns what is stored; throws WrongUsage
};

const std::array rules{
    Rule{setting::audioInputMode,
         [](const QString& value) {
             return oneOf(value, {QStringLiteral("System Default"), QStringLiteral("Custom Device"),
                                  QStringLiteral("Prioritized")});
         }},
    Rule{setting::defaultProcessingMode, mode},
    Rule{setting::selectedLanguage, language},
    Rule{setting::selectedModelName, model},
    Rule{setting::selectedLanguageModelName, languageModel},
    Rule{setting::modelHostBaseURL, modelHost},
    Rule{setting::keepHistory, keeping},
    Rule{setting::keepRecordings, keeping},
    Rule{setting::keepRecordingsMegabytes, megabytes},
    Rule{setting::appearance,
         [](const QString& value) {
             return oneOf(value, {QStringLiteral("light"), QStringLiteral("dark")});
         }},
};

bool truth(const QString& value)
{
    const QString word = value.toLower();
    if (QStringList{QStringLiteral("true"), QStringLiteral("on"), QStringLiteral("yes")}.contains(word))
        return true;
    if (QStringList{QStringLiteral("false"), QStringLiteral("off"), QStringLiteral("no")}.contains(word))
        return false;
    throw notA(value, Command::tr("true or false"));
}

QVariant checked(const SettingKey& setting, const QString& value)
{
    if (setting.kind == SettingKind::truth)
        return truth(value);
    if (setting.kind == SettingKind::json && QJsonDocument::fromJson(value.toUtf8()).isNull())
        throw notA(value, Command::tr("JSON"));
    const auto rule = std::ranges::find_if(rules, [&](const Rule& each) { return &each.setting == &setting; });
    return rule != rules.end() ? rule->check(value) : value;
}

/// As the program reads it: a value of another type counts as absent.
QString shown(const UserDefaults& defaults, const SettingKey& setting)
{
    const bool isStored = setting.kind == SettingKind::truth ? defaults.read<bool>(setting.key).has_value()
                                                             : defaults.read<QString>(setting.key).has_value();
    return isStored ? *defaults.read<QString>(setting.key) : QString::fromUtf8(setting.otherwise);
}

QJsonValue jsonOf(const QString& value, SettingKind kind)
{
    return kind == SettingKind::truth    ? QJsonValue(value == QLatin1String("true"))
           : kind == SettingKind::number ? QJsonValue(value.toLongLong())
                                         : QJsonValue(value);
}

QJsonObject toJson(const UserDefaults& defaults, const SettingKey& setting)
{
    return {{QStringLiteral("key"), setting.key},
            {QStringLiteral("value"), jsonOf(shown(defaults, setting), setting.kind)},
            {QStringLiteral("is_default"), !defaults.contains(setting.key)},
            {QStringLiteral("default"), QString::fromUtf8(setting.otherwise)},
            {QStringLiteral("meaning"), meaningOf(setting)}};
}

int list(const CommandCall& call)
{
    const Translations::Suspension forScripts(!terminal::outputIsTerminal());
    const UserDefaults defaults(UserDefaults::standardPath());
    QJsonArray array;
    std::vector<QStringList> rows{{Command::tr("KEY"), Command::tr("VALUE"), Command::tr("MEANING")}};
    for (const SettingKey* each : setting::documented) {
        array.append(toJson(defaults, *each));
        rows.push_back({each->key, terminal::singleLine(shown(defaults, *each)), meaningOf(*each)});
    }
    if (call.json())
        terminal::writeJson(array);
    else
        terminal::writeTable(rows);
    return ExitCode::done;
}

int get(const CommandCall& call)
{
    const UserDefaults defaults(UserDefaults::standardPath());
    const SettingKey& wanted = settingFrom(call.words.front());
    if (call.json())
        terminal::writeJson(toJson(defaults, wanted));
    else
        terminal::writeLine(shown(defaults, wanted));
    return ExitCode::done;
}

int set(const CommandCall& call)
{
    UserDefaults defaults(UserDefaults::standardPath());
    const SettingKey& wanted = settingFrom(call.words.front());
    const QVariant value = checked(wanted, call.words.mid(1).join(QLatin1Char(' ')));
    if (wanted.kind == SettingKind::truth)
        defaults.write(wanted.key, value.toBool());
    else
        defaults.write(wanted.key, value.toString());
    defaults.requireSaved();
    return ExitCode::done;
}

int reset(const CommandCall& call)
{
    UserDefaults defaults(UserDefaults::standardPath());
    defaults.remove(settingFrom(call.words.front()).key);
    defaults.requireSaved();
    return ExitCode::done;
}

} // namespace

Command settingsCommand()
{
    return {.name = "settings",
            .summary = QT_TRANSLATE_NOOP("Command", "List, show, change or reset settings."),
            .description = description,
            .actions = {{"list", list},
                        {"get", get, 1, 1, QT_TRANSLATE_NOOP("Command", "needs a key")},
                        {"set", set, 2, Command::anyNumber, QT_TRANSLATE_NOOP("Command", "needs a key and a value")},
                        {"reset", reset, 1, 1, QT_TRANSLATE_NOOP("Command", "needs a key")}},
            .options = {Command::jsonOption},
            .words = {{"KEY", QT_TRANSLATE_NOOP("Command", "A setting's key, as in the list."), "[KEY"},
                      {"VALUE", QT_TRANSLATE_NOOP("Command", "Its new value."), "[VALUE]]]"}}};
}

} // namespace vantro
