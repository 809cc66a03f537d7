#include "vantro/cli/Commands.h"
#include "vantro/cli/Terminal.h"
#include "vantro/cli/VocabularyPlaces.h"
#include "vantro/text/ListFile.h"
#include "vantro/text/VocabularyTransfer.h"

#include <QFileInfo>

#include <algorithm>
#include <optional>

namespace vantro {

namespace {

constexpr const char* replacementsDescription = QT_TRANSLATE_NOOP(
    "Command",
    R"(Texts to replace in what was recognised. Whole words are replaced, in any case and in the order of the list, in
every dictation and by vantro transcribe.

  list               List all entries, numbered. The default.
  add FIND [WITH]    Replace FIND by WITH; without WITH, delete it.
  remove FIND|#N     Remove the entries for FIND, or entry number N.
  import FILE        Add the entries of a JSON or CSV file ("find,replace"); "-" is standard input.
  export [FILE]      Write all entries to a file, or to standard output.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such entry, 5 the settings cannot be
written.)");

constexpr const char* vocabularyDescription = QT_TRANSLATE_NOOP(
    "Command", R"(Words that the engine should recognise and spell correctly. Use sparingly: too many words can
confuse it and may affect punctuation, language detection, and formatting.

  list               List all words, numbered. The default.
  add WORD...        Add words. --sounds-like TEXT and --weight NUMBER are for the
                     Parakeet models, and change words that are there already, too.
  try FILE           Transcribe a recording with a Parakeet model and show where your
                     words, or those given by --term, were looked for and what spoke
                     for them: logarithms of likelihoods of what was heard and of the term.
  remove WORD|#N     Remove a word, or word number N.
  import FILE        Add the words of a JSON or CSV file ("word"); "-" is standard input.
  export [FILE]      Write all words to a file, or to standard output.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such word, 5 the settings cannot be
written.)");

/// One of the two lists, as the commands see it.
class EditedList
{
public:
    virtual ~EditedList() = default;

    [[nodiscard]] virtual bool acceptsToAdd(const QStringList& words) const = 0;
    /// One row of fields per entry.
    [[nodiscard]] virtual std::vector<QStringList> rows() const = 0;
    [[nodiscard]] virtual QByteArray content(ListFormat format) const = 0;
    [[nodiscard]] virtual QString emptyText() const = 0;
    /// Returns how many were added. Throws Error and adds none when the limit would be exceeded.
    virtual qsizetype add(const QStringList& words) = 0;
    virtual ImportedEntries import(const QString& path, ListFormat format) = 0;
    virtual void removeAt(std::size_t index) = 0;
    /// The options of "add", which are checked before anything is added.
    virtual void requireUsable(const CommandCall& /*call*/) const {}
    /// Returns whether that has changed anything.
    virtual bool refine(const CommandCall& /*call*/) { return false; }
    /// What is to be known about an entry, for people.
    [[nodiscard]] virtual QString note(std::size_t index) const = 0;
    /// Of the columns number, entry and note.
    [[nodiscard]] virtual QStringList titles() const = 0;
    /// Nobody else changes the list during @p edit; throws when it could not be written.
    void change(const std::function<void()>& edit)
    {
        defaults_.change(edit);
        requireSaved();
    }
    void requireSaved() const { defaults_.requireSaved(); }

protected:
    static void refuse(const std::optional<LimitNotice>& notice)
    {
        if (notice)
            throw Error(QStringLiteral("%1: %2").arg(notice->title, notice->message));
    }

    UserDefaults defaults_{UserDefaults::standardPath()};
    VocabularySettings settings_{defaults_};
};

class ReplacementList final : public EditedList
{
public:
    [[nodiscard]] bool acceptsToAdd(const QStringList& words) const override
    {
        return (words.size() == 1 || words.size() == 2) && !words[0].trimmed().isEmpty();
    }
    [[nodiscard]] std::vector<QStringList> rows() const override
    {
        std::vector<QStringList> rows;
        for (const TextReplacement& replacement : settings_.textReplacements())
            rows.push_back({replacement.find, replacement.replace});
        return rows;
    }
    [[nodiscard]] QByteArray content(ListFormat format) const override
    {
        return write(settings_.textReplacements(), format);
    }
    [[nodiscard]] QString emptyText() const override { return Command::tr("No text replacements configured yet."); }

    qsizetype add(const QStringList& words) override
    {
        refuse(settings_.replacementLimitNotice());
        settings_.addReplacement(words[0], words.value(1));
        return 1;
    }

    ImportedEntries import(const QString& path, ListFormat format) override
    {
        return importReplacements(path, format, settings_);
    }

