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

QString sinkOf(const QString& microphone)
{
    return microphone + QStringLiteral("_sink");
}

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
    const QDeadlineTimer deadline(patienceMs);
    while (!QFile::exists(folder_.filePath(QStringLiteral("pulse/native"))) && !deadline.hasExpired())
        daemon_.waitForFinished(10);
    if (!isRunning())
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
    addLoudspeaker(sinkOf(name) + QLatin1Char(' ') + format);
    control({QStringLiteral("load-module"), QStringLiteral("module-remap-source"),
             QStringLiteral("master=%1.monitor").arg(sinkOf(name)), QStringLiteral("source_name=") + name,
             QStringLiteral("source_properties=device.description=\"The-%1\"").arg(name)});
}

void PulseServer::addLoudspeaker(const QString& name)
{
    QStringList arguments{QStringLiteral("load-module"), QStringLiteral("module-null-sink"),
                          QStringLiteral("norewinds=1"), QStringLiteral("format=float32le")};
    arguments << (QStringLiteral("sink_name=") + name).split(QLatin1Char(' '));
    control(arguments);
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

std::unique_ptr<QProcess> PulseServer::play(const QString& path, const QString& microphone)
{
    auto player = std::make_unique<QProcess>();
    player->setProcessEnvironment(daemon_.processEnvironment());
    player->start(QStringLiteral("paplay"),
                  {QStringLiteral("--latency-msec=20"), QStringLiteral("--device=") + sinkOf(microphone), path});
    if (!player->waitForStarted(patienceMs))
        throw std::runtime_error("paplay does not start");
    return player;
}

QString PulseServer::control(const QStringList& arguments)
{
    QProcess pactl;
    pactl.setProcessEnvironment(daemon_.processEnvironment());
    pactl.start(QStringLiteral("pactl"), arguments);
    if (!pactl.waitForFinished(patienceMs) || pactl.exitCode() != 0)
        throw std::runtime_error("pactl " + arguments.join(QLatin1Char(' ')).toStdString() + ": " +
                                 pactl.readAllStandardError().toStdString());
    return QString::fromUtf8(pactl.readAllStandardOutput());
}

} // namespace vantro::testing
