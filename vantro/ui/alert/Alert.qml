import QtQuick
import Vantro.Style

Rectangle {
    id: alert

    required property string title
    required property string text
    signal accepted

    implicitWidth: 420
    implicitHeight: content.implicitHeight + 2 * Theme.space24
    color: Theme.surface
    focus: true

    Accessible.role: Accessible.AlertMessage
    Accessible.name: title
    Accessible.description: text
    Keys.onEscapePressed: accepted()

    Column {
        id: content
        anchors { left: parent.left; right: parent.right; top: parent.top; margins: Theme.space24 }
        spacing: Theme.space12

        Row {
            spacing: Theme.space12
            Text {
                text: "\u26A0"
                color: Theme.warning
                font.pixelSize: Theme.sizeTitle
                Accessible.ignored: true
            }
            Text {
                text: alert.title
                color: Theme.text
                font.pixelSize: Theme.sizeTitle
                font.weight: Font.DemiBold
            }
        }
        Text {
            width: parent.width
            text: alert.text
            textFormat: Text.PlainText
            color: Theme.text
            font.pixelSize: Theme.sizeBody
            wrapMode: Text.Wrap
        }
        VButton {
            anchors.right: parent.right
            text: qsTr("OK")
            focus: true
            onClicked: alert.accepted()
        }
    }
}
