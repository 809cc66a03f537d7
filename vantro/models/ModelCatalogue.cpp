#include "vantro/models/ModelCatalogue.h"

#include "platform/Wording.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace vantro {

namespace {

struct WhisperEntry
{
    const char* name;
    const char* size;
    double speed;
    double accuracy;
    double ramUsage;
    const char* description;
    SupportedLanguages languages;
    const char* file;
    const char* sha1;
};

constexpr WhisperEntry whisperEntries[] = {
    {"small - default", "453 MiB", 0.7, 0.85, 1.0,
     QT_TRANSLATE_NOOP("ModelCatalogue", "Whisper small model, good balance between speed and accuracy"),
     SupportedLanguages::multilingual, "ggml-small.bin", "55356645c2b361a969dfd0ef2c5a50d530afd8d5"},
    {"large-v3-turbo-q5_0", "547 MiB", 0.7, 0.96, 1.0,
     QT_TRANSLATE_NOOP("ModelCatalogue",
                       "Whisper quantized version of Large v3 Turbo, faster with slightly lower accuracy"),
     SupportedLanguages::multilingual, "ggml-large-v3-turbo-q5_0.bin", "e050f7970618a659205450ad97eb95a18d69c9ee"},
    {"tiny", "75 MiB", 0.95, 0.6, 0.3,
     QT_TRANSLATE_NOOP("ModelCatalogue", "Whisper tiny model, fastest, least accurate"),
     SupportedLanguages::multilingual, "ggml-tiny.bin", "bd577a113a864445d4c299885e0cb97d4ba92b5f"},
    {"tiny.en", "75 MiB", 0.95, 0.65, 0.3,
     QT_TRANSLATE_NOOP("ModelCatalogue", "Whisper tiny model optimized for English, fastest, least accurate"),
     SupportedLanguages::english, "ggml-tiny.en.bin", "c78c86eb1a8faa21b369bcd33207cc90d64ae9df"},
    {"base.en", "142 MiB", 0.8, 0.75, 0.5,
     QT_TRANSLATE_NOOP("ModelCatalogue",
                       "Whisper base model optimized for English, good balance between speed and accuracy"),
     SupportedLanguages::english, "ggml-base.en.bin", "137c40403d78fd54d454da0f9bd998f78703390c"},
    {"large-v2", "2.9 GiB", 0.5, 0.96, 3.8,
     QT_TRANSLATE_NOOP("ModelCatalogue", "Whisper large model v2, slower than Medium but more accurate"),
     SupportedLanguages::multilingual, "ggml-large-v2.bin", "0f4c8e30f21cf1769f637135f521436792c48186"},
    {"large-v3", "2.9 GiB", 0.5, 0.98, 3.9,
     QT_TRANSLATE_NOOP("ModelCatalogue", "Whisper large model v3, very slow but most accurate"),
     SupportedLanguages::multilingual, "ggml-large-v3.bin", "ad82bf6a9043ceed055076d0fd39f5f186ff8062"},
    {"large-v3-turbo", "1.5 GiB", 0.7, 0.97, 1.8,
     QT_TRANSLATE_NOOP("ModelCatalogue", "Whisper large model v3 Turbo, faster than v3 with similar accuracy"),
     SupportedLanguages::multilingual, "ggml-large-v3-turbo.bin", "4af2b29d7ec73d781377bfd1758ca957a807e941"},
};

struct FluidEntry
{
    const char* name;
    const char* size;
    double accuracy;
    const char* merit; ///< last sentence of the description
    SupportedLanguages languages;
    const char* repository;
    const char* file; ///< see docs/models.md on how reliable these names are
};

constexpr FluidEntry fluidEntries[] = {
    {"Parakeet v3 (Fluid)", "461 MiB", 0.95,
     QT_TRANSLATE_NOOP("ModelCatalogue", "Fastest option, 25 European languages."), SupportedLanguages::multilingual,
     "parakeet-tdt-0.6b-v3", "ggml-parakeet-tdt-0.6b-v3-q8_0.bin"},
    {"Parakeet v2 (Fluid, English)", "443 MiB", 0.97,
     QT_TRANSLATE_NOOP("ModelCatalogue", "English only, highest accuracy."), SupportedLanguages::english,
     "parakeet-tdt-0.6b-v2-en", "ggml-parakeet-tdt-0.6b-v2-q8_0.bin"},
};

TranscriptionModel fluidEntry(const FluidEntry& entry)
{
    TranscriptionModel model;
    model.name = QLatin1String(entry.name);
    model.size = QLatin1String(entry.size);
    model.speed = 0.99;
    model.accuracy = entry.accuracy;
    model.ramUsage = 0.7;
    model.description =
        wording::fluidModel() + QLatin1Char(' ') + QCoreApplication::translate("ModelCatalogue", entry.merit);
    model.supportedLanguages = entry.languages;
    model.engine = TranscriptionEngine::fluid;
    model.fluidModel = FluidModel{QLatin1String(entry.repository), entry.languages == SupportedLanguages::multilingual,
                                  QLatin1String(entry.file)};
    return model;
}

constexpr const char* boostingFile = "parakeet-tdt_ctc-110m-q8_0.gguf";

TranscriptionModel boostingEntry()
{
    TranscriptionModel model;
    model.name = QStringLiteral("Vocabulary boosting");
    model.size = QStringLiteral("120 MiB");
    model.ramUsage = 0.15;
    model.supportedLanguages = SupportedLanguages::english;
    model.engine = TranscriptionEngine::fluid;
    model.fluidModel = FluidModel{QStringLiteral("parakeet-tdt_ctc-110m"), false, QLatin1String(boostingFile)};
    return model;
}

TranscriptionModel whisperEntry(const WhisperEntry& entry)
{
    TranscriptionModel model;
    model.name = QLatin1String(entry.name);
    model.size = QLatin1String(entry.size);
    model.speed = entry.speed;
    model.accuracy = entry.accuracy;
    model.ramUsage = entry.ramUsage;
    model.description = QCoreApplication::translate("ModelCatalogue", entry.description);
    model.supportedLanguages = entry.languages;
    model.hash = QLatin1String(entry.sha1);
    model.url = QLatin1String(entry.file);
    return model;
}

} // namespace

