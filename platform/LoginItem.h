#pragma once

#include "base/Error.h"

namespace vantro {

class LoginItemError : public Error
{
public:
    using Error::Error;
};

/// Whether the desktop starts the program at login. Main thread only.
class LoginItem
{
public:
    LoginItem() = default;
    virtual ~LoginItem() = default;
    LoginItem(const LoginItem&) = delete;
    LoginItem& operator=(const LoginItem&) = delete;

    [[nodiscard]] virtual bool isEnabled() const = 0;
    /// Throws LoginItemError if it cannot be stored.
    virtual void setEnabled(bool enabled) = 0;
};

} // namespace vantro
