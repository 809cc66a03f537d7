#include "vantro/app/Speech.h"

#include "base/Error.h"
#include "base/Logger.h"
#include "base/Settings.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>
#include <utility>

namespace vantro {

Speech::Speech(UserDefaults& defaults, const VocabularySettings& vocabulary, const QString& modelHost,
               std::vector<std::filesystem::path> moduleFolders)
    : catalogue_(ModelHost::address(defaults, modelHost))
    , fluidEngine_(std::move(moduleFolders))
    , whisper_(whisperEngine_, whisperFiles_, fileDownloader_, defaults, vocabulary)
    , fluid_(fluidEngine_, FluidModelFiles(modelFolders()), fileDownloader_, defaults, vocabulary,
             catalogue_.boostingModel())
    , languageModels_(defaults, modelHost)
    , selection(catalogue, defaults, [this](const auto& model) { return check(model).isReady; })
    , preparation(catalogue, whisperFiles_, defaults)
{
    QObject::connect(&defaults, &UserDefaults::changed, &context_, [this, &defaults, modelHost](const QString& key) {
        if (key == setting::modelHostBaseURL.key)
            catalogue.setHost(ModelHost::address(defaults, modelHost));
    });
}

ModelKeeper& Speech::keeperOf(const TranscriptionModel& model) const
{
    return model.engine == languageKeeper.kind() ? languageKeeper : static_cast<ModelKeeper&>(engines.of(model));
}

ModelCheck Speech::check(const TranscriptionModel& model, Trust trust) const
{
    return keeperOf(model).check(model, trust).result();
}

qint64 Speech::removeAllExcept(const TranscriptionModel& keep) const
{
    const auto* rewriter = languageModels.chosen();
    const QString& boosting = catalogue.boostingModel().name;
    const auto isKept = [&](const TranscriptionModel& model) {
        if (model.isLanguageModel())
            return languageModels.isOwn(model) || (rewriter != nullptr && model.name == rewriter->name);
        return model.name == keep.name || (model.name == boosting && engines.of(keep).boostsWords());
    };
    std::vector<TranscriptionModel> unused = allModels();
    std::erase_if(unused, isKept);
    qint64 freed = 0;
    for (const TranscriptionModel& model : unused) {
        try {
            freed += remove(model);
        } catch (const Error& error) {
            printLine(QStringLiteral("Error: ") + error.localizedDescription());
        }
    }
    return freed;
}

std::vector<TranscriptionModel> Speech::allModels() const
{
    std::vector<TranscriptionModel> all = catalogue.models();
    all.push_back(catalogue.boostingModel());
    std::ranges::copy(languageModels.models(), std::back_inserter(all));
    return all;
}

qint64 Speech::bytesUsed() const
{
    qint64 bytes = 0;
    for (const TranscriptionModel& model : allModels()) {
        const ModelStatus known = status(model);
        bytes += known.isSystemCopy ? 0 : known.bytes;
    }
    return bytes;
}

TranscriptionModel Speech::describe(const QString& file) const
{
    for (const SpeechEngine* engine : engines.all()) {
        if (auto model = engine->describe(file))
            return *model;
    }
    throw Error(QCoreApplication::translate("ModelFiles", "No engine runs %1").arg(file));
}

} // namespace vantro
