#include "vantro/ai/providers/ProviderForm.h"

#include <QUrl>

#include <cmath>

namespace vantro {

namespace {

template <typename Number>
QString text(const std::optional<Number>& number)
{
    return number ? QString::number(*number) : QString();
}

std::optional<qint64> wholeNumber(const QString& text)
{
    bool ok = false;
    const qint64 number = text.trimmed().toLongLong(&ok);
    return ok ? std::optional(number) : std::nullopt;
}

std::optional<double> number(const QString& text)
{
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    return ok && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<QString> word(const QString& text)
{
    const QString trimmed = text.trimmed();
    return trimmed.isEmpty() ? std::nullopt : std::optional(trimmed);
}

} // namespace

ProviderForm::ProviderForm(const ProviderConfiguration& configuration)
    : type(configuration.providerType)
    , name(configuration.name)
    , model(configuration.model)
    , baseURL(configuration.customBaseURL.value_or(QString()))
{
    const auto parameters = configuration.parameters.value_or(ModelRequestParameters());
    maxTokens = text(parameters.maxTokens);
    maxCompletionTokens = text(parameters.maxCompletionTokens);
    temperature = text(parameters.temperature);
    topP = text(parameters.topP);
    serviceTier = parameters.serviceTier.value_or(QString());
    reasoningEffort = parameters.reasoningEffort.value_or(QString());
}

std::vector<ProviderForm::Problem> ProviderForm::problems() const
{
    std::vector<Problem> found;
    const auto require = [&found](bool isKept, Field field, const QString& message) {
        if (!isKept)
            found.push_back({field, message});
    };
    const auto isBlank = [](const QString& text) {
        return text.trimmed().isEmpty();
    };
    require(!isBlank(name), Field::name, tr("Name is required"));
    require(!isBlank(model), Field::model, tr("Model is required"));
    if (isBlank(baseURL))
        require(type != RemoteProviderType::Custom, Field::baseURL, tr("URL is required for custom provider"));
    else
        require(isUsableUrl(baseURL), Field::baseURL, tr("Invalid URL format"));

    const QString whole = tr("must be a whole number");
    require(isBlank(maxTokens) || wholeNumber(maxTokens), Field::maxTokens, whole);
    require(isBlank(maxCompletionTokens) || wholeNumber(maxCompletionTokens), Field::maxCompletionTokens, whole);
    require(isBlank(maxTokens) || isBlank(maxCompletionTokens), Field::maxCompletionTokens,
            tr("Set either max tokens or max completion tokens, not both — the API rejects requests carrying both."));
    require(isBlank(temperature) || number(temperature), Field::temperature, tr("must be a number"));
    require(isBlank(topP) || number(topP), Field::topP, tr("must be a number"));
    return found;
}

ProviderConfiguration ProviderForm::applied(ProviderConfiguration former) const
{
    former.providerType = type;
    former.name = name.trimmed();
    former.model = model.trimmed();
    former.customBaseURL = word(baseURL);
    // Request paths start with a slash.
    while (former.customBaseURL && former.customBaseURL->endsWith(QLatin1Char('/')))
        former.customBaseURL->chop(1);
    const ModelRequestParameters wanted = parameters();
    former.parameters = wanted == ModelRequestParameters() ? std::nullopt : std::optional(wanted);
    return former;
}

ModelRequestParameters ProviderForm::parameters() const
{
    return {.maxTokens = wholeNumber(maxTokens),
            .maxCompletionTokens = wholeNumber(maxCompletionTokens),
            .temperature = number(temperature),
            .topP = number(topP),
            .serviceTier = word(serviceTier),
            .reasoningEffort = word(reasoningEffort)};
}

bool ProviderForm::isUsableUrl(const QString& text)
{
    const QUrl url(text.trimmed(), QUrl::StrictMode);
    const bool isWeb = url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
    // A login in the address would be stored in plain text; a query or fragment would swallow the request path.
    return url.isValid() && isWeb && !url.host().isEmpty() && url.userInfo().isEmpty() && !url.hasQuery() &&
           !url.hasFragment();
}

QString ProviderForm::hint(Field field)
{
    switch (field) {
    case Field::maxTokens:
        return tr("Used for legacy models");
    case Field::maxCompletionTokens:
        return tr("Newer models (gpt-5, o-series)");
    case Field::temperature:
        return tr("Lower is more focused; Empty omits it from the request.");
    case Field::topP:
        return tr("Alternative to temperature; empty omits it.");
    case Field::serviceTier:
        return tr("fast, priority...");
    case Field::reasoningEffort:
        return tr("For reasoning-capable models; minimal is usually right for formatting.");
    case Field::name:
    case Field::model:
    case Field::baseURL:
        break;
    }
    return {};
}

} // namespace vantro
