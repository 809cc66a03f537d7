#include "vantro/ai/providers/ProviderForm.h"

#include <QUrl>

#include <cmath>
#include <tuple>
#include <utility>

namespace vantro {

namespace {

constexpr double mostTemperature = 2;
constexpr double mostTopP = 1;

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
    , baseURL((configuration.providerType == RemoteProviderType::Custom ? configuration.customBaseURL
                                                                        : configuration.strayAddress())
                  .value_or(QString()))
{
    sendsStandardParameters = configuration.parameters != ModelRequestParameters();
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
    if (type == RemoteProviderType::Custom && isBlank(baseURL))
        require(false, Field::baseURL, tr("URL is required for custom provider"));
    else if (type == RemoteProviderType::Custom)
        require(isUsableUrl(baseURL), Field::baseURL, tr("Invalid URL format"));
    else
        require(isBlank(baseURL), Field::baseURL,
                tr("%1 has an address of its own. Leave this empty, or choose the type Custom for your own server.")
                    .arg(displayName(type)));

    for (const auto& [field, text] :
         {std::pair(Field::maxTokens, maxTokens), std::pair(Field::maxCompletionTokens, maxCompletionTokens)}) {
        const auto limit = wholeNumber(text);
        require(isBlank(text) || limit, field, tr("must be a whole number"));
        require(!limit || *limit > 0, field, tr("must be at least 1"));
    }
    require(isBlank(maxTokens) || isBlank(maxCompletionTokens), Field::maxCompletionTokens,
            tr("Set either max tokens or max completion tokens, not both — the API rejects requests carrying both."));
    for (const auto& [field, text, most] :
         {std::tuple(Field::temperature, temperature, mostTemperature), std::tuple(Field::topP, topP, mostTopP)}) {
        const auto value = number(text);
        require(isBlank(text) || value, field, tr("must be a number"));
        require(!value || (*value >= 0 && *value <= most), field, tr("must be between 0 and %1").arg(most));
    }
    return found;
}

ProviderConfiguration ProviderForm::applied(ProviderConfiguration former) const
{
    const RemoteProviderType typeBefore = std::exchange(former.providerType, type);
    former.name = name.trimmed();
    former.model = model.trimmed();
    if (type == RemoteProviderType::Custom)
        former.customBaseURL = baseOf(baseURL);
    else if (typeBefore != type || former.strayAddress())
        former.customBaseURL = ProviderConfiguration::standardAddress(type);
    const ModelRequestParameters wanted = parameters();
    const bool isStandard = wanted == ModelRequestParameters() && sendsStandardParameters;
    former.parameters = isStandard ? std::nullopt : std::optional(wanted);
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

/// Users copy the whole address of the requests, from documents or from the list.
QString ProviderForm::baseOf(const QString& address)
{
    static const QString path = QStringLiteral("/chat/completions");
    QString base = address.trimmed();
    const auto withoutSlashes = [&base] {
        while (base.endsWith(QLatin1Char('/')))
            base.chop(1);
    };
    withoutSlashes();
    if (base.endsWith(path, Qt::CaseInsensitive))
        base.chop(path.size());
    withoutSlashes();
    return base;
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
