import QtQuick
import Vantro.Style

// A dictation in the list: its first line, date and mode.
Rectangle {
    id: row

    property string time
    property string mode
    property string firstLine
    property bool current
    signal picked

    implicitHeight: words.height + 2 * Theme.space8
    radius: Theme.radiusSmall
    color: current ? Theme.accent : hover.hovered ? Theme.outline : "transparent"

    Accessible.role: Accessible.ListItem
    Accessible.name: firstLine
    Accessible.description: time + ", " + mode
    Accessible.selected: current
    Accessible.onPressAction: picked()

    Column {
        id: words
        anchors { left: parent.left; right: parent.right; margins: Theme.space12; verticalCenter: parent.verticalCenter }
        spacing: Theme.space4

        Text {
            width: parent.width
            text: row.firstLine
            textFormat: Text.PlainText
            color: row.current ? Theme.accentText : Theme.text
            font.pixelSize: Theme.sizeBody
            elide: Text.ElideRight
            maximumLineCount: 1
        }
        Text {
            width: parent.width
            text: row.mode === "" ? row.time : row.time + "  \u00B7  " + row.mode
            color: row.current ? Theme.accentText : Theme.textSecondary
            font.pixelSize: Theme.sizeSecondary
            elide: Text.ElideRight
        }
    }
    HoverHandler { id: hover }
    TapHandler { onTapped: row.picked() }
}
