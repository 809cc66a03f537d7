#pragma once

#include "base/Error.h"

#include <QCoreApplication>

#include <optional>

namespace vantro {

/// Why a remote language model failed to rewrite a text.
class RemoteFormatError : public Error
{
    Q_DECLARE_TR_FUNCTIONS(RemoteFormatError)
public:
    enum class Kind {
        networkError,
        apiError,
        notConfigured, ///< the key or the address is missing
        invalidCredentials,
        invalidResponse,
        rateLimitExceeded,
        contextWindowExceeded,
    };

    /// For every kind but networkError and apiError.
    explicit RemoteFormatError(Kind kind);
    /// @p provider is asked at its own address, and the user has given another.
    static RemoteFormatError strayAddress(const QString& provider, const QString& address);
    static RemoteFormatError networkError(const QString& message);
    /// @p message: the provider's own message, if any.
    static RemoteFormatError apiError(int status, const std::optional<QString>& message);

    /// The same, because of a parameter. @p parameter: its name in the request.
    static RemoteFormatError refusedParameter(int status, const QString& message, const QString& parameter);
    /// @p address: where to, without a query, which may hold a key.
    static RemoteFormatError redirected(int status, const QString& address);

    [[nodiscard]] Kind kind() const { return kind_; }

private:
    RemoteFormatError(Kind kind, const QString& description) : Error(description), kind_(kind) {}

    Kind kind_;
};

} // namespace vantro
