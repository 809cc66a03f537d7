#include "platform/linux/wayland/SharedMemory.h"

#include <sys/mman.h>
#include <unistd.h>

namespace vantro {

SharedMemory::SharedMemory(const QByteArray& contents) : descriptor_(memfd_create("vantro", MFD_CLOEXEC))
{
    if (descriptor_ >= 0 && write(descriptor_, contents.constData(), static_cast<std::size_t>(contents.size())) !=
                                static_cast<ssize_t>(contents.size())) {
        close(descriptor_);
        descriptor_ = -1;
    }
}

SharedMemory::~SharedMemory()
{
    if (descriptor_ >= 0)
        close(descriptor_);
}

QByteArray readSharedMemory(int descriptor, std::size_t sizeBytes)
{
    void* const mapped = mmap(nullptr, sizeBytes, PROT_READ, MAP_PRIVATE, descriptor, 0);
    if (mapped == MAP_FAILED)
        return {};
    QByteArray result(static_cast<const char*>(mapped), static_cast<qsizetype>(sizeBytes));
    munmap(mapped, sizeBytes);
    return result;
}

} // namespace vantro
