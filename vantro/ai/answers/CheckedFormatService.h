#pragma once

#include "vantro/ai/FormatRequestServicing.h"
#include "vantro/ai/answers/AnswerCheck.h"

#include <memory>
#include <utility>

namespace vantro {

/// Another service whose answers are judged before anybody sees them. Throws AnswerSetAside.
class CheckedFormatService final : public FormatRequestServicing
{
public:
    /// @p languages must outlive it. @p name: who answers, for the user.
    CheckedFormatService(std::shared_ptr<FormatRequestServicing> service, const LanguageRecognizer& languages,
                         QString name = {});

    [[nodiscard]] QString name() const override { return name_; }
    void prepare(const QString& prompt) override { service_->prepare(prompt); }
    void listen(std::function<void(const QString&)> onText) override { service_->listen(std::move(onText)); }
    void expectLanguage(const QString& code) override { service_->expectLanguage(code); }
    QCoro::Task<QString> format(QString prompt, QString text) override;

private:
    std::shared_ptr<FormatRequestServicing> service_;
    AnswerCheck check_;
    QString name_;
};

} // namespace vantro
