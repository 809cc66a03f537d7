#include "asr/FileMapping.h"

#include "asr/ASRError.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace vantro::asr {

FileMapping::FileMapping(int descriptor) : descriptor_(::fcntl(descriptor, F_DUPFD_CLOEXEC, 0)), version_(version())
{
    const auto size = static_cast<std::size_t>(version_.size);
    void* memory = ::mmap(nullptr, size, PROT_READ, MAP_SHARED, descriptor_, 0);
    if (memory == MAP_FAILED) {
        ::close(descriptor_);
        throw ASRError(ASRError::Kind::modelLoadFailed, "the file cannot be mapped into memory");
    }
    bytes_ = {static_cast<const std::byte*>(memory), size};
}

FileMapping::~FileMapping()
{
    ::munmap(const_cast<std::byte*>(bytes_.data()), bytes_.size());
    ::close(descriptor_);
}

FileMapping::Version FileMapping::version() const
{
    struct stat status = {};
    if (::fstat(descriptor_, &status) != 0)
        return {};
    return {status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

bool FileMapping::isUnchanged() const
{
    return version() == version_;
}

bool FileMapping::load(std::size_t offset, std::size_t size) const
{
    static const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    const std::size_t begin = offset / page * page;
    auto* memory = const_cast<std::byte*>(bytes_.data()) + begin;
    const std::size_t length = offset + size - begin;
#ifdef MADV_POPULATE_READ
    if (::madvise(memory, length, MADV_POPULATE_READ) == 0)
        return true;
    // Not supported by kernels before 5.14.
    if (errno != EINVAL)
        return false;
#endif
    ::madvise(memory, length, MADV_WILLNEED);
    return true;
}

} // namespace vantro::asr
