#include "vantro/ai/services/RemoteFormatError.h"

namespace vantro {

namespace {

QString describeRemote(RemoteFormatError::Kind kind)
{
    switch (kind) {
    case RemoteFormatError::Kind::networkError:
        return RemoteFormatError::tr("Network error: ");
    case RemoteFormatError::Kind::apiError:
        return RemoteFormatError::tr("API error (%1): ");
    case RemoteFormatError::Kind::notConfigured:
        return RemoteFormatError::tr("Remote provider is not configured");
    case RemoteFormatError::Kind::invalidCredentials:
        return RemoteFormatError::tr("Invalid API key. Please check your credentials.");
    case RemoteFormatError::Kind::invalidResponse:
        return RemoteFormatError::tr("Invalid response from API");
    case RemoteFormatError::Kind::rateLimitExceeded:
        return RemoteFormatError::tr("Rate limit exceeded. Please try again later.");
    case RemoteFormatError::Kind::contextWindowExceeded:
        return RemoteFormatError::tr("Text too long for model context window");
    }
    Q_UNREACHABLE();
}

} // namespace

RemoteFormatError::RemoteFormatError(Kind kind) : RemoteFormatError(kind, describeRemote(kind)) {}

RemoteFormatError RemoteFormatError::strayAddress(const QString& provider, const QString& address)
{
    return {Kind::notConfigured,
            tr("Nothing was sent: %1 would be asked at its own address, not at %2. Choose the type Custom for that "
               "address, or clear it, under Settings, Providers.")
                .arg(provider, address)};
}

RemoteFormatError RemoteFormatError::networkError(const QString& message)
{
    return {Kind::networkError, describeRemote(Kind::networkError) + message};
}

RemoteFormatError RemoteFormatError::apiError(int status, const std::optional<QString>& message)
{
    return {Kind::apiError, describeRemote(Kind::apiError).arg(status) + message.value_or(tr("Unknown error"))};
}

RemoteFormatError RemoteFormatError::refusedParameter(int status, const QString& message, const QString& parameter)
{
    return apiError(status, message + QLatin1Char(' ') +
                                tr("The model does not take \u201C%1\u201D as it is sent: change or switch off the "
                                   "request parameters under Settings, Providers.")
                                    .arg(parameter));
}

RemoteFormatError RemoteFormatError::redirected(int status, const QString& address)
{
    return apiError(status, tr("The server has moved to %1. Enter that address for the provider.").arg(address));
}

} // namespace vantro
