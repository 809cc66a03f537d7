#include "vantro/app/ControlService.h"

#include "vantro/app/AppDelegate.h"
#include "vantro/audio/AudioDeviceManager.h"
#include "vantro/audio/AudioRecorder.h"

#include <QDBusConnection>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <chrono>
#include <utility>

namespace vantro {

namespace {

constexpr std::chrono::milliseconds answerLimit{5000};

} // namespace

ControlService::ControlService(AppDelegate& delegate, Parts parts, Actions actions)
    : QDBusAbstractAdaptor(&delegate)
    , delegate_(delegate)
    , parts_(parts)
    , actions_(std::move(actions))
{
}

bool ControlService::publish()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    return bus.isConnected() && bus.registerObject(objectPath(), &delegate_) && bus.registerService(busName());
}

bool ControlService::handOver(const QStringList& arguments)
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return false;
    QDBusMessage call =
        QDBusMessage::createMethodCall(busName(), objectPath(), interfaceName(), QStringLiteral("HandOver"));
    call.setAutoStartService(false);
    call << arguments;
    return bus.call(call, QDBus::Block, static_cast<int>(answerLimit.count())).type() == QDBusMessage::ReplyMessage;
}

void ControlService::Toggle(const QDBusMessage& message)
{
    if (parts_.recorder.isRecording())
        Stop(message);
    else if (!delegate_.takeCancelBack())
        Start(message);
}

void ControlService::Start(const QDBusMessage& message)
{
    std::ignore = begin(message);
}

void ControlService::StartWith(const QString& mode, const QString& model, const QDBusMessage& message)
{
    const auto wantedMode = processingModeFromRawValue(mode);
    const auto* wantedModel = model.isEmpty() ? nullptr : parts_.models.catalogue().match(model);
    if (!mode.isEmpty() && (!wantedMode || !actions_.isUsable(*wantedMode))) {
        refuse(message, tr("the mode %1 is not set up").arg(mode));
        return;
    }
    if (!model.isEmpty() && wantedModel == nullptr) {
        refuse(message, tr("there is no model %1").arg(model));
        return;
    }
    if (reasonNotToStart().isEmpty())
        parts_.models.prefer(wantedModel);
    const auto dictation = begin(message).lock();
    if (!dictation) {
        if (!parts_.recorder.isBusy())
            parts_.models.prefer(nullptr);
        return;
    }
    if (wantedMode)
        parts_.recorder.setProcessingMode(*wantedMode);
    connect(dictation.get(), &Dictation::stateChanged, this, [this, over = dictation.get()] {
        if (over->isOver())
            parts_.models.prefer(nullptr);
    });
}

QString ControlService::reasonNotToStart() const
{
    if (parts_.recorder.isBusy())
        return tr("a dictation is already in progress");
    return delegate_.isUserAway() ? tr("the screen is locked, or another session is in front") : QString();
}

/// Starts a dictation, or refuses the call if that fails.
std::weak_ptr<Dictation> ControlService::begin(const QDBusMessage& message)
{
    if (const QString reason = reasonNotToStart(); !reason.isEmpty()) {
        refuse(message, reason);
        return {};
    }
    auto dictation = delegate_.showLauncherAndRecord();
    if (!parts_.recorder.isRecording()) {
        refuse(message, tr("the recording could not start; see the program's window"));
        return {};
    }
    return dictation;
}

void ControlService::Stop(const QDBusMessage& message)
{
    if (!parts_.recorder.isRecording())
        refuse(message, tr("nothing is being recorded"));
    else
        delegate_.stopRecording();
}

void ControlService::Cancel()
{
    delegate_.cancelDictation();
}

void ControlService::PasteOriginal(const QDBusMessage& message)
{
    if (const QString reason = delegate_.pasteOriginal(); !reason.isEmpty())
        refuse(message, reason);
}

QString ControlService::Retry(const QDBusMessage& message)
{
    message.setDelayedReply(true);
    answerRetry(message);
    return {};
}

void ControlService::DiscardKept(const QDBusMessage& message)
{
    message.setDelayedReply(true);
    answerDiscard(message);
}

QCoro::Task<> ControlService::answerRetry(QDBusMessage message)
{
    if (parts_.recorder.isBusy()) {
        refuse(message, tr("a dictation is already in progress"));
        co_return;
    }
    try {
        const QString text = co_await parts_.recovery.transcribeAll();
        QDBusConnection::sessionBus().send(message.createReply(text));
    } catch (const NothingKept& error) {
        QDBusConnection::sessionBus().send(message.createErrorReply(nothingKept(), error.localizedDescription()));
    } catch (const Error& error) {
        refuse(message, error.localizedDescription());
    }
}

QCoro::Task<> ControlService::answerDiscard(QDBusMessage message)
{
    try {
        co_await parts_.recovery.discardAll();
        QDBusConnection::sessionBus().send(message.createReply());
    } catch (const NothingKept& error) {
        QDBusConnection::sessionBus().send(message.createErrorReply(nothingKept(), error.localizedDescription()));
    }
}

void ControlService::Quit()
{
    // Later: the caller is answered first.
    QMetaObject::invokeMethod(this, actions_.quit, Qt::QueuedConnection);
}

QString ControlService::Status() const
{
    const AudioRecorder& recorder = parts_.recorder;
    const auto name = KeyboardShortcuts::Name::openModal;
    const auto shortcut = parts_.shortcuts.shortcut(name);
    const auto* model = parts_.models.stored();
    QJsonObject status{{QStringLiteral("state"), recorder.isRecording() ? QStringLiteral("recording")
                                                 : recorder.isBusy()    ? QStringLiteral("processing")
                                                                        : QStringLiteral("idle")},
                       {QStringLiteral("mode"), rawValue(recorder.processingMode())},
                       {QStringLiteral("model"), model != nullptr ? model->name : QString()},
                       {QStringLiteral("microphone"), parts_.devices.effectiveDeviceName()},
                       {QStringLiteral("shortcut"), shortcut ? shortcut->displayText() : QString()},
                       {QStringLiteral("version"), QStringLiteral(VANTRO_VERSION)},
                       {QStringLiteral("desktop"), parts_.ways.desktop},
                       {QStringLiteral("shortcut_by"), parts_.shortcuts.way()},
                       {QStringLiteral("clipboard_by"), parts_.ways.clipboard},
                       {QStringLiteral("paste_by"), parts_.ways.paste},
                       {QStringLiteral("panel_by"), parts_.ways.panel},
                       {QStringLiteral("windows_by"), parts_.ways.windows},
                       {QStringLiteral("missing"), QJsonArray::fromStringList(parts_.ways.missing)},
                       {QStringLiteral("last"), delegate_.timings().toJson()}};
    if (const auto failure = parts_.shortcuts.failure(name))
        status.insert(QStringLiteral("shortcut_failure"), *failure);
    if (const auto binding = parts_.shortcuts.howToBind(name))
        status.insert(QStringLiteral("how_to_bind"), *binding);
    return QString::fromUtf8(QJsonDocument(status).toJson(QJsonDocument::Compact));
}

void ControlService::HandOver(const QStringList& arguments)
{
    actions_.handOver(arguments);
}

void ControlService::Show(const QString& window, const QDBusMessage& message)
{
    if (!actions_.showWindow(window))
        refuse(message, tr("there is no window %1").arg(window));
}

void ControlService::refuse(const QDBusMessage& message, const QString& why)
{
    message.setDelayedReply(true);
    QDBusConnection::sessionBus().send(message.createErrorReply(QStringLiteral("com.vantro.Error.Refused"), why));
}

} // namespace vantro
