#include "vantro/main/FileChoice.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QStandardPaths>

#include <utility>

namespace vantro {

void chooseFileToWrite(const QString& name, std::function<void(QString)> chosen)
{
    auto* const dialog = new QFileDialog;
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(QCoreApplication::translate("FileChoice", "Export Dictations"));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDirectory(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    dialog->setNameFilters({QCoreApplication::translate("FileChoice", "Text with headings (*.md)"),
                            QCoreApplication::translate("FileChoice", "Table (*.csv)"),
                            QCoreApplication::translate("FileChoice", "JSON (*.json)")});
    dialog->selectFile(name);
    const auto followFormat = [dialog](const QString& filter) {
        dialog->setDefaultSuffix(filter.section(QLatin1Char('.'), -1).chopped(1));
    };
    followFormat(dialog->nameFilters().constFirst());
    QObject::connect(dialog, &QFileDialog::filterSelected, dialog, followFormat);
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog, std::move(chosen));
    dialog->open();
}

} // namespace vantro
