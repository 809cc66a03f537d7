#pragma once

#include "asr/kernels/Kernels.h"

/// ggml's view of asr/kernels: a device that computes what it does faster than ggml's processor back end, in the same
/// memory. Schedulers put its back end before that one and give it the operations that it supports.
namespace vantro::asr::accelerator {

/// Announces the device to ggml, after which every whisper context that is loaded uses it. Once in a process is enough;
/// more do nothing. False if this processor has nothing to offer, or ggml is an installed library, whose interface for
/// devices is not public. After loadProcessorModule(), from any thread.
bool announce();

/// Instruction sets above @p cap are left unused by contexts that are loaded from now on: for tests and measurements.
/// Level::baseline leaves everything to ggml.
void limit(kernels::Level cap);

/// Whether operations on a few rows are computed too, as a decoder has them for each token. With float16 matrices they
/// take half the time of ggml's; with others they are ggml's, and dividing a decoder between both would cost more.
void includeFewRows(bool isIncluded);

/// Each computation takes at least @p threads threads, from its next operation on, until this is called again; 0 takes
/// that back. From any thread.
void hurry(int threads);

} // namespace vantro::asr::accelerator
