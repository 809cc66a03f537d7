#include "vantro/cli/VocabularyCommands.h"

#include "base/Error.h"
#include "vantro/cli/ExitCode.h"
#include "vantro/cli/ListFile.h"
#include "vantro/cli/Terminal.h"
#include "vantro/text/VocabularyFile.h"
#include "vantro/text/VocabularySettings.h"

#include <QCommandLineParser>

#include <algorithm>
#include <optional>

namespace vantro {

namespace {

constexpr char replacementsDescription[] =
    R"(What vantro writes where the engine wrote something else. Whole words are replaced, in upper and lower case, in
the order of the list, in every dictation and by vantro transcribe.

  list               All of them, numbered. The default.
  add FIND [WITH]    Write WITH instead of FIND; without WITH the word is deleted.
  remove FIND|#N     Remove the entries that look for FIND, or the one with number N.
  import FILE        Add the entries of a JSON or CSV file ("find,replace"); "-" is standard input.
  export [FILE]      Write all entries to a file, or to standard output.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such entry.)";

constexpr char vocabularyDescription[] =
    R"(Words that the engine is told of, so that it recognises and spells them right. Use sparingly: too many words can
confuse it and may affect punctuation, language detection, and formatting.

  list               All of them, numbered. The default.
  add WORD...        Add words.
  remove WORD|#N     Remove a word, or the one with number N.
  import FILE        Add the words of a JSON or CSV file ("word"); "-" is standard input.
  export [FILE]      Write all words to a file, or to standard output.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such word.)";

/// One of the two lists, as the command works on it.
class EditedList
{
public:
    virtual ~EditedList() = default;

    [[nodiscard]] virtual QString command() const = 0;
    [[nodiscard]] virtual QLatin1String description() const = 0;
    [[nodiscard]] virtual bool acceptsToAdd(const QStringList& words) const = 0;
    /// One row of fields per entry.
    [[nodiscard]] virtual std::vector<QStringList> rows() const = 0;
    [[nodiscard]] virtual QByteArray content(ListFormat format) const = 0;
    [[nodiscard]] virtual QString emptyText() const = 0;
    /// How many were added; throws an Error, having added none, where the limit is in the way.
    virtual qsizetype add(const QStringList& words) = 0;
    virtual qsizetype addAll(const QByteArray& content, ListFormat format) = 0;
    virtual void removeAt(std::size_t index) = 0;

protected:
    static void refuse(const std::optional<LimitNotice>& notice)
    {
        if (notice)
            throw Error(QStringLiteral("%1: %2 Nothing was added.").arg(notice->title, notice->message));
    }

    UserDefaults defaults_{UserDefaults::standardPath()};
    VocabularySettings settings_{defaults_};
};

class ReplacementList final : public EditedList
{
public:
    [[nodiscard]] QString command() const override { return QStringLiteral("replacements"); }
    [[nodiscard]] QLatin1String description() const override { return QLatin1String(replacementsDescription); }
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
    [[nodiscard]] QString emptyText() const override { return QStringLiteral("No text replacements configured yet."); }

    qsizetype add(const QStringList& words) override
    {
        refuse(settings_.replacementLimitNotice());
        settings_.addReplacement(words[0], words.value(1));
        return 1;
    }

    qsizetype addAll(const QByteArray& content, ListFormat format) override
    {
        std::vector<TextReplacement> all = settings_.textReplacements();
        const std::size_t before = all.size();
        for (TextReplacement& entry : readReplacements(content, format)) {
            const bool isThere = std::ranges::any_of(all, [&](const TextReplacement& other) {
                return other.find == entry.find && other.replace == entry.replace;
            });
            const bool takesAnId =
                std::ranges::any_of(all, [&](const TextReplacement& other) { return other.id == entry.id; });
            if (takesAnId)
                entry.id = QUuid::createUuid();
            if (!isThere)
                all.push_back(entry);
        }
        const std::size_t added = all.size() - before;
        refuse(settings_.replacementLimitNotice(added));
        settings_.setReplacements(std::move(all));
        return static_cast<qsizetype>(added);
    }

    void removeAt(std::size_t index) override { settings_.removeReplacement(index); }
};

class WordList final : public EditedList
{
public:
    [[nodiscard]] QString command() const override { return QStringLiteral("vocabulary"); }
    [[nodiscard]] QLatin1String description() const override { return QLatin1String(vocabularyDescription); }
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
        return write(settings_.customVocabulary(), format);
    }
    [[nodiscard]] QString emptyText() const override { return QStringLiteral("No custom vocabulary words added yet."); }

    qsizetype add(const QStringList& words) override
    {
        QStringList all = settings_.customVocabulary();
        for (const QString& word : words) {
            if (!all.contains(word.trimmed()))
                all << word.trimmed();
        }
        const qsizetype added = all.size() - settings_.customVocabulary().size();
        refuse(settings_.vocabularyLimitNotice(added));
        settings_.setVocabulary(all);
        return added;
    }

    qsizetype addAll(const QByteArray& content, ListFormat format) override
    {
        return add(readVocabulary(content, format));
    }

    void removeAt(std::size_t index) override { settings_.removeVocabularyWord(static_cast<qsizetype>(index)); }
};

struct Options
{
    QString action;
    QStringList words;
    bool json = false;
    std::optional<ListFormat> format;
};

int wrongUsage(const EditedList& list, const QString& text)
{
    terminal::writeError(QStringLiteral("%1 (see vantro %2 --help)").arg(text, list.command()));
    return ExitCode::usage;
}

