#include "vantro/support/UpdateChecker.h"

#include "base/Logger.h"
#include "base/Settings.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPointer>
#include <QScopedPointer>
#include <qcoro/qcoronetworkreply.h>

#include <utility>

namespace vantro {

namespace {

enum UpdateButton { downloadButton, skipButton };

constexpr qint64 mostManifestBytes = 1024 * 1024;
constexpr int ok = 200;

const Logger& logger()
{
    static const Logger instance("UpdateChecker");
    return instance;
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
    const auto fetched = fetch();
    const std::optional<UpdateInfo> update = co_await fetched;
    if (!self)
        co_return;
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
    // Made for one request: a program that asks once a day keeps no connections, caches and threads for it.
    // It goes later, for it ends the waiting from the middle of its own work.
    const QScopedPointer<QNetworkAccessManager, QScopedPointerDeleteLater> network(new QNetworkAccessManager);
    QNetworkRequest request(parts_.manifest);
    request.setTransferTimeout(static_cast<int>(parts_.patience.count()));
    request.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("vantro/") + parts_.currentVersion);
    QNetworkReply* const reply = network->get(request); // the manager's
    QObject::connect(reply, &QNetworkReply::downloadProgress, reply, [reply](qint64 received) {
        if (received > mostManifestBytes)
            reply->abort();
    });
    co_await reply;

    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (reply->error() != QNetworkReply::NoError || status != ok) {
        logger().info(QStringLiteral("No update manifest: %1 (status %2)").arg(reply->errorString()).arg(status));
        co_return std::nullopt;
    }
    auto update = UpdateInfo::fromJson(reply->readAll());
    if (!update)
        logger().info(QStringLiteral("The update manifest is not what it should be"));
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
    QString text = tr("You have %1.").arg(parts_.currentVersion);
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
    // Never a page that somebody on the way could have replaced.
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
