#include "vantro/llm/LanguageModels.h"

#include "base/Settings.h"
#include "vantro/llm/LlamaError.h"
#include "vantro/models/ModelHost.h"
#include "vantro/models/PartFile.h"
#include "vantro/models/SpeechEngine.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLocale>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace vantro {

namespace {

struct Entry
{
    const char* name;
    const char* size;
    double memory; ///< GB
    const char* license;
    SupportedLanguages languages;
    const char* description;
    const char* repository; ///< on the public model host
    const char* file;
};

// Not yet compared with what the makers publish; see docs/language-models.md.
constexpr Entry entries[] = {
    {"Qwen2.5 1.5B", "1.0 GiB", 1.5, "Apache-2.0", SupportedLanguages::multilingual,
     QT_TRANSLATE_NOOP("LanguageModels", "Rewrites in 29 languages, among them English, German, French and Spanish."),
     "Qwen/Qwen2.5-1.5B-Instruct-GGUF", "qwen2.5-1.5b-instruct-q4_k_m.gguf"},
    {"Qwen2.5 0.5B", "469 MiB", 0.8, "Apache-2.0", SupportedLanguages::multilingual,
     QT_TRANSLATE_NOOP("LanguageModels", "Small and fast, for old machines; makes more mistakes."),
     "Qwen/Qwen2.5-0.5B-Instruct-GGUF", "qwen2.5-0.5b-instruct-q4_k_m.gguf"},
    {"SmolLM2 1.7B", "1007 MiB", 1.8, "Apache-2.0", SupportedLanguages::english,
     QT_TRANSLATE_NOOP("LanguageModels", "Rewrites English only."), "HuggingFaceTB/SmolLM2-1.7B-Instruct-GGUF",
     "smollm2-1.7b-instruct-q4_k_m.gguf"},
};

QString addressOf(const Entry& entry, const QString& host)
{
    const QString base = host == ModelHost::publicAddress() ? QUrl(host).adjusted(QUrl::RemovePath).toString() +
                                                                  QLatin1Char('/') + QLatin1String(entry.repository)
                                                            : host;
    return base + QStringLiteral("/resolve/main/") + QLatin1String(entry.file);
}

TranscriptionModel modelOf(const Entry& entry, const QString& host)
{
    TranscriptionModel model;
    model.name = QLatin1String(entry.name);
    model.size = QLatin1String(entry.size);
    model.ramUsage = entry.memory;
    model.description = QCoreApplication::translate("LanguageModels", entry.description);
    model.supportedLanguages = entry.languages;
    model.license = QLatin1String(entry.license);
    model.url = addressOf(entry, host);
    model.engine = TranscriptionEngine::llama;
    return model;
}

TranscriptionModel modelOf(const QString& path)
{
    const QFileInfo file(path);
    TranscriptionModel model;
    model.name = file.completeBaseName();
    model.size = QLocale::c().formattedDataSize(file.size(), 1);
    model.description = QCoreApplication::translate("LanguageModels", "Your own file: %1").arg(path);
    model.url = QUrl::fromLocalFile(path).toString();
    model.engine = TranscriptionEngine::llama;
    try {
        constexpr double bytesPerGB = 1e9;
        const LlamaModelFile header = LlamaModelFile::read(path);
        model.ramUsage = static_cast<double>(header.memoryBytes()) / bytesPerGB;
        model.license = header.license;
    } catch (const LlamaError&) {
        // Listed all the same: it may be on a disk that is not there now.
    }
    return model;
}

} // namespace

LanguageModels::LanguageModels(UserDefaults& defaults, const QString& modelHost, QStringList folders)
    : defaults_(defaults)
    , modelHost_(modelHost)
    , folders_(folders.isEmpty() ? modelFolders() : std::move(folders))
{
    read();
    connect(&defaults, &UserDefaults::changed, this, [this](const QString& key) {
        if (key == setting::ownLanguageModels.key || key == setting::modelHostBaseURL.key)
            read();
        else if (key != setting::selectedLanguageModelName.key)
            return;
        Q_EMIT changed();
    });
}

