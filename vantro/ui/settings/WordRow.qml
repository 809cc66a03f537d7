import QtQuick
import Vantro.Style

// A word of the vocabulary, as text or being edited.
Item {
    id: row

    required property string word
    required property string soundsLike
    required property int readiness
    property bool isEdited
    readonly property var readinessNames: [qsTr("weak"), qsTr("normal"), qsTr("strong")]
    signal changeAccepted(string soundsLike, int readiness)
    signal removePressed

    function save() {
        changeAccepted(spelling.text, choice.currentIndex)
        close()
    }

    function close() {
        isEdited = false
        takeKeyboard()
    }

    function takeKeyboard() { editButton.forceActiveFocus(Qt.TabFocusReason) }

    width: parent ? parent.width : implicitWidth
    implicitHeight: isEdited ? fields.implicitHeight : reading.implicitHeight

    Keys.onEscapePressed: event => {
        event.accepted = isEdited
        if (isEdited)
            close()
    }

    VSettingRow {
        id: reading
        width: parent.width
        visible: !row.isEdited
        title: row.word
        hint: [row.soundsLike !== "" ? qsTr("Sounds like: %1").arg(row.soundsLike) : "",
               row.readiness !== 1 ? qsTr("Boost: %1").arg(row.readinessNames[row.readiness]) : ""]
              .filter(text => text !== "").join("  \u00B7  ")
        Row {
            spacing: Theme.space8
            VButton {
                id: editButton
                secondary: true
                text: qsTr("Edit")
                Accessible.name: qsTr("Edit word")
                Accessible.description: row.word
                onClicked: {
                    spelling.text = row.soundsLike
                    choice.currentIndex = row.readiness
                    row.isEdited = true
                    spelling.forceActiveFocus()
                }
            }
            VButton {
                secondary: true
                text: qsTr("Remove")
                Accessible.description: row.word
                onClicked: row.removePressed()
            }
        }
    }
    Column {
        id: fields
        width: parent.width
        visible: row.isEdited
        spacing: Theme.space8

        VText {
            width: parent.width
            text: row.word
            color: Theme.text
            font.pixelSize: Theme.sizeBody
            wrapMode: Text.Wrap
        }
        VField {
            id: spelling
            width: parent.width
            placeholderText: qsTr("Sounds like, for example: greg sun, gregs on")
            Accessible.name: qsTr("Sounds like")
            onAccepted: row.save()
        }
        VSettingRow {
            title: qsTr("Boost")
            hint: qsTr("How readily the word is written when something like it was heard. Parakeet models only.")
            Row {
                spacing: Theme.space8
                VChoice {
                    id: choice
                    model: row.readinessNames
                    Accessible.name: qsTr("Boost")
                }
                VButton {
                    text: qsTr("Save")
                    Accessible.description: row.word
                    onClicked: row.save()
                }
            }
        }
    }
}
