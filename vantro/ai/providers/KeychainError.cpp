#include "vantro/ai/providers/KeychainError.h"

namespace vantro {

namespace {

QString describe(KeychainError::Kind kind)
{
    switch (kind) {
    case KeychainError::Kind::itemNotFound:
        return KeychainError::tr("Item not found in Keychain");
    case KeychainError::Kind::duplicateItem:
        return KeychainError::tr("Item already exists in Keychain");
    case KeychainError::Kind::invalidData:
        return KeychainError::tr("Invalid data format");
    case KeychainError::Kind::encodingFailed:
        return KeychainError::tr("Failed to encode data");
    case KeychainError::Kind::decodingFailed:
        return KeychainError::tr("Failed to decode data");
    case KeychainError::Kind::serviceMissing:
    case KeychainError::Kind::unexpectedStatus:
        break;
    }
    return KeychainError::tr("Keychain error: ");
}

} // namespace

KeychainError::KeychainError(Kind kind) : Error(describe(kind)), kind_(kind) {}

KeychainError::KeychainError(Kind kind, const QString& status) : Error(describe(kind) + status), kind_(kind) {}

} // namespace vantro
