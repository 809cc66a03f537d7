#pragma once

#include <QQuickWindow>

namespace vantro {

/// Rounds the corners of a frameless panel by @p radius pixels: with transparency under a compositor, otherwise by
/// masking the window. Call once the panel has its size.
void roundCorners(QQuickWindow& panel, int radius, bool isCompositing);

} // namespace vantro
