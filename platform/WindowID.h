#pragma once

#include <cstdint>

namespace vantro {

/// The window system's native window ID.
using WindowID = std::uint64_t;

} // namespace vantro
