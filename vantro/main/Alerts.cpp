#include "vantro/main/Alerts.h"

#include "base/Logger.h"
#include "vantro/support/SupportMail.h"

#include "generated/Product.h"

#include <utility>

namespace vantro {

Alerts::Alerts(QQmlEngine& engine, Clock& clock, const UserDefaults& defaults, const Platform& platform, WhenIdle& idle)
    : engine_(engine)
    , clock_(clock)
    , platform_(platform)
    , idle_(idle)
{
    // Queued: code that changes a setting does not expect a window to open meanwhile.
    connect(&defaults, &UserDefaults::writeFailed, this, &Alerts::tellOfUnsavedSettings, Qt::QueuedConnection);
}

void Alerts::show(AlertWindow::Kind kind, const QString& title, const QString& text, const QStringList& buttons,
                  AlertWindow::Answered answered)
{
    show({.kind = kind, .title = title, .text = text, .buttons = buttons}, std::move(answered));
}

void Alerts::show(const AlertWindow::Contents& contents, AlertWindow::Answered answered)
{
    Logger("Alert").info(QStringLiteral("%1: %2").arg(contents.title, contents.text.simplified()));
    idle_.run([this, contents, answered = std::move(answered)] {
        if (contents.about && contents.about->isNull())
            return;
        window(contents, answered)->presentUnasked();
    });
}

/// Deletes itself when it is closed.
AlertWindow* Alerts::window(const AlertWindow::Contents& contents, const AlertWindow::Answered& answered)
{
    if (answered)
        return new AlertWindow(engine_, clock_, contents, answered);
    told_.removeIf([](const auto& entry) { return entry.value().isNull() || !entry.value()->isVisible(); });
    QPointer<AlertWindow>& alert = told_[contents.title + QLatin1Char('\n') + contents.text];
    if (alert.isNull())
        alert = new AlertWindow(engine_, clock_, contents);
    return alert;
}

void Alerts::confirm(const QString& title, const QString& question, const QString& verb,
                     std::function<void()> confirmed)
{
    show({.title = title, .text = question, .buttons = {verb, tr("Cancel")}, .safeButton = 1},
         [confirmed = std::move(confirmed)](std::optional<int> button) {
             if (button == 0)
                 confirmed();
         });
}

UpdateChecker::ShowAlert Alerts::forUpdates()
{
    return [this](const UpdateChecker::Alert& alert, UpdateChecker::Answered answered) {
        show(AlertWindow::Kind::informational, alert.message, alert.informativeText, alert.buttons,
             std::move(answered));
    };
}

void Alerts::reportError()
{
    const QString address = QLatin1String(product::supportAddress);
    openMail(mail::errorReportUrl(address, QStringLiteral(VANTRO_VERSION), *platform_.systemInfo), address);
}

void Alerts::sendFeedback()
{
    const QString address = QLatin1String(product::feedbackAddress);
    openMail(mail::feedbackUrl(address), address);
}

void Alerts::tellOfCrash()
{
    show(AlertWindow::Kind::warning, tr("vantro ended unexpectedly"),
         tr("It is running again. Your earlier dictations are in the history."), {tr("OK"), tr("Report an Error")},
         [this](std::optional<int> button) {
             if (button == 1)
                 reportError();
         });
}

void Alerts::tellOfSettings(const KeptAside& settings)
{
    const QString why = settings.reason == KeptAside::Reason::newer
                            ? tr("The settings file comes from a newer version of vantro.")
                            : tr("The settings file was damaged.");
    show(AlertWindow::Kind::warning, tr("Some settings could not be read"),
         why + QLatin1Char(' ') +
             tr("Everything readable is still in force. A copy of the file is kept as %1.").arg(settings.file));
}

void Alerts::tellOfUnsavedSettings(const QString& file)
{
    if (std::exchange(hasToldOfUnsavedSettings_, true))
        return;
    show(AlertWindow::Kind::warning, tr("Settings Not Saved"),
         tr("The settings file %1 cannot be written. Your changes last until vantro quits.").arg(file));
}

void Alerts::openMail(const QString& url, const QString& address)
{
    if (platform_.workspace->openUrl(url))
        return;
    show(AlertWindow::Kind::warning, tr("No Mail Program"),
         tr("No mail program could be started. Please write to %1.").arg(address), {tr("OK")});
}

} // namespace vantro
