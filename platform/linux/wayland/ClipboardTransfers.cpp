#include "platform/linux/wayland/ClipboardTransfers.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <memory>
#include <utility>

namespace vantro {

namespace {

bool isWorthWaiting()
{
    return errno == EAGAIN || errno == EINTR;
}

} // namespace

ClipboardTransfers::~ClipboardTransfers()
{
    for (const Transfer& transfer : transfers_)
        close(transfer.descriptor);
}

void ClipboardTransfers::send(int descriptor, const QByteArray& bytes, std::function<void()> taken)
{
    fcntl(descriptor, F_SETFL, O_NONBLOCK);
    transfers_.push_back({descriptor, bytes, 0, std::move(taken)});
    proceed();
}

void ClipboardTransfers::addTo(std::vector<pollfd>& waiting) const
{
    for (const Transfer& transfer : transfers_)
        waiting.push_back({transfer.descriptor, POLLOUT, 0});
}

void ClipboardTransfers::proceed()
{
    std::erase_if(transfers_, isOver);
}

bool ClipboardTransfers::isOver(Transfer& transfer)
{
    while (transfer.sent < transfer.bytes.size()) {
        const auto left = static_cast<std::size_t>(transfer.bytes.size() - transfer.sent);
        const ssize_t count = write(transfer.descriptor, transfer.bytes.constData() + transfer.sent, left);
        if (count < 0 && isWorthWaiting())
            return false;
        if (count < 0)
            break;
        transfer.sent += count;
    }
    close(transfer.descriptor);
    if (transfer.sent == transfer.bytes.size())
        transfer.taken();
    return true;
}

std::optional<QByteArray> readToEnd(int descriptor, std::chrono::steady_clock::time_point giveUp, qsizetype mostBytes)
{
    const auto closeIt = [](const int* open) {
        close(*open);
    };
    const std::unique_ptr<int, decltype(closeIt)> closing(&descriptor, closeIt);
    QByteArray result;
    std::array<char, 65536> buffer{};
    while (result.size() <= mostBytes) {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(giveUp - std::chrono::steady_clock::now()).count();
        pollfd waiting{descriptor, POLLIN, 0};
        if (left <= 0 || poll(&waiting, 1, static_cast<int>(left)) == 0)
            return std::nullopt;
        const ssize_t count = read(descriptor, buffer.data(), buffer.size());
        if (count == 0)
            return result;
        if (count < 0 && !isWorthWaiting())
            return std::nullopt;
        if (count > 0)
            result.append(buffer.data(), count);
    }
    return std::nullopt;
}

} // namespace vantro
