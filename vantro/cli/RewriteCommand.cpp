#include "base/RunTask.h"
#include "vantro/ai/AnswerSetAside.h"
#include "vantro/app/ProcessingErrorMessage.h"
#include "vantro/cli/Commands.h"
#include "vantro/cli/ProvidersSession.h"
#include "vantro/cli/RewritingExit.h"
#include "vantro/cli/Terminal.h"

#include <QElapsedTimer>
#include <QFile>

namespace vantro {

namespace {

constexpr const char* description = QT_TRANSLATE_NOOP(
    "Command",
    R"(Rewrites a text as a dictation in a mode is, and writes the result to standard output. The answer of a language model
is judged as it is there: one that is not believed is told on standard error, the text as it was goes to standard output,
and the exit status is 6.

TEXT is the text; - reads it from standard input.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such mode or provider, 4 no service: the provider or its key cannot be
reached, 6 the answer was set aside.)");

QString textFrom(const CommandCall& call)
{
    QString text = call.words.join(QLatin1Char(' '));
    if (text == QLatin1String("-")) {
        QFile input;
        std::ignore = input.open(stdin, QIODevice::ReadOnly);
        text = QString::fromUtf8(input.readAll());
    }
    if (text.trimmed().isEmpty())
        throw WrongUsage(Command::tr("there is no text"));
    return text.trimmed();
}

ProcessingMode modeFrom(const CommandCall& call, const PromptSettings& prompts)
{
    if (!call.has("mode"))
        return ProcessingMode::Grammar;
    const QString name = call.value("mode");
    if (const auto mode = prompts.find(name))
        return *mode;
    throw CommandError(ExitCode::notFound, Command::tr("there is no mode \"%1\": vantro modes lists them").arg(name));
}

/// Who is to do it: the options, else what the mode is set up with.
ModeConfiguration wanted(const CommandCall& call, ProvidersSession& session, ProcessingMode mode)
{
    if (call.has("clean") + call.has("local") + call.has("provider") > 1)
        throw WrongUsage(Command::tr("choose one of --clean, --local and --provider"));
    if (call.has("clean"))
        return {.cleans = true};
    if (call.has("local"))
        return {.useLocalAI = true};
    if (call.has("provider")) {
        const auto* provider = session.find(call.value("provider"));
        if (provider == nullptr)
            throw CommandError(
                ExitCode::notFound,
                Command::tr("there is no provider \"%1\": vantro providers lists them").arg(call.value("provider")));
        return {.providerConfigId = provider->id};
    }
    if (!session.rewriting.isUsable(mode))
        throw CommandError(ExitCode::failed,
                           Command::tr("%1 is not set up: vantro modes set %1 --provider NAME, --local or --clean")
                               .arg(rawValue(mode)));
    return session.rewriting.prompts().configuration(mode);
}

struct Result
{
    QString text;
    QString reason; ///< why the text is the one that was given
    QString doubt;
    QString answer;
    std::exception_ptr failure;
};

Result rewritten(ProvidersSession& session, ProcessingMode mode, const ModeConfiguration& by, const QString& said)
{
    Result result;
    result.text = said;
    const bool asksNobody = !by.cleans && session.rewriting.prompts().prompt(mode).isEmpty();
    try {
        if (!asksNobody)
            result.text = runTask(session.rewriting.rewrite(mode, by, said));
    } catch (const AnswerSetAside& error) {
        result.reason = error.localizedDescription();
        result.doubt = AnswerSetAside::name(error.doubt());
        result.answer = error.answer();
        result.failure = std::current_exception();
    } catch (const Error& error) {
        result.reason = processingErrorMessage(error);
        result.failure = std::current_exception();
    }
    return result;
}

QJsonObject toJson(const Result& result, const QString& said, ProcessingMode mode, qint64 elapsedMs)
{
    QJsonObject object{{QStringLiteral("mode"), rawValue(mode)},
                       {QStringLiteral("said"), said},
                       {QStringLiteral("text"), result.text},
                       {QStringLiteral("ms"), elapsedMs}};
    if (result.failure)
        object.insert(QStringLiteral("reason"), result.reason);
    if (!result.doubt.isEmpty()) {
        object.insert(QStringLiteral("doubt"), result.doubt);
        object.insert(QStringLiteral("set_aside"), result.answer);
    }
    return object;
}

int rewrite(const CommandCall& call)
{
    const QString said = textFrom(call);
    ProvidersSession session;
    const ProcessingMode mode = modeFrom(call, session.rewriting.prompts());
    const ModeConfiguration by = wanted(call, session, mode);
    QElapsedTimer timer;
    timer.start();
    const Result result = rewritten(session, mode, by, said);
    const int code = result.failure ? rewritingExitCode(result.failure) : ExitCode::done;
    if (call.json())
        terminal::writeJson(toJson(result, said, mode, timer.elapsed()));
    else if (code == ExitCode::done || code == ExitCode::setAside)
        terminal::writeLine(result.text);
    if (result.failure)
        terminal::writeError(QStringLiteral("rewrite: %1").arg(result.reason));
    return code;
}

} // namespace

Command rewriteCommand()
{
    return {.name = "rewrite",
            .summary = QT_TRANSLATE_NOOP("Command", "Rewrite a text as a dictation would be."),
            .description = description,
            .actions = {{"", rewrite, 1, Command::anyNumber, QT_TRANSLATE_NOOP("Command", "needs a TEXT")}},
            .options = {{"mode", QT_TRANSLATE_NOOP("Command", "The mode whose prompt is used. The default is Grammar."),
                         "MODE"},
                        {"provider", QT_TRANSLATE_NOOP("Command", "Ask this provider instead of the mode's."), "NAME"},
                        {"local",
                         QT_TRANSLATE_NOOP("Command", "Use the language model of this computer (see vantro models).")},
                        {"clean", QT_TRANSLATE_NOOP("Command", "Clean the text by rules, without a language model.")},
                        Command::jsonOption},
            .words = {{"TEXT", QT_TRANSLATE_NOOP("Command", "The text; - for standard input."), "TEXT..."}}};
}

} // namespace vantro
