// The engine with a real model (scripts/get-model puts it where the program looks) and people's recordings.
#include "asr/accelerator/Accelerator.h"
#include "base/Settings.h"
#include "vantro/models/ModelCatalogue.h"
#include "vantro/sound/AudioFile.h"
#include "vantro/whisper/WhisperModelFile.h"
#include "vantro/whisper/WhisperTranscriptionProvider.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <qcoro/qcorofuture.h>

#include <gtest/gtest.h>

using namespace vantro;

namespace {

QString recording(const char* name)
{
    return QString::fromLocal8Bit(qgetenv("VANTRO_SOURCE_DIR")) + QStringLiteral("/tests/data/") + QLatin1String(name);
}

class Whisper : public ::testing::Test
{
protected:
    void SetUp() override
    {
        const ModelCatalogue catalogue;
        tiny = *catalogue.find(QStringLiteral("tiny.en"));
        if (!store.isReady(tiny))
            GTEST_SKIP() << "tiny.en is not there: run scripts/get-model";
        tinyFile = store.find(tiny);
    }

    [[nodiscard]] static WhisperInProcessEngine::Request request(const QString& file)
    {
        WhisperInProcessEngine::Request request;
        request.samples = AudioFile::read(file).samples;
        request.language = QStringLiteral("auto");
        return request;
    }
    template <typename Result>
    static Result get(QFuture<Result> future)
    {
        future.waitForFinished();
        if constexpr (!std::is_void_v<Result>)
            return future.result();
    }

    QString textOf(const char* file);

    TranscriptionModel tiny;
    QString tinyFile;
    WhisperModelFiles store{modelFolders()};
    WhisperInProcessEngine engine;
    FileDownloader downloader;
    const QTemporaryDir folder;
    UserDefaults defaults{folder.filePath(QStringLiteral("vantro.ini"))};
    VocabularySettings vocabulary{defaults};
    WhisperTranscriptionProvider provider{engine, store, downloader, defaults, vocabulary};
};

} // namespace

