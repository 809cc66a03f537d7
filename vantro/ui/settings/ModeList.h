#pragma once

#include "vantro/ai/PromptSettings.h"

#include <QAbstractListModel>

#include <functional>
#include <vector>

namespace vantro {

/// The modes in the user's order, as the page "Modes" lists them. Follows all changes; a row that moves stays the same
/// row. Main thread.
class ModeList final : public QAbstractListModel
{
    Q_OBJECT
public:
    enum Role {
        Name = Qt::UserRole,
        Note,    ///< who rewrites, or what is missing
        IsReady, ///< bool
        IsAdded, ///< bool: by the user, who can remove it
        Digit,   ///< the key that chooses it in the launcher, which only offers those that are ready; otherwise 0
    };

    /// @p prompts must outlive the model. @p note: for the role.
    ModeList(const PromptSettings& prompts, std::function<bool(ProcessingMode)> isReady,
             std::function<QString(ProcessingMode)> note);

    [[nodiscard]] const std::vector<ProcessingMode>& modes() const { return modes_; }
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// Something has changed.
    void refresh();

private:
    [[nodiscard]] int digitOf(int row) const;
    void removeMissing(const std::vector<ProcessingMode>& wanted);
    void moveTo(ProcessingMode mode, int row);

    const PromptSettings& prompts_;
    std::function<bool(ProcessingMode)> isReady_;
    std::function<QString(ProcessingMode)> note_;
    std::vector<ProcessingMode> modes_;
};

} // namespace vantro
