#pragma once

#include "asr/ChunkProcessor.h"
#include "asr/Seam.h"
#include "asr/TdtDecoderV3.h"

#include <functional>
#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <vector>

namespace vantro::asr {

using LogSink = std::function<void(const std::string&)>;

/// Searches encoded windows one after the other, each from a fresh state, and joins their tokens. Overlaps are decoded
/// in both windows, their words are aligned, and the transcript switches windows between two words (see Seam). One
/// thread.
class WindowSearch
{
public:
    /// @p models must outlive the search. A null @p allowed allows every token; @p logger may be empty.
    WindowSearch(const AsrModels& models, const TdtConfig& config, const TokenFilter* allowed, LogSink logger);

    /// The windows so far. A copy can be carried on and closed while the original waits for the next window.
    struct Transcript
    {
        std::vector<DecodedToken> tokens; ///< frames count from the start of the recording
        TdtDecoderState state;

    private:
        friend class WindowSearch;
        std::vector<DecodedToken> inOverlap; ///< of the last window, where the next one begins
        FrameRange overlap;
        EncoderFrames frames; ///< of the last window
        std::int32_t offset = 0;
        bool isBegun = false;
    };

    /// @p frames: the window's, projected by JointDecision::frameProjection(). Throws ASRError::processingFailed when
    /// stopped, which leaves the transcript unusable.
    void add(Transcript& transcript, const Window& window, EncoderFrames frames, const std::stop_token& stop);
    /// The last window reaches the end of the recording.
    void close(Transcript& transcript, const std::stop_token& stop);

private:
    std::vector<DecodedToken> decode(Transcript& transcript, FrameRange range, const std::stop_token& stop);
    [[nodiscard]] std::vector<DecodedToken> join(std::span<const DecodedToken> earlier,
                                                 std::span<const DecodedToken> later, FrameRange range) const;

    const AsrModels& models_;
    TdtConfig config_;
    TdtDecoderV3 decoder_;
    LogSink logger_;
};

} // namespace vantro::asr
