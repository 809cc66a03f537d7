#pragma once

#include <QDBusAbstractAdaptor>
#include <QDBusMessage>
#include <QString>

#include <functional>

namespace vantro {

class AppDelegate;
class AudioDeviceManager;
class AudioRecorder;
class KeyboardShortcuts;
class ModelSelection;

/// The running program on the session bus: what "vantro toggle" and its like call, and what a second start hands over
/// to. Owning the bus name is what makes an instance the running one. Main thread.
class ControlService final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.vantro.Control")
public:
    static QString busName() { return QStringLiteral("com.vantro.app"); }
    static QString objectPath() { return QStringLiteral("/com/vantro/app"); }
    static QString interfaceName() { return QStringLiteral("com.vantro.Control"); }

    struct Parts
    {
        const AudioRecorder& recorder;
        const AudioDeviceManager& devices;
        const ModelSelection& models;
        const KeyboardShortcuts& shortcuts;
    };

    /// @p handOver: called with the arguments of a program that was started a second time.
    ControlService(AppDelegate& delegate, Parts parts, std::function<void(const QStringList&)> handOver);

    /// Takes the name. False when there is no bus or another instance has it.
    bool publish();
    /// Has the program that owns the name carry out @p arguments. False when none answers, or there is no bus.
    [[nodiscard]] static bool handOver(const QStringList& arguments);

public Q_SLOTS:
    void Toggle(const QDBusMessage& message);
    void Start(const QDBusMessage& message);
    void Stop(const QDBusMessage& message);
    void Cancel();
    [[nodiscard]] QString Status() const;
    void HandOver(const QStringList& arguments);

private:
    void refuse(const QDBusMessage& message, const QString& why);

    AppDelegate& delegate_;
    Parts parts_;
    std::function<void(const QStringList&)> handOver_;
};

} // namespace vantro
