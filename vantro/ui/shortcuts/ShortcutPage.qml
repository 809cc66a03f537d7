import QtQuick
import Vantro.Style
import Vantro.Shortcuts

// Asks for the dictation shortcut.
Rectangle {
    id: page

    required property RecorderCocoa model
    required property string reason
    signal closed

    implicitWidth: 460
    implicitHeight: content.implicitHeight + 2 * Theme.space24
    color: Theme.surface

    Accessible.role: Accessible.Dialog
    Accessible.name: title.text

    Keys.onEscapePressed: closed()

    Column {
        id: content
        anchors { left: parent.left; right: parent.right; top: parent.top; margins: Theme.space24 }
        spacing: Theme.space12

        VText {
            id: title
            width: parent.width
            text: qsTr("Choose the shortcut for dictation")
            color: Theme.text
            font.pixelSize: Theme.sizeTitle
            font.weight: Font.DemiBold
            wrapMode: Text.Wrap
        }
        VText {
            width: parent.width
            visible: text !== ""
            text: page.reason
            color: Theme.text
            font.pixelSize: Theme.sizeBody
            wrapMode: Text.Wrap
        }
        ShortcutRecorder {
            width: parent.width
            focus: true
            model: page.model
        }
        VButton {
            anchors.right: parent.right
            text: qsTr("Done")
            onClicked: page.closed()
        }
    }
}
