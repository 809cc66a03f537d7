#include "vantro/audio/WavWriter.h"

#include "base/SampleFormat.h"

#include <QFile>
#include <QFileInfo>

#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>

namespace vantro {

namespace {

using Code = WavWriterError::Code;

struct CloseFile
{
    void operator()(SNDFILE* file) const { sf_close(file); }
};

std::int16_t toPcm16(float sample)
{
    constexpr float fullScale = 32'767.0F;
    if (std::isnan(sample))
        return 0;
    return static_cast<std::int16_t>(std::lrint(std::clamp(sample, -1.0F, 1.0F) * fullScale));
}

std::unique_ptr<std::int16_t[]> convert(std::span<const float> samples)
{
    std::unique_ptr<std::int16_t[]> pcm(new (std::nothrow) std::int16_t[samples.size()]);
    if (!pcm)
        throw WavWriterError(Code::NoBuffer, QStringLiteral("Could not create the WAV output buffer."));
    std::ranges::transform(samples, pcm.get(), toPcm16);
    return pcm;
}

} // namespace

void writeWav(std::span<const float> samples, const QString& path)
{
    if (samples.size() > std::numeric_limits<std::uint32_t>::max())
        qFatal("%zu samples do not fit into a WAV file", samples.size());
    SF_INFO info{};
    info.samplerate = sampleRateHz;
    info.channels = 1;
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    std::unique_ptr<SNDFILE, CloseFile> file(sf_open(QFile::encodeName(path).constData(), SFM_WRITE, &info));
    if (!file)
        throw WavWriterError(Code::CannotOpen, QString::fromLocal8Bit(sf_strerror(nullptr)));
    const auto pcm = convert(samples);
    const auto count = static_cast<sf_count_t>(samples.size());
    const bool written = sf_write_short(file.get(), pcm.get(), count) == count;
    const QString reason = QString::fromLocal8Bit(sf_strerror(file.get()));
    // Closing writes the sizes into the header.
    if (sf_close(file.release()) != 0 || !written) {
        if (QFileInfo(path).isFile())
            QFile::remove(path);
        throw WavWriterError(Code::CannotWrite, reason);
    }
}

} // namespace vantro
