#include "vantro/fluid/FluidModelFiles.h"

#include "asr/ASRError.h"
#include "asr/AsrModels.h"
#include "asr/GgufFile.h"
#include "asr/ModelFile.h"
#include "base/Logger.h"
#include "vantro/models/FileVersion.h"
#include "vantro/models/PartFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QUrl>

#include <filesystem>
#include <mutex>
#include <utility>

namespace vantro {

class FluidModelFiles::Whole
{
public:
    [[nodiscard]] bool has(const FileVersion& file)
    {
        const std::lock_guard guard(lock_);
        const auto known = versions_.constFind(file.path);
        return known != versions_.constEnd() && *known == file;
    }
    void add(const FileVersion& file)
    {
        const std::lock_guard guard(lock_);
        versions_.insert(file.path, file);
    }

private:
    std::mutex lock_;
    QHash<QString, FileVersion> versions_;
};

FluidModelFiles::FluidModelFiles(QStringList folders) : folders_(std::move(folders)), whole_(std::make_shared<Whole>())
{
}

/// The reader's error for a damaged container; empty for a complete one.
QString FluidModelFiles::damageOf(const QString& path) const
{
    const auto found = FileVersion::of(path); // before reading, in case the file is replaced meanwhile
    if (whole_->has(found))
        return {};
    try {
        const std::filesystem::path file = QFile::encodeName(path).toStdString();
        if (file.extension() == ".gguf")
            static_cast<void>(asr::GgufFile(file));
        else
            static_cast<void>(asr::ModelFile(file));
        whole_->add(found);
        return {};
    } catch (const asr::ASRError& error) {
        return QString::fromStdString(error.detail());
    }
}

QString FluidModelFiles::find(const TranscriptionModel& model) const
{
    if (const QUrl url(model.url); url.isLocalFile())
        return QFileInfo(url.toLocalFile()).isFile() ? url.toLocalFile() : QString();
    if (!model.fluidModel)
        return {};
    QStringList names = {model.fluidModel->repository};
    // File names of the English repository omit the language.
    if (names.first().endsWith(QLatin1String("-en")))
        names << names.first().chopped(3);
    const QString suffix = QFileInfo(model.fileName()).suffix();
    for (const QString& folder : folders_) {
        QString published = folder + QLatin1Char('/') + model.fileName();
        if (QFileInfo(published).isFile())
            return published;
        for (const char* precision : {"-q4_0", "-q5_0", "-q8_0", "-f16", "", "-f32"}) {
            for (const char* prefix : {"", "ggml-"}) {
                for (const QString& name : names) {
                    QString file = folder + QLatin1Char('/') + QLatin1String(prefix) + name + QLatin1String(precision) +
                                   QLatin1Char('.') + suffix;
                    if (QFileInfo(file).isFile())
                        return file;
                }
            }
        }
    }
    return {};
}

QString FluidModelFiles::ownFile(const TranscriptionModel& model) const
{
    return folders_.first() + QLatin1Char('/') + model.fileName();
}

bool FluidModelFiles::isOwn(const QString& path) const
{
    return path.startsWith(folders_.first() + QLatin1Char('/'));
}

ModelStatus FluidModelFiles::status(const TranscriptionModel& model) const
{
    if (const QFileInfo file(find(model)); !file.filePath().isEmpty()) {
        const bool isWhole = damageOf(file.filePath()).isEmpty();
        const auto state = isWhole ? ModelStatus::State::ready : ModelStatus::State::unchecked;
        return {state, file.filePath(), !isOwn(file.filePath()), file.size(), -1};
    }
    return PartFile(ownFile(model)).status();
}

ModelCheck FluidModelFiles::check(const TranscriptionModel& model) const
{
    const QString path = find(model);
    if (path.isEmpty())
        return {};
    const QString damage = damageOf(path);
    if (damage.isEmpty())
        return {true, {}};
    const QString problem = QCoreApplication::translate("ModelFiles", "%1 is not a complete Parakeet model (%2)")
                                .arg(QFileInfo(path).fileName(), damage);
    if (path != ownFile(model))
        return {false, problem + QCoreApplication::translate("ModelFiles",
                                                             ". It was not downloaded by vantro and is left alone: %1")
                                     .arg(path)};
    // A running download may be about to replace the file.
    const auto lock = PartFile(path).tryLock();
    if (!lock)
        return {false, problem + QCoreApplication::translate("ModelFiles",
                                                             " and is being replaced right now. Try again later.")};
    printLine(QStringLiteral("Error: Invalid model file detected - removing corrupted file: ") +
              QFileInfo(path).fileName());
    if (!QFile::remove(path))
        return {false, problem + QCoreApplication::translate("ModelFiles", " and cannot be removed.")};
    return {false,
            problem + QCoreApplication::translate("ModelFiles", ". It has been removed and will be fetched again.")};
}

qint64 FluidModelFiles::remove(const TranscriptionModel& model) const
{
    const QString found = find(model);
    return PartFile(!found.isEmpty() && isOwn(found) ? found : ownFile(model)).removeAll();
}

std::optional<TranscriptionModel> FluidModelFiles::describe(const QString& file)
{
    const auto version = asr::parakeetVersionOf(QFile::encodeName(file).toStdString());
    if (!version)
        return std::nullopt;
    TranscriptionModel model;
    model.name = QFileInfo(file).fileName();
    model.url = QUrl::fromLocalFile(QFileInfo(file).absoluteFilePath()).toString();
    model.engine = TranscriptionEngine::fluid;
    model.fluidModel = FluidModel{QFileInfo(file).absoluteFilePath(), version == asr::AsrModelVersion::v3};
    return model;
}

} // namespace vantro
