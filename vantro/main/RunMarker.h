#pragma once

#include <QString>

namespace vantro {

/// A small file that is there while the program runs. One that is found at the start tells that the run before did not
/// come to its end. What ended with the whole machine, or because the desktop went away, is no crash.
class RunMarker
{
public:
    /// Looks for the file and puts it in place. A folder that cannot be written to leaves everything as it is.
    explicit RunMarker(const QString& path);
    /// Removes it.
    ~RunMarker();
    RunMarker(const RunMarker&) = delete;
    RunMarker& operator=(const RunMarker&) = delete;

    /// "vantro/running" below the XDG state folder.
    static QString standardPath();

    [[nodiscard]] bool foundCrash() const { return foundCrash_; }

private:
    bool foundCrash_ = false;
};

} // namespace vantro
