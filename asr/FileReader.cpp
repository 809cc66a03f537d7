#include "asr/FileReader.h"

#include "asr/ASRError.h"
#include "asr/FileMapping.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace vantro::asr {

// O_NONBLOCK, so that a pipe is rejected below instead of blocking.
FileReader::FileReader(const std::filesystem::path& path)
    : descriptor_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK))
{
    struct stat status = {};
    if (descriptor_ < 0 || ::fstat(descriptor_, &status) != 0 || !S_ISREG(status.st_mode)) {
        if (descriptor_ >= 0)
            ::close(descriptor_);
        throw ASRError(ASRError::Kind::modelLoadFailed, "the file " + path.string() + " cannot be opened");
    }
    size_ = static_cast<std::uint64_t>(status.st_size);
}

FileReader::~FileReader()
{
    ::close(descriptor_);
}

std::shared_ptr<const FileMapping> FileReader::map() const
{
    return std::make_shared<const FileMapping>(descriptor_);
}

bool FileReader::read(std::uint64_t offset, std::span<std::byte> target) const
{
    while (!target.empty()) {
        const ssize_t bytes = ::pread(descriptor_, target.data(), target.size(), static_cast<off_t>(offset));
        if (bytes < 0 && errno == EINTR)
            continue;
        if (bytes <= 0)
            return false;
        target = target.subspan(static_cast<std::size_t>(bytes));
        offset += static_cast<std::uint64_t>(bytes);
    }
    return true;
}

} // namespace vantro::asr
