#include "vantro/ui/history/HistoryChanges.h"

#include "base/Error.h"
#include "base/Logger.h"

#include <QPointer>

#include <utility>

namespace vantro {

bool HistoryChanges::attempt(const std::function<void()>& change, const char* failure)
{
    QString problem;
    try {
        change();
    } catch (const Error& error) {
        problem = error.localizedDescription();
        if (failure != nullptr)
            printLine(QLatin1String(failure) + problem);
    }
    setProblem(problem);
    return problem.isEmpty();
}

namespace {

QCoro::Task<> call(std::function<void()> action)
{
    action();
    co_return;
}

} // namespace

void HistoryChanges::add(const QString& done, const std::function<void()>& undo)
{
    addLong(done, [undo] { return call(undo); });
}

void HistoryChanges::addLong(const QString& done, Undo undo)
{
    undos_.push_back({done, std::move(undo)});
    Q_EMIT changed();
}

void HistoryChanges::setProblem(const QString& problem)
{
    problem_ = problem;
    Q_EMIT changed();
}

void HistoryChanges::setWork(const QString& work)
{
    work_ = work;
    Q_EMIT changed();
}

QCoro::Task<> HistoryChanges::undoLatest()
{
    if (!canUndo())
        co_return;
    const QPointer<HistoryChanges> self(this);
    const Undo undo = undos_.back().undo;
    QString problem;
    try {
        const auto undoing = undo();
        co_await undoing;
    } catch (const Error& error) {
        problem = error.localizedDescription();
    }
    if (!self)
        co_return;
    if (problem.isEmpty())
        undos_.pop_back();
    setProblem(problem);
}

} // namespace vantro
