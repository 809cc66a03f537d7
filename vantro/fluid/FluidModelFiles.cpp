#include "vantro/fluid/FluidModelFiles.h"

#include "asr/AsrModels.h"

#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <utility>

namespace vantro {

FluidModelFiles::FluidModelFiles(QStringList folders) : folders_(std::move(folders)) {}

QString FluidModelFiles::find(const TranscriptionModel& model) const
{
    if (const QUrl url(model.url); url.isLocalFile())
        return QFileInfo(url.toLocalFile()).isFile() ? url.toLocalFile() : QString();
    if (!model.fluidModel)
        return {};
    QStringList names = {model.fluidModel->repository};
    // The English repository's files go without the language.
    if (names.first().endsWith(QLatin1String("-en")))
        names << names.first().chopped(3);
    for (const QString& folder : folders_) {
        for (const char* precision : {"-q4_0", "-q5_0", "-q8_0", "-f16", "", "-f32"}) {
            for (const char* prefix : {"", "ggml-"}) {
                for (const QString& name : names) {
                    QString file = folder + QLatin1Char('/') + QLatin1String(prefix) + name + QLatin1String(precision) +
                                   QLatin1String(".bin");
                    if (QFileInfo(file).isFile())
                        return file;
                }
            }
        }
    }
    return {};
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
