#include "vantro/ui/history/HistoryChanges.h"

#include "base/Error.h"
#include "base/Logger.h"

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

void HistoryChanges::addDeletion(std::function<void()> restore)
{
    deletions_.push_back(std::move(restore));
    Q_EMIT changed();
}

void HistoryChanges::setProblem(const QString& problem)
{
    problem_ = problem;
    Q_EMIT changed();
}

void HistoryChanges::undo()
{
    if (deletions_.empty() || !attempt(deletions_.back()))
        return;
    deletions_.pop_back();
    Q_EMIT changed();
}

} // namespace vantro