void LanguageModels::read()
{
    models_.clear();
    const QString host = ModelHost::address(defaults_, modelHost_);
    for (const Entry& entry : entries)
        models_.push_back(modelOf(entry, host));
    for (const QString& file : ownFiles())
        models_.push_back(modelOf(file));
}

QStringList LanguageModels::ownFiles() const
{
    QStringList files;
    for (const QJsonValue& file : QJsonDocument::fromJson(defaults_.get(setting::ownLanguageModels)).array())
        files << file.toString();
    return files;
}

void LanguageModels::changeOwnFiles(const std::function<void(QStringList&)>& change)
{
    defaults_.change([&] {
        QStringList files = ownFiles();
        change(files);
        defaults_.set(setting::ownLanguageModels,
                      QJsonDocument(QJsonArray::fromStringList(files)).toJson(QJsonDocument::Compact));
    });
    read();
    Q_EMIT changed();
}

const TranscriptionModel* LanguageModels::find(const QString& name) const
{
    const auto found = std::ranges::find(models_, name, &TranscriptionModel::name);
    return found != models_.end() ? std::to_address(found) : nullptr;
}

bool LanguageModels::isOwn(const TranscriptionModel& model) const
{
    return ownFiles().contains(QUrl(model.url).toLocalFile());
}

const TranscriptionModel* LanguageModels::chosen() const
{
    const auto isReady = [this](const TranscriptionModel& model) {
        return status(model).state == ModelStatus::State::ready;
    };
    const auto* wanted = find(defaults_.get(setting::selectedLanguageModelName));
    if (wanted != nullptr && isReady(*wanted))
        return wanted;
    const auto first = std::ranges::find_if(models_, isReady);
    return first != models_.end() ? std::to_address(first) : nullptr;
}

void LanguageModels::choose(const TranscriptionModel& model)
{
    defaults_.set(setting::selectedLanguageModelName, model.name);
}

QString LanguageModels::foundFile(const TranscriptionModel& model) const
{
    if (isOwn(model))
        return QUrl(model.url).toLocalFile();
    for (const QString& folder : folders_) {
        const QString path = folder + QLatin1Char('/') + model.fileName();
        if (QFileInfo(path).isFile())
            return path;
    }
    return {};
}

QString LanguageModels::file(const TranscriptionModel& model) const
{
    const QString found = foundFile(model);
    return found.isEmpty() ? folders_.first() + QLatin1Char('/') + model.fileName() : found;
}

bool LanguageModels::isUsable(const QString& file) const
{
    const auto version = FileVersion::of(file);
    Known& known = known_[file];
    if (known.version == version)
        return known.isUsable;
    known = {version, true};
    try {
        LlamaModelFile::read(file);
    } catch (const LlamaError&) {
        known.isUsable = false;
    }
    return known.isUsable;
}

ModelStatus LanguageModels::status(const TranscriptionModel& model) const
{
    const QString path = foundFile(model);
    if (path.isEmpty())
        return PartFile(file(model)).status();
    const QFileInfo info(path);
    if (!info.isFile())
        return {};
    const bool isElsewhere = !path.startsWith(folders_.first() + QLatin1Char('/'));
    return {isUsable(path) ? ModelStatus::State::ready : ModelStatus::State::unchecked, path, isElsewhere, info.size(),
            -1};
}

const TranscriptionModel& LanguageModels::add(const QString& file)
{
    const QString path = QFileInfo(file).absoluteFilePath();
    LlamaModelFile::read(path);
    changeOwnFiles([&](QStringList& files) {
        files.removeAll(path);
        files << path;
    });
    return models_.back();
}

qint64 LanguageModels::remove(const TranscriptionModel& model)
{
    if (!isOwn(model)) {
        const QString path = folders_.first() + QLatin1Char('/') + model.fileName();
        const qint64 freed = PartFile(path).removeAll();
        QFile::remove(path + QStringLiteral(".verified"));
        return freed;
    }
    changeOwnFiles([path = QUrl(model.url).toLocalFile()](QStringList& files) { files.removeAll(path); });
    return 0;
}

} // namespace vantro
