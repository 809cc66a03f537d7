#pragma once

#include "KeyboardShortcuts/RecorderCocoa.h"

#include <QtQml/qqml.h>
#include <QtQml/qqmlregistration.h>

/// Registers RecorderCocoa with QML. A program that shows ShortcutRecorder must call
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
