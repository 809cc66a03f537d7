#pragma once

#include <QQuickWindow>

namespace vantro {

/// Gives a frameless panel round corners of @p radius pixels: what lies below shows through where there is a
/// compositor, and the window itself is cut to its shape where there is none. Call when the panel has its size.
void roundCorners(QQuickWindow& panel, int radius, bool isCompositing);

} // namespace vantro
