#include "vantro/whisper/WhisperModelFile.h"

#include <ggml.h>
#include <whisper.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

namespace vantro {

namespace {

constexpr qint32 containerMagic = 0x67676d6c; // "ggml"
constexpr qint32 quantisationVersionFactor = 1000;
// What the architecture fixes; the library has the same numbers built in.
constexpr qint32 audioContext = 1500;
constexpr qint32 textContext = 448;
constexpr qint32 frequencyBins = 201;
// English, 99 languages, 100 languages.
constexpr qint32 smallestVocabulary = 51'864;
constexpr qint32 largestVocabulary = 51'866;
constexpr qint32 largestState = 8'192;
constexpr qint32 mostLayers = 256;
constexpr qint32 mostMelBands = 1'024;
constexpr qint32 longestPiece = 1'024;
constexpr qint32 longestName = 256;
constexpr qint32 mostDimensions = 4;
constexpr qint32 largestDimension = 1 << 24;

[[noreturn]] void refuse(const QString& why)
{
    throw Error(why);
}

void require(bool condition, const char* what)
{
    if (!condition)
        refuse(QStringLiteral("the header's %1 is out of range").arg(QLatin1String(what)));
}

bool inRange(qint32 value, qint32 low, qint32 high)
{
    return value >= low && value <= high;
}

/// The type of the matrices; GGML_TYPE_COUNT for a file type that no model has, with which ggml would end the program.
ggml_type matrixTypeOf(qint32 fileType)
{
    constexpr std::array known = {GGML_FTYPE_ALL_F32,     GGML_FTYPE_MOSTLY_F16,  GGML_FTYPE_MOSTLY_Q4_0,
                                  GGML_FTYPE_MOSTLY_Q4_1, GGML_FTYPE_MOSTLY_Q5_0, GGML_FTYPE_MOSTLY_Q5_1,
                                  GGML_FTYPE_MOSTLY_Q8_0, GGML_FTYPE_MOSTLY_Q2_K, GGML_FTYPE_MOSTLY_Q3_K,
                                  GGML_FTYPE_MOSTLY_Q4_K, GGML_FTYPE_MOSTLY_Q5_K, GGML_FTYPE_MOSTLY_Q6_K};
    const auto found = std::ranges::find(known, fileType % quantisationVersionFactor);
    return found != known.end() ? ggml_ftype_to_ggml_type(*found) : GGML_TYPE_COUNT;
}

/// In the order of the file.
struct Header
{
    qint32 vocabulary = 0;
    qint32 audioContext = 0;
    qint32 audioState = 0;
    qint32 audioHeads = 0;
    qint32 audioLayers = 0;
    qint32 textContext = 0;
    qint32 textState = 0;
    qint32 textHeads = 0;
    qint32 textLayers = 0;
    qint32 melBands = 0;
    qint32 fileType = 0;
};

class Scan
{
public:
    explicit Scan(QIODevice& file) : file_(file), size_(file.size()) {}

    void run()
    {
        header();
        filters();
        pieces();
        if (file_.pos() == size_)
            refuse(QStringLiteral("it contains no weights"));
        while (file_.pos() < size_)
            tensor();
    }

private:
    [[nodiscard]] qint32 integer(const char* what)
    {
        qint32 value = 0;
        if (file_.read(reinterpret_cast<char*>(&value), sizeof value) != sizeof value)
            refuse(QStringLiteral("the file ends inside %1").arg(QLatin1String(what)));
        return value;
    }
    void skip(qint64 bytes, const char* what)
    {
        // QIODevice::skip() reads over short distances; a seek is a system call, and a vocabulary has 50,000 pieces.
        if (bytes > size_ - file_.pos() || file_.skip(bytes) != bytes)
            refuse(QStringLiteral("the file ends inside %1").arg(QLatin1String(what)));
    }

    void header();
    void requireEnoughWeights() const;
    void filters();
    void pieces();
    void tensor();

