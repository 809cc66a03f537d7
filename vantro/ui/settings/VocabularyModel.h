#pragma once

#include "vantro/text/VocabularySettings.h"
#include "vantro/ui/settings/ListTransfer.h"
#include "vantro/ui/settings/PageRows.h"

#include <QObject>
#include <QStringList>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace vantro {

/// The view model of the page "Vocabulary": the user's words and replacements. Changes are written at once. Main
/// thread; lives as long as its window.
class VocabularyModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its window")
    Q_PROPERTY(QStringList words READ words NOTIFY wordsChanged)
    Q_PROPERTY(QVariantList replacements READ replacements NOTIFY replacementsChanged)
    Q_PROPERTY(QAbstractItemModel* wordRows READ wordRows CONSTANT)
    Q_PROPERTY(QAbstractItemModel* replacementRows READ replacementRows CONSTANT)
    Q_PROPERTY(QString wordsLimit READ wordsLimit NOTIFY wordsChanged)
    Q_PROPERTY(QString replacementsLimit READ replacementsLimit NOTIFY replacementsChanged)
    Q_PROPERTY(QString boostingText READ boostingText NOTIFY boostingChanged)
    Q_PROPERTY(QString boostingHint READ boostingHint NOTIFY boostingChanged)
    Q_PROPERTY(QString boostingProblem READ boostingProblem NOTIFY boostingChanged)
    Q_PROPERTY(bool canDownload READ canDownload NOTIFY boostingChanged)
    Q_PROPERTY(bool isDownloading READ isDownloading NOTIFY boostingChanged)
    Q_PROPERTY(qreal downloadProgress READ downloadProgress NOTIFY boostingChanged)
    Q_PROPERTY(QString downloadStatus READ downloadStatus NOTIFY boostingChanged)
    Q_PROPERTY(QString removed READ removed NOTIFY removedChanged)
    Q_PROPERTY(ListTransfer* wordsFile READ wordsFile CONSTANT)
    Q_PROPERTY(ListTransfer* replacementsFile READ replacementsFile CONSTANT)
public:
    /// How words reach the recogniser.
    struct Boosting
    {
        enum class State {
            prompt,      ///< the selected model is a whisper model
            ready,       ///< the model that looks for words is there
            missing,     ///< it can be downloaded
            unpublished, ///< no host is known to have it
            damaged,
            downloading,
        };
        State state = State::prompt;
        QString file;    ///< of the model that looks for words, where it is or should be
        QString size;    ///< of its download
        QString problem; ///< why it could not be used last; otherwise empty
        QString status;  ///< of its download, or why the latest one failed; otherwise empty
        float progress = 0;
    };

    struct Parts
    {
        VocabularySettings& vocabulary;
        std::function<void(const LimitNotice&)> showNotice;
        /// Asks whether to remove everything, and calls back on yes.
        std::function<void(std::function<void()>)> confirmReset;
        std::function<Boosting()> boosting = [] {
            return Boosting();
        };
        std::function<void()> download = {};
        std::function<void()> cancelDownload = {};
        /// Ask for the file of a list, and call back unless the user thinks better of it.
        std::function<void(ListTransfer::Chosen)> chooseToRead = {};
        std::function<void(const QString& name, ListTransfer::Chosen)> chooseToWrite = {};
    };

    explicit VocabularyModel(Parts parts);

    [[nodiscard]] QStringList words() const { return parts_.vocabulary.customVocabulary(); }
    /// Objects with "find" and "replace".
    [[nodiscard]] QVariantList replacements() const;
    /// A notice that the list is full; otherwise empty.
    [[nodiscard]] QString wordsLimit() const;
    [[nodiscard]] QString replacementsLimit() const;
    /// What undo() would restore; empty when there is nothing.
    [[nodiscard]] QString removed() const { return removed_; }

    [[nodiscard]] ListTransfer* wordsFile() { return &wordsFile_; }
    [[nodiscard]] ListTransfer* replacementsFile() { return &replacementsFile_; }

    [[nodiscard]] QString boostingText() const;
    [[nodiscard]] QString boostingHint() const;
    [[nodiscard]] QString boostingProblem() const;
    [[nodiscard]] bool canDownload() const { return boosting_.state == Boosting::State::missing; }
    [[nodiscard]] bool isDownloading() const { return boosting_.state == Boosting::State::downloading; }
    [[nodiscard]] qreal downloadProgress() const { return static_cast<qreal>(boosting_.progress); }
    [[nodiscard]] QString downloadStatus() const { return boosting_.status; }
    Q_INVOKABLE void download() { parts_.download(); }
    Q_INVOKABLE void cancelDownload() { parts_.cancelDownload(); }
    /// Looks again how words reach the recogniser.
    Q_INVOKABLE void refreshBoosting();

    /// With the members "word", "soundsLike" and "readiness", as below.
    [[nodiscard]] QAbstractItemModel* wordRows() { return &wordRows_; }
    /// With the members "identity", "find" and "replace".
    [[nodiscard]] QAbstractItemModel* replacementRows() { return &replacementRows_; }
    /// Separated by commas.
    [[nodiscard]] QString soundsLike(int row) const;
    /// How readily the word is written: 0 seldom, 1 normally, 2 readily.
    [[nodiscard]] int readiness(int row) const;
    Q_INVOKABLE void refineWord(int row, const QString& soundsLike, int readiness);
    /// Tells the user and returns false when the list is full.
    Q_INVOKABLE bool addWord(const QString& word);
    Q_INVOKABLE void removeWord(int row);
    Q_INVOKABLE bool addReplacement(const QString& find, const QString& replace);
    Q_INVOKABLE void updateReplacement(int row, const QString& find, const QString& replace);
    Q_INVOKABLE void removeReplacement(int row);
    Q_INVOKABLE void undo();
    Q_INVOKABLE void reset();

Q_SIGNALS:
    void wordsChanged();
    void replacementsChanged();
    void removedChanged();
    void boostingChanged();

private:
    void showWords();
    void showReplacements();
    void offerUndo(const QString& text, std::function<void()> undo);

    Parts parts_;
    ListTransfer wordsFile_;
    ListTransfer replacementsFile_;
    PageRows wordRows_{{QStringLiteral("word"), QStringLiteral("soundsLike"), QStringLiteral("readiness")}};
    PageRows replacementRows_{{QStringLiteral("identity"), QStringLiteral("find"), QStringLiteral("replace")}};
    Boosting boosting_;
    QString removed_;
    std::function<void()> undo_;
};

} // namespace vantro
