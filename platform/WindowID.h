#pragma once

#include <cstdint>

namespace vantro {

/// Another program's window, in the window system's own numbering.
using WindowID = std::uint64_t;

} // namespace vantro
