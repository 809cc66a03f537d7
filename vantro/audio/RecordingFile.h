#pragma once

#include "vantro/ai/ProcessingMode.h"

#include <QDateTime>
#include <QString>

#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace vantro {

/// Whether a recording is long enough to hold a word and is not digital silence. 16 kHz mono.
[[nodiscard]] bool mayHoldSpeech(std::span<const float> samples);

/// The samples of one recording in a file that stays readable whenever its writer dies: a header of 64 bytes, then 16
/// kHz mono floats in this machine's byte order. Only its owner can read it, and it is locked (flock)
/// for as long as this object lives. One thread at a time.
class RecordingFile
{
public:
    struct Header
    {
        ProcessingMode mode = ProcessingMode::Normal;
        QDateTime startedAt;
    };

    /// Creates @p folder too, for this user alone. Throws Error.
    [[nodiscard]] static RecordingFile create(const QString& folder, const QString& name, const Header& header);
    /// nullopt while another object or process holds it. Throws Error if it cannot be opened or is no recording.
    [[nodiscard]] static std::optional<RecordingFile> open(const QString& path);
    /// The files in @p folder that may be opened, oldest first.
    [[nodiscard]] static QStringList list(const QString& folder);
    /// Removes the files that a process had hidden when it ended.
    static void removeHidden(const QString& folder);

    RecordingFile(RecordingFile&& other) noexcept;
    RecordingFile& operator=(RecordingFile&& other) noexcept;
    ~RecordingFile();

    [[nodiscard]] const Header& header() const { return header_; }
    /// The file's name without its ending.
    [[nodiscard]] QString name() const;
    /// Throws Error; what has been written before stays readable.
    void append(std::span<const float> samples);
    /// Throws Error.
    void setMode(ProcessingMode mode);
    /// All whole samples. Throws Error.
    [[nodiscard]] std::vector<float> read() const;
    /// A hidden file is not listed, so that no other process finds it. Throws Error.
    void setHidden(bool hidden);
    void remove();

private:
    RecordingFile(QString path, int descriptor, Header header);
    void writeHeader();

    QString path_;
    int descriptor_;
    Header header_;
};

} // namespace vantro
