#pragma once

/// Which window system of the session the program uses.
namespace vantro::windowsystem {

/// Prepares Qt for the session's window system while it exists; to be made before the application object and destroyed
/// after that has been made, so that programs which are started later choose for themselves. The user's own
/// QT_QPA_PLATFORM takes precedence.
class Choice
{
public:
    Choice();
    ~Choice();
    Choice(const Choice&) = delete;
    Choice& operator=(const Choice&) = delete;

private:
    bool isOurs_ = false;
};

} // namespace vantro::windowsystem
