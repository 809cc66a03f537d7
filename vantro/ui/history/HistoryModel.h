#pragma once

#include "platform/Pasteboard.h"
#include "vantro/store/HistoryListModel.h"
#include "vantro/ui/history/HistoryChanges.h"

#include <QObject>
#include <QPersistentModelIndex>
#include <QSet>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <optional>

namespace vantro {

/// The view model of the dictations: the filtered list, the chosen rows, one of which is current and read, and what can
/// be done with them. Main thread; lives as long as its window.
class HistoryModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its window")
    Q_PROPERTY(QAbstractListModel* list READ list CONSTANT)
    Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY filterChanged)
    Q_PROPERTY(QStringList modes READ modes CONSTANT)
    Q_PROPERTY(int mode READ mode WRITE setMode NOTIFY filterChanged)
    Q_PROPERTY(int period READ period WRITE setPeriod NOTIFY filterChanged)
    Q_PROPERTY(bool isFiltered READ isFiltered NOTIFY filterChanged)
    Q_PROPERTY(int currentRow READ currentRow NOTIFY selectionChanged)
    Q_PROPERTY(int chosenCount READ chosenCount NOTIFY selectionChanged)
    Q_PROPERTY(bool isFormatted READ isFormatted NOTIFY selectionChanged)
    Q_PROPERTY(QString rawText READ rawText NOTIFY selectionChanged)
    Q_PROPERTY(QString formattedText READ formattedText NOTIFY selectionChanged)
    Q_PROPERTY(QString details READ details NOTIFY selectionChanged)
public:
    struct Parts
    {
        CoreDataStack& store;
        Pasteboard& pasteboard;
        HistoryChanges& changes;
        Clock& clock;
        std::function<QString(ProcessingMode)> modeName; ///< as the user calls it
    };

    /// All parts must outlive the model.
    explicit HistoryModel(Parts parts);

    [[nodiscard]] QAbstractListModel* list() { return &list_; }
    [[nodiscard]] QString search() const { return list_.searchText(); }
    void setSearch(const QString& text);
    /// What the mode filter offers: all, each mode, and those that were not rewritten.
    [[nodiscard]] QStringList modes() const;
    [[nodiscard]] int mode() const { return mode_; }
    void setMode(int index);
    /// 0: any time, then today, the last 7 and the last 30 days.
    [[nodiscard]] int period() const { return period_; }
    void setPeriod(int index);
    [[nodiscard]] bool isFiltered() const { return !(list_.filter() == HistoryFilter()); }

    [[nodiscard]] int currentRow() const { return current_.isValid() ? current_.row() : -1; }
    [[nodiscard]] int chosenCount() const { return static_cast<int>(chosen_.size()); }
    [[nodiscard]] bool isFormatted() const { return shown_ && !shown_->formatted.isEmpty(); }
    [[nodiscard]] QString rawText() const { return shown_ ? shown_->transcription : QString(); }
    [[nodiscard]] QString formattedText() const { return shown_ ? shown_->formatted : QString(); }
    /// Date, time and mode of the current one.
    [[nodiscard]] QString details() const;

    /// Chooses one row and no other.
    Q_INVOKABLE void pick(int row);
    /// Chooses the rows from the one picked last up to @p row.
    Q_INVOKABLE void extendTo(int row);
    Q_INVOKABLE void toggle(int row);
    Q_INVOKABLE void chooseAll();
    Q_INVOKABLE bool isChosen(const QUuid& identifier) const { return chosen_.contains(identifier); }
    /// The row of the oldest one; reads the whole list.
    Q_INVOKABLE int lastRow();
    /// To the clipboard: @p shownText while one is chosen, otherwise the texts of all, oldest first.
    Q_INVOKABLE void copy(const QString& shownText);
    /// Deletes the chosen ones and picks the one after them.
    Q_INVOKABLE void remove();

    // For the rows of the list.
    Q_INVOKABLE QString timeOfDay(const QDateTime& time) const;
    Q_INVOKABLE QString modeName(const QString& rawValue) const;
    Q_INVOKABLE QString dayName(const QString& day) const;
    /// Whether a dictation's mode should have rewritten it, but did not.
    Q_INVOKABLE bool isUnrewritten(const QString& mode, bool isFormatted) const;
    /// @p line as Text.StyledText, with what is searched for in it marked.
    Q_INVOKABLE QString marked(const QString& line) const;

Q_SIGNALS:
    void filterChanged();
    void selectionChanged();

private:
    [[nodiscard]] QUuid identifierAt(int row) const;
    [[nodiscard]] QPersistentModelIndex rowAfterChosen() const;
    void makeCurrent(int row);
    void show(const QUuid& identifier);
    void restore(const std::vector<Transcription>& deleted);
    void keepCurrent(int row);
    void refresh(const QModelIndex& first, const QModelIndex& last);

    Parts parts_;
    HistoryListModel list_;
    int mode_ = 0;
    int period_ = 0;
    QSet<QUuid> chosen_;
    QPersistentModelIndex current_;
    QPersistentModelIndex anchor_;       ///< where a range begins
    std::optional<Transcription> shown_; ///< the current one
    bool isChangingMany_ = false;        ///< the selection follows afterwards
};

} // namespace vantro
