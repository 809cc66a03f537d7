#include "tests/platform/linux/pulse/PulseServer.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <csignal>
#include <span>
#include <stdexcept>

using namespace std::chrono_literals;

namespace vantro::testing {

namespace {

constexpr auto patience = 10s;

// A microphone's sink and a loudspeaker have the same kind of name, so both can be played into.
QString sinkOf(const QString& name)
{
    return name + QStringLiteral("_sink");
}

} // namespace

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

// Nothing of the user's own server or settings.
QStringList PulseServer::environment() const
{
    QStringList variables{QStringLiteral("PULSE_SERVER=") + address()};
    for (const char* name : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "PULSE_RUNTIME_PATH", "PULSE_STATE_PATH"})
        variables << QString::fromLatin1(name) + QLatin1Char('=') + folder_.path();
    return variables;
}

void PulseServer::start()
{
    const QString socket = folder_.filePath(QStringLiteral("pulse/native"));
    QDir(folder_.path()).mkpath(QStringLiteral("pulse"));
    daemon_ = std::make_unique<ChildProcess>(
        QStringList{QStringLiteral("pulseaudio"), QStringLiteral("--daemonize=no"),
                    QStringLiteral("--exit-idle-time=-1"), QStringLiteral("-n"), QStringLiteral("-L"),
                    QStringLiteral("module-native-protocol-unix auth-anonymous=1 socket=") + socket},
        environment());
    // A crashed server's socket lies there still, so only an answer tells.
    const QDeadlineTimer deadline(patience);
    while (!tryControl({QStringLiteral("info")})) {
        if (daemon_->waitForEnd(10ms) || deadline.hasExpired())
            throw std::runtime_error("pulseaudio does not start");
    }
}

void PulseServer::freeze()
{
    daemon_->signal(SIGSTOP);
}

void PulseServer::thaw()
{
    daemon_->signal(SIGCONT);
}

void PulseServer::addMicrophone(const QString& name, const QString& format)
{
    addLoudspeaker(name, format);
    addSource(name, sinkOf(name));
}

void PulseServer::addTwin(const QString& name, const QString& microphone)
{
    addSource(name, sinkOf(microphone));
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
                        QStringLiteral("sink_name=") + sinkOf(name)} +
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

std::unique_ptr<ChildProcess> PulseServer::play(const std::vector<float>& samples, int rateHz, int channelCount,
                                                const QString& name)
{
    QFile file(folder_.filePath(QStringLiteral("sound%1.raw").arg(++playCount_)));
    if (!file.open(QFile::WriteOnly))
        throw std::runtime_error("no file for the sound to play");
    const auto bytes = std::as_bytes(std::span(samples));
    file.write(reinterpret_cast<const char*>(bytes.data()), std::ssize(bytes));
    file.close();
    return std::make_unique<ChildProcess>(
        QStringList{QStringLiteral("paplay"), QStringLiteral("--raw"), QStringLiteral("--format=float32le"),
                    QStringLiteral("--latency-msec=200"), QStringLiteral("--rate=%1").arg(rateHz),
                    QStringLiteral("--channels=%1").arg(channelCount), QStringLiteral("--device=") + sinkOf(name),
                    file.fileName()},
        environment());
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
    QFile output(folder_.filePath(QStringLiteral("pactl.txt")));
    ChildProcess pactl(QStringList{QStringLiteral("pactl")} + arguments, environment(), output.fileName());
    if (!pactl.waitForEnd(patience) || pactl.exitCode() != 0 || !output.open(QFile::ReadOnly))
        return std::nullopt;
    return QString::fromUtf8(output.readAll());
}

} // namespace vantro::testing
