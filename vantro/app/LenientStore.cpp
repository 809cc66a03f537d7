#include "vantro/app/LenientStore.h"

#include "base/Error.h"
#include "base/Logger.h"

#include <utility>

namespace vantro {

std::optional<QString> LenientStore::takeProblem()
{
    return std::exchange(problem_, std::nullopt);
}

template <typename Save>
void LenientStore::attempt(const Save& save)
{
    try {
        save();
        hasLatest_ = true;
        isFailing_ = false;
        problem_.reset();
    } catch (const Error& error) {
        Logger("LenientStore").error(QStringLiteral("Not stored: ") + error.localizedDescription());
        if (!std::exchange(isFailing_, true))
            problem_ = error.localizedDescription();
    }
}

template <typename Save>
QUuid LenientStore::keep(const Save& save)
{
    QUuid id;
    hasLatest_ = false;
    const auto stored = std::exchange(stored_, {});
    if (isKeeping_())
        attempt([&] { id = save(); });
    if (stored && !id.isNull())
        stored(id);
    return id;
}

QUuid LenientStore::saveTranscription(const QString& transcription, const QString& formatted, ProcessingMode mode)
{
    return keep([&] { return store_.saveTranscription(transcription, formatted, mode); });
}

QUuid LenientStore::saveTranscription(const QString& transcription, ProcessingMode mode)
{
    return keep([&] { return store_.saveTranscription(transcription, mode); });
}

void LenientStore::updateFormatted(const QUuid& id, const QString& formatted)
{
    if (!id.isNull())
        attempt([&] { store_.updateFormatted(id, formatted); });
}

void LenientStore::setAside(const QUuid& id, const QString& answer, const QString& reason)
{
    if (!id.isNull())
        attempt([&] { store_.setAside(id, answer, reason); });
}

/// A note is kept in any case, since it goes nowhere else; what else may be kept of it depends on the user's wish.
QCoro::Task<QUuid> LenientStore::addNote(QString transcription)
{
    hasLatest_ = false;
    const auto stored = std::exchange(stored_, {});
    const auto adding = store_.addNote(std::move(transcription));
    const QUuid id = co_await adding;
    hasLatest_ = true;
    if (stored && isKeeping_())
        stored(id);
    co_return id;
}

QCoro::Task<> LenientStore::summarizeToday(std::shared_ptr<FormatRequestServicing> service)
{
    return store_.summarizeToday(std::move(service));
}

} // namespace vantro
