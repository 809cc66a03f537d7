#pragma once

#include <array>
#include <cstddef>

namespace vantro {

/// Memory that a signal's handler runs on in the thread that makes this, while it exists: a thread that has used up its
/// stack leaves no trace otherwise. Does nothing where a sanitizer has its own.
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
