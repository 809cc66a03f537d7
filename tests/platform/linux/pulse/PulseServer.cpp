#include "tests/platform/linux/pulse/PulseServer.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QProcessEnvironment>
#include <QStandardPaths>

#include <sys/types.h>

#include <csignal>
#include <stdexcept>

namespace vantro::testing {

namespace {

constexpr int patienceMs = 10'000;

} // namespace

PulseServer::PulseServer()
{
    // Nothing of the user's own server or settings.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "PULSE_RUNTIME_PATH", "PULSE_STATE_PATH"})
        environment.insert(QString::fromLatin1(name), folder_.path());
    environment.insert(QStringLiteral("PULSE_SERVER"), address());
    daemon_.setProcessEnvironment(environment);
}

PulseServer::~PulseServer()
{
    kill();
}

const char* PulseServer::reasonToSkip()
{
    for (const char* program : {"pulseaudio", "pactl", "paplay"}) {
        if (QStandardPaths::findExecutable(QString::fromLatin1(program)).isEmpty())
            return "pulseaudio and pulseaudio-utils are not installed (scripts/setup installs them)";
    }
    return nullptr;
}

QString PulseServer::address() const
{
    return QStringLiteral("unix:") + folder_.filePath(QStringLiteral("pulse/native"));
}

void PulseServer::start()
{
    QDir(folder_.path()).mkpath(QStringLiteral("pulse"));
    daemon_.start(QStringLiteral("pulseaudio"),
                  {QStringLiteral("--daemonize=no"), QStringLiteral("--exit-idle-time=-1"), QStringLiteral("-n"),
                   QStringLiteral("-L"),
                   QStringLiteral("module-native-protocol-unix auth-anonymous=1 socket=") +
                       folder_.filePath(QStringLiteral("pulse/native"))});
    if (!daemon_.waitForStarted(patienceMs))
        throw std::runtime_error("pulseaudio does not start");
    // A crashed server's socket lies there still, so only an answer tells.
    const QDeadlineTimer deadline(patienceMs);
    while (!tryControl({QStringLiteral("info")}) && !deadline.hasExpired())
        daemon_.waitForFinished(10);
    if (!isRunning() || deadline.hasExpired())
        throw std::runtime_error(daemon_.readAllStandardError().toStdString());
}

bool PulseServer::isRunning() const
{
    return daemon_.state() == QProcess::Running;
}

void PulseServer::kill()
{
    if (!isRunning())
        return;
    daemon_.kill();
    daemon_.waitForFinished(patienceMs);
}

void PulseServer::freeze()
{
    ::kill(static_cast<pid_t>(daemon_.processId()), SIGSTOP);
}

void PulseServer::thaw()
{
    ::kill(static_cast<pid_t>(daemon_.processId()), SIGCONT);
}

void PulseServer::addMicrophone(const QString& name, const QString& format)
{
    addLoudspeaker(name + QStringLiteral("_sink"), format);
    addSource(name, name + QStringLiteral("_sink"));
}

void PulseServer::addTwin(const QString& name, const QString& microphone)
{
    addSource(name, microphone + QStringLiteral("_sink"));
}

void PulseServer::addSource(const QString& name, const QString& sink)
{
    control({QStringLiteral("load-module"), QStringLiteral("module-remap-source"),
             QStringLiteral("master=%1.monitor").arg(sink), QStringLiteral("source_name=") + name,
             QStringLiteral("source_properties=device.description=\"The-%1\"").arg(name)});
}

void PulseServer::addLoudspeaker(const QString& name, const QString& format)
{
    control(QStringList{QStringLiteral("load-module"), QStringLiteral("module-null-sink"),
                        QStringLiteral("norewinds=1"), QStringLiteral("format=float32le"),
                        QStringLiteral("sink_name=") + name} +
            format.split(QLatin1Char(' ')));
}

void PulseServer::removeMicrophone(const QString& name)
{
    const QStringList modules =
        control({QStringLiteral("list"), QStringLiteral("short"), QStringLiteral("modules")}).split(QLatin1Char('\n'));
    for (const QString& module : modules) {
        if (module.contains(QStringLiteral("source_name=%1\t").arg(name)) ||
            module.contains(QStringLiteral("source_name=%1 ").arg(name)))
            control({QStringLiteral("unload-module"), module.section(QLatin1Char('\t'), 0, 0)});
    }
}

void PulseServer::setDefaultMicrophone(const QString& name)
{
    control({QStringLiteral("set-default-source"), name});
}

void PulseServer::suspendMicrophone(const QString& name, bool suspended)
{
    control({QStringLiteral("suspend-source"), name, suspended ? QStringLiteral("1") : QStringLiteral("0")});
}

std::unique_ptr<QProcess> PulseServer::play(const std::vector<float>& samples, int rateHz, int channelCount,
                                            const QString& microphone)
{
    QFile file(folder_.filePath(QStringLiteral("sound%1.raw").arg(++playCount_)));
    if (!file.open(QFile::WriteOnly))
        throw std::runtime_error("no file for the sound to play");
    file.write(reinterpret_cast<const char*>(samples.data()), static_cast<qint64>(samples.size() * sizeof(float)));
    file.close();
    auto player = std::make_unique<QProcess>();
    player->setProcessEnvironment(daemon_.processEnvironment());
    player->start(QStringLiteral("paplay"),
                  {QStringLiteral("--raw"), QStringLiteral("--format=float32le"), QStringLiteral("--latency-msec=200"),
                   QStringLiteral("--rate=%1").arg(rateHz), QStringLiteral("--channels=%1").arg(channelCount),
                   QStringLiteral("--device=%1_sink").arg(microphone), file.fileName()});
    if (!player->waitForStarted(patienceMs))
        throw std::runtime_error("paplay does not start");
    return player;
}

QString PulseServer::control(const QStringList& arguments)
{
    const auto output = tryControl(arguments);
    if (!output)
        throw std::runtime_error("pactl " + arguments.join(QLatin1Char(' ')).toStdString() + " failed");
    return *output;
}

std::optional<QString> PulseServer::tryControl(const QStringList& arguments)
{
    QProcess pactl;
    pactl.setProcessEnvironment(daemon_.processEnvironment());
    pactl.start(QStringLiteral("pactl"), arguments);
    if (!pactl.waitForFinished(patienceMs) || pactl.exitCode() != 0)
        return std::nullopt;
    return QString::fromUtf8(pactl.readAllStandardOutput());
}

} // namespace vantro::testing
