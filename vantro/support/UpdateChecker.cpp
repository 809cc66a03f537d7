#include "vantro/support/UpdateChecker.h"

#include "base/Error.h"
#include "base/Logger.h"
#include "base/Settings.h"

#include <QCoreApplication>
#include <QPointer>

#include <utility>

namespace vantro {

namespace {

enum UpdateButton { downloadButton, skipButton };

constexpr int ok = 200;

const Logger& logger()
{
    static const Logger instance("UpdateChecker");
    return instance;
}

QString manifestOf(const HttpAnswer& answer)
{
    if (answer.status != ok)
        throw Error(
            QCoreApplication::translate("UpdateChecker", "the server responded with status %1").arg(answer.status));
    return QString::fromUtf8(answer.body);
}

} // namespace

UpdateChecker::UpdateChecker(Parts parts) : parts_(std::move(parts)) {}

QCoro::Task<> UpdateChecker::check(Asker asker)
{
    userAsks_ = userAsks_ || asker == Asker::user;
    if (isChecking_ || isShowingAlert_)
        co_return;
    const QPointer<UpdateChecker> self(this);
    setChecking(true);
    // Created per check: so rare a request is not worth a permanent connection and thread.
    http_.emplace(parts_.clock);
    const auto fetched = fetch();
    const std::optional<UpdateInfo> update = co_await fetched;
    if (!self)
        co_return;
    http_.reset();
    setChecking(false);
    const bool byUser = std::exchange(userAsks_, false);
    if (!update)
        co_return;
    if (isNewerVersion(update->version, parts_.currentVersion)) {
        if (byUser || !isSkipped(*update))
            showUpdateAlert(*update);
    } else if (byUser) {
        showUpToDateAlert();
    }
}

QCoro::Task<std::optional<UpdateInfo>> UpdateChecker::fetch()
{
    HttpRequest request;
    request.url = parts_.manifest;
    request.timeout = parts_.patience;
    const HttpExchange::Reader read = &manifestOf;
    std::optional<UpdateInfo> update;
    try {
        const QString manifest = co_await http_->send(request, read, std::stop_token());
        update = UpdateInfo::fromJson(manifest.toUtf8());
        if (!update)
            logger().info(QStringLiteral("The update manifest is invalid"));
    } catch (const Error& error) {
        logger().info(QStringLiteral("No update manifest: ") + error.localizedDescription());
    }
    co_return update;
}

bool UpdateChecker::isSkipped(const UpdateInfo& update) const
{
    return parts_.defaults.stored(setting::skippedUpdateVersion) == update.version;
}

void UpdateChecker::setChecking(bool checking)
{
    isChecking_ = checking;
    Q_EMIT isCheckingChanged();
}

void UpdateChecker::showUpdateAlert(const UpdateInfo& update)
{
    isShowingAlert_ = true;
    QString text = tr("You have version %1.").arg(parts_.currentVersion);
    if (!update.notes.isEmpty())
        text += QStringLiteral("\n\n") + update.notes;
    parts_.showAlert(
        {tr("vantro %1 is available").arg(update.version), text, {tr("Download"), tr("Skip This Version")}},
        [self = QPointer(this), update](std::optional<int> button) {
            if (self)
                self->answer(update, button);
        });
}

void UpdateChecker::answer(const UpdateInfo& update, std::optional<int> button)
{
    // Only pages that cannot be tampered with in transit.
    if (button == downloadButton && update.url.scheme() == QLatin1String("https"))
        parts_.workspace.openUrl(update.url.toString(QUrl::FullyEncoded));
    else if (button == skipButton)
        parts_.defaults.set(setting::skippedUpdateVersion, update.version);
    isShowingAlert_ = false;
    userAsks_ = false;
}

void UpdateChecker::showUpToDateAlert()
{
    isShowingAlert_ = true;
    parts_.showAlert(
        {tr("You're up to date"), tr("vantro %1 is the latest version.").arg(parts_.currentVersion), {tr("OK")}},
        [self = QPointer(this)](std::optional<int>) {
            if (self)
                self->isShowingAlert_ = self->userAsks_ = false;
        });
}

} // namespace vantro
