#pragma once

#include "KeyboardShortcuts/RecorderCocoa.h"

#include <QtQml/qqml.h>
#include <QtQml/qqmlregistration.h>

/// Makes the recorder control's state known to QML, and keeps the module in a program that shows the control:
/// keepModule(qml_register_types_Vantro_Shortcuts).
void qml_register_types_Vantro_Shortcuts();

namespace vantro {

struct ShortcutRecorderType
{
    Q_GADGET
    QML_FOREIGN(vantro::RecorderCocoa)
    QML_NAMED_ELEMENT(RecorderCocoa)
    QML_UNCREATABLE("made with its window")
};

} // namespace vantro
