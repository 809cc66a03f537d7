import QtQuick
import Vantro.Style

// A mode with its digit key; the chosen one is filled.
Rectangle {
    id: pill

    property int number
    property string name
    property bool chosen
    property bool hasDigit: true
    signal picked

    // Of any pill when it is chosen.
    function fullWidth(number, name) {
        return Math.ceil(bold.advanceWidth(textOf(number, name))) + 2 * Theme.space12
    }
    function textOf(number, name) {
        return hasDigit ? number + "  " + name : name
    }

    implicitWidth: Math.ceil(label.implicitWidth) + 2 * Theme.space12 // layouts cut off fractions
    implicitHeight: label.implicitHeight + 2 * Theme.space8
    radius: height / 2
    color: chosen ? Theme.accent : "transparent"
    border.width: activeFocus && !chosen ? Theme.focusRing : Theme.hairline
    border.color: chosen ? Theme.accent : activeFocus ? Theme.text : Theme.control
    activeFocusOnTab: true

    Behavior on color {
        ColorAnimation { duration: Theme.stateMs }
    }

    Accessible.role: Accessible.RadioButton
    Accessible.name: name
    Accessible.checked: chosen
    Accessible.onPressAction: picked()
    Keys.onReturnPressed: picked()

    FontMetrics {
        id: bold
        font { family: label.font.family; pixelSize: label.font.pixelSize; weight: Font.DemiBold }
    }
    VFocusLine { visible: pill.activeFocus && pill.chosen }
    VText {
        id: label
        anchors.centerIn: parent
        width: Math.min(implicitWidth, pill.width - 2 * Theme.space12)
        elide: Text.ElideRight
        text: pill.textOf(pill.number, pill.name)
        color: pill.chosen ? Theme.accentText : Theme.text
        font.pixelSize: Theme.sizeBody
        font.weight: pill.chosen ? Font.DemiBold : Font.Normal
    }
    TapHandler {
        onTapped: pill.picked()
    }
}
