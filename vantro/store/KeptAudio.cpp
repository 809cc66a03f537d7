#include "vantro/store/KeptAudio.h"

#include "base/Logger.h"
#include "base/Settings.h"
#include "vantro/store/Retention.h"
#include "vantro/store/TranscriptionFetch.h"

#include <QPointer>
#include <QSet>

#include <algorithm>
#include <iterator>
#include <utility>

namespace vantro {

namespace {

constexpr std::chrono::hours aDay{24};
constexpr qint64 megabyte = 1'000'000;

std::vector<QUuid> noteIdentities(const PersistentContainer& container)
{
    std::vector<QUuid> ids;
    StoreQuery query = container.run(QStringLiteral("SELECT id FROM Note"), {});
    while (query.next())
        ids.emplace_back(query.value(0).toString());
    return ids;
}

} // namespace

KeptAudio::KeptAudio(UserDefaults& defaults, CoreDataStack& store, Clock& clock)
    : defaults_(defaults)
    , store_(store)
    , clock_(clock)
    , folder_(store.persistentContainer().path())
{
}

void KeptAudio::start()
{
    const auto follow = [this](const QString& key) {
        if (key == setting::keepRecordings.key || key == setting::keepRecordingsMegabytes.key)
            enforce();
    };
    connect(&defaults_, &UserDefaults::changed, this, follow, Qt::QueuedConnection);
    sweep();
    enforceDaily();
}

void KeptAudio::enforceDaily()
{
    enforce();
    clock_.callAfter(aDay, this, [this] { enforceDaily(); });
}

bool KeptAudio::isKeeping() const
{
    return Retention::daysFrom(defaults_.get(setting::keepRecordings)) != 0;
}

AudioFolder::Limits KeptAudio::limits(std::optional<int> days, qint64 megabytes) const
{
    return {days ? clock_.wallClock().addDays(-*days) : QDateTime(), megabytes * megabyte, days == 0};
}

AudioFolder::Limits KeptAudio::limits() const
{
    return limits(Retention::daysFrom(defaults_.get(setting::keepRecordings)),
                  defaults_.get(setting::keepRecordingsMegabytes));
}

QCoro::Task<> KeptAudio::keep(QUuid id, std::vector<float> samples)
{
    const QPointer<KeptAudio> self(this);
    QString problem;
    try {
        const auto writing =
            executor_.run([folder = folder_, id, samples = std::move(samples)] { folder.write(id, samples); });
        co_await writing;
    } catch (const Error& error) {
        problem = error.localizedDescription();
    }
    if (!self)
        co_return;
    tell(problem);
    if (!isWanted(id))
        std::ignore = executor_.run([folder = folder_, id] { folder.remove({id}); });
    enforce();
}

/// A dictation or note may be deleted while its recording is written.
bool KeptAudio::isWanted(const QUuid& id) const
{
    try {
        return isKeeping() && (store_.transcription(id) || store_.hasNote(id));
    } catch (const Error&) {
        return true; // the next sweep() will know
    }
}

void KeptAudio::tell(const QString& problem)
{
    if (!problem.isEmpty())
        Logger("KeptAudio").error(QStringLiteral("Recording not kept: ") + problem);
    if (std::exchange(isFailing_, !problem.isEmpty()) || problem.isEmpty())
        return;
    Q_EMIT failed(problem);
}

QCoro::Task<> KeptAudio::enforce()
{
    const QPointer<KeptAudio> self(this);
    const auto enforcing =
        executor_.run([folder = folder_, limits = limits()] { folder.remove(folder.beyond(limits)); });
    co_await enforcing;
    if (self)
        Q_EMIT changed();
}

/// The recordings are listed before the dictations are: each of them comes after its dictation.
QCoro::Task<> KeptAudio::sweep()
{
    const auto sweeping = executor_.run([folder = folder_, path = store_.persistentContainer().path()] {
        folder.removeUnfinished();
        std::vector<QUuid> lost = folder.identities();
        if (lost.empty())
            return;
        PersistentContainer container(path);
        container.load();
        auto known = TranscriptionFetch(container, {}).identities();
        std::ranges::copy(noteIdentities(container), std::back_inserter(known));
        std::erase_if(lost,
                      [kept = QSet<QUuid>(known.begin(), known.end())](const QUuid& id) { return kept.contains(id); });
        folder.remove(lost);
    });
    const QPointer<KeptAudio> self(this);
    try {
        co_await sweeping;
        if (self)
            Q_EMIT changed();
    } catch (const Error& error) {
        Logger("KeptAudio").error(QStringLiteral("Recordings not looked through: ") + error.localizedDescription());
    }
}

} // namespace vantro