ModelCatalogue::ModelCatalogue(const QString& modelHost) : boostingModel_(boostingEntry())
{
    for (const FluidEntry& entry : fluidEntries)
        models_.push_back(fluidEntry(entry));
    for (const WhisperEntry& entry : whisperEntries)
        models_.push_back(whisperEntry(entry));
    setHost(modelHost);
}

void ModelCatalogue::setHost(const QString& modelHost)
{
    const auto folder = QStringLiteral("/resolve/main/");
    for (TranscriptionModel& model : models_) {
        if (model.fluidModel)
            model.fluidModel->url = ModelHost::fluidAddress(modelHost) + folder + model.fileName();
        else
            model.url = modelHost + folder + model.fileName();
    }
    // Nobody has published it yet: only a host of the user's own can have it.
    const bool isOwnHost = modelHost != ModelHost::publicAddress();
    const QString file = QLatin1String(boostingFile);
    boostingModel_.fluidModel->url = isOwnHost ? QString(modelHost + folder + file) : file;
}

const TranscriptionModel* ModelCatalogue::find(const QString& name) const
{
    const auto entry = std::ranges::find(models_, name, &TranscriptionModel::name);
    return entry != models_.end() ? std::to_address(entry) : nullptr;
}

const TranscriptionModel* match(const std::vector<TranscriptionModel>& models, const QString& text)
{
    const TranscriptionModel* begins = nullptr;
    int count = 0;
    for (const TranscriptionModel& model : models) {
        const QString brief = shortName(model);
        if (model.name == text || model.fileName() == text || brief.compare(text, Qt::CaseInsensitive) == 0)
            return &model;
        if (model.name.startsWith(text, Qt::CaseInsensitive) || brief.startsWith(text, Qt::CaseInsensitive)) {
            begins = &model;
            ++count;
        }
    }
    return count == 1 ? begins : nullptr;
}

QString shortName(const TranscriptionModel& model)
{
    QString name = model.name;
    for (const char* remark : {" (", " - "}) {
        if (const auto begin = name.indexOf(QLatin1String(remark)); begin > 0)
            name.truncate(begin);
    }
    return name.toLower().replace(QLatin1Char(' '), QLatin1Char('-'));
}

} // namespace vantro
