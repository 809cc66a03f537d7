#pragma once

namespace vantro {

/// Whether the program's windows are Wayland's: what Qt has chosen, or, before the application object and without
/// windows, what is best in this session.
[[nodiscard]] bool isWaylandSession();
/// Whether they are X11's although the session is Wayland's, where only programs of X11 can be reached.
[[nodiscard]] bool isX11OnWayland();

} // namespace vantro
