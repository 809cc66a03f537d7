#include "vantro/ui/settings/ApplicationsModel.h"

#include "base/Settings.h"
#include "platform/Wording.h"
#include "vantro/delivery/PasteChords.h"

#include <algorithm>
#include <utility>

namespace vantro {

namespace {

constexpr qsizetype mostSeen = 8;

auto ruleOf(const QString& application)
{
    return [application](const ApplicationRule& rule) {
        return rule.application.compare(application, Qt::CaseInsensitive) == 0;
    };
}

/// In a list whose first entry stands for none.
template <typename Value>
int placeOf(const std::optional<Value>& value, const std::vector<Value>& all)
{
    return value ? static_cast<int>(std::ranges::find(all, *value) - all.begin()) + 1 : 0;
}

template <typename Value>
std::optional<Value> valueAt(int place, const std::vector<Value>& all)
{
    return place >= 1 && place <= static_cast<int>(all.size()) ? std::optional(all[static_cast<std::size_t>(place - 1)])
                                                               : std::nullopt;
}

} // namespace

ApplicationsModel::ApplicationsModel(Parts parts) : parts_(std::move(parts)), rules_(applicationRules(parts_.defaults))
{
    connect(&parts_.defaults, &UserDefaults::changed, this, [this](const QString& key) {
        if (key == setting::applicationRules.key || key == setting::pasteChords.key)
            read();
    });
    connect(&parts_.workspace, &Workspace::frontWindowChanged, this, &ApplicationsModel::look);
    look();
}

void ApplicationsModel::look()
{
    const auto window = parts_.workspace.frontWindow();
    if (!window || parts_.workspace.isOwn(*window))
        return;
    const QStringList names = parts_.workspace.windowClass(*window);
    if (names.isEmpty())
        return;
    seen_.removeAll(names.last());
    seen_.prepend(names.last());
    seen_ = seen_.mid(0, mostSeen);
    Q_EMIT seenChanged();
}

QStringList ApplicationsModel::seen() const
{
    QStringList names = seen_;
    names.removeIf([this](const QString& name) { return hasRule(name); });
    return names;
}

bool ApplicationsModel::hasRule(const QString& application) const
{
    return std::ranges::any_of(rules_, ruleOf(application));
}

int ApplicationsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rules_.size());
}

QHash<int, QByteArray> ApplicationsModel::roleNames() const
{
    return {{Application, "application"}, {Mode, "mode"}, {PasteKeys, "keys"}, {HasFullStop, "hasFullStop"}};
}

QVariant ApplicationsModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const ApplicationRule& rule = rules_[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Application:
        return rule.application;
    case Mode:
        return placeOf(rule.mode, parts_.modes);
    case PasteKeys:
        return placeOf(rule.pasteKeys, allPasteChords());
    case HasFullStop:
        return rule.hasFullStop;
    default:
        return {};
    }
}

QStringList ApplicationsModel::modes() const
{
    QStringList names{tr("The default mode")};
    for (const ProcessingMode mode : parts_.modes)
        names << parts_.modeName(mode);
    return names;
}

QStringList ApplicationsModel::pasteKeys() const
{
    QStringList names{tr("As usual there")};
    for (const auto chord : allPasteChords())
        names << wording::shownKeys(chordText(chord));
    return names;
}

void ApplicationsModel::read()
{
    auto rules = applicationRules(parts_.defaults);
    const bool isSameList =
        std::ranges::equal(rules, rules_, {}, &ApplicationRule::application, &ApplicationRule::application);
    if (isSameList) {
        rules_ = std::move(rules);
        if (!rules_.empty())
            Q_EMIT dataChanged(index(0), index(rowCount() - 1));
    } else {
        beginResetModel();
        rules_ = std::move(rules);
        endResetModel();
        Q_EMIT seenChanged();
    }
    Q_EMIT changed();
}

void ApplicationsModel::edit(const std::function<void(std::vector<ApplicationRule>&)>& change)
{
    parts_.defaults.change([&] {
        auto rules = applicationRules(parts_.defaults);
        change(rules);
        setApplicationRules(parts_.defaults, rules);
    });
}

void ApplicationsModel::editRow(int row, const std::function<void(ApplicationRule&)>& change)
{
    if (row < 0 || row >= rowCount())
        return;
    const QString application = rules_[static_cast<std::size_t>(row)].application;
    edit([&](std::vector<ApplicationRule>& rules) {
        const auto rule = std::ranges::find_if(rules, ruleOf(application));
        if (rule != rules.end())
            change(*rule);
    });
}

bool ApplicationsModel::add(const QString& application)
{
    const QString name = application.trimmed();
    problem_ = hasRule(name) ? tr("%1 is in the list already.").arg(name) : QString();
    const bool isAdded = !name.isEmpty() && problem_.isEmpty();
    if (isAdded)
        edit([&](std::vector<ApplicationRule>& rules) { rules.push_back({name}); });
    Q_EMIT changed();
    return isAdded;
}

void ApplicationsModel::remove(int row)
{
    if (row < 0 || row >= rowCount())
        return;
    removed_ = rules_[static_cast<std::size_t>(row)];
    edit([this](std::vector<ApplicationRule>& rules) { std::erase_if(rules, ruleOf(removed_->application)); });
}

void ApplicationsModel::undo()
{
    const auto rule = std::exchange(removed_, std::nullopt);
    if (rule && !hasRule(rule->application))
        edit([&](std::vector<ApplicationRule>& rules) { rules.push_back(*rule); });
    Q_EMIT changed();
}

void ApplicationsModel::setMode(int row, int index)
{
    editRow(row, [&](ApplicationRule& rule) { rule.mode = valueAt(index, parts_.modes); });
}

void ApplicationsModel::setPasteKeys(int row, int index)
{
    editRow(row, [&](ApplicationRule& rule) { rule.pasteKeys = valueAt(index, allPasteChords()); });
}

void ApplicationsModel::setFullStop(int row, bool wanted)
{
    editRow(row, [&](ApplicationRule& rule) { rule.hasFullStop = wanted; });
}

} // namespace vantro
