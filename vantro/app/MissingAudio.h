#pragma once

#include <QString>

namespace vantro {

class AudioRecorder;

// What a recording lacks, in words for the user; empty if nothing worth telling. Main thread.

/// Of a recording that has ended before its speaker.
QString missingEnd(const AudioRecorder& recorder);
/// Of one whose samples are all there.
QString missingParts(const AudioRecorder& recorder);

} // namespace vantro
