#pragma once

#include "vantro/ai/providers/ProviderConfigurationManager.h"
#include "vantro/ai/providers/ProviderForm.h"

#include <QObject>
#include <QStringList>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>
#include <qcoro/qcorotask.h>

#include <functional>
#include <optional>

namespace vantro {

/// The page "Providers": the list, and the form in which one of them is added or changed. What the form says is stored
/// when it is saved, everything else at once. Main thread; lives as long as its window.
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
    Q_PROPERTY(QVariantList fields READ fields NOTIFY fieldsReset)
    Q_PROPERTY(QStringList fieldProblems READ fieldProblems NOTIFY formChanged)
    Q_PROPERTY(QString keyState READ keyState NOTIFY formChanged)
    Q_PROPERTY(QString keyHint READ keyHint CONSTANT)
    Q_PROPERTY(QString report READ report NOTIFY formChanged)
    Q_PROPERTY(bool reportIsProblem READ reportIsProblem NOTIFY formChanged)
    Q_PROPERTY(bool isBusy READ isBusy NOTIFY formChanged)
public:
    struct Parts
    {
        ProviderConfigurationManager& manager;
        /// The accounts that have a key; throws KeychainError.
        std::function<QCoro::Task<QStringList>()> keyAccounts;
        /// Asks the provider whether it accepts the given key, or else the stored one; throws Error.
        std::function<QCoro::Task<>(ProviderConfiguration, std::optional<QString>)> verify;
        /// Asks a question, and calls back when the answer is yes.
        std::function<void(const QString& question, std::function<void()>)> confirm;
    };

    explicit ProvidersModel(Parts parts);

    /// Objects with "name", "details", "key" and "enabled".
    [[nodiscard]] QVariantList providers() const;
    /// Why keys cannot be looked for; empty else.
    [[nodiscard]] QString problem() const { return problem_; }

    // The form.
    [[nodiscard]] bool isEditing() const { return edited_.has_value(); }
    [[nodiscard]] QString heading() const;
    [[nodiscard]] QStringList types() const;
    /// An index into types().
    [[nodiscard]] int type() const { return static_cast<int>(form_.type); }
    void setType(int index);
    /// Objects with "label", "hint", "text" and "isParameter".
    [[nodiscard]] QVariantList fields() const;
    /// One for each of fields(), empty where nothing is wrong.
    [[nodiscard]] QStringList fieldProblems() const;
    /// What stands in the empty key field.
    [[nodiscard]] QString keyState() const;
    [[nodiscard]] QString keyHint() const;
    /// How the latest saving or trial went.
    [[nodiscard]] QString report() const { return report_; }
    [[nodiscard]] bool reportIsProblem() const { return reportIsProblem_; }
    /// Until a key is stored or a provider has answered.
    [[nodiscard]] bool isBusy() const { return isBusy_; }

    Q_INVOKABLE void setEnabled(int row, bool enabled);
    Q_INVOKABLE void remove(int row);
    Q_INVOKABLE void add();
    Q_INVOKABLE void edit(int row);
    Q_INVOKABLE void setField(int index, const QString& text);
    Q_INVOKABLE void closeForm();
    /// @p key is stored unless it is empty. Closes the form when everything could be stored.
    Q_INVOKABLE void save(const QString& key);
    Q_INVOKABLE void tryOut(const QString& key);

Q_SIGNALS:
    void changed();
    void formChanged();
    void fieldsReset();

private:
    QCoro::Task<> findKeys();
    QCoro::Task<> store(ProviderConfiguration provider, QString key);
    QCoro::Task<> ask(ProviderConfiguration provider, QString key);
    [[nodiscard]] bool hasKey(const ProviderConfiguration& provider) const;
    [[nodiscard]] bool isListed() const;
    [[nodiscard]] bool showProblems();
    void openForm(const ProviderConfiguration& provider, const ProviderForm& form);
    void say(const QString& report, bool isProblem);
    void setBusy(bool busy);

    Parts parts_;
    std::optional<QStringList> accounts_; ///< nothing as long as it is not known
    QString problem_;
    std::optional<ProviderConfiguration> edited_; ///< as it was when the form opened
    ProviderForm form_;
    bool wasSubmitted_ = false;
    bool isBusy_ = false;
    QString report_;
    bool reportIsProblem_ = false;
};

} // namespace vantro
