#pragma once

#include <QString>

namespace vantro {

/// A file that exists while the program runs. Finding it at the start means that the previous run crashed, unless the
/// machine has been restarted since. Losing the display does not count as a crash.
/// One instance at a time; main thread.
class RunMarker
{
public:
    /// Looks for the file, then creates it. Does nothing when the folder is not writable.
    explicit RunMarker(const QString& path);
    /// Removes the file.
    ~RunMarker();
    RunMarker(const RunMarker&) = delete;
    RunMarker& operator=(const RunMarker&) = delete;

    /// "vantro/running" in the XDG state folder.
    static QString standardPath();

    [[nodiscard]] bool foundCrash() const { return foundCrash_; }

private:
    bool foundCrash_ = false;
};

} // namespace vantro
