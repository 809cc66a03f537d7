#include "vantro/models/Sha1.h"

#include "base/Error.h"

#include <QCoreApplication>

#include <openssl/evp.h>

#include <array>
#include <memory>
#include <vector>

namespace vantro {

namespace {

constexpr qint64 hashedAtOnceBytes = 1'048'576;

struct DigestDeleter
{
    void operator()(EVP_MD_CTX* context) const { EVP_MD_CTX_free(context); }
};

Error unreadable(const QFile& file)
{
    return Error(QCoreApplication::translate("ModelDownload", "%1 could not be read: %2")
                     .arg(file.fileName(), file.errorString()));
}

QString digestOf(QFile& file, const EVP_MD* algorithm)
{
    const std::unique_ptr<EVP_MD_CTX, DigestDeleter> digest(EVP_MD_CTX_new());
    if (!digest || EVP_DigestInit_ex(digest.get(), algorithm, nullptr) != 1)
        throw Error(QCoreApplication::translate("ModelDownload",
                                                "%1 is disabled on this system, so model files cannot be verified")
                        .arg(QLatin1String(EVP_MD_get0_name(algorithm))));
    std::vector<char> chunk(hashedAtOnceBytes);
    qint64 count = 0;
    while ((count = file.read(chunk.data(), hashedAtOnceBytes)) > 0)
        EVP_DigestUpdate(digest.get(), chunk.data(), static_cast<std::size_t>(count));
    if (count < 0)
        throw unreadable(file);
    std::array<unsigned char, EVP_MAX_MD_SIZE> bytes{};
    unsigned length = 0;
    EVP_DigestFinal_ex(digest.get(), bytes.data(), &length);
    return QString::fromLatin1(
        QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(length)).toHex());
}

QString digestOf(const QString& path, const EVP_MD* algorithm)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw unreadable(file);
    return digestOf(file, algorithm);
}

} // namespace

QString sha1OfFile(QFile& file)
{
    return digestOf(file, EVP_sha1());
}

QString sha1OfFile(const QString& path)
{
    return digestOf(path, EVP_sha1());
}

QString sha256OfFile(const QString& path)
{
    return digestOf(path, EVP_sha256());
}

} // namespace vantro
