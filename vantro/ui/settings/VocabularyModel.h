#pragma once

#include "vantro/text/VocabularySettings.h"

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
    Q_PROPERTY(QString wordsLimit READ wordsLimit NOTIFY wordsChanged)
    Q_PROPERTY(QString replacementsLimit READ replacementsLimit NOTIFY replacementsChanged)
    Q_PROPERTY(QString removed READ removed NOTIFY removedChanged)
public:
    struct Parts
    {
        VocabularySettings& vocabulary;
        std::function<void(const LimitNotice&)> showNotice;
        /// Asks whether to remove everything, and calls back on yes.
        std::function<void(std::function<void()>)> confirmReset;
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

private:
    void offerUndo(const QString& text, std::function<void()> undo);

    Parts parts_;
    QString removed_;
    std::function<void()> undo_;
};

} // namespace vantro
