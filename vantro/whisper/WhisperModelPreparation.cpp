#include "vantro/whisper/WhisperModelPreparation.h"

#include "base/Error.h"
#include "base/Logger.h"
#include "base/Settings.h"
#include "vantro/models/PartFile.h"
#include "vantro/models/Sha1.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <qcoro/qcorofuture.h>

#include <unistd.h>

#include <utility>
#include <vector>

namespace vantro {

namespace {

constexpr qint64 chunkBytes = 1'048'576;

/// Copies through a part file, so that the destination is never half a file.
void copyAndSettle(QFile& source, PartFile& part, const QString& sha1)
{
    source.seek(0);
    part.begin({sha1, {}, {}, source.size()});
    std::vector<char> chunk(chunkBytes);
    qint64 count = 0;
    while ((count = source.read(chunk.data(), chunkBytes)) > 0)
        part.append(chunk.data(), count);
    if (count < 0)
        throw Error(source.errorString());
    part.settle();
}

} // namespace

WhisperModelPreparation::WhisperModelPreparation(const ModelCatalogue& catalogue, const WhisperModelFiles& modelFiles,
                                                 UserDefaults& defaults, QString legacyFolder)
    : models_(catalogue.models())
    , modelFiles_(modelFiles)
    , defaults_(defaults)
    , legacyFolder_(std::move(legacyFolder))
{
}

QString WhisperModelPreparation::standardLegacyFolder()
{
    return QDir::homePath() + QStringLiteral("/whisper.cpp/models");
}

QCoro::Task<> WhisperModelPreparation::run()
{
    if (!defaults_.get(setting::whisperLegacyCacheMigrated)) {
        const auto taking = files_.run([this] { takeOverLegacyFiles(); });
        co_await taking;
        defaults_.set(setting::whisperLegacyCacheMigrated, true);
    }
    const auto verifying = files_.run([this] { verifyUncheckedFiles(); });
    co_await verifying;
}

void WhisperModelPreparation::takeOverLegacyFiles() const
{
    for (const TranscriptionModel& model : models_) {
        if (model.engine != TranscriptionEngine::whisper)
            continue;
        const QString file = legacyFolder_ + QLatin1Char('/') + model.fileName();
        // Leave the user's own symbolic links alone.
        if (const QFileInfo info(file); !info.isFile() || info.isSymLink())
            continue;
        try {
            takeOver(model, file);
        } catch (const std::exception& error) {
            printLine(QStringLiteral("Error migrating legacy model file: ") + localizedDescription(error));
        }
    }
}

void WhisperModelPreparation::takeOver(const TranscriptionModel& model, const QString& legacyFile) const
{
    QFile source(legacyFile);
    if (!source.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw Error(QStringLiteral("%1 could not be read: %2").arg(legacyFile, source.errorString()));
    if (sha1OfFile(source) != model.hash) {
        printLine(QStringLiteral("Left invalid legacy model file: ") + model.fileName());
        return;
    }
    PartFile part(modelFiles_.ownFile(model));
    const auto lock = part.tryLock();
    if (!lock || QFileInfo::exists(part.destination()))
        return;
    // A second name costs no space; another disk, or another owner's file, takes a copy.
    if (::link(QFile::encodeName(legacyFile).constData(), QFile::encodeName(part.destination()).constData()) != 0)
        copyAndSettle(source, part, model.hash);
    modelFiles_.markIfRight(model);
    printLine(QStringLiteral("Migrated legacy model file ") + model.fileName());
}

void WhisperModelPreparation::verifyUncheckedFiles() const
{
    for (const TranscriptionModel& model : models_) {
        if (model.engine == TranscriptionEngine::whisper &&
            modelFiles_.status(model).state == ModelStatus::State::unchecked)
            modelFiles_.check(model);
    }
}

} // namespace vantro
