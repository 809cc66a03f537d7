import QtQuick
import Vantro.Style

// An entry of a list: one line of its text, and below it small what else there is to know.
Rectangle {
    id: row

    property string line
    property string plainLine: line
    property string details
    property string sign
    property bool chosen
    property bool hasKeyboard
    signal tapped(int modifiers)

    implicitHeight: words.height + 2 * Theme.space8
    radius: Theme.radiusSmall
    color: chosen ? Theme.accent : hover.hovered ? Theme.surfaceHovered : "transparent"
    border.width: hasKeyboard && !chosen ? Theme.focusRing : 0
    border.color: Theme.text

    Accessible.role: Accessible.ListItem
    Accessible.name: plainLine
    Accessible.description: sign === "" ? details : details + ", " + sign
    Accessible.selected: chosen
    Accessible.selectable: true
    Accessible.onPressAction: tapped(Qt.NoModifier)

    VFocusLine { visible: row.hasKeyboard && row.chosen }
    Column {
        id: words
        anchors { left: parent.left; right: parent.right; margins: Theme.space12; verticalCenter: parent.verticalCenter }
        spacing: Theme.space4

        Text {
            width: parent.width
            text: row.line
            textFormat: Text.StyledText
            color: row.chosen ? Theme.accentText : Theme.text
            font.pixelSize: Theme.sizeBody
            elide: Text.ElideRight
            maximumLineCount: 1
            wrapMode: Text.NoWrap
        }
        Row {
            width: parent.width
            spacing: Theme.space8
            VText {
                id: more
                width: Math.min(implicitWidth, parent.width)
                text: row.details
                color: row.chosen ? Theme.accentText : Theme.textSecondary
                font.pixelSize: Theme.sizeSecondary
                elide: Text.ElideRight
                maximumLineCount: 1
            }
            VText {
                visible: row.sign !== ""
                width: Math.min(implicitWidth, parent.width - more.width - parent.spacing)
                text: "\u26A0 " + row.sign
                color: row.chosen ? Theme.accentText : Theme.warning
                font.pixelSize: Theme.sizeSecondary
                elide: Text.ElideRight
            }
        }
    }
    HoverHandler { id: hover }
    TapHandler {
        acceptedModifiers: Qt.KeyboardModifierMask
        onTapped: row.tapped(point.modifiers)
    }
}
