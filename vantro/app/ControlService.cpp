#include "vantro/app/ControlService.h"

#include "vantro/app/AppDelegate.h"
#include "vantro/audio/AudioRecorder.h"

#include <QDBusConnection>
#include <QJsonDocument>

#include <chrono>
#include <utility>

namespace vantro {

namespace {

constexpr std::chrono::milliseconds answerLimit{5000};

} // namespace

ControlService::ControlService(AppDelegate& delegate, AudioRecorder& recorder, std::function<QJsonObject()> details,
                               std::function<void(const QStringList&)> handOver)
    : QDBusAbstractAdaptor(&delegate)
    , delegate_(delegate)
    , recorder_(recorder)
    , details_(std::move(details))
    , handOver_(std::move(handOver))
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
    if (recorder_.isRecording())
        Stop(message);
    else
        Start(message);
}

void ControlService::Start(const QDBusMessage& message)
{
    if (recorder_.isBusy()) {
        refuse(message, tr("a dictation is under way"));
        return;
    }
    delegate_.showLauncherAndRecord();
    if (!recorder_.isRecording())
        refuse(message, tr("the recording could not start; the program's window tells why"));
}

void ControlService::Stop(const QDBusMessage& message)
{
    if (!recorder_.isRecording())
        refuse(message, tr("nothing is being recorded"));
    else
        delegate_.stopRecording();
}

void ControlService::Cancel()
{
    delegate_.cancelDictation();
}

QString ControlService::Status() const
{
    QJsonObject status = details_();
    status.insert(QStringLiteral("state"), recorder_.isRecording() ? QStringLiteral("recording")
                                           : recorder_.isBusy()    ? QStringLiteral("processing")
                                                                   : QStringLiteral("idle"));
    status.insert(QStringLiteral("mode"), rawValue(recorder_.processingMode()));
    return QString::fromUtf8(QJsonDocument(status).toJson(QJsonDocument::Compact));
}

void ControlService::HandOver(const QStringList& arguments)
{
    handOver_(arguments);
}

void ControlService::refuse(const QDBusMessage& message, const QString& why)
{
    message.setDelayedReply(true);
    QDBusConnection::sessionBus().send(message.createErrorReply(QStringLiteral("com.vantro.Error.Refused"), why));
}

} // namespace vantro
