#include "vantro/llm/LlamaModelFile.h"

#include "vantro/llm/LlamaError.h"

#include <QFile>
#include <QFileInfo>

#include <ggml.h>
#include <gguf.h>

#include <algorithm>
#include <memory>
#include <string>

namespace vantro {

namespace {

constexpr std::uint32_t longestContext = 8'192;
constexpr std::uint32_t shortestContext = 1'024;
constexpr std::uint64_t mostContextBytes = 512U << 20U;
constexpr std::uint64_t computationBytes = 160U << 20U;
constexpr std::uint64_t bytesPerValue = 2; // float16

[[noreturn]] void refuse(const QString& why)
{
    throw LlamaError(LlamaError::Kind::unusableFile, why);
}

struct FreeHeader
{
    void operator()(gguf_context* header) const { gguf_free(header); }
};

class Header
{
public:
    explicit Header(const QString& path)
        : header_(gguf_init_from_file(QFile::encodeName(path).constData(), {.no_alloc = true, .ctx = nullptr}))
    {
        if (!header_)
            refuse(LlamaError::tr("it is no GGUF file, or a damaged one"));
        architecture_ = text("general.architecture").toStdString();
        if (architecture_.empty())
            refuse(LlamaError::tr("it does not say of which architecture it is"));
    }

    [[nodiscard]] QString text(const char* key) const
    {
        const auto id = gguf_find_key(header_.get(), key);
        return id >= 0 && gguf_get_kv_type(header_.get(), id) == GGUF_TYPE_STRING
                   ? QString::fromUtf8(gguf_get_val_str(header_.get(), id))
                   : QString();
    }

    /// Of the architecture; the greatest where each layer has its own. 0 if it is missing.
    [[nodiscard]] std::uint64_t number(const char* key) const
    {
        const auto id = gguf_find_key(header_.get(), (architecture_ + '.' + key).c_str());
        if (id < 0)
            return 0;
        if (gguf_get_kv_type(header_.get(), id) == GGUF_TYPE_UINT32)
            return gguf_get_val_u32(header_.get(), id);
        return gguf_get_kv_type(header_.get(), id) == GGUF_TYPE_ARRAY ? greatest(id) : 0;
    }

    /// Throws if the file ends before they do.
    [[nodiscard]] std::uint64_t weightBytes(std::uint64_t fileBytes) const
    {
        std::uint64_t end = 0;
        for (std::int64_t tensor = 0; tensor < gguf_get_n_tensors(header_.get()); ++tensor)
            end = std::max<std::uint64_t>(end, gguf_get_tensor_offset(header_.get(), tensor) +
                                                   gguf_get_tensor_size(header_.get(), tensor));
        if (end == 0)
            refuse(LlamaError::tr("it contains no weights"));
        if (gguf_get_data_offset(header_.get()) + end > fileBytes)
            refuse(LlamaError::tr("the file ends before its last weight"));
        return end;
    }

private:
    [[nodiscard]] std::uint64_t greatest(std::int64_t id) const
    {
        if (const auto type = gguf_get_arr_type(header_.get(), id); type != GGUF_TYPE_UINT32 && type != GGUF_TYPE_INT32)
            return 0;
        const auto* values = static_cast<const std::uint32_t*>(gguf_get_arr_data(header_.get(), id));
        const auto count = gguf_get_arr_n(header_.get(), id);
        return count > 0 ? *std::max_element(values, values + count) : 0;
    }

    std::unique_ptr<gguf_context, FreeHeader> header_;
    std::string architecture_;
};

std::uint64_t contextBytesPerToken(const Header& header)
{
    const auto heads = header.number("attention.head_count");
    const auto sharedHeads = header.number("attention.head_count_kv");
    const auto headSize = heads > 0 ? header.number("embedding_length") / heads : 0;
    const auto keys = header.number("attention.key_length");
    const auto values = header.number("attention.value_length");
    return header.number("block_count") * (sharedHeads > 0 ? sharedHeads : heads) *
           ((keys > 0 ? keys : headSize) + (values > 0 ? values : headSize)) * bytesPerValue;
}

} // namespace

LlamaModelFile LlamaModelFile::read(const QString& path)
{
    if (!QFileInfo(path).isReadable())
        refuse(LlamaError::tr("the file is not there or may not be read"));
    const Header header(path);
    LlamaModelFile model;
    model.weightBytes = header.weightBytes(static_cast<std::uint64_t>(QFileInfo(path).size()));
    if (header.text("tokenizer.chat_template").isEmpty())
        refuse(LlamaError::tr("it has no chat template, so it follows no instructions"));
    model.name = header.text("general.name");
    model.license = header.text("general.license");
    model.trainedContext = static_cast<std::uint32_t>(header.number("context_length"));
    model.bytesPerToken = contextBytesPerToken(header);
    return model;
}

std::uint32_t LlamaModelFile::context() const
{
    const auto affordable = mostContextBytes / std::max<std::uint64_t>(bytesPerToken, 1);
    const auto wanted = std::min<std::uint64_t>({longestContext, trainedContext, affordable});
    return static_cast<std::uint32_t>(std::max<std::uint64_t>(wanted, shortestContext));
}

std::uint64_t LlamaModelFile::memoryBytes() const
{
    return weightBytes + context() * bytesPerToken + computationBytes;
}

} // namespace vantro
