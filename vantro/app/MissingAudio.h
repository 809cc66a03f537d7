#pragma once

#include <QString>

namespace vantro {

class AudioRecorder;

// What a recording lacks, in words for the user; empty if nothing worth telling. Main thread.

/// Of a recording that ended before its speaker did.
QString missingEnd(const AudioRecorder& recorder);
/// Of one that has been drained.
QString missingParts(const AudioRecorder& recorder);

} // namespace vantro
