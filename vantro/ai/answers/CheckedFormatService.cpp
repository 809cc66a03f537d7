#include "vantro/ai/answers/CheckedFormatService.h"

#include <utility>

namespace vantro {

CheckedFormatService::CheckedFormatService(std::shared_ptr<FormatRequestServicing> service,
                                           const LanguageRecognizer& languages, QString name)
    : service_(std::move(service))
    , check_(languages)
    , name_(std::move(name))
{
}

QCoro::Task<QString> CheckedFormatService::format(QString prompt, QString text)
{
    const auto formatting = service_->format(prompt, text);
    const QString answer = co_await formatting;
    co_return check_.checked(answer, text, prompt);
}

} // namespace vantro
