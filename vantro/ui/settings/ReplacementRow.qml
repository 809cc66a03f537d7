import QtQuick
import Vantro.Style

// A replacement, as text or being edited.
Item {
    id: row

    required property string find
    required property string replace
    property bool isEdited
    signal changeAccepted(string find, string replace)
    signal removePressed

    width: parent ? parent.width : implicitWidth
    implicitHeight: isEdited ? fields.height : reading.implicitHeight

    function close() {
        isEdited = false
        takeKeyboard()
    }

    function takeKeyboard() { editButton.forceActiveFocus(Qt.TabFocusReason) }

    Keys.onEscapePressed: event => {
        event.accepted = isEdited
        if (isEdited)
            close()
    }

    VSettingRow {
        id: reading
        width: parent.width
        visible: !row.isEdited
        title: row.replace !== "" ? qsTr("%1  \u2192  %2").arg(row.find).arg(row.replace)
                                  : qsTr("%1  is deleted").arg(row.find)
        Row {
            spacing: Theme.space8
            VButton {
                id: editButton
                secondary: true
                text: qsTr("Edit")
                Accessible.name: qsTr("Edit replacement")
                Accessible.description: row.find
                onClicked: {
                    fields.find = row.find
                    fields.replace = row.replace
                    row.isEdited = true
                    fields.takeKeyboard()
                }
            }
            VButton {
                secondary: true
                text: qsTr("Remove")
                Accessible.name: qsTr("Remove replacement")
                Accessible.description: row.find
                onClicked: row.removePressed()
            }
        }
    }
    ReplacementFields {
        id: fields
        width: parent.width
        visible: row.isEdited
        action: qsTr("Save")
        onAccepted: {
            if (!isComplete)
                return
            row.changeAccepted(find, replace)
            row.close()
        }
    }
}
