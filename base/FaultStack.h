#pragma once

#include <array>
#include <cstddef>

namespace vantro {

/// An alternate signal stack (sigaltstack) for the thread that makes it, as long as it exists. Without one, a thread
/// that has used up its stack leaves no trace. Does nothing under a sanitizer, which has its own.
class FaultStack
{
public:
    FaultStack();
    ~FaultStack();
    FaultStack(const FaultStack&) = delete;
    FaultStack& operator=(const FaultStack&) = delete;

private:
    std::array<char, std::size_t{64} << 10> memory_; // not filled: it costs nothing until it is used
};

} // namespace vantro
