#include "platform/linux/x11/X11Permissions.h"

#include "platform/linux/x11/X11KeyEventPoster.h"

#include <utility>

namespace vantro {

X11Permissions::X11Permissions(X11Connection& connection, std::function<bool()> microphoneAuthorized)
    : connection_(connection)
    , microphoneAuthorized_(std::move(microphoneAuthorized))
{
}

bool X11Permissions::trustedForAccessibility() const
{
    return hasXTest(connection_);
}

} // namespace vantro
