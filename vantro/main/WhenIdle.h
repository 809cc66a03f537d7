#pragma once

#include "vantro/audio/AudioRecorder.h"

#include <functional>
#include <vector>

namespace vantro {

/// Lets no window come forward while a dictation is under way: it would take the keyboard, and with it the recording.
/// Main thread.
class WhenIdle final : public QObject
{
    Q_OBJECT
public:
    /// @p recorder must outlive this object.
    explicit WhenIdle(const AudioRecorder& recorder);

    /// Calls @p action at once, or when the dictation that is under way is over, in the order of the calls.
    void run(std::function<void()> action);

private:
    void catchUp();

    const AudioRecorder& recorder_;
    std::vector<std::function<void()>> waiting_;
};

} // namespace vantro