    void removeAt(std::size_t index) override { settings_.removeReplacement(index); }
    [[nodiscard]] QString note(std::size_t index) const override
    {
        const QString replacement = settings_.textReplacements()[index].replace;
        return replacement.isEmpty() ? Command::tr("(deleted)") : terminal::singleLine(replacement);
    }
    [[nodiscard]] QStringList titles() const override
    {
        return {Command::tr("NO."), Command::tr("FIND"), Command::tr("REPLACE WITH")};
    }
};

class WordList final : public EditedList
{
public:
    [[nodiscard]] bool acceptsToAdd(const QStringList& words) const override
    {
        return !words.isEmpty() &&
               std::ranges::none_of(words, [](const QString& word) { return word.trimmed().isEmpty(); });
    }
    [[nodiscard]] std::vector<QStringList> rows() const override
    {
        std::vector<QStringList> rows;
        for (const QString& word : settings_.customVocabulary())
            rows.push_back({word});
        return rows;
    }
    [[nodiscard]] QByteArray content(ListFormat format) const override
    {
        return write(settings_.vocabularyWords(), format);
    }
    [[nodiscard]] QString emptyText() const override { return Command::tr("No custom vocabulary words added yet."); }

    qsizetype add(const QStringList& words) override { return settings_.addVocabularyWords(words); }

    ImportedEntries import(const QString& path, ListFormat format) override
    {
        return importWords(path, format, settings_);
    }

    void removeAt(std::size_t index) override { settings_.removeVocabularyWord(static_cast<qsizetype>(index)); }

