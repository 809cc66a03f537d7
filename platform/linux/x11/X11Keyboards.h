#pragma once

#include <optional>
#include <vector>

namespace vantro {

class X11Connection;

/// A keyboard device, by the number that the server gives it. Each may have a layout of its own; the keyboard that
/// programs see takes over the layout of the device on which a key was pressed last.
using KeyboardDevice = unsigned;

/// Whether the server has the X Input extension in the version that this program uses. Call before any of its requests.
bool speaksInputExtension(X11Connection& connection);

/// The devices whose keys programs receive, without duplicates; empty if the server does not tell.
std::vector<KeyboardDevice> attachedKeyboards(X11Connection& connection);

/// The device that keys synthesised by XTest come from; nullopt if the server does not tell.
std::optional<KeyboardDevice> synthesisingKeyboard(X11Connection& connection);

} // namespace vantro
