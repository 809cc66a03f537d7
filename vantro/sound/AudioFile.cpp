#include "vantro/sound/AudioFile.h"

#include "base/SampleFormat.h"
#include "vantro/sound/Resampler.h"

#include <QCoreApplication>
#include <QFile>

#include <sndfile.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>
#include <numeric>
#include <span>

namespace vantro {

namespace {

constexpr std::size_t blockFrames = 16'384;

struct CloseSoundFile
{
    void operator()(SNDFILE* file) const { sf_close(file); }
};
using SoundFile = std::unique_ptr<SNDFILE, CloseSoundFile>;

/// A file in memory: containers require seeking, which standard input does not allow. Files are written there, too.
struct MemoryFile
{
    QByteArray bytes;
    sf_count_t position = 0;
};

MemoryFile& memoryFile(void* user)
{
    return *static_cast<MemoryFile*>(user);
}

sf_count_t seekInMemory(sf_count_t offset, int whence, void* user)
{
    MemoryFile& file = memoryFile(user);
    const sf_count_t base = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? file.position : file.bytes.size();
    file.position = std::clamp<sf_count_t>(base + offset, 0, file.bytes.size());
    return file.position;
}

sf_count_t readFromMemory(void* target, sf_count_t count, void* user)
{
    MemoryFile& file = memoryFile(user);
    const sf_count_t taken = std::min<sf_count_t>(count, file.bytes.size() - file.position);
    std::memcpy(target, file.bytes.constData() + file.position, static_cast<std::size_t>(taken));
    file.position += taken;
    return taken;
}

sf_count_t writeToMemory(const void* source, sf_count_t count, void* user)
{
    MemoryFile& file = memoryFile(user);
    file.bytes.resize(std::max<sf_count_t>(file.bytes.size(), file.position + count));
    std::memcpy(file.bytes.data() + file.position, source, static_cast<std::size_t>(count));
    file.position += count;
    return count;
}

constexpr SF_VIRTUAL_IO memoryFileAccess{
    .get_filelen = [](void* user) -> sf_count_t { return memoryFile(user).bytes.size(); },
    .seek = seekInMemory,
    .read = readFromMemory,
    .write = writeToMemory,
    .tell = [](void* user) -> sf_count_t { return memoryFile(user).position; },
};

std::vector<float> readMono16k(SNDFILE* file, const SF_INFO& info)
{
    std::vector<float> samples;
    const auto channels = static_cast<std::size_t>(info.channels);
    std::vector<float> block(blockFrames * channels);
    std::vector<float> mono(blockFrames);
    const auto resampler = Resampler::create(info.samplerate);
    if (!resampler)
        throw AudioFileError(QCoreApplication::translate("AudioFile", "its sample rate of %1 Hz cannot be converted")
                                 .arg(info.samplerate));
    const auto append = [&samples](std::span<const float> converted) {
        samples.insert(samples.end(), converted.begin(), converted.end());
    };
    sf_count_t frames = 0;
    while ((frames = sf_readf_float(file, block.data(), blockFrames)) > 0) {
        for (std::size_t i = 0; i < static_cast<std::size_t>(frames); ++i) {
            const auto* frame = block.data() + i * channels;
            mono[i] = std::accumulate(frame, frame + channels, 0.0F) / static_cast<float>(channels);
        }
        append(resampler->convert(std::span(mono).first(static_cast<std::size_t>(frames))));
    }
    if (sf_error(file) != SF_ERR_NO_ERROR)
        throw AudioFileError(QString::fromUtf8(sf_strerror(file)));
    append(resampler->drain());
    return samples;
}

QByteArray readStandardInput()
{
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        throw AudioFileError(input.errorString());
    return input.readAll();
}

} // namespace

AudioFile AudioFile::read(const QString& path)
{
    try {
        SF_INFO info{};
        MemoryFile memory;
        SoundFile file;
        if (path == QLatin1String("-")) {
            memory.bytes = readStandardInput();
            SF_VIRTUAL_IO functions = memoryFileAccess;
            file.reset(sf_open_virtual(&functions, SFM_READ, &info, &memory));
        } else {
            file.reset(sf_open(QFile::encodeName(path).constData(), SFM_READ, &info));
        }
        if (file == nullptr)
            throw AudioFileError(QString::fromUtf8(sf_strerror(nullptr)));
        return {readMono16k(file.get(), info)};
    } catch (const AudioFileError& error) {
        throw AudioFileError(
            QCoreApplication::translate("AudioFile", "%1 cannot be read as audio: %2")
                .arg(path == QLatin1String("-") ? QCoreApplication::translate("AudioFile", "standard input") : path,
                     error.localizedDescription().trimmed()));
    }
}

std::chrono::milliseconds AudioFile::duration(const QString& path)
{
    SF_INFO info{};
    const SoundFile file(sf_open(QFile::encodeName(path).constData(), SFM_READ, &info));
    if (file == nullptr || info.samplerate <= 0)
        return {};
    return std::chrono::milliseconds(info.frames * 1000 / info.samplerate);
}

QByteArray flacOf(std::span<const float> samples)
{
    MemoryFile memory;
    SF_VIRTUAL_IO functions = memoryFileAccess;
    SF_INFO info{.frames = 0,
                 .samplerate = static_cast<int>(sampleRateHz),
                 .channels = 1,
                 .format = SF_FORMAT_FLAC | SF_FORMAT_PCM_16,
                 .sections = 0,
                 .seekable = 0};
    SoundFile file(sf_open_virtual(&functions, SFM_WRITE, &info, &memory));
    if (file == nullptr)
        throw AudioFileError(QString::fromUtf8(sf_strerror(nullptr)));
    sf_command(file.get(), SFC_SET_CLIPPING, nullptr, SF_TRUE);
    const auto frames = static_cast<sf_count_t>(samples.size());
    if (sf_writef_float(file.get(), samples.data(), frames) != frames)
        throw AudioFileError(QString::fromUtf8(sf_strerror(file.get())));
    file.reset(); // completes the header
    return memory.bytes;
}

} // namespace vantro
