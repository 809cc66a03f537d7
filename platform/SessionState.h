#pragma once

#include <QObject>

#include <memory>

namespace vantro {

/// Whether the user can be at this session (not while its screen is locked, the machine asleep, or another session in
/// front), and whether the machine is to save power. Main thread only.
class SessionState : public QObject
{
    Q_OBJECT
public:
    /// Delays the machine's sleep while it exists, for as long as the system allows.
    class SleepDelay
    {
    public:
        virtual ~SleepDelay() = default;
    };

    [[nodiscard]] virtual bool isAway() const = 0;
    /// Whether the user or the system has chosen the profile that saves power.
    [[nodiscard]] virtual bool isSavingPower() const = 0;
    /// Returns at once; the delay may begin a moment later, or never where the system knows none.
    [[nodiscard]] virtual std::unique_ptr<SleepDelay> delaySleep() = 0;

Q_SIGNALS:
    /// The last moment to end what the user must be there for. isAway() is true already.
    void aboutToBeAway();
    void returned();
};

} // namespace vantro
