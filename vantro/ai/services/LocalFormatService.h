#pragma once

#include "platform/LanguageRecognizer.h"
#include "vantro/ai/FormatRequestServicing.h"
#include "vantro/llm/LlamaError.h"
#include "vantro/llm/LocalModel.h"

#include <QCoreApplication>

#include <memory>
#include <stop_token>

namespace vantro {

/// The language model of this machine. Throws LocalFormatError.
class LocalFormatService final : public FormatRequestServicing
{
    Q_DECLARE_TR_FUNCTIONS(LocalFormatService)
public:
    /// The referenced objects must outlive it. @p stop ends the answer.
    LocalFormatService(LocalModel& model, const LanguageRecognizer& languages, std::stop_token stop);

    /// How a request with @p prompt begins, whatever its text.
    [[nodiscard]] static QString instruction(const QString& prompt);

    /// Keeps the model loaded as long as this object lives.
    void prepare(const QString& prompt) override { expected_ = model_.expect(instruction(prompt)); }
    void listen(std::function<void(const QString&)> onText) override { onText_ = std::move(onText); }
    QCoro::Task<QString> format(QString prompt, QString text) override;

private:
    void requireModel() const;
    [[nodiscard]] LlamaEngine::Request request(const QString& prompt, const QString& text) const;
    [[noreturn]] void translate(const LlamaError& error) const;

    LocalModel& model_;
    const LanguageRecognizer& languages_;
    std::shared_ptr<void> expected_;
    std::stop_token stop_;
    std::function<void(const QString&)> onText_;
};

} // namespace vantro
