#include "vantro/models/ModelSelection.h"
#include "vantro/models/ModelStore.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

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
    ModelStore store{user, {system}};
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
    const QString path = store.modelFile(model);
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
    EXPECT_EQ(store.modelFile(model), system + QStringLiteral("/ggml-test.bin"));
    EXPECT_TRUE(store.isReady(model));
    write(user + QStringLiteral("/ggml-test.bin"), content);
    EXPECT_EQ(store.modelFile(model), user + QStringLiteral("/ggml-test.bin"));
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
    EXPECT_EQ(fresh.string(QStringLiteral("selectedModelName")), QStringLiteral("base.en"));
}
