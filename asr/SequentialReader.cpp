#include "asr/SequentialReader.h"

#include "asr/ASRError.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <span>

namespace vantro::asr {

/// Serves small values from a read-ahead block.
void SequentialReader::bytes(void* target, std::uint64_t length, const char* what)
{
    bool isRead = length <= remaining();
    if (isRead && length > ahead_.size()) {
        isRead = file_.read(position_, {static_cast<std::byte*>(target), length});
    } else if (isRead) {
        if (position_ < aheadBegin_ || position_ + length > aheadEnd_) {
            aheadBegin_ = position_;
            aheadEnd_ = position_ + std::min<std::uint64_t>(ahead_.size(), remaining());
            isRead = file_.read(position_, std::span(ahead_).first(aheadEnd_ - aheadBegin_));
        }
        std::memcpy(target, ahead_.data() + (position_ - aheadBegin_), length);
    }
    if (!isRead)
        failLoading(std::string("the file ends inside ") + what);
    position_ += length;
}

std::string SequentialReader::text(std::uint64_t length, std::uint64_t maximum, const char* what)
{
    if (length > std::min(maximum, remaining()))
        failLoading(std::string(what) + " contains a text that is too long");
    std::string text(length, '\0');
    bytes(text.data(), length, what);
    return text;
}

std::vector<float> SequentialReader::floats(std::uint64_t count, const char* what)
{
    if (count > remaining() / sizeof(float))
        failLoading(std::string("the file ends inside ") + what);
    std::vector<float> values(count);
    bytes(values.data(), count * sizeof(float), what);
    if (!std::ranges::all_of(values, [](float value) { return std::isfinite(value); }))
        failLoading(std::string(what) + " contains a value that is not finite");
    return values;
}

void SequentialReader::skip(std::uint64_t length, const char* what)
{
    if (length > remaining())
        failLoading(std::string("the file ends inside ") + what);
    position_ += length;
}

} // namespace vantro::asr
