#include "vantro/ui/settings/ProvidersModel.h"

#include "base/Error.h"
#include "platform/Wording.h"

#include <QHostAddress>
#include <QPointer>
#include <QUrl>

#include <algorithm>
#include <array>
#include <utility>

namespace vantro {

namespace {

struct FormField
{
    ProviderForm::Field field;
    QString ProviderForm::*text;
    const char* label;
    bool isParameter; ///< a request parameter, which most users can ignore
};

constexpr std::array formFields{
    FormField{ProviderForm::Field::name, &ProviderForm::name, QT_TRANSLATE_NOOP("ProvidersModel", "Name"), false},
    FormField{ProviderForm::Field::model, &ProviderForm::model, QT_TRANSLATE_NOOP("ProvidersModel", "Model"), false},
    FormField{ProviderForm::Field::baseURL, &ProviderForm::baseURL, QT_TRANSLATE_NOOP("ProvidersModel", "Address"),
              false},
    FormField{ProviderForm::Field::maxTokens, &ProviderForm::maxTokens,
              QT_TRANSLATE_NOOP("ProvidersModel", "Max tokens"), true},
    FormField{ProviderForm::Field::maxCompletionTokens, &ProviderForm::maxCompletionTokens,
              QT_TRANSLATE_NOOP("ProvidersModel", "Max completion tokens"), true},
    FormField{ProviderForm::Field::temperature, &ProviderForm::temperature,
              QT_TRANSLATE_NOOP("ProvidersModel", "Temperature"), true},
    FormField{ProviderForm::Field::topP, &ProviderForm::topP, QT_TRANSLATE_NOOP("ProvidersModel", "Top p"), true},
    FormField{ProviderForm::Field::serviceTier, &ProviderForm::serviceTier,
              QT_TRANSLATE_NOOP("ProvidersModel", "Service tier"), true},
    FormField{ProviderForm::Field::reasoningEffort, &ProviderForm::reasoningEffort,
              QT_TRANSLATE_NOOP("ProvidersModel", "Reasoning effort"), true},
};

} // namespace

ProvidersModel::ProvidersModel(Parts parts) : parts_(std::move(parts))
{
    connect(&parts_.manager, &ProviderConfigurationManager::configurationsChanged, this, &ProvidersModel::changed);
    findKeys();
}

QCoro::Task<> ProvidersModel::findKeys()
{
    const QPointer<ProvidersModel> self(this);
    std::optional<QStringList> accounts;
    QString problem;
    try {
        const auto asked = parts_.keyAccounts();
        accounts = co_await asked;
    } catch (const Error& error) {
        problem = error.localizedDescription();
    }
    if (!self)
        co_return;
    accounts_ = std::move(accounts);
    problem_ = problem;
    Q_EMIT changed();
    Q_EMIT formChanged();
    for (const ProviderConfiguration& provider : parts_.manager.configurations()) {
        if (hasKey(provider))
            findEnding(provider.keychainAccount());
    }
}

QCoro::Task<> ProvidersModel::findEnding(QString account)
{
    const QPointer<ProvidersModel> self(this);
    QString ending;
    try {
        const auto asked = parts_.keyEnding(account);
        ending = co_await asked;
    } catch (const Error&) {
        co_return; // that it is there is known
    }
    if (!self)
        co_return;
    endings_.insert(account, ending);
    Q_EMIT changed();
    Q_EMIT formChanged();
}

QString ProvidersModel::maskedKey(const ProviderConfiguration& provider) const
{
    return ProviderForm::maskedKey() + endings_.value(provider.keychainAccount());
}

bool ProvidersModel::hasKey(const ProviderConfiguration& provider) const
{
    return accounts_ && accounts_->contains(provider.keychainAccount(), Qt::CaseInsensitive);
}

QVariantList ProvidersModel::providers() const
{
    QVariantList list;
    for (const ProviderConfiguration& provider : parts_.manager.configurations()) {
        const QString key = !accounts_         ? QString()
                            : hasKey(provider) ? maskedKey(provider)
                                               : tr("No API key configured");
        list.append(QVariantMap{{QStringLiteral("name"), provider.name},
                                {QStringLiteral("details"),
                                 QStringLiteral("%1  ·  %2").arg(displayName(provider.providerType), provider.model)},
                                {QStringLiteral("key"), key},
                                {QStringLiteral("enabled"), provider.isEnabled}});
    }
    return list;
}

void ProvidersModel::setEnabled(int row, bool enabled)
{
    const auto& list = parts_.manager.configurations();
    if (row < 0 || row >= static_cast<int>(list.size()))
        return;
    ProviderConfiguration provider = list[static_cast<std::size_t>(row)];
    provider.isEnabled = enabled;
    parts_.manager.update(provider);
}

void ProvidersModel::remove(int row)
{
    const auto& list = parts_.manager.configurations();
    if (row < 0 || row >= static_cast<int>(list.size()))
        return;
    const ProviderConfiguration& provider = list[static_cast<std::size_t>(row)];
    const QString question =
        tr("Are you sure you want to delete '%1'? This action cannot be undone.").arg(provider.name);
    parts_.confirm(question, [self = QPointer(this), id = provider.id] {
        if (!self)
            return;
        if (self->edited_ && self->edited_->id == id)
            self->closeForm();
        self->parts_.manager.remove(id);
        self->parts_.manager.cleanUpWhenPossible();
    });
}

void ProvidersModel::add()
{
    ProviderConfiguration provider = ProviderConfiguration::defaults().front();
    provider.id = QUuid::createUuid();
    openForm(provider, ProviderForm(provider));
}

void ProvidersModel::edit(int row)
{
    const auto& list = parts_.manager.configurations();
    if (row < 0 || row >= static_cast<int>(list.size()))
        return;
    const ProviderConfiguration& provider = list[static_cast<std::size_t>(row)];
    openForm(provider, ProviderForm(provider));
}

void ProvidersModel::openForm(const ProviderConfiguration& provider, const ProviderForm& form)
{
    edited_ = provider;
    form_ = form;
    wasSubmitted_ = false;
    report_.clear();
    forgetModels();
    Q_EMIT formChanged();
    Q_EMIT fieldsReset();
}

void ProvidersModel::closeForm()
{
    edited_.reset();
    forgetModels();
    Q_EMIT formChanged();
}

bool ProvidersModel::isListed() const
{
    return edited_ && parts_.manager.find(edited_->id) != nullptr;
}

QString ProvidersModel::heading() const
{
    return isListed() ? edited_->name : tr("New provider");
}

QStringList ProvidersModel::types() const
{
    QStringList names;
    for (const RemoteProviderType type : allRemoteProviderTypes)
        names << displayName(type);
    return names;
}

void ProvidersModel::setType(int index)
{
    if (index < 0 || index >= static_cast<int>(allRemoteProviderTypes.size()) || index == type())
        return;
    form_.type = allRemoteProviderTypes.at(static_cast<std::size_t>(index));
    // Name, model and address of another provider are useless; the parameters are kept.
    const auto defaults = ProviderConfiguration::defaults();
    const auto found = std::ranges::find(defaults, form_.type, &ProviderConfiguration::providerType);
    const ProviderForm fresh = found != defaults.end() ? ProviderForm(*found) : ProviderForm();
    if (!isListed())
        form_.name = fresh.name;
    form_.model = fresh.model;
    form_.baseURL = fresh.baseURL;
    forgetModels();
    Q_EMIT formChanged();
    Q_EMIT fieldsReset();
}

QVariantList ProvidersModel::fields() const
{
    QVariantList list;
    for (const FormField& field : formFields)
        list.append(QVariantMap{{QStringLiteral("label"), tr(field.label)},
                                {QStringLiteral("hint"), ProviderForm::hint(field.field)},
                                {QStringLiteral("text"), form_.*field.text},
                                {QStringLiteral("isOffered"), isOffered(field.field)},
                                {QStringLiteral("isParameter"), field.isParameter}});
    return list;
}

/// Only servers of the user's own have an address to enter; one that was entered for another is shown with its problem.
bool ProvidersModel::isOffered(ProviderForm::Field field) const
{
    return field != ProviderForm::Field::baseURL || form_.type == RemoteProviderType::Custom ||
           !form_.baseURL.isEmpty();
}

void ProvidersModel::setSendsStandardParameters(bool wanted)
{
    form_.sendsStandardParameters = wanted;
    Q_EMIT formChanged();
}

void ProvidersModel::setField(int index, const QString& text)
{
    if (index < 0 || index >= static_cast<int>(formFields.size()))
        return;
    form_.*formFields.at(static_cast<std::size_t>(index)).text = text;
    Q_EMIT formChanged();
}

QStringList ProvidersModel::fieldProblems() const
{
    const auto problems = form_.problems();
    QStringList texts;
    for (const FormField& field : formFields) {
        const auto problem = std::ranges::find(problems, field.field, &ProviderForm::Problem::field);
        // Empty fields are not reported before the first attempt to save.
        const bool isDue = wasSubmitted_ || !(form_.*field.text).trimmed().isEmpty();
        texts << (problem != problems.end() && isDue ? problem->message : QString());
    }
    return texts;
}

/// Whoever is between could read text and key.
QStringList ProvidersModel::fieldWarnings() const
{
    const QUrl address(form_.baseURL.trimmed());
    const bool isHere = address.host() == QLatin1String("localhost") || QHostAddress(address.host()).isLoopback();
    QStringList texts;
    for (const FormField& field : formFields)
        texts << (field.field == ProviderForm::Field::baseURL && address.scheme() == QLatin1String("http") && !isHere
                      ? tr("Over http, your text and the key can be read on their way. Use https if the server has it.")
                      : QString());
    return texts;
}

bool ProvidersModel::showProblems()
{
    wasSubmitted_ = true;
    Q_EMIT formChanged();
    return !form_.problems().empty();
}

QString ProvidersModel::keyState() const
{
    return edited_ && hasKey(*edited_) ? maskedKey(*edited_) : tr("No API key configured");
}

QString ProvidersModel::keyHint() const
{
    return wording::keyIsStoredSecurely();
}

std::optional<QString> ProvidersModel::given(const QString& text)
{
    const QString trimmed = text.trimmed();
    return trimmed.isEmpty() ? std::nullopt : std::optional(trimmed);
}

void ProvidersModel::save(const QString& key)
{
    if (edited_ && !isBusy_ && !showProblems())
        store(form_.applied(*edited_), key);
}

QCoro::Task<> ProvidersModel::store(ProviderConfiguration provider, QString key)
{
    const QPointer<ProvidersModel> self(this);
    // Before the key, so that a clean-up by another process knows the key's owner.
    if (parts_.manager.find(provider.id) != nullptr)
        parts_.manager.update(provider);
    else
        parts_.manager.add(provider);
    QString problem;
    if (const auto typed = given(key)) {
        setBusy(true);
        try {
            const auto stored = parts_.manager.storeKey(provider.id, *typed);
            co_await stored;
        } catch (const Error& error) {
            problem = error.localizedDescription();
        }
        if (!self)
            co_return;
        setBusy(false);
        findKeys();
    }
    if (problem.isEmpty())
        closeForm();
    else
        say(tr("Everything except the key has been saved. %1").arg(problem), true);
}

void ProvidersModel::tryOut(const QString& key)
{
    if (edited_ && !isBusy_ && !showProblems())
        ask(form_.applied(*edited_), key);
}

QCoro::Task<> ProvidersModel::ask(ProviderConfiguration provider, QString key)
{
    const QPointer<ProvidersModel> self(this);
    say(tr("Asking %1...").arg(provider.name), false);
    setBusy(true);
    QString problem;
    try {
        const auto answer = parts_.verify(provider, given(key));
        co_await answer;
    } catch (const Error& error) {
        problem = error.localizedDescription();
    }
    if (!self)
        co_return;
    setBusy(false);
    say(problem.isEmpty() ? tr("%1 accepts the key").arg(provider.name) : problem, !problem.isEmpty());
}

void ProvidersModel::say(const QString& report, bool isProblem)
{
    report_ = report;
    reportIsProblem_ = isProblem;
    Q_EMIT formChanged();
}

void ProvidersModel::setBusy(bool busy)
{
    isBusy_ = busy;
    Q_EMIT formChanged();
}

} // namespace vantro
