#pragma once

#include "vantro/text/VocabularyTransfer.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace vantro {

/// The view model of a list's import and export: asks for the file and tells how it went. Main thread; lives as long
/// as its page.
class ListTransfer : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its window")
    Q_PROPERTY(QString news READ news NOTIFY newsChanged)
    Q_PROPERTY(bool isProblem READ isProblem NOTIFY newsChanged)
public:
    using Chosen = std::function<void(QString)>;

    struct Parts
    {
        QString name; ///< of an exported file, to begin with
        std::function<void(Chosen)> chooseToRead;
        std::function<void(const QString& name, Chosen)> chooseToWrite;
        /// Adds a file's entries to the list. Throws Error.
        std::function<ImportedEntries(const QString& path, ListFormat)> read;
        /// The list as a file has it.
        std::function<QByteArray(ListFormat)> content;
    };

    explicit ListTransfer(Parts parts);

    /// What the latest import or export has done, or why it has not; empty before the first.
    [[nodiscard]] QString news() const { return news_; }
    [[nodiscard]] bool isProblem() const { return isProblem_; }

    Q_INVOKABLE void importFile();
    Q_INVOKABLE void exportFile();

Q_SIGNALS:
    void newsChanged();

private:
    void tell(const std::function<QString()>& work);

    Parts parts_;
    QString news_;
    bool isProblem_ = false;
};

} // namespace vantro
