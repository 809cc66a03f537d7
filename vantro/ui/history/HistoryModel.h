#pragma once

#include "platform/Pasteboard.h"
#include "vantro/store/HistoryJobs.h"
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
    Q_PROPERTY(QUuid currentIdentifier READ currentIdentifier NOTIFY selectionChanged)
    Q_PROPERTY(QString rawText READ rawText NOTIFY selectionChanged)
    Q_PROPERTY(QString formattedText READ formattedText NOTIFY selectionChanged)
    Q_PROPERTY(QString setAside READ setAside NOTIFY selectionChanged)
    Q_PROPERTY(QString setAsideReason READ setAsideReason NOTIFY selectionChanged)
    Q_PROPERTY(QString details READ details NOTIFY selectionChanged)
    Q_PROPERTY(bool isEditing READ isEditing NOTIFY selectionChanged)
    Q_PROPERTY(QStringList rewritingModes READ rewritingModes NOTIFY selectionChanged)
    Q_PROPERTY(QStringList speechModels READ speechModels NOTIFY selectionChanged)
public:
    struct Parts
    {
        CoreDataStack& store;
        HistoryJobs& jobs;
        Pasteboard& pasteboard;
        HistoryChanges& changes;
        Clock& clock;
        std::function<QString(ProcessingMode)> modeName;                      ///< as the user calls it
        std::function<std::vector<ProcessingMode>()> modes;                   ///< that there are
        std::function<std::vector<ProcessingMode>()> rewritingModes;          ///< that are set up
        std::function<QCoro::Task<QString>(ProcessingMode, QString)> rewrite; ///< throws Error
        std::function<QStringList()> speechModels;                            ///< names of those that are there
        /// Transcribes a dictation's kept recording with the model of that place; throws Error.
        std::function<QCoro::Task<QString>(int, QUuid)> transcribe;
        /// A text as its mode has it by rules; nullopt where it has none.
        std::function<std::optional<QString>(ProcessingMode, const QString&)> cleaned;
        std::function<void(const QString&)> paste; ///< into the window that was in front before
        /// Asks for a file, with a name to begin with, and calls its argument unless the user thinks better of it.
        std::function<void(const QString& name, std::function<void(QString)>)> chooseFile;
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
    /// An answer that was not believed, where there is no other.
    [[nodiscard]] QString setAside() const { return shown_ && !isFormatted() ? shown_->setAside : QString(); }
    [[nodiscard]] QString setAsideReason() const
    {
        return shown_ && !isFormatted() ? shown_->setAsideReason : QString();
    }
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
    /// The same into the window that was in front before this one.
    Q_INVOKABLE void paste(const QString& shownText);
    /// Deletes the chosen ones and picks the one after them.
    Q_INVOKABLE void remove();
    /// Asks for a file and writes the chosen ones into it.
    Q_INVOKABLE void exportChosen();

    [[nodiscard]] bool isEditing() const { return edited_.has_value(); }
    /// Begins to edit the current one: its original text with @p raw, else the one that was delivered.
    Q_INVOKABLE void edit(bool raw);
    /// Stores what has become of the text, whichever dictation is current by then.
    Q_INVOKABLE void endEdit(const QString& text);
    Q_INVOKABLE void cancelEdit();
    [[nodiscard]] QStringList rewritingModes() const;
    /// Has the current one rewritten from its original text, in the mode at that place of rewritingModes().
    Q_INVOKABLE void rewrite(int index) { rewriteCurrent(index); }

    /// Of the one that is read; null when there is none.
    [[nodiscard]] QUuid currentIdentifier() const { return shown_ ? shown_->id : QUuid(); }
    [[nodiscard]] QStringList speechModels() const { return parts_.speechModels(); }
    /// Has the current one's recording transcribed anew by the model at that place of speechModels().
    Q_INVOKABLE void transcribeAgain(int index) { transcribeCurrent(index); }

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
    [[nodiscard]] std::vector<ProcessingMode> filterModes() const;
    [[nodiscard]] QUuid identifierAt(int row) const;
    [[nodiscard]] QPersistentModelIndex rowAfterChosen() const;
    void makeCurrent(int row);
    void show(const QUuid& identifier);
    void restore(const std::vector<Transcription>& deleted);
    void choose(const std::vector<Transcription>& rows);
    [[nodiscard]] std::vector<QUuid> chosen() const { return {chosen_.cbegin(), chosen_.cend()}; }
    QCoro::Task<> removeMany();
    QCoro::Task<> restoreMany(std::vector<Transcription> deleted);
    QCoro::Task<> withTexts(QString shownText, std::function<void(QString)> use);
    QCoro::Task<> exportTo(QString path);
    QCoro::Task<> rewriteCurrent(int index);
    QCoro::Task<> transcribeCurrent(int index);
    [[nodiscard]] Transcription heardAgain(const Transcription& before, const QString& text) const;
    bool change(const Transcription& from, const Transcription& to, const QString& done);
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
    std::optional<Transcription> edited_;
    bool editsRaw_ = false;
    bool isChangingMany_ = false; ///< the selection follows afterwards
};

} // namespace vantro
