#pragma once

#include "base/Error.h"

#include <QCoreApplication>

namespace vantro {

/// Why an API key could not be stored or read.
class KeychainError : public Error
{
    Q_DECLARE_TR_FUNCTIONS(KeychainError)
public:
    enum class Kind {
        itemNotFound,
        duplicateItem,
        invalidData,     ///< the stored value is empty
        encodingFailed,  ///< the key to store is empty or not valid text
        decodingFailed,  ///< the stored value is not valid UTF-8
        serviceMissing,  ///< no key store is running, or it is locked
        unexpectedStatus ///< an error reported by the key store
    };

    explicit KeychainError(Kind kind);
    /// For serviceMissing and unexpectedStatus; @p status is the key store's own message.
    KeychainError(Kind kind, const QString& status);

    [[nodiscard]] Kind kind() const { return kind_; }

private:
    Kind kind_;
};

} // namespace vantro
