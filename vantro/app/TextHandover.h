#pragma once

#include "vantro/app/Recovery.h"
#include "vantro/app/Shell.h"
#include "vantro/delivery/PasteDelivery.h"

#include <QCoreApplication>
#include <QRect>
#include <QString>
#include <qcoro/qcorotask.h>

#include <functional>
#include <optional>

namespace vantro {

/// Hands a dictation's text to its user, in its window or on the clipboard, and says where it is if that is not plain
/// to see. Main thread.
class TextHandover
{
    Q_DECLARE_TR_FUNCTIONS(TextHandover)
public:
    /// All must outlive this object.
    TextHandover(PasteDelivery& delivery, Recovery& recovery, Shell& shell)
        : delivery_(delivery)
        , recovery_(recovery)
        , shell_(shell)
    {
    }

    /// Shown with the text, for example why it was not rewritten.
    void setRemark(const QString& remark) { remark_ = remark; }

    /// Pastes @p text into the remembered window. The recording that is @p owed is deleted when the text is safe; if it
    /// gets lost and is not in the history either (@p isStored), the recording is kept. @p anchor: where the launcher
    /// was.
    QCoro::Task<PasteDelivery::Outcome> paste(QString text, Owed owed, bool isStored, std::optional<QRect> anchor);
    /// Copies @p text. @p isFromKept: it is the text of a kept recording.
    void copy(const QString& text, bool isStored, bool isFromKept, std::optional<QRect> anchor);

private:
    [[nodiscard]] std::function<QString()> pasteKeys() const;

    PasteDelivery& delivery_;
    Recovery& recovery_;
    Shell& shell_;
    QString remark_;
};

} // namespace vantro
