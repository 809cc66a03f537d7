#pragma once

// The engine behind the catalogue's Parakeet entries, with the small real model under their files' names.
#include "tests/asr/AsrTestSupport.h"
#include "vantro/fluid/FluidTranscriptionProvider.h"
#include "vantro/models/ModelCatalogue.h"

#include <QFile>
#include <QTemporaryDir>
#include <qcoro/qcorotask.h>

#include <gtest/gtest.h>

#include <optional>
#include <utility>

namespace vantro {

using namespace asr::testing;

class Fluid : public ::testing::Test
{
protected:
    void install(const char* name, const char* variant = "parakeet-micro-tdt.bin") const
    {
        ASSERT_TRUE(QFile::copy(QString::fromStdString((dataFolder() / variant).string()),
                                folder.filePath(QLatin1String(name))));
    }
    [[nodiscard]] TranscriptionModel entry(const char* name) const { return *catalogue.find(QLatin1String(name)); }
    [[nodiscard]] FluidModelSource source(const QString& id, const char* file = "model.bin") const
    {
        return {id, asr::AsrModelVersion::v2, folder.filePath(QLatin1String(file))};
    }
    /// QCoro::waitFor does not return from a task that throws.
    template <typename T>
    static std::optional<asr::ASRError::Kind> outcome(QCoro::Task<T> task)
    {
        return QCoro::waitFor([](QCoro::Task<T> awaited) -> QCoro::Task<std::optional<asr::ASRError::Kind>> {
            std::optional<asr::ASRError::Kind> kind;
            try {
                co_await awaited;
            } catch (const asr::ASRError& error) {
                kind = error.kind();
            }
            co_return kind;
        }(std::move(task)));
    }

    QTemporaryDir folder;
    ModelCatalogue catalogue;
    UserDefaults defaults{folder.filePath(QStringLiteral("vantro.ini"))};
    VocabularySettings vocabulary{defaults};
    FluidModelFiles files{{folder.path()}};
    FluidAsrEngine engine{moduleFolders()};
    FileDownloader downloader;
    FluidTranscriptionProvider provider{engine, files, downloader, defaults, vocabulary, catalogue.boostingModel()};
};

} // namespace vantro
