#pragma once

#include "vantro/ai/providers/ProviderConfiguration.h"

#include <QCoreApplication>
#include <QString>

#include <vector>

namespace vantro {

/// A provider's settings as texts, the way a sheet or a command line has them, and the rules they must keep before they
/// are stored.
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

    /// What is wrong, in the order of the fields; nothing when it may be stored.
    [[nodiscard]] std::vector<Problem> problems() const;
    /// @p former with what the form says; only without problems.
    [[nodiscard]] ProviderConfiguration applied(ProviderConfiguration former) const;

    /// Whether @p text is an address that requests can be sent to: http or https, with a host, without a login.
    [[nodiscard]] static bool isUsableUrl(const QString& text);
    /// What is to be known about a field beside it; empty for those that explain themselves.
    [[nodiscard]] static QString hint(Field field);
    /// What stands in the place of a key that is there.
    [[nodiscard]] static QString maskedKey() { return QStringLiteral("••••••••••••"); }

    RemoteProviderType type = RemoteProviderType::OpenAI;
    QString name;
    QString model;
    QString baseURL;
    // An empty text leaves the parameter to the provider.
    QString maxTokens;
    QString maxCompletionTokens;
    QString temperature;
    QString topP;
    QString serviceTier;
    QString reasoningEffort;

private:
    [[nodiscard]] ModelRequestParameters parameters() const;
};

} // namespace vantro
