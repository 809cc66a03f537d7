#pragma once

namespace vantro {

/// What the desktop lets the program do. Main thread only.
class Permissions
{
public:
    virtual ~Permissions() = default;

    /// Whether recording is possible in principle: an audio server that answers. Having a microphone is another matter.
    [[nodiscard]] virtual bool microphoneAuthorized() const = 0;
    /// Whether synthesised key events reach other programs.
    [[nodiscard]] virtual bool trustedForAccessibility() const = 0;
};

} // namespace vantro
