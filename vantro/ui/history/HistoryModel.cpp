#include "vantro/ui/history/HistoryModel.h"

#include "vantro/store/SearchText.h"
#include "vantro/ui/history/DayNames.h"

#include <QLocale>

#include <algorithm>
#include <array>
#include <utility>

namespace vantro {

namespace {

/// Of the period filter, today included; 0 is any time.
constexpr std::array<int, 4> days{0, 1, 7, 30};

} // namespace

HistoryModel::HistoryModel(Parts parts) : parts_(std::move(parts)), list_(parts_.store)
{
    connect(&list_, &HistoryListModel::filterChanged, this, &HistoryModel::filterChanged);
    connect(&list_, &QAbstractItemModel::modelReset, this, [this] { pick(0); });
    connect(&list_, &QAbstractItemModel::rowsRemoved, this,
            [this](const QModelIndex&, int first) { keepCurrent(first); });
    connect(&list_, &QAbstractItemModel::rowsInserted, this, [this] { keepCurrent(0); });
    connect(&list_, &QAbstractItemModel::dataChanged, this, &HistoryModel::refresh);
    pick(0);
}

void HistoryModel::setSearch(const QString& text)
{
    list_.setSearchText(text);
}

std::vector<ProcessingMode> HistoryModel::filterModes() const
{
    auto modes = parts_.modes();
    std::erase(modes, ProcessingMode::Notes);
    return modes;
}

QStringList HistoryModel::modes() const
{
    QStringList names{tr("All modes")};
    for (const ProcessingMode mode : filterModes())
        names << parts_.modeName(mode);
    return names << tr("Not rewritten");
}

void HistoryModel::setMode(int index)
{
    mode_ = index;
    const bool isMode = index > 0 && index < modes().size() - 1;
    list_.setMode(isMode ? rawValue(filterModes().at(static_cast<std::size_t>(index - 1))) : QString());
    list_.setUnrewritten(index == modes().size() - 1);
}

void HistoryModel::setPeriod(int index)
{
    period_ = index;
    const int span = days.at(static_cast<std::size_t>(index));
    list_.setSince(span == 0 ? QDateTime() : parts_.clock.wallClock().date().addDays(1 - span).startOfDay());
}

QString HistoryModel::details() const
{
    if (!shown_)
        return {};
    const QString day = QLocale().toString(shown_->created_at.toLocalTime().date(), QLocale::LongFormat);
    return day + QStringLiteral(", ") + timeOfDay(shown_->created_at) + QStringLiteral("  \u00B7  ") +
           modeName(shown_->processingMode);
}

QUuid HistoryModel::identifierAt(int row) const
{
    return list_.index(row).data(HistoryListModel::Identifier).toUuid();
}

void HistoryModel::pick(int row)
{
    const int rows = list_.rowCount();
    row = std::min(row, rows - 1);
    anchor_ = list_.index(row);
    chosen_.clear();
    if (row >= 0)
        chosen_.insert(identifierAt(row));
    makeCurrent(row);
}

void HistoryModel::extendTo(int row)
{
    row = std::clamp(row, 0, std::max(0, list_.rowCount() - 1));
    const int from = anchor_.isValid() ? anchor_.row() : row;
    chosen_.clear();
    for (int each = std::min(from, row); each <= std::max(from, row); ++each)
        chosen_.insert(identifierAt(each));
    makeCurrent(row);
}

void HistoryModel::toggle(int row)
{
    const QUuid identifier = identifierAt(row);
    if (!chosen_.remove(identifier))
        chosen_.insert(identifier);
    anchor_ = list_.index(row);
    makeCurrent(row);
}

void HistoryModel::chooseAll()
{
    parts_.changes.attempt([this] {
        const auto all = TranscriptionFetch(parts_.store.persistentContainer(), list_.filter()).identities();
        chosen_ = QSet<QUuid>(all.begin(), all.end());
    });
    Q_EMIT selectionChanged();
}

void HistoryModel::makeCurrent(int row)
{
    current_ = list_.index(row);
    show(identifierAt(row));
    Q_EMIT selectionChanged();
}

void HistoryModel::show(const QUuid& identifier)
{
    shown_.reset();
    if (!identifier.isNull())
        parts_.changes.attempt([&] { shown_ = parts_.store.transcription(identifier); });
}

int HistoryModel::lastRow()
{
    while (list_.canFetchMore({}))
        list_.fetchMore({});
    return list_.rowCount() - 1;
}

/// The next one that stays, otherwise the one before.
QPersistentModelIndex HistoryModel::rowAfterChosen() const
{
    const int from = std::max(0, currentRow());
    const auto stays = [this](int row) {
        return !chosen_.contains(identifierAt(row));
    };
    for (int row = from; row < list_.rowCount(); ++row) {
        if (stays(row))
            return list_.index(row);
    }
    for (int row = from; row >= 0; --row) {
        if (stays(row))
            return list_.index(row);
    }
    return {};
}

/// There is a current row whenever there are rows, also when another process deletes.
void HistoryModel::keepCurrent(int row)
{
    if (!isChangingMany_ && !current_.isValid())
        pick(row);
    else
        Q_EMIT selectionChanged(); // its row may be another
}

void HistoryModel::refresh(const QModelIndex& first, const QModelIndex& last)
{
    if (currentRow() < first.row() || currentRow() > last.row())
        return;
    show(identifierAt(currentRow()));
    Q_EMIT selectionChanged();
}

QString HistoryModel::timeOfDay(const QDateTime& time) const
{
    return vantro::timeOfDay(time);
}

QString HistoryModel::modeName(const QString& rawValue) const
{
    const auto mode = processingModeFromRawValue(rawValue);
    return mode ? parts_.modeName(*mode) : rawValue;
}

QString HistoryModel::dayName(const QString& day) const
{
    const QDate date = QDate::fromString(day, Qt::ISODate);
    return date.isValid() ? vantro::dayName(date, parts_.clock.wallClock().date()) : tr("Unknown date");
}

bool HistoryModel::isUnrewritten(const QString& mode, bool isFormatted) const
{
    return !isFormatted && mode != rawValue(ProcessingMode::Normal) && mode != rawValue(ProcessingMode::Notes);
}

QString HistoryModel::marked(const QString& line) const
{
    QString result;
    qsizetype end = 0;
    for (const SearchHit& hit : searchHits(line, SearchQuery(search()))) {
        result += line.mid(end, hit.begin - end).toHtmlEscaped() + QStringLiteral("<b><u>") +
                  line.mid(hit.begin, hit.length).toHtmlEscaped() + QStringLiteral("</u></b>");
        end = hit.begin + hit.length;
    }
    return result + line.mid(end).toHtmlEscaped();
}

} // namespace vantro
