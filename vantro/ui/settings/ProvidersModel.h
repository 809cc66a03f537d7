#pragma once

#include "vantro/ai/providers/ProviderConfigurationManager.h"
#include "vantro/ai/providers/ProviderForm.h"

#include <QHash>
#include <QObject>
#include <QStringList>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>
#include <qcoro/qcorotask.h>

#include <functional>
#include <optional>

namespace vantro {

/// The view model of the page "Providers": the list, and the form for adding or editing one. The form is stored when
/// saved, everything else at once. Main thread; lives as long as its window.
class ProvidersModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its window")
    Q_PROPERTY(QVariantList providers READ providers NOTIFY changed)
    Q_PROPERTY(QString problem READ problem NOTIFY changed)
    Q_PROPERTY(bool isEditing READ isEditing NOTIFY formChanged)
    Q_PROPERTY(QString heading READ heading NOTIFY formChanged)
    Q_PROPERTY(QStringList types READ types CONSTANT)
    Q_PROPERTY(int type READ type WRITE setType NOTIFY formChanged)
    Q_PROPERTY(
        bool sendsStandardParameters READ sendsStandardParameters WRITE setSendsStandardParameters NOTIFY formChanged)
    Q_PROPERTY(QVariantList fields READ fields NOTIFY fieldsReset)
    Q_PROPERTY(QStringList fieldProblems READ fieldProblems NOTIFY formChanged)
    Q_PROPERTY(QStringList fieldWarnings READ fieldWarnings NOTIFY formChanged)
    Q_PROPERTY(QString keyState READ keyState NOTIFY formChanged)
    Q_PROPERTY(QString keyHint READ keyHint CONSTANT)
    Q_PROPERTY(QString report READ report NOTIFY formChanged)
    Q_PROPERTY(bool reportIsProblem READ reportIsProblem NOTIFY formChanged)
    Q_PROPERTY(bool isBusy READ isBusy NOTIFY formChanged)
    Q_PROPERTY(QStringList offeredModels READ offeredModels NOTIFY offeredModelsChanged)
    Q_PROPERTY(int offeredModel READ offeredModel NOTIFY formChanged)
    Q_PROPERTY(bool hasKeyPage READ hasKeyPage NOTIFY formChanged)
public:
    struct Parts
    {
        ProviderConfigurationManager& manager;
        /// Returns the accounts that have a key. Throws KeychainError.
        std::function<QCoro::Task<QStringList>()> keyAccounts;
        /// Returns the last characters of an account's key, by which its owner knows it; may be empty. Throws
        /// KeychainError.
        std::function<QCoro::Task<QString>(QString account)> keyEnding;
        /// Checks that the provider accepts the given key, or the stored one if none is given. Throws Error.
        std::function<QCoro::Task<>(ProviderConfiguration, std::optional<QString>)> verify;
        /// Asks the user a question and calls back on yes.
        std::function<void(const QString& question, std::function<void()>)> confirm;
        /// Returns the models that the provider offers, with the key as for verify. Throws Error.
        std::function<QCoro::Task<QStringList>(ProviderConfiguration, std::optional<QString>)> models = {};
        /// Opens a page of the web. Returns whether it could.
        std::function<bool(const QString& address)> openPage = {};
    };

    explicit ProvidersModel(Parts parts);

    /// Objects with "name", "details", "key" and "enabled".
    [[nodiscard]] QVariantList providers() const;
    /// Why the stored keys are unknown; otherwise empty.
    [[nodiscard]] QString problem() const { return problem_; }

    // The form.
    [[nodiscard]] bool isEditing() const { return edited_.has_value(); }
    [[nodiscard]] QString heading() const;
    [[nodiscard]] QStringList types() const;
    /// An index into types().
    [[nodiscard]] int type() const { return static_cast<int>(form_.type); }
    void setType(int index);
    [[nodiscard]] bool sendsStandardParameters() const { return form_.sendsStandardParameters; }
    void setSendsStandardParameters(bool wanted);
    /// Objects with "label", "hint", "text" and "isParameter".
    [[nodiscard]] QVariantList fields() const;
    /// One per entry of fields(); empty where there is no problem.
    [[nodiscard]] QStringList fieldProblems() const;
    /// The same of what is allowed, but may not be meant.
    [[nodiscard]] QStringList fieldWarnings() const;
    /// The placeholder of the key field.
    [[nodiscard]] QString keyState() const;
    [[nodiscard]] QString keyHint() const;
    /// The result of the latest save or test.
    [[nodiscard]] QString report() const { return report_; }
    [[nodiscard]] bool reportIsProblem() const { return reportIsProblem_; }
    /// While a key is being stored or tested.
    [[nodiscard]] bool isBusy() const { return isBusy_; }

    /// What the provider has answered to findModels(); empty until then.
    [[nodiscard]] QStringList offeredModels() const { return offeredModels_; }
    /// The one of them that stands in the form; -1 when it is another.
    [[nodiscard]] int offeredModel() const { return static_cast<int>(offeredModels_.indexOf(form_.model.trimmed())); }
    /// Whether there is a page on which keys are made.
    [[nodiscard]] bool hasKeyPage() const { return !keyPage(form_.type).isEmpty(); }

    Q_INVOKABLE void setEnabled(int row, bool enabled);
    Q_INVOKABLE void remove(int row);
    Q_INVOKABLE void add();
    Q_INVOKABLE void edit(int row);
    Q_INVOKABLE void setField(int index, const QString& text);
    Q_INVOKABLE void closeForm();
    /// Stores the form, and @p key unless it is empty. Closes the form on success.
    Q_INVOKABLE void save(const QString& key);
    Q_INVOKABLE void tryOut(const QString& key);
    /// Asks the provider for its models.
    Q_INVOKABLE void findModels(const QString& key);
    /// Puts one of them into the form.
    Q_INVOKABLE void chooseModel(int index);
    Q_INVOKABLE void openKeyPage();

Q_SIGNALS:
    void changed();
    void formChanged();
    void fieldsReset();
    void offeredModelsChanged();

private:
    [[nodiscard]] bool isOffered(ProviderForm::Field field) const;
    QCoro::Task<> findKeys();
    QCoro::Task<> findEnding(QString account);
    [[nodiscard]] QString maskedKey(const ProviderConfiguration& provider) const;
    QCoro::Task<> store(ProviderConfiguration provider, QString key);
    QCoro::Task<> ask(ProviderConfiguration provider, QString key);
    QCoro::Task<> askForModels(ProviderConfiguration provider, QString key);
    void forgetModels();
    /// Without blanks; nullopt for an empty text.
    [[nodiscard]] static std::optional<QString> given(const QString& text);
    [[nodiscard]] bool hasKey(const ProviderConfiguration& provider) const;
    [[nodiscard]] bool isListed() const;
    [[nodiscard]] bool showProblems();
    void openForm(const ProviderConfiguration& provider, const ProviderForm& form);
    void say(const QString& report, bool isProblem);
    void setBusy(bool busy);

    Parts parts_;
    std::optional<QStringList> accounts_; ///< with a key; nullopt while unknown
    QHash<QString, QString> endings_;     ///< of the keys, by account
    QString problem_;
    std::optional<ProviderConfiguration> edited_; ///< as it was when the form was opened
    ProviderForm form_;
    bool wasSubmitted_ = false;
    bool isBusy_ = false;
    QStringList offeredModels_;
    bool isAskingForModels_ = false;
    int inquiry_ = 0; ///< counts them: the answer to a former one says nothing about this form
    QString report_;
    bool reportIsProblem_ = false;
};

} // namespace vantro
