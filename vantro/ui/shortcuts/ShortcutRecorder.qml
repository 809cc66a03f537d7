import QtQuick
import Vantro.Style
import Vantro.Shortcuts

// Records a shortcut: click the field or press Space or Return, then press the keys. The line below says why a shortcut
// was refused, or that the current one does not work. Set its width from outside.
//
//     ShortcutRecorder { model: page.openRecorder }
FocusScope {
    id: recorder

    // Owned by the window.
    required property RecorderCocoa model

    implicitWidth: Math.max(model.minimumWidth, row.implicitWidth)
    implicitHeight: column.implicitHeight

    Column {
        id: column
        width: parent.width
        spacing: Theme.space8

        Rectangle {
            id: row
            width: parent.width
            implicitWidth: keys.implicitWidth + clearButton.width + 3 * Theme.space12
            height: keys.implicitHeight + 2 * Theme.space8
            radius: Theme.radiusSmall
            color: Theme.surfaceRaised
            border.width: recorder.model.recording || field.activeFocus ? Theme.focusRing : Theme.hairline
            border.color: recorder.model.recording ? Theme.recording : field.activeFocus ? Theme.accent : Theme.control

            Item {
                id: field
                anchors { fill: parent; rightMargin: clearButton.visible ? clearButton.width : 0 }
                focus: true
                activeFocusOnTab: true

                Accessible.role: Accessible.HotkeyField
                Accessible.name: recorder.model.title
                Accessible.description: keys.text
                Accessible.focusable: true
                Accessible.onPressAction: recorder.model.beginRecording()

                Keys.onSpacePressed: recorder.model.beginRecording()
                Keys.onReturnPressed: recorder.model.beginRecording()
                Keys.onEnterPressed: recorder.model.beginRecording()
                Keys.onDeletePressed: recorder.model.clear()
                Keys.onPressed: event => {
                    if (event.key === Qt.Key_Backspace) {
                        recorder.model.clear()
                        event.accepted = true
                    }
                }
                onActiveFocusChanged: if (!activeFocus) recorder.model.endRecording()

                VText {
                    id: keys
                    anchors { left: parent.left; leftMargin: Theme.space12; verticalCenter: parent.verticalCenter }
                    text: recorder.model.text !== "" ? recorder.model.text
                        : recorder.model.recording ? qsTr("Press the keys") : qsTr("Record a shortcut")
                    color: recorder.model.text === "" ? Theme.textSecondary : Theme.text
                    font.pixelSize: Theme.sizeBody
                }
                TapHandler {
                    onTapped: {
                        field.forceActiveFocus()
                        recorder.model.beginRecording()
                    }
                }
            }
            Item {
                id: clearButton
                anchors { right: parent.right; top: parent.top; bottom: parent.bottom }
                width: Theme.space32
                visible: recorder.model.text !== "" && !recorder.model.recording
                activeFocusOnTab: true

                Accessible.role: Accessible.Button
                Accessible.name: qsTr("Clear the shortcut")
                Accessible.onPressAction: clear()
                Keys.onSpacePressed: clear()
                Keys.onReturnPressed: clear()

                function clear() {
                    field.forceActiveFocus()
                    recorder.model.clear()
                }

                Rectangle {
                    anchors { fill: parent; margins: Theme.space4 }
                    radius: Theme.radiusSmall
                    color: "transparent"
                    border.width: parent.activeFocus ? Theme.focusRing : 0
                    border.color: Theme.accent
                }
                VText {
                    anchors.centerIn: parent
                    text: "\u2715"
                    color: Theme.textSecondary
                    font.pixelSize: Theme.sizeSecondary
                    Accessible.ignored: true
                }
                TapHandler {
                    onTapped: clearButton.clear()
                }
            }
        }
        VText {
            width: parent.width
            visible: text !== ""
            text: [recorder.model.message, recorder.model.advice].filter(part => part !== "").join(" ")
            color: Theme.warning
            font.pixelSize: Theme.sizeSecondary
            wrapMode: Text.Wrap
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
        }
        VButton {
            visible: recorder.model.canForce
            secondary: true
            text: recorder.model.forceText
            onClicked: recorder.model.useAnyway()
        }
        VNote {
            visible: recorder.model.recording && recorder.model.message === ""
            text: qsTr("Esc keeps the current shortcut, Backspace clears it.")
        }
    }
}
