#pragma once

namespace vantro {

/// What the desktop permits the program to do. Main thread only.
class Permissions
{
public:
    virtual ~Permissions() = default;

    /// Whether recording is possible in principle: a sound server answers. A microphone may still be missing.
    [[nodiscard]] virtual bool microphoneAuthorized() const = 0;
    /// Whether synthesised key events reach other programs.
    [[nodiscard]] virtual bool trustedForAccessibility() const = 0;
};

} // namespace vantro
