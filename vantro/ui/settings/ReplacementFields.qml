import QtQuick
import Vantro.Style

// The fields of a replacement and the button to accept it.
Item {
    id: row

    property alias find: findField.text
    property alias replace: replaceField.text
    property string action
    readonly property bool isComplete: find.trim() !== ""
    signal accepted

    function clear() {
        findField.clear()
        replaceField.clear()
        findField.forceActiveFocus()
    }

    function takeKeyboard() { findField.forceActiveFocus() }

    height: findField.height

    Row {
        anchors { left: parent.left; right: button.left; rightMargin: Theme.space8 }
        spacing: Theme.space8

        VField {
            id: findField
            width: (parent.width - parent.spacing) / 2
            placeholderText: qsTr("Find")
            Accessible.name: placeholderText
            onAccepted: replaceField.forceActiveFocus()
        }
        VField {
            id: replaceField
            width: findField.width
            placeholderText: qsTr("Replace with")
            Accessible.name: placeholderText
            onAccepted: row.accepted()
        }
    }
    VButton {
        id: button
        anchors { right: parent.right; verticalCenter: parent.verticalCenter }
        text: row.action
        Accessible.description: qsTr("Replacement")
        onClicked: row.accepted()
    }
}
