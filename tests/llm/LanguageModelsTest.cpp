// The language models' files: fetched from a real server, compared with what it announces, added, chosen and removed.
#include "tests/WaitFor.h"
#include "tests/models/ModelServer.h"
#include "vantro/llm/LanguageModelKeeper.h"
#include "vantro/llm/LlamaError.h"
#include "vantro/models/ModelDownloadError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace vantro;

namespace {

class ModelsOfThisMachine : public ::testing::Test
{
protected:
    void SetUp() override
    {
        real = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
               QStringLiteral("/vantro-build/models/SmolLM2-135M-Instruct.Q4_1.gguf");
        if (!QFile::exists(real))
            GTEST_SKIP() << "the small language model is not there: run scripts/get-language-model";
    }

    /// The first model of the catalogue, from a host that serves the small model under its name.
    void serve(const QString& fault = QStringLiteral("{}"))
    {
        QDir(folder.path()).mkpath(QStringLiteral("served"));
        const QString served = folder.filePath(QStringLiteral("served/"));
        const LanguageModels names(defaults);
        QFile::link(real, served + names.models().front().fileName());
        server.emplace(folder.filePath(QStringLiteral("served")), fault);
        const QString host = server->url({}).section(QStringLiteral("/resolve"), 0, 0);
        models.emplace(defaults, host, QStringList{own});
        keeper.emplace(*models, downloader);
    }

    /// Why the download failed; empty if it did not.
    QString download()
    {
        std::optional<QString> end;
        const auto follow = [&]() -> QCoro::Task<> {
            try {
                auto fetching = keeper->download(models->models().front(), [](const auto&) {}, {});
                co_await fetching;
                end = QString();
            } catch (const Error& error) {
                end = error.localizedDescription();
            }
        };
        const auto task = follow();
        EXPECT_TRUE(waitFor([&] { return end.has_value(); }));
        return end.value_or(QStringLiteral("no end"));
    }
    ModelStatus status() { return models->status(models->models().front()); }
    bool isRight()
    {
        const auto check = keeper->check(models->models().front(), Trust::contentOnly);
        QFuture<ModelCheck>(check).waitForFinished();
        return check.result().isReady;
    }

    QString real;
    const QTemporaryDir folder;
    const QString own = folder.filePath(QStringLiteral("models"));
    UserDefaults defaults{folder.filePath(QStringLiteral("vantro.ini"))};
    std::optional<ModelServer> server;
    FileDownloader downloader;
    std::optional<LanguageModels> models;
    std::optional<LanguageModelKeeper> keeper;
};

} // namespace

TEST_F(ModelsOfThisMachine, AreComparedWithWhatTheirHostAnnounces)
{
    serve();
    EXPECT_EQ(models->chosen(), nullptr);
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(status().state, ModelStatus::State::ready);
    EXPECT_EQ(models->chosen(), &models->models().front()) << "the only one is used";
    EXPECT_TRUE(isRight());
    {
        QFile file(status().file);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(file.size() - 1) && file.putChar('!'));
    }
    EXPECT_FALSE(isRight()) << "a byte of it is another one";
    EXPECT_EQ(status().state, ModelStatus::State::missing);

    EXPECT_EQ(download(), QString());
    EXPECT_EQ(models->remove(models->models().front()), QFileInfo(real).size());
    EXPECT_TRUE(QDir(own).entryList(QDir::Files).isEmpty());
}

TEST_F(ModelsOfThisMachine, AreRefusedWithOtherContentOrCut)
{
    serve(QStringLiteral("{\"flip_byte\": 90000000}"));
    EXPECT_TRUE(download().contains(QLatin1String("another file"))) << "only its checksum tells";
    EXPECT_EQ(status().state, ModelStatus::State::missing);
    server.reset();
    serve(QStringLiteral("{\"no_digest\": true}"));
    EXPECT_EQ(download(), QString()) << "of a host that announces nothing, a whole file will do";
    EXPECT_TRUE(isRight());
}

TEST_F(ModelsOfThisMachine, MayBeTheUsersOwnFiles)
{
    serve();
    const QString name = models->add(real).name;
    LanguageModels other(defaults, {}, {own});
    ASSERT_NE(other.find(name), nullptr) << "each process sees it";
    EXPECT_EQ(other.chosen()->name, name);
    EXPECT_EQ(other.find(name)->license, QStringLiteral("apache-2.0"));
    EXPECT_GT(other.find(name)->ramUsage, 0.1);

    EXPECT_EQ(download(), QString());
    EXPECT_EQ(models->chosen(), &models->models().front());
    models->choose(*models->find(name));
    EXPECT_EQ(models->chosen()->name, name);

    EXPECT_EQ(models->remove(*models->find(name)), 0);
    EXPECT_TRUE(QFile::exists(real)) << "the user's file is the user's";
    EXPECT_EQ(models->chosen(), &models->models().front());

    EXPECT_THROW(models->add(QStringLiteral("/etc/hostname")), LlamaError);
    EXPECT_EQ(models->find(QStringLiteral("hostname")), nullptr);
}
