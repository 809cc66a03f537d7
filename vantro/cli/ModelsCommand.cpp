#include "vantro/cli/ModelsCommand.h"

#include "vantro/cli/ExitCode.h"
#include "vantro/cli/ModelsSession.h"
#include "vantro/cli/Terminal.h"

#include <QCommandLineParser>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace vantro {

namespace {

constexpr char description[] =
    R"(The speech models that vantro can use.

  list           All models, and which are downloaded and selected. The default.
  download NAME  Fetch a model, or the rest of it. Ctrl-C keeps what was fetched.
  select NAME    Dictate with this model from now on.
  verify [NAME]  Read the downloaded files again and compare them with what was published.
  remove NAME    Remove a downloaded model; the selected one only with --force.
  clear          Remove all downloaded models but the selected one.

Files come from the model host: the value of --model-host, else VANTRO_MODEL_HOST, else the setting
"modelHostBaseURL", else the public repository.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such model, 4 the model host cannot deliver, 130 interrupted.)";

struct Options
{
    QString action;
    QString name;
    bool json = false;
    bool force = false;
};

int wrongUsage(const QString& text)
{
    terminal::writeError(text + QStringLiteral(" (see vantro models --help)"));
    return ExitCode::usage;
}

void writeJson(const QJsonObject& object)
{
    terminal::writeLine(QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)));
}

int selectModel(ModelsSession& session, const TranscriptionModel& model, const Options& options)
{
    session.speech.selection.select(model);
    const bool isThere = session.speech.status(model).state != ModelStatus::State::missing;
    if (options.json)
        writeJson({{QStringLiteral("selected"), model.name}});
    else
        terminal::writeLine(QStringLiteral("%1 is selected").arg(model.name));
    if (!isThere)
        terminal::writeError(
            QStringLiteral("it is not downloaded yet: run vantro models download \"%1\"").arg(model.name));
    return ExitCode::done;
}