TEST_F(Whisper, WritesWhatPeopleSayInOneGoAndAcrossTheThirtySecondWindow)
{
    get(engine.load(tinyFile));
    std::vector<float> progress;
    auto short1 = request(recording("en-harvard-spk1-snt1.flac"));
    short1.onProgress = [&](float fraction) {
        progress.push_back(fraction);
    };
    EXPECT_EQ(get(engine.transcribe(short1)), QStringLiteral("The child almost hurt the small dog."));
    EXPECT_TRUE(std::ranges::is_sorted(progress));

    // What follows a pause near the end of a window must not be lost.
    auto samples = request(recording("en-harvard-spk1-snt1.flac")).samples;
    samples.resize(28U * 16'000, 0.0F);
    const auto second = request(recording("en-arctic-a0009.flac")).samples;
    samples.insert(samples.end(), second.begin(), second.end());
    auto both = request(recording("en-harvard-spk1-snt1.flac"));
    both.samples = samples;
    const QString text = get(engine.transcribe(both));
    EXPECT_TRUE(text.startsWith(QLatin1String("The child almost hurt the small dog."))) << text.toStdString();
    EXPECT_TRUE(text.contains(QLatin1String("across the table"))) << text.toStdString();
}

TEST_F(Whisper, WritesTheSameWithEveryInstructionSetAndHoweverItIsWaitedFor)
{
    get(engine.load(tinyFile));
    const auto said = QStringLiteral("The child almost hurt the small dog.");
    for (const asr::kernels::Level level : asr::kernels::levels) {
        if (!asr::kernels::isSupported(level))
            continue;
        asr::accelerator::limit(level);
        auto ahead = request(recording("en-harvard-spk1-snt1.flac"));
        ahead.isAhead = true;
        const auto text = engine.transcribe(ahead);
        engine.hurry();
        EXPECT_EQ(get(text), said) << static_cast<int>(level);
    }
    asr::accelerator::limit(asr::kernels::highestLevel);
}

TEST_F(Whisper, KeepsTheLoadedModelWhenAnotherFileIsNoModel)
{
    const QString foreign = folder.filePath(QStringLiteral("foreign.bin"));
    const QString truncated = folder.filePath(QStringLiteral("truncated.bin"));
    const QString cutInTheLastTensor = folder.filePath(QStringLiteral("cut.bin"));
    QFile whole(tinyFile);
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    const QByteArray model = whole.readAll();
    for (const auto& [path, bytes] :
         {std::pair(foreign, QByteArray(4096, 'x')), std::pair(truncated, model.first(20'000'000)),
          std::pair(cutInTheLastTensor, model.chopped(4))}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    get(engine.load(tinyFile));
    for (const QString& path :
         {folder.filePath(QStringLiteral("missing.bin")), foreign, truncated, cutInTheLastTensor}) {
        try {
            get(engine.load(path));
            ADD_FAILURE() << path.toStdString() << " was loaded";
        } catch (const WhisperInProcessError& error) {
            EXPECT_EQ(error.kind(), WhisperInProcessError::Kind::modelLoadFailed);
            EXPECT_EQ(error.localizedDescription(), QStringLiteral("Could not load the whisper model at ") + path);
        }
    }
    EXPECT_FALSE(get(engine.transcribe(request(recording("en-harvard-spk1-snt1.flac")))).isEmpty());
    get(engine.unload());
    EXPECT_THROW(get(engine.transcribe(request(recording("en-harvard-spk1-snt1.flac")))), WhisperInProcessError);
}

TEST_F(Whisper, AFileThatLiesAboutItselfIsRefusedBeforeTheLibraryBelievesIt)
{
    const QString path = folder.filePath(QStringLiteral("lies.bin"));
    ASSERT_TRUE(QFile::copy(tinyFile, path));
    const auto outcomeWith = [&](qint64 offset, qint32 value) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadWrite));
        qint32 right = 0;
        const auto put = [&](const qint32& number) {
            file.seek(offset);
            file.write(reinterpret_cast<const char*>(&number), sizeof number);
            file.flush();
        };
        file.seek(offset);
        file.read(reinterpret_cast<char*>(&right), sizeof right);
        put(value);
        QString refusal;
        try {
            file.seek(0);
            checkWhisperModel(file);
            get(engine.load(path));
        } catch (const Error& error) {
            refusal = error.localizedDescription();
        }
        put(right);
        return refusal;
    };
    constexpr qint64 filters = 12 * 4;
    constexpr qint64 pieces = filters + 8 + 80 * 201 * 4;
    for (qint64 offset = 0; offset <= filters + 4; offset += 4) {
        for (const qint32 value : {-1, 0, 7, 1 << 20, std::numeric_limits<qint32>::max()}) {
            const bool isFloat32 = offset == filters - 4 && value == 0;
            EXPECT_FALSE(outcomeWith(offset, value).isEmpty() && !isFloat32) << "at " << offset << ": " << value;
        }
    }
    // The number of pieces and the length of the first one; then the tensor that comes after them.
    for (const qint32 value : {-1, 51'865, std::numeric_limits<qint32>::max()}) {
        EXPECT_FALSE(outcomeWith(pieces, value).isEmpty()) << value;
        EXPECT_FALSE(outcomeWith(pieces + 4, value).isEmpty()) << value;
    }
    QFile whole(path);
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    const qint64 name = whole.readAll().indexOf("decoder.positional_embedding");
    for (const qint64 back : {20, 16, 12, 8, 4}) { // dimensions, length of the name, type, two extents
        for (const qint32 value : {-1, 0, 5, 40, 1'000, std::numeric_limits<qint32>::max()}) {
            const bool isRight = back == 12 && value == 0;
            EXPECT_FALSE(outcomeWith(name - back, value).isEmpty() && !isRight) << back << ": " << value;
        }
    }
    EXPECT_TRUE(outcomeWith(0, 0x67676d6c).isEmpty());
}

TEST_F(Whisper, AFileThatHasBeenReplacedIsLoadedAnew)
{
    const QString path = folder.filePath(QStringLiteral("model.bin"));
    ASSERT_TRUE(QFile::copy(tinyFile, path));
    get(engine.load(path));
    ASSERT_TRUE(QFile::remove(path));
    QFile newer(path);
    ASSERT_TRUE(newer.open(QIODevice::WriteOnly));
    EXPECT_THROW(get(engine.load(path)), WhisperInProcessError) << "the former file was taken for the newer one";
}

TEST_F(Whisper, GivesWayAtOnceWhenNobodyWaitsAnyMore)
{
    get(engine.load(tinyFile));
    auto work = request(recording("en-harvard-spk1-snt1.flac"));
    work.samples.resize(10U * 60 * 16'000, 0.01F); // would take many seconds
    std::stop_source stop;
    work.stop = stop.get_token();
    const auto abandoned = engine.transcribe(work);
    stop.request_stop();
    EXPECT_THROW(get(abandoned), WhisperInProcessError);
    EXPECT_EQ(get(engine.transcribe(request(recording("en-harvard-spk1-snt1.flac")))),
              QStringLiteral("The child almost hurt the small dog."));
}

QCoro::Task<> settle(QCoro::Task<QString> task, QString& outcome)
{
    try {
        outcome = co_await std::move(task);
    } catch (const WhisperInProcessError&) {
        outcome = QStringLiteral("ended");
    }
}

TEST_F(Whisper, ACancelWhileTheModelStillLoadsEndsTheTranscription)
{
    const auto speech = request(recording("en-harvard-spk1-snt1.flac")).samples;
    const auto transcribe = [&](QString& outcome, std::stop_token stop) {
        TranscriptionRequest work;
        work.samples = speech;
        work.model = tiny;
        work.stop = std::move(stop);
        return settle(provider.transcribe(std::move(work)), outcome);
    };
    QString cancelled;
    QString wanted;
    std::stop_source stop;
    const auto first = transcribe(cancelled, stop.get_token());
    stop.request_stop();
    const auto second = transcribe(wanted, {});
    EXPECT_TRUE(QTest::qWaitFor([&] { return !cancelled.isEmpty(); }, 60'000));
    EXPECT_EQ(cancelled, QStringLiteral("ended"));
    EXPECT_TRUE(wanted.isEmpty()) << "the end waits for no load";
    EXPECT_TRUE(QTest::qWaitFor([&] { return !wanted.isEmpty(); }, 60'000));
    EXPECT_EQ(wanted, QStringLiteral("The child almost hurt the small dog."));
}

TEST_F(Whisper, TheProviderLoadsWhileTheUserSpeaksAndUnloadsAfterwardsUnlessToldOtherwise)
{
    const auto isLoaded = [this] {
        try {
            WhisperInProcessEngine::Request silence;
            silence.samples.assign(16'000, 0.0F);
            get(engine.transcribe(silence));
            return true;
        } catch (const WhisperInProcessError&) {
            return false;
        }
    };
    provider.prepare(tiny);
    EXPECT_TRUE(isLoaded());
    provider.dictationEnded();
    EXPECT_FALSE(isLoaded());
    EXPECT_FALSE(provider.holdsModel());
    defaults.set(setting::whisperKeepModelInMemory, true);
    provider.prepare(tiny);
    provider.dictationEnded();
    EXPECT_TRUE(isLoaded());
    EXPECT_TRUE(provider.holdsModel());
    provider.unload();
    EXPECT_FALSE(isLoaded());
}

QString Whisper::textOf(const char* file)
{
    TranscriptionRequest work;
    work.samples = request(recording(file)).samples;
    work.model = tiny;
    QString text;
    const auto task = settle(provider.transcribe(std::move(work)), text);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !text.isEmpty(); }, 60'000));
    return text;
}

TEST_F(Whisper, TheProviderAppliesTheReplacementsInOrder)
{
    vocabulary.addReplacement(QStringLiteral("small dog"), QStringLiteral("cat"));
    vocabulary.addReplacement(QStringLiteral("the cat"), QStringLiteral("Tom"));
    vocabulary.addReplacement(QStringLiteral("almost"), QString());
    EXPECT_EQ(textOf("en-harvard-spk1-snt1.flac"), QStringLiteral("The child hurt Tom."));
}

TEST_F(Whisper, TheProviderHintsAtTheSpellingOfTheUsersWords)
{
    // One that nobody says would keep the model busy for minutes.
    vocabulary.addVocabularyWord(QString(100'000, QLatin1Char('q')));
    vocabulary.addVocabularyWord(QStringLiteral("Gregsson"));
    EXPECT_EQ(textOf("en-arctic-a0009.flac"), QStringLiteral("He turned sharply and faced Gregsson across the table."));
}
