#include "vantro/cli/Commands.h"
#include "vantro/cli/Terminal.h"
#include "vantro/text/CleaningSettings.h"

#include <algorithm>

namespace vantro {

namespace {

constexpr const char* description = QT_TRANSLATE_NOOP(
    "Command",
    R"(The rules by which a mode cleans what you said without a language model: fillers are taken out, and "new line" or
"comma" are written as what they mean. Words that were said twice, the capital at the beginning and the full stop at the
end need no rule. vantro modes set MODE --clean uses them, vantro rewrite --clean TEXT tries them.

  list                 List the rules. The default.
  add FIND [REPLACE]   Take FIND out, or write REPLACE for it; \n is a new line.
  remove FIND          Remove a rule.
  reset                Take the built-in rules again.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such rule, 5 the settings cannot be written.)");

struct Session
{
    explicit Session(const CommandCall& call) : language(call.has("language") ? call.value("language") : QString())
    {
        if (!language.isEmpty() && !CleaningSettings::languages().contains(language))
            throw WrongUsage(Command::tr("--language: choose one of %1")
                                 .arg(CleaningSettings::languages().join(QStringLiteral(", "))));
    }

    /// The one that is changed.
    [[nodiscard]] QString chosen() const { return language.isEmpty() ? QStringLiteral("en") : language; }
    void store(const std::vector<CleaningRule>& rules)
    {
        settings.setRules(chosen(), rules);
        defaults.requireSaved();
    }

    UserDefaults defaults{UserDefaults::standardPath()};
    CleaningSettings settings{defaults};
    QString language;
};

QString shown(QString replacement)
{
    return replacement.replace(QLatin1Char('\n'), QLatin1String("\\n"));
}

int list(const CommandCall& call)
{
    const Session session(call);
    QJsonArray array;
    std::vector<QStringList> rows{{Command::tr("LANGUAGE"), Command::tr("FIND"), Command::tr("REPLACE")}};
    for (const QString& language : CleaningSettings::languages()) {
        if (!session.language.isEmpty() && language != session.language)
            continue;
        for (const CleaningRule& rule : session.settings.rules(language)) {
            rows.push_back({language, rule.find, shown(rule.replace)});
            array.append(QJsonObject{{QStringLiteral("language"), language},
                                     {QStringLiteral("find"), rule.find},
                                     {QStringLiteral("replace"), rule.replace}});
        }
    }
    if (call.json())
        terminal::writeJson(array);
    else
        terminal::writeTable(rows);
    return ExitCode::done;
}

auto ruleFor(const QString& find)
{
    return [find = find.simplified()](const CleaningRule& rule) {
        return rule.find.compare(find, Qt::CaseInsensitive) == 0;
    };
}

int add(const CommandCall& call)
{
    Session session(call);
    const auto parsed = CleaningSettings::fromText(call.words.join(QStringLiteral(" = ")));
    if (parsed.size() != 1 || call.words.front().contains(QLatin1Char('=')))
        throw WrongUsage(Command::tr("FIND needs at least one word, without a \"=\""));
    auto rules = session.settings.rules(session.chosen());
    std::erase_if(rules, ruleFor(parsed.front().find));
    // First: "new line" is looked for before "line".
    rules.insert(rules.begin(), parsed.front());
    session.store(rules);
    return ExitCode::done;
}

int remove(const CommandCall& call)
{
    Session session(call);
    auto rules = session.settings.rules(session.chosen());
    if (std::erase_if(rules, ruleFor(call.words.front())) == 0)
        throw CommandError(ExitCode::notFound, Command::tr("there is no rule \"%1\" for %2: vantro cleaning lists them")
                                                   .arg(call.words.front(), session.chosen()));
    session.store(rules);
    return ExitCode::done;
}

int reset(const CommandCall& call)
{
    Session session(call);
    for (const QString& language : CleaningSettings::languages()) {
        if (session.language.isEmpty() || language == session.language)
            session.settings.reset(language);
    }
    session.defaults.requireSaved();
    return ExitCode::done;
}

} // namespace

Command cleaningCommand()
{
    return {
        .name = "cleaning",
        .summary = QT_TRANSLATE_NOOP("Command", "Show and change the rules that clean texts without a language model."),
        .description = description,
        .actions = {{"list", list},
                    {"add", add, 1, 2, QT_TRANSLATE_NOOP("Command", "needs a word or phrase")},
                    {"remove", remove, 1, 1, QT_TRANSLATE_NOOP("Command", "needs a word or phrase")},
                    {"reset", reset}},
        .options = {{"language",
                     QT_TRANSLATE_NOOP("Command", "en, de, es or fr; list and reset: all unless it is given, else en."),
                     "CODE"},
                    Command::jsonOption},
        .words = {{"WORDS", QT_TRANSLATE_NOOP("Command", "A word or phrase, and what to write for it."),
                   "[FIND [REPLACE]]]"}}};
}

} // namespace vantro
