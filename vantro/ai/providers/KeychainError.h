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
        invalidData,     ///< what is stored is no key
        encodingFailed,  ///< what is to be stored is no text
        decodingFailed,  ///< what is stored is no text
        serviceMissing,  ///< there is no key store, or it is locked
        unexpectedStatus ///< the key store's own complaint
    };

    explicit KeychainError(Kind kind);
    /// serviceMissing or unexpectedStatus; @p status are the key store's own words.
    KeychainError(Kind kind, const QString& status);

    [[nodiscard]] Kind kind() const { return kind_; }

private:
    Kind kind_;
};

} // namespace vantro
