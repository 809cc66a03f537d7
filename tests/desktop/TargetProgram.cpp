#include "tests/desktop/TargetProgram.h"

#include "tests/desktop/DesktopUser.h"

#include <QFile>

#include <csignal>
#include <stdexcept>

namespace vantro::desktop {

namespace {

QString contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

class QtEditor final : public TargetProgram
{
public:
    explicit QtEditor(const Workspace& workspace) { start(workspace, QStringLiteral(VANTRO_TEXT_TARGET), {path_}); }
    [[nodiscard]] QString text() override { return contentsOf(path_); }

private:
    QString path_ = folder_.filePath(QStringLiteral("text"));
};

class Xterm final : public TargetProgram
{
public:
    Xterm(const Workspace& workspace, const QString& pasteKey)
    {
        QStringList arguments{QStringLiteral("-u8")};
        if (!pasteKey.isEmpty())
            arguments
                << QStringLiteral("-xrm")
                << QStringLiteral("XTerm*VT100.translations: #override %1: insert-selection(CLIPBOARD)").arg(pasteKey);
        arguments << QStringLiteral("-e") << QStringLiteral("sh") << QStringLiteral("-c")
                  << QStringLiteral("stty -icanon -echo; exec cat >\"$0\"") << path_;
        start(workspace, QStringLiteral("xterm"), arguments);
        // Until its program has taken over, the terminal would echo.
        if (!eventually([this] { return QFile::exists(path_); }))
            throw std::runtime_error("xterm's program does not start");
    }
    [[nodiscard]] QString text() override { return contentsOf(path_); }

private:
    QString path_ = folder_.filePath(QStringLiteral("text"));
};

class Mousepad final : public TargetProgram
{
public:
    Mousepad(const Workspace& workspace, DesktopUser& user) : user_(user)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("GSETTINGS_BACKEND"), QStringLiteral("memory"));
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), folder_.path());
        environment.insert(QStringLiteral("NO_AT_BRIDGE"), QStringLiteral("1"));
        process_.setProcessEnvironment(environment);
        QFile file(path_);
        if (!file.open(QFile::WriteOnly))
            throw std::runtime_error("the document cannot be made");
        file.close();
        start(workspace, QStringLiteral("mousepad"), {QStringLiteral("--disable-server"), path_});
    }

    [[nodiscard]] QString text() override
    {
        constexpr unsigned s = 39;
        user_.setLayout(QStringLiteral("us"));
        user_.chord({Place::leftControl, s});
        return contentsOf(path_).trimmed();
    }

private:
    DesktopUser& user_;
    QString path_ = folder_.filePath(QStringLiteral("document.txt"));
};

} // namespace

std::unique_ptr<TargetProgram> TargetProgram::qtEditor(const Workspace& workspace)
{
    return std::make_unique<QtEditor>(workspace);
}

std::unique_ptr<TargetProgram> TargetProgram::xterm(const Workspace& workspace, const QString& pasteKey)
{
    return std::make_unique<Xterm>(workspace, pasteKey);
}

std::unique_ptr<TargetProgram> TargetProgram::mousepad(const Workspace& workspace, DesktopUser& user)
{
    return std::make_unique<Mousepad>(workspace, user);
}

TargetProgram::~TargetProgram()
{
    if (process_.state() != QProcess::NotRunning)
        close();
}

void TargetProgram::start(const Workspace& workspace, const QString& program, const QStringList& arguments)
{
    workspace_ = &workspace;
    const auto before = workspace.frontWindow();
    process_.setStandardOutputFile(QProcess::nullDevice());
    process_.setStandardErrorFile(folder_.filePath(QStringLiteral("log")));
    process_.start(program, arguments);
    const bool ready = eventually([&] {
        const auto front = workspace.frontWindow();
        return front && front != before && workspace.hasInputFocus(*front);
    });
    if (!ready)
        throw std::runtime_error(program.toStdString() + " does not come up: " +
                                 contentsOf(folder_.filePath(QStringLiteral("log"))).toStdString());
    window_ = *workspace.frontWindow();
}

void TargetProgram::freeze()
{
    ::kill(static_cast<pid_t>(process_.processId()), SIGSTOP);
}

void TargetProgram::thaw()
{
    ::kill(static_cast<pid_t>(process_.processId()), SIGCONT);
}

void TargetProgram::close()
{
    process_.kill();
    process_.waitForFinished();
    // The next program may well be given the same number for its window.
    eventually([this] { return !workspace_->windowExists(window_); });
}

} // namespace vantro::desktop