    void requireUsable(const CommandCall& call) const override { static_cast<void>(weightOf(call)); }
    bool refine(const CommandCall& call) override
    {
        bool isChanged = false;
        for (const QString& text : call.words) {
            const QString word = text.trimmed();
            VocabularyDetails details = settings_.details(word);
            for (const QString& spelling : call.values("sounds-like")) {
                if (!details.soundsLike.contains(spelling.trimmed()) && !spelling.trimmed().isEmpty())
                    details.soundsLike << spelling.trimmed();
            }
            if (call.has("weight"))
                details.weight = weightOf(call);
            if (details == settings_.details(word))
                continue;
            settings_.setDetails(word, details);
            isChanged = true;
        }
        return isChanged;
    }
    [[nodiscard]] QString note(std::size_t index) const override
    {
        const VocabularyDetails details =
            settings_.details(settings_.customVocabulary().at(static_cast<qsizetype>(index)));
        QStringList notes;
        if (!details.soundsLike.isEmpty())
            notes << Command::tr("sounds like ") + details.soundsLike.join(QStringLiteral(", "));
        if (details.weight != VocabularyDetails().weight)
            notes << Command::tr("weight %1").arg(details.weight);
        return notes.join(QStringLiteral("; "));
    }
    [[nodiscard]] QStringList titles() const override
    {
        return {Command::tr("NO."), Command::tr("WORD"), Command::tr("WITH PARAKEET")};
    }
};

/// For a person: with its titles, the numbers that "remove" takes, and what each entry means.
std::vector<QStringList> numbered(const EditedList& list, const std::vector<QStringList>& rows)
{
    std::vector<QStringList> table{list.titles()};
    for (std::size_t i = 0; i < rows.size(); ++i)
        table.push_back({QStringLiteral("#%1").arg(i + 1), terminal::singleLine(rows[i][0]), list.note(i)});
    return table;
}

int show(EditedList& list, const CommandCall& call)
{
    if (call.json()) {
        writeListFile({}, list.content(ListFormat::json));
        return ExitCode::done;
    }
    const auto rows = list.rows();
    if (!terminal::outputIsTerminal()) {
        for (const QStringList& row : rows)
            terminal::writeLine(row.join(QLatin1Char('\t')));
    } else if (rows.empty()) {
        terminal::writeLine(list.emptyText());
    } else {
        terminal::writeTable(numbered(list, rows));
    }
    return ExitCode::done;
}

int remove(EditedList& list, const CommandCall& call)
{
    const QString& text = call.words.front();
    bool isNumber = false;
    const qsizetype number = text.startsWith(QLatin1Char('#')) ? text.mid(1).toLongLong(&isNumber) : 0;
    qsizetype removed = 0;
    list.change([&] {
        const auto rows = list.rows();
        // From the end, so that earlier indexes stay valid.
        isNumber = isNumber && std::ranges::none_of(rows, [&](const QStringList& row) { return row[0] == text; });
        for (qsizetype i = static_cast<qsizetype>(rows.size()); i > 0; --i) {
            if (isNumber ? i == number : rows[static_cast<std::size_t>(i - 1)][0].trimmed() == text.trimmed()) {
                list.removeAt(static_cast<std::size_t>(i - 1));
                ++removed;
            }
        }
    });
    if (removed == 0)
        throw CommandError(ExitCode::notFound,
                           Command::tr("there is no entry \"%1\": vantro %2 lists them").arg(text, call.command));
    terminal::writeLine(Command::tr("%1 removed").arg(removed));
    return ExitCode::done;
}

int add(EditedList& list, const CommandCall& call)
{
    if (!list.acceptsToAdd(call.words))
        throw WrongUsage(Command::tr("give what to add"));
    list.requireUsable(call);
    qsizetype added = 0;
    bool isRefined = false;
    list.change([&] {
        added = list.add(call.words);
        isRefined = list.refine(call);
    });
    terminal::writeLine(added > 0   ? Command::tr("%1 added").arg(added)
                        : isRefined ? Command::tr("Changed")
                                    : Command::tr("Nothing new"));
    return ExitCode::done;
}

/// From the option, or else from the file name.
ListFormat formatFrom(const CommandCall& call, const QString& path)
{
    const QString format = call.value("format");
    if (!format.isEmpty() && format != QLatin1String("json") && format != QLatin1String("csv"))
        throw WrongUsage(Command::tr("there is no format \"%1\"").arg(format));
    return format.isEmpty() ? listFormatOf(path) : format == QLatin1String("csv") ? ListFormat::csv : ListFormat::json;
}

int import(EditedList& list, const CommandCall& call)
{
    const QString& path = call.words.front();
    const ListFormat format = formatFrom(call, path);
    ImportedEntries imported;
    try {
        imported = list.import(path, format);
    } catch (const Error& error) {
        // Who has a plain list of words or a pipe does not think of JSON.
        const bool isGuess = format == ListFormat::json && !call.has("format") &&
                             !path.endsWith(QLatin1String(".json"), Qt::CaseInsensitive);
        if (!isGuess || (path != QLatin1String("-") && !QFileInfo(path).isFile()))
            throw;
        throw Error(error.localizedDescription() +
                    Command::tr(". It was read as JSON: --format csv reads one entry a line."));
    }
    list.requireSaved();
    terminal::writeLine(Command::tr("%1 added to %2").arg(imported.added).arg(imported.before));
    return ExitCode::done;
}

int exportTo(EditedList& list, const CommandCall& call)
{
    const QString path = call.words.value(0);
    writeListFile(path, list.content(formatFrom(call, path)));
    return ExitCode::done;
}

template <typename List>
Command listCommand(const char* name, const char* summary, const char* description)
{
    const auto on = [](int (*action)(EditedList&, const CommandCall&)) {
        return [action](const CommandCall& call) {
            List list;
            return action(list, call);
        };
    };
    return {
        .name = name,
        .summary = summary,
        .description = description,
        .actions = {{"list", on(show)},
                    {"add", on(add), 0, Command::anyNumber},
                    {"remove", on(remove), 1, 1, QT_TRANSLATE_NOOP("Command", "needs an entry")},
                    {"import", on(import), 1, 1, QT_TRANSLATE_NOOP("Command", "needs a file")},
                    {"export", on(exportTo), 0, 1}},
        .options = {Command::jsonOption,
                    {"format", QT_TRANSLATE_NOOP("Command", "json or csv, regardless of the file name."), "FORMAT"}},
        .words = {{"WORD", QT_TRANSLATE_NOOP("Command", "Arguments of the action."), "[WORD...]]"}}};
}

} // namespace

Command replacementsCommand()
{
    return listCommand<ReplacementList>(
        "replacements", QT_TRANSLATE_NOOP("Command", "Show and edit text replacements."), replacementsDescription);
}

Command vocabularyCommand()
{
    Command command = listCommand<WordList>(
        "vocabulary", QT_TRANSLATE_NOOP("Command", "Show and edit words that the engine should know."),
        vocabularyDescription);
    command.actions.push_back({"try", tryVocabulary, 1, 1, QT_TRANSLATE_NOOP("Command", "needs a recording")});
    command.options.push_back(
        {"sounds-like", QT_TRANSLATE_NOOP("Command", "Another spelling of how the word is said; may be repeated."),
         "TEXT"});
    command.options.push_back(
        {"weight", QT_TRANSLATE_NOOP("Command", "How readily the word is written, from 0 to 4; usually 1."), "NUMBER"});
    command.options.push_back({"term", QT_TRANSLATE_NOOP("Command", "A word to try; may be repeated."), "WORD"});
    command.options.push_back(
        {"model", QT_TRANSLATE_NOOP("Command", "Catalogue name or path of the Parakeet model to try with."), "NAME"});
    command.options.push_back(
        {"ctc-model", QT_TRANSLATE_NOOP("Command", "Path of the model that looks for words."), "FILE"});
    return command;
}

} // namespace vantro
