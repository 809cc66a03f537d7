#include "vantro/main/FileChoice.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QStandardPaths>

#include <utility>

namespace vantro {

namespace {

/// Begins in the documents' folder, and deletes itself once it is closed.
QFileDialog* makeDialog(const QString& title, const QStringList& filters, std::function<void(QString)> chosen)
{
    auto* const dialog = new QFileDialog;
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(title);
    dialog->setDirectory(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    dialog->setNameFilters(filters);
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog, std::move(chosen));
    return dialog;
}

void openToWrite(QFileDialog* dialog, const QString& name)
{
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->selectFile(name);
    const auto followFormat = [dialog](const QString& filter) {
        dialog->setDefaultSuffix(filter.section(QLatin1Char('.'), -1).chopped(1));
    };
    followFormat(dialog->nameFilters().constFirst());
    QObject::connect(dialog, &QFileDialog::filterSelected, dialog, followFormat);
    dialog->open();
}

} // namespace

void chooseFileToWrite(const QString& name, std::function<void(QString)> chosen)
{
    openToWrite(makeDialog(QCoreApplication::translate("FileChoice", "Export Dictations"),
                           {QCoreApplication::translate("FileChoice", "Text with headings (*.md)"),
                            QCoreApplication::translate("FileChoice", "Table (*.csv)"),
                            QCoreApplication::translate("FileChoice", "JSON (*.json)")},
                           std::move(chosen)),
                name);
}

void chooseListToWrite(const QString& name, std::function<void(QString)> chosen)
{
    openToWrite(makeDialog(QCoreApplication::translate("FileChoice", "Export List"),
                           {QCoreApplication::translate("FileChoice", "Table (*.csv)"),
                            QCoreApplication::translate("FileChoice", "JSON (*.json)")},
                           std::move(chosen)),
                name);
}

void chooseListToRead(std::function<void(QString)> chosen)
{
    QFileDialog* const dialog =
        makeDialog(QCoreApplication::translate("FileChoice", "Import List"),
                   {QCoreApplication::translate("FileChoice", "Table, plain list or JSON (*.csv *.txt *.json)"),
                    QCoreApplication::translate("FileChoice", "All files (*)")},
                   std::move(chosen));
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->open();
}

} // namespace vantro
