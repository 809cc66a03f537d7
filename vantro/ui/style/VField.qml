import QtQuick
import QtQuick.Templates as T

// A text field.
T.TextField {
    id: field

    implicitHeight: contentHeight + 2 * Theme.space8
    leftPadding: Theme.space12
    rightPadding: Theme.space12
    color: Theme.text
    placeholderTextColor: Theme.textSecondary
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentText
    font.pixelSize: Theme.sizeBody
    verticalAlignment: TextInput.AlignVCenter

    VText {
        anchors { left: parent.left; leftMargin: field.leftPadding; verticalCenter: parent.verticalCenter }
        visible: field.text === "" && field.preeditText === ""
        text: field.placeholderText
        color: field.placeholderTextColor
        font.pixelSize: Theme.sizeBody
        Accessible.ignored: true
    }
    opacity: enabled ? 1 : Theme.disabledOpacity
    background: Rectangle {
        radius: Theme.radiusSmall
        color: Theme.surface
        border.width: field.activeFocus ? Theme.focusRing : Theme.hairline
        border.color: field.activeFocus ? Theme.accent : Theme.control
    }
}