int verifyModels(ModelsSession& session, const std::vector<TranscriptionModel>& models, bool json)
{
    int exitCode = ExitCode::done;
    for (const TranscriptionModel& model : models) {
        const QString file = session.speech.status(model).file;
        const ModelCheck check = session.speech.check(model, Trust::contentOnly);
        if (json)
            writeJson({{QStringLiteral("model"), model.name},
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

int verify(ModelsSession& session, const TranscriptionModel* model, const Options& options)
{
    const auto hasFile = [&session](const TranscriptionModel& entry) {
        return !session.speech.status(entry).file.isEmpty();
    };
    std::vector<TranscriptionModel> models;
    if (model == nullptr) {
        std::ranges::copy_if(session.speech.catalogue.models(), std::back_inserter(models), hasFile);
    } else if (hasFile(*model)) {
        models.push_back(*model);
    } else {
        terminal::writeError(
            QStringLiteral("%1 is not downloaded: run vantro models download \"%1\"").arg(model->name));
        return ExitCode::notFound;
    }
    return verifyModels(session, models, options.json);
}

int removeModel(ModelsSession& session, const TranscriptionModel& model, const Options& options)
{
    const ModelStatus status = session.speech.status(model);
    if (status.state == ModelStatus::State::missing) {
        terminal::writeError(QStringLiteral("%1 is not downloaded").arg(model.name));
        return ExitCode::notFound;
    }
    if (status.isSystemCopy) {
        terminal::writeError(QStringLiteral("%1 belongs to the system: %2 is left alone").arg(model.name, status.file));
        return ExitCode::failed;
    }
    if (session.isSelected(model) && !options.force) {
        terminal::writeError(
            QStringLiteral("%1 is selected: select another model first, or use --force").arg(model.name));
        return ExitCode::failed;
    }
    const qint64 freed = session.speech.remove(model);
    if (options.json)
        writeJson({{QStringLiteral("removed"), model.name}, {QStringLiteral("freed_bytes"), freed}});
    else
        terminal::writeLine(QStringLiteral("%1 is removed, %2 are free again").arg(model.name, sizeText(freed)));
    return ExitCode::done;
}

int clearModels(ModelsSession& session, const Options& options)
{
    const TranscriptionModel selected = session.speech.selection.selectedModel();
    const qint64 freed = session.speech.removeAllExcept(selected);
    const qint64 used = session.speech.bytesUsed();
    if (options.json) {
        writeJson({{QStringLiteral("kept"), selected.name},
                   {QStringLiteral("freed_bytes"), freed},
                   {QStringLiteral("used_bytes"), used}});
        return ExitCode::done;
    }
    terminal::writeLine(QStringLiteral("%1 are free again").arg(sizeText(freed)));
    terminal::writeLine(
        QStringLiteral("Downloaded models use %1 of disk space. The selected model is kept.").arg(sizeText(used)));
    return ExitCode::done;
}

int carryOut(ModelsSession& session, const TranscriptionModel* model, const Options& options)
{
    if (options.action == QLatin1String("list"))
        return listModels(session, options.json);
    if (options.action == QLatin1String("clear"))
        return clearModels(session, options);
    if (options.action == QLatin1String("verify"))
        return verify(session, model, options);
    if (options.action == QLatin1String("download"))
        return downloadModel(session, *model, options.json);
    if (options.action == QLatin1String("select"))
        return selectModel(session, *model, options);
    return removeModel(session, *model, options);
}

int findAndCarryOut(ModelsSession& session, const Options& options)
{
    const TranscriptionModel* model = nullptr;
    if (!options.name.isEmpty()) {
        model = session.find(options.name);
        if (model == nullptr) {
            terminal::writeError(
                QStringLiteral("there is no model \"%1\": vantro models lists them").arg(options.name));
            return ExitCode::notFound;
        }
    }
    try {
        return carryOut(session, model, options);
    } catch (const Error& error) {
        terminal::writeError(QStringLiteral("models %1: %2").arg(options.action, error.localizedDescription()));
        return ExitCode::failed;
    }
}

} // namespace

const TranscriptionModel* ModelsSession::find(const QString& text) const
{
    const TranscriptionModel* begins = nullptr;
    int count = 0;
    for (const TranscriptionModel& model : speech.catalogue.models()) {
        if (model.name == text || model.fileName() == text)
            return &model;
        if (model.name.startsWith(text, Qt::CaseInsensitive)) {
            begins = &model;
            ++count;
        }
    }
    return count == 1 ? begins : nullptr;
}

bool ModelsSession::isSelected(const TranscriptionModel& model) const
{
    const auto* selected = speech.selection.stored();
    return selected != nullptr && selected->name == model.name;
}

int runModels(const QStringList& arguments, const QString& modelHost)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QLatin1String(description));
    terminal::addHelpOption(parser);
    parser.addOption({QStringLiteral("json"), QStringLiteral("JSON instead of text.")});
    parser.addOption({QStringLiteral("force"), QStringLiteral("Remove the selected model too.")});
    parser.addOption({QStringLiteral("model-host"),
                      QStringLiteral("Base address of the model host: http, https or file."), QStringLiteral("URL")});
    parser.addPositionalArgument(QStringLiteral("ACTION"), QStringLiteral("What to do."), QStringLiteral("[ACTION"));
    parser.addPositionalArgument(QStringLiteral("NAME"), QStringLiteral("A model's name."), QStringLiteral("[NAME]]"));
    if (!parser.parse(QStringList{QStringLiteral("vantro models")} + arguments))
        return wrongUsage(parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        terminal::writeLine(terminal::helpText(parser, QStringLiteral("models")));
        return ExitCode::done;
    }
    const QStringList words = parser.positionalArguments();
    const Options options{words.value(0, QStringLiteral("list")), words.value(1), parser.isSet(QStringLiteral("json")),
                          parser.isSet(QStringLiteral("force"))};
    static const QStringList withName{QStringLiteral("download"), QStringLiteral("select"), QStringLiteral("remove")};
    static const QStringList without{QStringLiteral("list"), QStringLiteral("clear")};
    const bool mayHaveName = options.action == QLatin1String("verify");
    if (!withName.contains(options.action) && !without.contains(options.action) && !mayHaveName)
        return wrongUsage(QStringLiteral("there is no action \"%1\"").arg(options.action));
    if (withName.contains(options.action) && words.size() < 2)
        return wrongUsage(QStringLiteral("models %1 needs a model's name").arg(options.action));
    if (words.size() > 2 || (without.contains(options.action) && words.size() > 1))
        return wrongUsage(QStringLiteral("too many words"));

    ModelsSession session(modelHost);
    return findAndCarryOut(session, options);
}

} // namespace vantro
