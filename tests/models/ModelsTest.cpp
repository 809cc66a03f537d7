#include "base/Settings.h"
#include "vantro/models/ModelSelection.h"
#include "vantro/models/Recommendation.h"
#include "vantro/whisper/WhisperModelPreparation.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <qcoro/qcorotask.h>

#include <gtest/gtest.h>

using namespace vantro;

namespace {

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

TranscriptionModel modelWithContent(const QByteArray& bytes)
{
    TranscriptionModel model;
    model.name = QStringLiteral("test");
    model.url = QStringLiteral("https://models.example/resolve/main/ggml-test.bin");
    model.hash = QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex());
    return model;
}

class Models : public ::testing::Test
{
protected:
    QTemporaryDir folder;
    QString user = folder.filePath(QStringLiteral("user"));
    QString system = folder.filePath(QStringLiteral("system"));
    WhisperModelFiles store{{user, system}};
    void SetUp() override
    {
        QDir().mkpath(user);
        QDir().mkpath(system);
    }
};

} // namespace

TEST_F(Models, AFileIsTrustedOnlyAfterItsContentWasSeen)
{
    const QByteArray content(3'000'000, 'm');
    const auto model = modelWithContent(content);
    const QString path = store.find(model);
    const QString marker = path + QStringLiteral(".verified");
    EXPECT_FALSE(store.isReady(model));

    write(path, content);
    EXPECT_TRUE(store.isReady(model));
    EXPECT_TRUE(QFile::exists(marker));

    QFile::remove(path);
    EXPECT_FALSE(store.isReady(model));
    EXPECT_FALSE(QFile::exists(marker)) << "a marker without its file is stale";

    write(path, content.left(content.size() - 1));
    EXPECT_FALSE(store.isReady(model));
    EXPECT_FALSE(QFile::exists(path)) << "a truncated file is removed, so that it is fetched again";
}

TEST_F(Models, TheUsersCopyComesBeforeTheSystemsOne)
{
    const QByteArray content("model");
    const auto model = modelWithContent(content);
    write(system + QStringLiteral("/ggml-test.bin"), content);
    EXPECT_EQ(store.find(model), system + QStringLiteral("/ggml-test.bin"));
    EXPECT_TRUE(store.isReady(model));
    write(user + QStringLiteral("/ggml-test.bin"), content);
    EXPECT_EQ(store.find(model), user + QStringLiteral("/ggml-test.bin"));
}

TEST_F(Models, ANewInstallationAdoptsWhatIsThereElseTheDefaultAndNeverChangesItsMindLater)
{
    const ModelCatalogue catalogue;
    UserDefaults adopting(folder.filePath(QStringLiteral("adopting.ini")));
    ModelSelection adopted(catalogue, adopting, [](const auto& m) { return m.name.startsWith(QLatin1String("tiny")); });
    EXPECT_EQ(adopted.selectedModel().name, QStringLiteral("tiny")) << "the first in the catalogue's order";

    UserDefaults fresh(folder.filePath(QStringLiteral("fresh.ini")));
    bool downloaded = false;
    ModelSelection selection(catalogue, fresh,
                             [&](const auto& m) { return downloaded && m.name == QLatin1String("tiny"); });
    EXPECT_EQ(selection.selectedModel().name, QStringLiteral("small - default"));
    downloaded = true;
    EXPECT_EQ(selection.selectedModel().name, QStringLiteral("small - default"));
    selection.select(*catalogue.find(QStringLiteral("base.en")));
    EXPECT_EQ(selection.selectedModel().name, QStringLiteral("base.en"));
    EXPECT_EQ(fresh.stored(setting::selectedModelName), QStringLiteral("base.en"));
}

TEST_F(Models, AFileThatCannotBeReadIsNotReadyAndStays)
{
    const auto model = modelWithContent("model");
    QDir().mkpath(store.ownFile(model)); // opens for nobody, not even for root
    const ModelCheck check = store.check(model);
    EXPECT_FALSE(check.isReady);
    EXPECT_TRUE(check.problem.contains(QStringLiteral("could not be read")));
    EXPECT_TRUE(QFile::exists(store.ownFile(model)));
}

TEST_F(Models, AWrongOwnCopyGivesWayToTheSystemsRightOne)
{
    const QByteArray content("model");
    const auto model = modelWithContent(content);
    const QString shared = system + QStringLiteral("/ggml-test.bin");
    write(shared, content);
    {
        // A file is told from its successor by its time, which must not be of the same tick.
        QFile installed(shared);
        ASSERT_TRUE(installed.open(QFile::ReadWrite));
        installed.setFileTime(QDateTime::currentDateTime().addDays(-1), QFile::FileModificationTime);
    }
    write(store.ownFile(model), "wrong");
    EXPECT_TRUE(store.isReady(model));
    EXPECT_EQ(store.find(model), shared);
    EXPECT_EQ(store.status(model).state, ModelStatus::State::ready) << "remembered in the user's folder";
    EXPECT_EQ(QDir(system).entryList(QDir::Files), QStringList{QStringLiteral("ggml-test.bin")});
    write(shared, "other");
    EXPECT_EQ(store.status(model).state, ModelStatus::State::unchecked) << "it is not the file that was verified";
    EXPECT_FALSE(store.isReady(model));
    EXPECT_TRUE(QFile::exists(shared));
}

