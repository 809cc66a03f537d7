import QtQuick
import Vantro.Style

Rectangle {
    id: alert

    required property string title
    required property string text
    required property list<string> buttons
    required property bool isWarning
    required property int safeButton
    signal pressed(int button)
    signal closed

    implicitWidth: Math.max(Theme.alertWidth, answers.implicitWidth + 2 * Theme.space24)
    implicitHeight: content.implicitHeight + 2 * Theme.space24
    color: Theme.surface
    focus: true

    Accessible.role: Accessible.AlertMessage
    Accessible.name: title
    Accessible.description: text
    Keys.onEscapePressed: closed()

    Column {
        id: content
        anchors { left: parent.left; right: parent.right; top: parent.top; margins: Theme.space24 }
        spacing: Theme.space12

        Row {
            width: parent.width
            spacing: Theme.space12
            VText {
                id: sign
                text: "\u26A0"
                visible: alert.isWarning
                color: Theme.warning
                font.pixelSize: Theme.sizeTitle
                Accessible.ignored: true
            }
            VText {
                width: parent.width - (sign.visible ? sign.width + parent.spacing : 0)
                text: alert.title
                color: Theme.text
                font.pixelSize: Theme.sizeTitle
                font.weight: Font.DemiBold
                wrapMode: Text.Wrap
            }
        }
        VText {
            width: parent.width
            text: alert.text
            color: Theme.text
            font.pixelSize: Theme.sizeBody
            wrapMode: Text.Wrap
            maximumLineCount: Theme.alertLines
            elide: Text.ElideRight
        }
        Row {
            id: answers
            anchors.right: parent.right
            spacing: Theme.space8
            layoutDirection: Qt.RightToLeft

            Repeater {
                model: alert.buttons
                VButton {
                    required property int index
                    required property string modelData
                    text: modelData
                    secondary: index !== alert.safeButton
                    focus: index === alert.safeButton
                    onClicked: alert.pressed(index)
                }
            }
        }
    }
}
