#include "base/Translations.h"
#include "vantro/cli/Command.h"
#include "vantro/cli/ExitCode.h"
#include "vantro/cli/ModelsSession.h"
#include "vantro/cli/Terminal.h"
#include "vantro/models/ModelDownloadError.h"

#include <cmath>
#include <vector>

namespace vantro {

namespace {

constexpr int barCells = 8;

QString stateName(const ModelStatus& status)
{
    switch (status.state) {
    case ModelStatus::State::missing:
        return QStringLiteral("missing");
    case ModelStatus::State::partial:
        return QStringLiteral("partial");
    case ModelStatus::State::unchecked:
        return QStringLiteral("unchecked");
    case ModelStatus::State::ready:
        return QStringLiteral("ready");
    }
    Q_UNREACHABLE();
}

QString partText(const ModelStatus& status)
{
    if (status.totalBytes < 1)
        return Command::tr("%1 downloaded").arg(sizeText(status.bytes));
    return Command::tr("%1 % downloaded").arg(status.bytes * 100 / status.totalBytes);
}

QString stateText(const ModelsSession& session, const TranscriptionModel& model)
{
    const ModelStatus status = session.speech.status(model);
    QStringList words;
    if (session.isSelected(model))
        words << Command::tr("selected");
    if (status.state == ModelStatus::State::partial)
        words << partText(status);
    else if (status.state != ModelStatus::State::missing)
        words << (status.isSystemCopy ? Command::tr("installed for all") : Command::tr("downloaded"));
    else
        words << Command::tr("not downloaded");
    if (status.state == ModelStatus::State::unchecked)
        words << Command::tr("not checked yet");
    return words.join(QStringLiteral(", "));
}

QString languages(const TranscriptionModel& model)
{
    return model.supportedLanguages == SupportedLanguages::english ? Command::tr("English")
                                                                   : Command::tr("multilingual");
}

QString bar(double value)
{
    const int filled = static_cast<int>(std::lround(value * barCells));
    return terminal::bar(filled, barCells);
}

std::vector<QStringList> languageModelRows(const ModelsSession& session)
{
    std::vector<QStringList> rows{{Command::tr("NAME"), Command::tr("SIZE"), Command::tr("LANGUAGES"),
                                   Command::tr("LICENCE"), Command::tr("MEMORY"), Command::tr("STATE")}};
    for (const TranscriptionModel& model : session.speech.languageModels.models())
        rows.push_back({model.name, model.size, languages(model), model.license,
                        QStringLiteral("%1 GB").arg(model.ramUsage, 0, 'f', 1), stateText(session, model)});
    return rows;
}

QString kindName(const ModelsSession& session, const TranscriptionModel& model)
{
    if (session.isForWords(model))
        return Command::tr("vocabulary model");
    return model.isLanguageModel() ? Command::tr("language model") : Command::tr("speech model");
}

void printTable(const ModelsSession& session)
{
    std::vector<QStringList> rows{{Command::tr("NAME"), Command::tr("SIZE"), Command::tr("LANGUAGES"),
                                   Command::tr("SPEED"), Command::tr("ACCURACY"), Command::tr("MEMORY"),
                                   Command::tr("STATE")}};
    for (const TranscriptionModel& model : session.speech.catalogue.models())
        rows.push_back({model.name, model.size, languages(model), bar(model.speed), bar(model.accuracy),
                        QStringLiteral("%1 GB").arg(model.ramUsage, 0, 'f', 1), stateText(session, model)});
    terminal::writeTable(rows);
    const TranscriptionModel& forWords = session.speech.catalogue.boostingModel();
    terminal::writeLine(Command::tr("\nFor your words, beside a Parakeet model:\n"));
    terminal::writeTable({{Command::tr("NAME"), Command::tr("SIZE"), Command::tr("LANGUAGES"), Command::tr("MEMORY"),
                           Command::tr("STATE")},
                          {forWords.name, forWords.size, languages(forWords),
                           QStringLiteral("%1 GB").arg(forWords.ramUsage), stateText(session, forWords)}});
    terminal::writeLine(Command::tr("\nLanguage models, which rewrite on this machine:\n"));
    terminal::writeTable(languageModelRows(session));
    terminal::writeLine(
        Command::tr("\nDownloaded models use %1 of disk space.").arg(sizeText(session.speech.bytesUsed())));
}

void printPlain(const ModelsSession& session)
{
    const Translations::Suspension forScripts(!terminal::outputIsTerminal());
    for (const TranscriptionModel& model : session.speech.allModels()) {
        const ModelStatus status = session.speech.status(model);
        const QStringList fields{model.name,
                                 model.size,
                                 languages(model),
                                 QString::number(model.speed),
                                 QString::number(model.accuracy),
                                 QString::number(model.ramUsage),
                                 stateName(status),
                                 session.isSelected(model) ? QStringLiteral("selected") : QStringLiteral("-"),
                                 status.file,
                                 kindName(session, model)};
        terminal::writeLine(fields.join(QLatin1Char('\t')));
    }
}

QJsonObject toJson(const ModelsSession& session, const TranscriptionModel& model)
{
    const ModelStatus status = session.speech.status(model);
    QJsonObject object{
        {QStringLiteral("name"), model.name},
        {QStringLiteral("kind"), kindName(session, model)},
        {QStringLiteral("size"), model.size},
        {QStringLiteral("description"), model.description},
        {QStringLiteral("languages"), languages(model)},
        {QStringLiteral("speed"), model.speed},
        {QStringLiteral("accuracy"), model.accuracy},
        {QStringLiteral("memory_gb"), model.ramUsage},
        {QStringLiteral("state"), stateName(status)},
        {QStringLiteral("selected"), session.isSelected(model)},
        {QStringLiteral("system"), status.isSystemCopy},
        {QStringLiteral("bytes"), status.bytes},
    };
    if (!status.file.isEmpty())
        object.insert(QStringLiteral("file"), status.file);
    if (const QString url = model.address(); !url.isEmpty())
        object.insert(QStringLiteral("url"), url);
    if (!model.license.isEmpty())
        object.insert(QStringLiteral("license"), model.license);
    if (!model.hash.isEmpty())
        object.insert(QStringLiteral("sha1"), model.hash);
    return object;
}

} // namespace

int listModels(const ModelsSession& session, bool json)
{
    if (json) {
        QJsonArray array;
        for (const TranscriptionModel& model : session.speech.allModels())
            array.append(toJson(session, model));
        terminal::writeJson(array);
    } else if (terminal::outputIsTerminal()) {
        printTable(session);
    } else {
        printPlain(session);
    }
    return ExitCode::done;
}

} // namespace vantro