TEST_F(Models, TheFolderOfTheLibrarysOwnScriptIsNeverChanged)
{
    // The test cannot have a file with a published content, so every file of the real catalogue is a wrong one.
    const ModelCatalogue catalogue;
    const QString legacy = folder.filePath(QStringLiteral("whisper.cpp/models"));
    QDir().mkpath(legacy);
    write(legacy + QStringLiteral("/ggml-tiny.bin"), "half a model");
    write(legacy + QStringLiteral("/notes.txt"), "mine");
    write(folder.filePath(QStringLiteral("elsewhere.bin")), "mine");
    QFile::link(folder.filePath(QStringLiteral("elsewhere.bin")), legacy + QStringLiteral("/ggml-base.en.bin"));
    UserDefaults defaults(folder.filePath(QStringLiteral("vantro.ini")));
    WhisperModelPreparation preparation(catalogue, store, defaults, legacy);
    QCoro::waitFor(preparation.run());
    EXPECT_EQ(QDir(legacy).entryList(QDir::Files, QDir::Name),
              (QStringList{QStringLiteral("ggml-base.en.bin"), QStringLiteral("ggml-tiny.bin"),
                           QStringLiteral("notes.txt")}));
    EXPECT_TRUE(QDir(user).entryList(QDir::Files).isEmpty());
}

TEST(Recommendation, IsTheBestThatMachineAndLanguageCanBear)
{
    const ModelCatalogue catalogue;
    bool hasParakeet = false;
    const auto forMachine = [&](int processors, quint64 gigabytes, const char* language) {
        return shortName(recommended(catalogue.models(), {processors, gigabytes * 1'000'000'000},
                                     QString::fromLatin1(language),
                                     [&](const TranscriptionModel&) { return hasParakeet; }))
            .toStdString();
    };
    EXPECT_EQ(forMachine(4, 8, "de"), "small");
    EXPECT_EQ(forMachine(4, 8, "en"), "small");
    EXPECT_EQ(forMachine(1, 8, "en"), "base.en");
    EXPECT_EQ(forMachine(1, 8, "de"), "tiny");
    EXPECT_EQ(forMachine(4, 1, "de"), "tiny") << "of a quarter of the memory";
    EXPECT_EQ(forMachine(16, 16, "de"), "large-v3-turbo");
    hasParakeet = true;
    EXPECT_EQ(forMachine(4, 8, "de"), "parakeet-v3");
    EXPECT_EQ(forMachine(4, 8, "en"), "parakeet-v2");
    EXPECT_EQ(forMachine(4, 8, "ja"), "small");
}

TEST(ModelCatalogue, AModelIsFoundAsItsUserCallsIt)
{
    const ModelCatalogue catalogue;
    const auto called = [&](const char* text) {
        const auto* model = catalogue.match(QString::fromLatin1(text));
        return model != nullptr ? model->name.toStdString() : std::string();
    };
    EXPECT_EQ(called("parakeet-v2"), "Parakeet v2 (Fluid, English)");
    EXPECT_EQ(called("Parakeet v3"), "Parakeet v3 (Fluid)");
    EXPECT_EQ(called("SMALL"), "small - default");
    EXPECT_EQ(called("tiny"), "tiny") << "exactly, not as a beginning";
    EXPECT_EQ(called("ggml-base.en.bin"), "base.en");
    EXPECT_EQ(called("parakeet"), "");
    EXPECT_EQ(called("medium"), "");
}

TEST(ModelHost, TheNearestWordCounts)
{
    const QTemporaryDir folder;
    UserDefaults defaults(folder.filePath(QStringLiteral("vantro.ini")));
    qunsetenv("VANTRO_MODEL_HOST");
    EXPECT_EQ(ModelHost::address(defaults, {}), ModelHost::publicAddress());
    defaults.set(setting::modelHostBaseURL, QStringLiteral("https://setting.example/models/"));
    EXPECT_EQ(ModelHost::address(defaults, {}), QStringLiteral("https://setting.example/models"));
    qputenv("VANTRO_MODEL_HOST", "https://environment.example");
    EXPECT_EQ(ModelHost::address(defaults, {}), QStringLiteral("https://environment.example"));
    EXPECT_EQ(ModelHost::address(defaults, QStringLiteral("file:///mnt/models")), QStringLiteral("file:///mnt/models"));
    qunsetenv("VANTRO_MODEL_HOST");
    ModelCatalogue catalogue;
    catalogue.setHost(ModelHost::address(defaults, {}));
    EXPECT_EQ(catalogue.find(QStringLiteral("small - default"))->url,
              QStringLiteral("https://setting.example/models/resolve/main/ggml-small.bin"));
}
