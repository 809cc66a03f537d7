#pragma once

#include "vantro/models/TranscriptionModel.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <vector>

namespace vantro {

/// The model list of the page "Models", one row per model of the catalogue. Main thread; lives as long as its window.
class ModelListModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its window")
    Q_PROPERTY(QString problem READ problem NOTIFY problemChanged)
public:
    enum Role {
        NameRole = Qt::UserRole,
        SizeRole,
        SpeedRole,
        AccuracyRole,
        DescriptionRole,
        LanguagesRole,
        StateRole,
        SelectedRole,
        ProgressRole, ///< 0..1
        StatusRole    ///< of its download, or why the latest one failed; may be empty
    };
    Q_ENUM(Role)
    /// Whether a model can be used, downloaded, or its download resumed; or whether it waits for or is in its download.
    enum State { Ready, Missing, Partial, Waiting, Downloading };
    Q_ENUM(State)

    struct Parts
    {
        const std::vector<TranscriptionModel>& models;
        std::function<State(const TranscriptionModel&)> stateOf;
        std::function<QString()> selectedName;
        std::function<void(const TranscriptionModel&)> select;
        std::function<QString(const TranscriptionModel&)> statusText;
        std::function<float()> progress; ///< of the download that is running
        std::function<void(const TranscriptionModel&)> download;
        std::function<void(const TranscriptionModel&)> cancel;
        /// Asks whether to remove a model.
        std::function<void(const TranscriptionModel&, std::function<void()> confirmed)> confirmRemoval;
        /// Throws Error.
        std::function<void(const TranscriptionModel&)> remove;
    };

    explicit ModelListModel(Parts parts);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
    /// Why the latest removal failed; otherwise empty.
    [[nodiscard]] QString problem() const { return problem_; }

    Q_INVOKABLE void select(int row);
    Q_INVOKABLE void download(int row);
    Q_INVOKABLE void cancel(int row);
    /// Asks first.
    Q_INVOKABLE void remove(int row);
    /// Looks at the files again.
    Q_INVOKABLE void refresh();

Q_SIGNALS:
    void problemChanged();

private:
    [[nodiscard]] const TranscriptionModel* modelAt(int row) const;
    void removeNow(const TranscriptionModel& model);

    Parts parts_;
    QString problem_;
};

} // namespace vantro
