#pragma once

#include "platform/Pasteboard.h"
#include "vantro/store/HistoryListModel.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace vantro {

/// The view model of the history: the list, the selected dictation, and the one deleted last. Main thread; lives as
/// long as its window.
class HistoryModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its window")
    Q_PROPERTY(QAbstractListModel* list READ list CONSTANT)
    Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY searchChanged)
    Q_PROPERTY(bool hasSelection READ hasSelection NOTIFY selectionChanged)
    Q_PROPERTY(bool isFormatted READ isFormatted NOTIFY selectionChanged)
    Q_PROPERTY(QString rawText READ rawText NOTIFY selectionChanged)
    Q_PROPERTY(QString formattedText READ formattedText NOTIFY selectionChanged)
    Q_PROPERTY(QString details READ details NOTIFY selectionChanged)
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY undoChanged)
    Q_PROPERTY(QString problem READ problem NOTIFY problemChanged)
public:
    /// Both must outlive the model.
    HistoryModel(CoreDataStack& store, Pasteboard& pasteboard);

    [[nodiscard]] QAbstractListModel* list() { return &list_; }
    [[nodiscard]] QString search() const { return list_.searchText(); }
    void setSearch(const QString& text);
    [[nodiscard]] bool hasSelection() const { return selection_.has_value(); }
    [[nodiscard]] bool isFormatted() const { return selection_ && !selection_->formatted.isEmpty(); }
    [[nodiscard]] QString rawText() const { return selection_ ? selection_->transcription : QString(); }
    [[nodiscard]] QString formattedText() const { return selection_ ? selection_->formatted : QString(); }
    /// Date and mode.
    [[nodiscard]] QString details() const;
    [[nodiscard]] bool canUndo() const { return deleted_.has_value(); }
    /// Why the history could not be read or changed; otherwise empty.
    [[nodiscard]] QString problem() const { return problem_; }

    Q_INVOKABLE void select(const QUuid& identifier);
    Q_INVOKABLE void copy(const QString& text);
    Q_INVOKABLE void remove();
    Q_INVOKABLE void undo();
    /// A time for the list: only the time for today, otherwise only the date.
    Q_INVOKABLE QString shortTime(const QDateTime& time) const;

Q_SIGNALS:
    void searchChanged();
    void selectionChanged();
    void undoChanged();
    void problemChanged();

private:
    template <typename Change>
    void attempt(Change change);

    CoreDataStack& store_;
    Pasteboard& pasteboard_;
    HistoryListModel list_;
    std::optional<Transcription> selection_;
    std::optional<Transcription> deleted_;
    QString problem_;
};

} // namespace vantro
