#pragma once

#include <exception>

namespace vantro {

/// The exit code for a rewriting that failed: noService when the provider or the key store cannot be reached, setAside
/// when its answer was not believed, else failed.
[[nodiscard]] int rewritingExitCode(const std::exception_ptr& failure);

} // namespace vantro