int show(const EditedList& list, const Options& options)
{
    if (options.json) {
        writeListFile({}, list.content(ListFormat::json));
        return ExitCode::done;
    }
    const bool isForAPerson = terminal::outputIsTerminal();
    const auto rows = list.rows();
    if (rows.empty() && isForAPerson)
        terminal::writeLine(list.emptyText());
    qsizetype number = 0;
    for (const QStringList& row : rows) {
        ++number;
        if (isForAPerson && row.size() > 1)
            terminal::writeLine(QStringLiteral("%1  %2  →  %3")
                                    .arg(number, 3)
                                    .arg(row[0], row[1].isEmpty() ? QStringLiteral("(deleted)") : row[1]));
        else if (isForAPerson)
            terminal::writeLine(QStringLiteral("%1  %2").arg(number, 3).arg(row[0]));
        else
            terminal::writeLine(row.join(QLatin1Char('\t')));
    }
    return ExitCode::done;
}

int remove(EditedList& list, const QString& text)
{
    const auto rows = list.rows();
    bool isNumber = false;
    const qsizetype number = text.startsWith(QLatin1Char('#')) ? text.mid(1).toLongLong(&isNumber) : 0;
    qsizetype removed = 0;
    // From the end, so that the numbers before stay true.
    for (qsizetype i = static_cast<qsizetype>(rows.size()); i > 0; --i) {
        if (isNumber ? i == number : rows[static_cast<std::size_t>(i - 1)][0].trimmed() == text.trimmed()) {
            list.removeAt(static_cast<std::size_t>(i - 1));
            ++removed;
        }
    }
    if (removed == 0) {
        terminal::writeError(
            QStringLiteral("there is no entry \"%1\": vantro %2 lists them").arg(text, list.command()));
        return ExitCode::notFound;
    }
    terminal::writeLine(QStringLiteral("%1 removed").arg(removed));
    return ExitCode::done;
}

int add(EditedList& list, const QStringList& words)
{
    const qsizetype added = list.add(words);
    terminal::writeLine(added > 0 ? QStringLiteral("%1 added").arg(added) : QStringLiteral("Nothing new"));
    return ExitCode::done;
}

int import(EditedList& list, const Options& options)
{
    const QString& path = options.words[0];
    try {
        const qsizetype before = static_cast<qsizetype>(list.rows().size());
        const qsizetype added = list.addAll(readListFile(path), options.format.value_or(listFormatOf(path)));
        terminal::writeLine(QStringLiteral("%1 added to %2").arg(added).arg(before));
        return ExitCode::done;
    } catch (const Error& error) {
        throw Error(QStringLiteral("%1: %2. The list is as it was").arg(path, error.localizedDescription()));
    }
}

int carryOut(EditedList& list, const Options& options)
{
    if (options.action == QLatin1String("list"))
        return show(list, options);
    if (options.action == QLatin1String("add"))
        return add(list, options.words);
    if (options.action == QLatin1String("remove"))
        return remove(list, options.words[0]);
    if (options.action == QLatin1String("import"))
        return import(list, options);
    const QString path = options.words.value(0);
    writeListFile(path, list.content(options.format.value_or(listFormatOf(path))));
    return ExitCode::done;
}

QString problemWith(const EditedList& list, const Options& options)
{
    const qsizetype count = options.words.size();
    if (options.action == QLatin1String("list"))
        return count > 0 ? QStringLiteral("too many words") : QString();
    if (options.action == QLatin1String("add"))
        return list.acceptsToAdd(options.words) ? QString() : QStringLiteral("tell what to add");
    if (options.action == QLatin1String("remove") || options.action == QLatin1String("import"))
        return count == 1 ? QString() : QStringLiteral("%1 %2 takes one word").arg(list.command(), options.action);
    if (options.action == QLatin1String("export"))
        return count < 2 ? QString() : QStringLiteral("too many words");
    return QStringLiteral("there is no action \"%1\"").arg(options.action);
}

int run(EditedList& list, const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(list.description());
    terminal::addHelpOption(parser);
    parser.addOption({QStringLiteral("json"), QStringLiteral("JSON instead of text.")});
    parser.addOption({QStringLiteral("format"), QStringLiteral("json or csv, whatever the file is called."),
                      QStringLiteral("FORMAT")});
    parser.addPositionalArgument(QStringLiteral("ACTION"), QStringLiteral("What to do."), QStringLiteral("[ACTION"));
    parser.addPositionalArgument(QStringLiteral("WORD"), QStringLiteral("With what."), QStringLiteral("[WORD...]]"));
    if (!parser.parse(QStringList{QStringLiteral("vantro ") + list.command()} + arguments))
        return wrongUsage(list, parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        terminal::writeLine(terminal::helpText(parser, list.command()));
        return ExitCode::done;
    }
    QStringList words = parser.positionalArguments();
    Options options;
    options.action = words.isEmpty() ? QStringLiteral("list") : words.takeFirst();
    options.words = words;
    options.json = parser.isSet(QStringLiteral("json"));
    const QString format = parser.value(QStringLiteral("format"));
    if (!format.isEmpty() && format != QLatin1String("json") && format != QLatin1String("csv"))
        return wrongUsage(list, QStringLiteral("there is no format \"%1\"").arg(format));
    if (!format.isEmpty())
        options.format = format == QLatin1String("csv") ? ListFormat::csv : ListFormat::json;
    if (const QString problem = problemWith(list, options); !problem.isEmpty())
        return wrongUsage(list, problem);
    try {
        return carryOut(list, options);
    } catch (const Error& error) {
        terminal::writeError(
            QStringLiteral("%1 %2: %3").arg(list.command(), options.action, error.localizedDescription()));
        return ExitCode::failed;
    }
}

} // namespace

int runReplacements(const QStringList& arguments)
{
    ReplacementList list;
    return run(list, arguments);
}

int runVocabulary(const QStringList& arguments)
{
    WordList list;
    return run(list, arguments);
}

} // namespace vantro
