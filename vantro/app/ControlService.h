#pragma once

#include "platform/DesktopWays.h"
#include "vantro/ai/ProcessingMode.h"

#include <QDBusAbstractAdaptor>
#include <QDBusMessage>
#include <QString>
#include <qcoro/qcorotask.h>

#include <functional>
#include <memory>

namespace vantro {

class AppDelegate;
class AudioDeviceManager;
class AudioRecorder;
class Dictation;
class KeyboardShortcuts;
class ModelSelection;
class Recovery;

/// The running program's D-Bus interface, used by commands such as "vantro toggle" and by a second start to pass on its
/// arguments. Main thread.
class ControlService final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.vantro.Control")
public:
    static QString busName() { return QStringLiteral("com.vantro.app"); }
    static QString objectPath() { return QStringLiteral("/com/vantro/app"); }
    static QString interfaceName() { return QStringLiteral("com.vantro.Control"); }
    /// The error of a call that finds no kept recording.
    static QString nothingKept() { return QStringLiteral("com.vantro.Error.NothingKept"); }

    struct Parts
    {
        AudioRecorder& recorder;
        const AudioDeviceManager& devices;
        ModelSelection& models;
        const KeyboardShortcuts& shortcuts;
        Recovery& recovery;
        const DesktopWays& ways;
    };
    /// What the rest of the program does for it.
    struct Actions
    {
        std::function<void(const QStringList&)> handOver; ///< called with the arguments of a second start
        std::function<bool(const QString&)> showWindow;   ///< false when there is none of that name
        std::function<bool(ProcessingMode)> isUsable;     ///< whether a mode is set up
        std::function<void()> quit;
    };

    ControlService(AppDelegate& delegate, Parts parts, Actions actions);

    /// Claims the bus name. False when there is no bus or another instance owns it.
    bool publish();
    /// Passes @p arguments to the program that owns the name. False when there is no bus or it does not answer within 5
    /// s. Blocks.
    [[nodiscard]] static bool handOver(const QStringList& arguments);

public Q_SLOTS:
    /// As the shortcut, which may be a desktop's own binding to the command.
    void Toggle(const QDBusMessage& message);
    void Start(const QDBusMessage& message);
    /// The same in a mode and with a model, each unless it is empty, for this dictation.
    void StartWith(const QString& mode, const QString& model, const QDBusMessage& message);
    void Quit();
    void Stop(const QDBusMessage& message);
    void Cancel();
    void PasteOriginal(const QDBusMessage& message);
    QString Retry(const QDBusMessage& message);
    void DiscardKept(const QDBusMessage& message);
    [[nodiscard]] QString Status() const;
    void HandOver(const QStringList& arguments);
    void Show(const QString& window, const QDBusMessage& message);

private:
    [[nodiscard]] QString reasonNotToStart() const;
    [[nodiscard]] std::weak_ptr<Dictation> begin(const QDBusMessage& message);
    QCoro::Task<> answerRetry(QDBusMessage message);
    QCoro::Task<> answerDiscard(QDBusMessage message);
    void refuse(const QDBusMessage& message, const QString& why);

    AppDelegate& delegate_;
    Parts parts_;
    Actions actions_;
};

} // namespace vantro
