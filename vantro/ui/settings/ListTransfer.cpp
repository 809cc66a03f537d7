#include "vantro/ui/settings/ListTransfer.h"

#include "base/Error.h"
#include "vantro/text/ListFile.h"

#include <QFileInfo>
#include <QPointer>

#include <utility>

namespace vantro {

ListTransfer::ListTransfer(Parts parts) : parts_(std::move(parts)) {}

void ListTransfer::importFile()
{
    parts_.chooseToRead([self = QPointer(this)](const QString& path) {
        if (!self)
            return;
        self->tell([self, &path] {
            const ImportedEntries imported = self->parts_.read(path, listFormatOf(path));
            return tr("%1: %2 added, %3 were there already.")
                .arg(QFileInfo(path).fileName())
                .arg(imported.added)
                .arg(imported.known);
        });
    });
}

void ListTransfer::exportFile()
{
    parts_.chooseToWrite(parts_.name + QStringLiteral(".csv"), [self = QPointer(this)](const QString& path) {
        if (!self)
            return;
        self->tell([self, &path] {
            writeListFile(path, self->parts_.content(listFormatOf(path)));
            return tr("Written to %1.").arg(path);
        });
    });
}

void ListTransfer::tell(const std::function<QString()>& work)
{
    try {
        news_ = work();
        isProblem_ = false;
    } catch (const Error& error) {
        news_ = error.localizedDescription() + QLatin1Char('.');
        isProblem_ = true;
    }
    Q_EMIT newsChanged();
}

} // namespace vantro