    QIODevice& file_;
    qint64 size_;
    Header header_;
    ggml_type matrixType_ = GGML_TYPE_COUNT;
};

void Scan::header()
{
    if (integer("the header") != containerMagic)
        refuse(QStringLiteral("it is not a model of the whisper library"));
    for (qint32 Header::*field : {&Header::vocabulary, &Header::audioContext, &Header::audioState, &Header::audioHeads,
                                  &Header::audioLayers, &Header::textContext, &Header::textState, &Header::textHeads,
                                  &Header::textLayers, &Header::melBands, &Header::fileType})
        header_.*field = integer("the header");
    require(inRange(header_.vocabulary, smallestVocabulary, largestVocabulary), "vocabulary size");
    require(header_.audioContext == audioContext, "audio context");
    require(header_.textContext == textContext, "text context");
    require(inRange(header_.audioState, 1, largestState) && header_.audioState % 2 == 0, "width");
    require(header_.textState == header_.audioState, "text width");
    for (const qint32 heads : {header_.audioHeads, header_.textHeads})
        require(inRange(heads, 1, header_.audioState) && header_.audioState % heads == 0, "number of heads");
    for (const qint32 layers : {header_.audioLayers, header_.textLayers})
        require(inRange(layers, 1, mostLayers), "number of layers");
    require(inRange(header_.melBands, 1, mostMelBands), "number of mel bands");
    matrixType_ = matrixTypeOf(header_.fileType);
    require(matrixType_ != GGML_TYPE_COUNT && header_.audioState % ggml_blck_size(matrixType_) == 0, "file type");
    requireEnoughWeights();
}

/// The library allocates all of it before it reads any.
void Scan::requireEnoughWeights() const
{
    // Attention takes four square matrices, cross-attention four more, the feed-forward network eight.
    constexpr qint64 audioSquares = 4 + 8;
    constexpr qint64 textSquares = 4 + 4 + 8;
    const qint64 rows = header_.audioState * (audioSquares * header_.audioLayers + textSquares * header_.textLayers) +
                        header_.vocabulary;
    if (static_cast<qint64>(ggml_row_size(matrixType_, header_.audioState)) * rows > size_)
        refuse(QStringLiteral("the file is smaller than its header announces"));
}

void Scan::filters()
{
    if (integer("the filter bank") != header_.melBands || integer("the filter bank") != frequencyBins)
        refuse(QStringLiteral("the filter bank does not fit the header"));
    skip(static_cast<qint64>(sizeof(float)) * header_.melBands * frequencyBins, "the filter bank");
}

void Scan::pieces()
{
    const qint32 count = integer("the text pieces");
    if (!inRange(count, 0, header_.vocabulary))
        refuse(QStringLiteral("the number of text pieces does not fit the header"));
    for (qint32 i = 0; i < count; ++i) {
        const qint32 bytes = integer("the text pieces");
        if (!inRange(bytes, 0, longestPiece))
            refuse(QStringLiteral("a text piece is too long"));
        skip(bytes, "the text pieces");
    }
}

void Scan::tensor()
{
    const qint32 dimensions = integer("a tensor's header");
    const qint32 nameBytes = integer("a tensor's header");
    const qint32 type = integer("a tensor's header");
    if (!inRange(dimensions, 1, mostDimensions) || !inRange(nameBytes, 1, longestName))
        refuse(QStringLiteral("a tensor's header is damaged"));
    // The library judges a tensor's type by its size alone, and two types may have the same.
    if (type != GGML_TYPE_F32 && type != GGML_TYPE_F16 && type != matrixType_)
        refuse(QStringLiteral("a tensor's type does not fit the header"));
    qint64 elements = 1;
    for (qint32 i = 0; i < dimensions; ++i) {
        const qint32 extent = integer("a tensor's header");
        // Each factor has 24 bits, so the product exceeds any file size before it can overflow.
        if (!inRange(extent, 1, largestDimension) || elements > size_)
            refuse(QStringLiteral("a tensor's dimension is out of range"));
        elements *= extent;
    }
    skip(nameBytes, "a tensor's name");
    const auto blockElements = static_cast<qint64>(ggml_blck_size(static_cast<ggml_type>(type)));
    if (elements > std::numeric_limits<qint32>::max() || elements % blockElements != 0)
        refuse(QStringLiteral("a tensor's dimension is out of range"));
    skip(elements / blockElements * static_cast<qint64>(ggml_type_size(static_cast<ggml_type>(type))), "a tensor");
}

} // namespace

void checkWhisperModel(QIODevice& file)
{
    Scan(file).run();
}

WhisperModelFile::WhisperModelFile(const QString& path) : file_(path) {}

std::size_t WhisperModelFile::read(void* output, std::size_t bytes)
{
    const auto count = static_cast<std::size_t>(
        std::max<qint64>(0, file_.read(static_cast<char*>(output), static_cast<qint64>(bytes))));
    std::memset(static_cast<char*>(output) + count, 0, bytes - count);
    hasEnded_ = hasEnded_ || count < bytes;
    return count;
}

whisper_context* WhisperModelFile::load()
{
    if (!file_.open(QIODevice::ReadOnly))
        throw Error(file_.errorString());
    checkWhisperModel(file_);
    file_.seek(0);
    whisper_model_loader loader{this,
                                [](void* self, void* output, std::size_t bytes) {
                                    return static_cast<WhisperModelFile*>(self)->read(output, bytes);
                                },
                                [](void* self) { return static_cast<WhisperModelFile*>(self)->hasEnded_; },
                                [](void*) {
                                }};
    whisper_context* context = nullptr;
    try {
        context = whisper_init_with_params(&loader, whisper_context_default_params());
    } catch (const std::exception& error) {
        throw Error(QString::fromLocal8Bit(error.what()));
    }
    if (context == nullptr)
        throw Error(QStringLiteral("the whisper library refuses it"));
    return context;
}

} // namespace vantro
