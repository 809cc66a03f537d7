#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vantro::desktop {

/// Why the tests that need an X session cannot run; nothing when there is one.
std::optional<std::string> missingDisplay();

/// Lets the event loop run until @p condition holds; false when it does not within ten seconds.
bool eventually(const std::function<bool()>& condition);

/// Keys by their place on a PC keyboard, whatever the layout has on them.
namespace Place {
inline constexpr unsigned d = 40;
inline constexpr unsigned v = 55;
inline constexpr unsigned space = 65;
inline constexpr unsigned leftControl = 37;
inline constexpr unsigned leftShift = 50;
inline constexpr unsigned leftAlt = 64;
inline constexpr unsigned leftSuper = 133;
inline constexpr unsigned capsLock = 66;
inline constexpr unsigned numLock = 77;
} // namespace Place

/// The person at the keyboard: a keyboard device of its own beside the one that synthesised keys come from, over a
/// connection of its own.
class DesktopUser
{
public:
    DesktopUser();
    /// Leaves the keyboard as a fresh session has it.
    ~DesktopUser();
    DesktopUser(const DesktopUser&) = delete;
    DesktopUser& operator=(const DesktopUser&) = delete;

    void press(unsigned place);
    void release(unsigned place);
    void strike(unsigned place);
    /// The keys in this order, released in the opposite one.
    void chord(const std::vector<unsigned>& places);

    void movePointer(int x, int y);

    /// Loads keyboard layouts ("us", "us,ru") and makes the one numbered @p group the active one.
    void setLayout(const QString& layouts, unsigned group = 0);
    enum class Keyboard { own, synthesised };
    /// Gives one keyboard a layout of its own, in setxkbmap's words, until setLayout().
    void setLayoutOf(Keyboard keyboard, const QStringList& layout);
    /// Makes a sticky Shift, as the accessibility feature does.
    void lockShift(bool on);

    /// What the server holds to be pressed, over all keyboards.
    [[nodiscard]] std::vector<unsigned> keysDown() const;
    [[nodiscard]] unsigned activeGroup() const;
    /// The modifiers in force, Caps Lock and Num Lock among them, as the X protocol numbers them.
    [[nodiscard]] unsigned modifiers() const;
    /// Whether a key carries @p keysym in the active group.
    [[nodiscard]] bool layoutHas(unsigned long keysym) const;

    /// Takes a key combination for "another program", until the user object goes. @p modifiers in X's numbering.
    void grabForOtherProgram(unsigned place, unsigned modifiers);
    /// Cuts the X connection of the program that owns @p window, as xkill does.
    void killClient(unsigned long window);

private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace vantro::desktop
