#pragma once

#include "vantro/models/Recommendation.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <vector>

namespace vantro {

/// A model list of the page "Models", one row per model, the one in use first when the page opens. The language models
/// have a list of their own.
/// Main thread; lives as long as its window.
class ModelListModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its window")
    Q_PROPERTY(QString problem READ problem NOTIFY problemChanged)
    Q_PROPERTY(QString diskUse READ diskUse NOTIFY diskUseChanged)
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
        RecommendedRole,
        WaitRole,  ///< how long a sentence takes it here; of a language model, its memory and its licence
        StatusRole ///< of its download, or why the latest one failed; may be empty
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
        Machine machine;
        std::function<QString()> language; ///< spoken, as a code
        std::function<qint64()> bytesUsed;
        std::function<void(std::function<void()> confirmed)> confirmClearing;
        std::function<void()> clearCache; ///< removes all but the one in use
    };

    explicit ModelListModel(Parts parts);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
    /// Why the latest removal failed; otherwise empty.
    [[nodiscard]] QString problem() const { return problem_; }

    /// What downloaded models take up, in a sentence.
    [[nodiscard]] QString diskUse() const;

    /// Puts the one in use on top.
    Q_INVOKABLE void sortAgain();
    /// Removes the downloaded models that are not in use, after asking.
    Q_INVOKABLE void clearCache();
    Q_INVOKABLE void select(int row);
    Q_INVOKABLE void download(int row);
    Q_INVOKABLE void cancel(int row);
    /// Asks first.
    Q_INVOKABLE void remove(int row);
    /// The list is another.
    void reload();
    /// Looks at the files again.
    Q_INVOKABLE void refresh();

Q_SIGNALS:
    void problemChanged();
    void diskUseChanged();

private:
    [[nodiscard]] const TranscriptionModel* modelAt(int row) const;
    [[nodiscard]] bool isRecommended(const TranscriptionModel& model) const;
    void removeNow(const TranscriptionModel& model);

    Parts parts_;
    std::vector<const TranscriptionModel*> order_;
    QString problem_;
};

} // namespace vantro
