#include "vantro/cli/Commands.h"
#include "vantro/cli/ModelsSession.h"
#include "vantro/cli/Terminal.h"
#include "vantro/llm/LlamaError.h"

#include <algorithm>

namespace vantro {

namespace {

constexpr const char* description = QT_TRANSLATE_NOOP(
    "Command",
    R"(The models that vantro can use: speech models turn speech into text, one beside them looks for your words,
language models rewrite texts on this machine.

  list           List all models, with those downloaded and selected. The default.
  download NAME  Download a model or resume a download. Ctrl-C keeps the part already downloaded.
  add FILE       Add a language model of your own: a GGUF file, which stays where it is.
  select NAME    Use this model for dictations, or to rewrite.
  verify [NAME]  Read the downloaded files and compare them with the published checksums.
  remove NAME    Remove a downloaded model; the selected one only with --force.
  clear          Remove all downloaded models but the selected ones.

The model host is the value of --model-host, else of VANTRO_MODEL_HOST, else of the setting
"modelHostBaseURL", else the public repository.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such model, 4 the model host cannot deliver, 5 the settings
cannot be written, 130 interrupted.)");

const TranscriptionModel& modelFrom(const CommandCall& call, const ModelsSession& session)
{
    const TranscriptionModel* const model = session.find(call.words.front());
    if (model == nullptr)
        throw CommandError(ExitCode::notFound,
                           Command::tr("there is no model \"%1\": vantro models lists them").arg(call.words.front()));
    return *model;
}

int select(ModelsSession& session, const CommandCall& call)
{
    const TranscriptionModel& model = modelFrom(call, session);
    if (session.isForWords(model))
        throw CommandError(ExitCode::failed,
                           Command::tr("%1 looks for your words beside the Parakeet models: it works once it is "
                                       "downloaded, without being selected")
                               .arg(model.name));
    if (model.isLanguageModel())
        session.speech.languageModels.choose(model);
    else
        session.speech.selection.select(model);
    session.defaults.requireSaved();
    const bool isThere = session.speech.status(model).state != ModelStatus::State::missing;
    if (call.json())
        terminal::writeJson(QJsonObject{{QStringLiteral("selected"), model.name}});
    else
        terminal::writeLine(Command::tr("%1 is selected").arg(model.name));
    if (!isThere)
        terminal::writeError(
            Command::tr("it is not downloaded yet: run vantro models download \"%1\"").arg(model.name));
    return ExitCode::done;
}

int verifyModels(ModelsSession& session, const std::vector<TranscriptionModel>& models, bool json)
{
    int exitCode = ExitCode::done;
    for (const TranscriptionModel& model : models) {
        const QString file = session.speech.status(model).file;
        const ModelCheck check = session.speech.check(model, Trust::contentOnly);
        if (json)
            terminal::writeJson(QJsonObject{{QStringLiteral("model"), model.name},
                                            {QStringLiteral("file"), file},
                                            {QStringLiteral("ok"), check.isReady},
                                            {QStringLiteral("problem"), check.problem}});
        else
            terminal::writeLine(model.name + QLatin1Char('\t') +
                                (check.isReady ? QStringLiteral("ok") : QStringLiteral("wrong")));
        if (!check.problem.isEmpty())
            terminal::writeError(check.problem);
        if (!check.isReady)
            exitCode = ExitCode::failed;
    }
    return exitCode;
}

int verify(ModelsSession& session, const CommandCall& call)
{
    const auto hasFile = [&session](const TranscriptionModel& entry) {
        return !session.speech.status(entry).file.isEmpty();
    };
    std::vector<TranscriptionModel> models;
    if (call.words.isEmpty())
        std::ranges::copy_if(session.speech.allModels(), std::back_inserter(models), hasFile);
    else
        models.push_back(modelFrom(call, session));
    if (!call.words.isEmpty() && !hasFile(models.front()))
        throw CommandError(
            ExitCode::notFound,
            Command::tr("%1 is not downloaded: run vantro models download \"%1\"").arg(models.front().name));
    return verifyModels(session, models, call.json());
}

int remove(ModelsSession& session, const CommandCall& call)
{
    const TranscriptionModel& model = modelFrom(call, session);
    const ModelStatus status = session.speech.status(model);
    if (status.state == ModelStatus::State::missing)
        throw CommandError(ExitCode::notFound, Command::tr("%1 is not downloaded").arg(model.name));
    if (status.isSystemCopy && !session.speech.languageModels.isOwn(model))
        throw CommandError(ExitCode::failed,
                           Command::tr("%1 is installed for all users: %2 is left alone").arg(model.name, status.file));
    if (session.isSelected(model) && !call.has("force"))
        throw CommandError(ExitCode::failed,
                           Command::tr("%1 is selected: select another model first, or use --force").arg(model.name));
    const QString name = model.name; // an own file's entry is gone then
    const bool isOwn = session.speech.languageModels.isOwn(model);
    const qint64 freed = session.speech.remove(model);
    session.defaults.requireSaved();
    if (call.json())
        terminal::writeJson(QJsonObject{{QStringLiteral("removed"), name}, {QStringLiteral("freed_bytes"), freed}});
    else
        terminal::writeLine(isOwn ? Command::tr("%1 leaves the list, its file stays").arg(name)
                                  : Command::tr("%1 is removed, which frees %2").arg(name, sizeText(freed)));
    return ExitCode::done;
}

int add(ModelsSession& session, const CommandCall& call)
{
    try {
        const TranscriptionModel model = session.speech.languageModels.add(call.words.front());
        session.defaults.requireSaved();
        if (call.json())
            terminal::writeJson(QJsonObject{{QStringLiteral("added"), model.name}});
        else
            terminal::writeLine(Command::tr("%1 is added. To use it: vantro models select \"%1\"").arg(model.name));
        return ExitCode::done;
    } catch (const LlamaError& error) {
        throw CommandError(ExitCode::failed,
                           Command::tr("%1 cannot be used: %2").arg(call.words.front(), error.localizedDescription()));
    }
}

int clear(ModelsSession& session, const CommandCall& call)
{
    const TranscriptionModel selected = session.speech.selection.selectedModel();
    const qint64 freed = session.speech.removeAllExcept(selected);
    const qint64 used = session.speech.bytesUsed();
    if (call.json()) {
        terminal::writeJson(QJsonObject{{QStringLiteral("kept"), selected.name},
                                        {QStringLiteral("freed_bytes"), freed},
                                        {QStringLiteral("used_bytes"), used}});
        return ExitCode::done;
    }
    terminal::writeLine(Command::tr("Freed %1.").arg(sizeText(freed)));
    terminal::writeLine(
        Command::tr("Downloaded models use %1 of disk space. The selected model is kept.").arg(sizeText(used)));
    return ExitCode::done;
}

int list(ModelsSession& session, const CommandCall& call)
{
    return listModels(session, call.json());
}

int download(ModelsSession& session, const CommandCall& call)
{
    const TranscriptionModel& model = modelFrom(call, session);
    if (session.isForWords(model) && !ModelHost::usable(model.address()))
        throw CommandError(ExitCode::noService,
                           Command::tr("no model host has this model yet: make it with convert-ctc from NVIDIA's "
                                       "published model, and put it there: %1/%2")
                               .arg(modelFolders().constFirst(), model.fileName()));
    return downloadModel(session, model, call.json());
}

} // namespace

const TranscriptionModel* ModelsSession::find(const QString& text) const
{
    if (const auto* model = speech.catalogue.match(text))
        return model;
    const TranscriptionModel& forWords = speech.catalogue.boostingModel();
    if (text == forWords.name || text == forWords.fileName() || text == shortName(forWords))
        return &forWords;
    return vantro::match(speech.languageModels.models(), text);
}

bool ModelsSession::isForWords(const TranscriptionModel& model) const
{
    return model.name == speech.catalogue.boostingModel().name;
}

bool ModelsSession::isSelected(const TranscriptionModel& model) const
{
    const auto* selected = model.isLanguageModel() ? speech.languageModels.chosen() : speech.selection.stored();
    return selected != nullptr && selected->name == model.name;
}

Command modelsCommand(const QString& modelHost)
{
    const auto on = [modelHost](int (*action)(ModelsSession&, const CommandCall&)) {
        return [action, modelHost](const CommandCall& call) {
            ModelsSession session(modelHost);
            return action(session, call);
        };
    };
    return {.name = "models",
            .summary = QT_TRANSLATE_NOOP("Command", "List, download, add, select, verify or remove models."),
            .description = description,
            .actions = {{"list", on(list)},
                        {"download", on(download), 1, 1, QT_TRANSLATE_NOOP("Command", "needs a model's name")},
                        {"add", on(add), 1, 1, QT_TRANSLATE_NOOP("Command", "needs a GGUF file")},
                        {"select", on(select), 1, 1, QT_TRANSLATE_NOOP("Command", "needs a model's name")},
                        {"verify", on(verify), 0, 1},
                        {"remove", on(remove), 1, 1, QT_TRANSLATE_NOOP("Command", "needs a model's name")},
                        {"clear", on(clear)}},
            .options = {Command::jsonOption,
                        {"force", QT_TRANSLATE_NOOP("Command", "Remove the selected model too.")},
                        {"model-host",
                         QT_TRANSLATE_NOOP("Command", "Base address of the model host: http, https or file."), "URL"}},
            .words = {{"NAME", QT_TRANSLATE_NOOP("Command", "A model's name, or a file."), "[NAME | FILE]]"}}};
}

} // namespace vantro
