#include "vantro/audio/RecordingFile.h"

#include "base/Error.h"
#include "base/SampleFormat.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <utility>

namespace vantro {

namespace {

constexpr char ending[] = ".recording";
constexpr std::array<char, 8> magic{'V', 'N', 'T', 'R', 'R', 'E', 'C', '1'};

struct StoredHeader
{
    std::array<char, 8> magic;
    std::int64_t startedAtMs;  ///< since 1970, UTC
    std::array<char, 16> mode; ///< its raw value, padded with zeros
    std::array<char, 32> reserved;
};
static_assert(sizeof(StoredHeader) == 64);

StoredHeader stored(const RecordingFile::Header& header)
{
    StoredHeader result{magic, header.startedAt.toMSecsSinceEpoch(), {}, {}};
    const QByteArray mode = rawValue(header.mode).toLatin1().left(result.mode.size() - 1);
    std::ranges::copy(mode, result.mode.begin());
    return result;
}

std::optional<RecordingFile::Header> headerFrom(const StoredHeader& stored)
{
    if (stored.magic != magic || stored.mode.back() != '\0')
        return std::nullopt;
    const auto mode = processingModeFromRawValue(QString::fromLatin1(stored.mode.data()));
    return RecordingFile::Header{mode.value_or(ProcessingMode::Normal),
                                 QDateTime::fromMSecsSinceEpoch(stored.startedAtMs)};
}

[[noreturn]] void fail(const QString& path)
{
    const int why = errno;
    throw Error(QStringLiteral("%1: %2").arg(path, qt_error_string(why)));
}

bool lock(int descriptor)
{
    return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
}

QString sibling(const QString& path, const QString& name)
{
    return QFileInfo(path).path() + QLatin1Char('/') + name;
}

QStringList pathsIn(const QString& folder, const QString& pattern, QDir::Filters filters)
{
    QStringList paths;
    for (const QFileInfo& file :
         QDir(folder).entryInfoList({pattern}, filters | QDir::Files, QDir::Time | QDir::Reversed))
        paths << file.filePath();
    return paths;
}

} // namespace

bool mayHoldSpeech(std::span<const float> samples)
{
    return samples.size() >= minimumSampleCount &&
           std::ranges::any_of(samples, [](float sample) { return sample != 0; });
}

RecordingFile::RecordingFile(QString path, int descriptor, Header header)
    : path_(std::move(path))
    , descriptor_(descriptor)
    , header_(std::move(header))
{
}

RecordingFile::RecordingFile(RecordingFile&& other) noexcept
    : path_(std::move(other.path_))
    , descriptor_(std::exchange(other.descriptor_, -1))
    , header_(std::move(other.header_))
{
}

RecordingFile& RecordingFile::operator=(RecordingFile&& other) noexcept
{
    std::swap(path_, other.path_);
    std::swap(descriptor_, other.descriptor_);
    std::swap(header_, other.header_);
    return *this;
}

RecordingFile::~RecordingFile()
{
    if (descriptor_ >= 0)
        ::close(descriptor_);
}

/// The file is hidden until it is locked and has its header, so that nobody finds it earlier.
RecordingFile RecordingFile::create(const QString& folder, const QString& name, const Header& header)
{
    if (::mkdir(QFile::encodeName(folder).constData(), S_IRWXU) != 0 && errno != EEXIST)
        fail(folder);
    const QString path = folder + QStringLiteral("/.") + name + QLatin1String(ending);
    const int descriptor =
        ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (descriptor < 0)
        fail(path);
    RecordingFile file(path, descriptor, header);
    if (!lock(descriptor))
        fail(path);
    try {
        file.writeHeader();
        file.setHidden(false);
    } catch (const Error&) {
        file.remove();
        throw;
    }
    return file;
}

std::optional<RecordingFile> RecordingFile::open(const QString& path)
{
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDWR | O_CLOEXEC | O_NOFOLLOW);
    if (descriptor < 0)
        fail(path);
    RecordingFile file(path, descriptor, {});
    if (!lock(descriptor))
        return std::nullopt;
    // Its last holder may have removed or hidden it meanwhile.
    if (!QFileInfo::exists(path))
        return std::nullopt;
    StoredHeader bytes{};
    const bool isWhole = ::pread(descriptor, &bytes, sizeof bytes, 0) == static_cast<ssize_t>(sizeof bytes);
    const auto header = isWhole ? headerFrom(bytes) : std::nullopt;
    if (!header)
        throw Error(QCoreApplication::translate("RecordingFile", "%1 is not a recording").arg(path));
    file.header_ = *header;
    return file;
}

QStringList RecordingFile::list(const QString& folder)
{
    return pathsIn(folder, QLatin1Char('*') + QLatin1String(ending), {});
}

void RecordingFile::removeHidden(const QString& folder)
{
    for (const QString& path : pathsIn(folder, QStringLiteral(".audio-*") + QLatin1String(ending), QDir::Hidden)) {
        const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDWR | O_CLOEXEC | O_NOFOLLOW);
        if (descriptor < 0)
            continue;
        if (lock(descriptor))
            QFile::remove(path);
        ::close(descriptor);
    }
}

QString RecordingFile::name() const
{
    const QString file = QFileInfo(path_).fileName();
    return file.chopped(static_cast<qsizetype>(std::strlen(ending)));
}

void RecordingFile::append(std::span<const float> samples)
{
    const auto bytes = std::as_bytes(samples);
    for (std::size_t written = 0; written < bytes.size();) {
        const auto rest = bytes.subspan(written);
        const ssize_t count = ::write(descriptor_, rest.data(), rest.size());
        if (count < 0 && errno != EINTR)
            fail(path_);
        written += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    }
}

void RecordingFile::setMode(ProcessingMode mode)
{
    header_.mode = mode;
    writeHeader();
}

void RecordingFile::writeHeader()
{
    const StoredHeader bytes = stored(header_);
    if (::pwrite(descriptor_, &bytes, sizeof bytes, 0) != static_cast<ssize_t>(sizeof bytes) ||
        ::lseek(descriptor_, 0, SEEK_END) < 0)
        fail(path_);
}

std::vector<float> RecordingFile::read() const
{
    const off_t end = ::lseek(descriptor_, 0, SEEK_END);
    if (end < 0)
        fail(path_);
    const auto length = static_cast<std::size_t>(end);
    std::vector<float> samples(length > sizeof(StoredHeader) ? (length - sizeof(StoredHeader)) / sizeof(float) : 0);
    const auto bytes = std::as_writable_bytes(std::span(samples));
    for (std::size_t done = 0; done < bytes.size();) {
        const auto rest = bytes.subspan(done);
        const ssize_t count =
            ::pread(descriptor_, rest.data(), rest.size(), static_cast<off_t>(sizeof(StoredHeader) + done));
        if (count == 0 || (count < 0 && errno != EINTR))
            fail(path_);
        done += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    }
    return samples;
}

void RecordingFile::setHidden(bool hidden)
{
    const QString to = sibling(path_, (hidden ? QStringLiteral(".") : QString()) + name().remove(QLatin1Char('.')) +
                                          QLatin1String(ending));
    if (::rename(QFile::encodeName(path_).constData(), QFile::encodeName(to).constData()) != 0)
        fail(path_);
    path_ = to;
}

void RecordingFile::remove()
{
    QFile::remove(path_);
}

} // namespace vantro
