#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <vector>

namespace vantro {

/// What the history's window does to the store: says why it failed, and takes deletions back, the latest first, as long
/// as the window is open. Main thread.
class HistoryChanges : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its window")
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY changed)
    Q_PROPERTY(QString problem READ problem NOTIFY changed)
public:
    /// Calls @p change, whose Error becomes the problem, printed after @p failure if there is one. Returns whether it
    /// succeeded.
    bool attempt(const std::function<void()>& change, const char* failure = nullptr);
    /// Something has been deleted, and @p restore brings it back.
    void addDeletion(std::function<void()> restore);
    void setProblem(const QString& problem);

    [[nodiscard]] bool canUndo() const { return !deletions_.empty(); }
    /// Why the latest change failed; empty when it did not.
    [[nodiscard]] QString problem() const { return problem_; }

    /// Takes back the latest deletion. One that cannot be taken back stays, to be tried again.
    Q_INVOKABLE void undo();

Q_SIGNALS:
    void changed();

private:
    std::vector<std::function<void()>> deletions_;
    QString problem_;
};

} // namespace vantro
