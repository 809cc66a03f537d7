#pragma once

#include "base/UserDefaults.h"
#include "vantro/llm/LlamaModelFile.h"
#include "vantro/models/FileVersion.h"
#include "vantro/models/ModelStatus.h"
#include "vantro/models/TranscriptionModel.h"

#include <QHash>
#include <QObject>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace vantro {

/// The language models that can rewrite texts on this machine: those that can be downloaded, the user's own files, and
/// which one is used. All state is on disk and in the settings, so several objects and processes may use it. Main
/// thread.
class LanguageModels final : public QObject
{
    Q_OBJECT
public:
    /// @p modelHost: see ModelHost::address(). @p folders are searched in order; see modelFolders().
    explicit LanguageModels(UserDefaults& defaults, const QString& modelHost = {}, QStringList folders = {});

    /// Those of the catalogue, then the user's own.
    [[nodiscard]] const std::vector<TranscriptionModel>& models() const { return models_; }
    [[nodiscard]] const TranscriptionModel* find(const QString& name) const;
    [[nodiscard]] bool isOwn(const TranscriptionModel& model) const;

    /// The user's choice if its file is there, else the first one whose file is; null without any.
    [[nodiscard]] const TranscriptionModel* chosen() const;
    void choose(const TranscriptionModel& model);

    /// Reads at most a file's header, and that once.
    [[nodiscard]] ModelStatus status(const TranscriptionModel& model) const;
    /// The path of a file that is there, or where a download puts it.
    [[nodiscard]] QString file(const TranscriptionModel& model) const;

    /// Takes the user's own file where it is. Throws LlamaError if it cannot be used.
    const TranscriptionModel& add(const QString& file);
    /// Removes a downloaded copy and any partial download; of the user's own files only the entry. Returns the number
    /// of bytes freed. Throws Error while it is being downloaded or when it cannot be removed.
    qint64 remove(const TranscriptionModel& model);

Q_SIGNALS:
    /// The list or the choice is another. Pointers to former entries are void.
    void changed();

private:
    struct Known
    {
        FileVersion version;
        bool isUsable = false;
    };

    void read();
    [[nodiscard]] QStringList ownFiles() const;
    void changeOwnFiles(const std::function<void(QStringList&)>& change);
    [[nodiscard]] QString foundFile(const TranscriptionModel& model) const;
    [[nodiscard]] bool isUsable(const QString& file) const;

    UserDefaults& defaults_;
    QString modelHost_;
    QStringList folders_;
    std::vector<TranscriptionModel> models_;
    mutable QHash<QString, Known> known_; ///< what files were found to be, by path
};

} // namespace vantro
