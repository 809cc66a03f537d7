#pragma once

#include "base/UserDefaults.h"
#include "platform/Workspace.h"
#include "vantro/app/ApplicationRules.h"

#include <QAbstractListModel>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <optional>
#include <vector>

namespace vantro {

/// The view model of the page "Applications", and its list: what dictations into the windows of one application are
/// like. Changes are written at once. Main thread; lives as long as its window.
class ApplicationsModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its window")
    Q_PROPERTY(QStringList modes READ modes CONSTANT)
    Q_PROPERTY(QStringList pasteKeys READ pasteKeys CONSTANT)
    Q_PROPERTY(QStringList seen READ seen NOTIFY seenChanged)
    Q_PROPERTY(QString problem READ problem NOTIFY changed)
    Q_PROPERTY(QString removed READ removed NOTIFY changed)
public:
    enum Role {
        Application = Qt::UserRole,
        Mode,        ///< an index into modes()
        PasteKeys,   ///< an index into pasteKeys()
        HasFullStop, ///< bool
    };
    struct Parts
    {
        UserDefaults& defaults;
        Workspace& workspace;
        std::vector<ProcessingMode> modes;               ///< that there are
        std::function<QString(ProcessingMode)> modeName; ///< as the user calls it
    };

    /// The references must outlive the model.
    explicit ApplicationsModel(Parts parts);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// The default one, then each.
    [[nodiscard]] QStringList modes() const;
    /// Those that are usual in the application, then each.
    [[nodiscard]] QStringList pasteKeys() const;
    /// The applications whose windows have been in front since the page was made and that have no rule, the latest
    /// first.
    [[nodiscard]] QStringList seen() const;
    /// Why the latest one could not be added; empty when it could.
    [[nodiscard]] QString problem() const { return problem_; }
    /// The application of the rule that was removed last and can be had back; empty without one.
    [[nodiscard]] QString removed() const { return removed_ ? removed_->application : QString(); }

    /// Returns whether there is a rule now that was not there before.
    Q_INVOKABLE bool add(const QString& application);
    Q_INVOKABLE void remove(int row);
    Q_INVOKABLE void undo();
    Q_INVOKABLE void setMode(int row, int index);
    Q_INVOKABLE void setPasteKeys(int row, int index);
    Q_INVOKABLE void setFullStop(int row, bool wanted);

Q_SIGNALS:
    void changed();
    void seenChanged();

private:
    void edit(const std::function<void(std::vector<ApplicationRule>&)>& change);
    void editRow(int row, const std::function<void(ApplicationRule&)>& change);
    void read();
    void look();
    [[nodiscard]] bool hasRule(const QString& application) const;

    Parts parts_;
    std::vector<ApplicationRule> rules_;
    QStringList seen_;
    QString problem_;
    std::optional<ApplicationRule> removed_;
};

} // namespace vantro
