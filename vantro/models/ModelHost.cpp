#include "vantro/models/ModelHost.h"

#include "base/Error.h"
#include "base/Settings.h"

namespace vantro {

QString ModelHost::publicAddress()
{
    return QStringLiteral("https://huggingface.co/ggerganov/whisper.cpp");
}

QString ModelHost::publicFluidAddress()
{
    return QStringLiteral("https://huggingface.co/ggml-org/parakeet-GGUF");
}

QString ModelHost::fluidAddress(const QString& address)
{
    return address == publicAddress() ? publicFluidAddress() : address;
}

QString ModelHost::address(const UserDefaults& defaults, const QString& option)
{
    QString address = option;
    if (address.isEmpty())
        address = qEnvironmentVariable("VANTRO_MODEL_HOST");
    if (address.isEmpty())
        address = defaults.get(setting::modelHostBaseURL);
    if (address.isEmpty())
        address = publicAddress();
    while (address.endsWith(QLatin1Char('/')))
        address.chop(1);
    return address;
}

std::optional<QUrl> ModelHost::usable(const QString& text)
{
    const QUrl url(text, QUrl::StrictMode);
    const QString scheme = url.scheme();
    const bool isWeb = scheme == QLatin1String("http") || scheme == QLatin1String("https");
    if (!url.isValid() || !(isWeb ? !url.host().isEmpty() : url.isLocalFile()))
        return std::nullopt;
    return url;
}

QUrl ModelHost::urlOf(const TranscriptionModel& model)
{
    if (const auto url = usable(model.address()))
        return *url;
    throw Error(QStringLiteral("Model \"%1\" has no valid download URL.").arg(model.name));
}

} // namespace vantro
