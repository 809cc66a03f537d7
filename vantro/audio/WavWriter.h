#pragma once

#include "base/Error.h"

#include <QString>

#include <span>

namespace vantro {

class WavWriterError : public Error
{
public:
    enum class Code { CannotOpen = 1, NoBuffer = 2, CannotWrite = 3 };
    static constexpr const char* domain = "WavWriter";

    WavWriterError(Code code, QString description) : Error(std::move(description)), code_(code) {}

    [[nodiscard]] Code code() const { return code_; }

private:
    Code code_;
};

/// Writes @p samples (16 kHz mono, nominally -1..1, clipped) as a 16-bit PCM WAV file. Any thread. Throws
/// WavWriterError after removing an incomplete file.
void writeWav(std::span<const float> samples, const QString& path);

} // namespace vantro
