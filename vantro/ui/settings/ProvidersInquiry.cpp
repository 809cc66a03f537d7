// What the providers' form asks of a provider: which models it offers, and where keys are made.
#include "base/Error.h"
#include "vantro/ui/settings/ProvidersModel.h"

#include <QPointer>

#include <algorithm>
#include <utility>

namespace vantro {

void ProvidersModel::forgetModels()
{
    if (std::exchange(isAskingForModels_, false))
        isBusy_ = false;
    ++inquiry_;
    offeredModels_.clear();
    Q_EMIT offeredModelsChanged();
}

void ProvidersModel::findModels(const QString& key)
{
    if (!edited_ || isBusy_)
        return;
    const auto problems = form_.problems();
    const auto address = std::ranges::find(problems, ProviderForm::Field::baseURL, &ProviderForm::Problem::field);
    if (address != problems.end()) {
        say(address->message, true);
        return;
    }
    ProviderConfiguration provider = *edited_;
    provider.name = form_.name.trimmed().isEmpty() ? displayName(form_.type) : form_.name.trimmed();
    provider.providerType = form_.type;
    provider.customBaseURL = given(form_.baseURL);
    askForModels(provider, key);
}

QCoro::Task<> ProvidersModel::askForModels(ProviderConfiguration provider, QString key)
{
    const QPointer<ProvidersModel> self(this);
    forgetModels();
    const int inquiry = inquiry_;
    say(tr("Asking %1...").arg(provider.name), false);
    isAskingForModels_ = true;
    setBusy(true);
    QStringList models;
    QString problem;
    try {
        const auto answer = parts_.models(provider, given(key));
        models = co_await answer;
    } catch (const Error& error) {
        problem = error.localizedDescription();
    }
    if (!self || inquiry != inquiry_)
        co_return;
    isAskingForModels_ = false;
    offeredModels_ = models;
    Q_EMIT offeredModelsChanged();
    setBusy(false);
    say(problem.isEmpty() ? tr("%1 offers %2 models. Choose one above.").arg(provider.name).arg(models.size())
                          : problem,
        !problem.isEmpty());
}

void ProvidersModel::chooseModel(int index)
{
    if (index < 0 || index >= offeredModels_.size())
        return;
    form_.model = offeredModels_.at(index);
    Q_EMIT formChanged();
    Q_EMIT fieldsReset();
}

void ProvidersModel::openKeyPage()
{
    const QString address = keyPage(form_.type);
    if (!parts_.openPage(address))
        say(tr("No browser could be started. The page is %1").arg(address), true);
}

} // namespace vantro
