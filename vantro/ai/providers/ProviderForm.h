#pragma once

#include "vantro/ai/providers/ProviderConfiguration.h"

#include <QCoreApplication>
#include <QString>

#include <vector>

namespace vantro {

/// A provider's settings as text, as typed into a form or on the command line, with their validation.
class ProviderForm
{
    Q_DECLARE_TR_FUNCTIONS(ProviderForm)
public:
    enum class Field {
        name,
        model,
        baseURL,
        maxTokens,
        maxCompletionTokens,
        temperature,
        topP,
        serviceTier,
        reasoningEffort,
    };
    struct Problem
    {
        Field field;
        QString message;
    };

    ProviderForm() = default;
    explicit ProviderForm(const ProviderConfiguration& configuration);

    /// The problems in field order; empty when the form is valid.
    [[nodiscard]] std::vector<Problem> problems() const;
    /// Returns @p former changed as the form says. Requires that there are no problems.
    [[nodiscard]] ProviderConfiguration applied(ProviderConfiguration former) const;

    /// Whether requests can be sent to @p text: http or https, with a host, without login, query or fragment.
    [[nodiscard]] static bool isUsableUrl(const QString& text);
    /// An address as requests begin with it: "https://host/v1" also for "https://host/v1/chat/completions/".
    [[nodiscard]] static QString baseOf(const QString& address);
    /// The hint shown beside a field; may be empty.
    [[nodiscard]] static QString hint(Field field);
    /// Shown in place of a stored key.
    [[nodiscard]] static QString maskedKey() { return QStringLiteral("••••••••••••"); }

    RemoteProviderType type = RemoteProviderType::OpenAI;
    QString name;
    QString model;
    QString baseURL;
    // An empty text leaves the parameter to the provider, unless all of them are empty.
    QString maxTokens;
    QString maxCompletionTokens;
    QString temperature;
    QString topP;
    QString serviceTier;
    QString reasoningEffort;
    /// With all of them empty: whether those that fit most models are sent, or none at all.
    bool sendsStandardParameters = true;

private:
    [[nodiscard]] ModelRequestParameters parameters() const;
};

} // namespace vantro
