import QtQuick
import Vantro.Style
import Vantro.Settings

// Imports and exports a list, and tells how that went.
Column {
    id: row

    required property ListTransfer transfer
    required property string list // its name, for screen readers
    property bool hasEntries: false

    width: parent ? parent.width : implicitWidth
    spacing: Theme.space8

    Row {
        spacing: Theme.space8
        VButton {
            secondary: true
            text: qsTr("Import...")
            Accessible.description: row.list
            onClicked: row.transfer.importFile()
        }
        VButton {
            visible: row.hasEntries
            secondary: true
            text: qsTr("Export...")
            Accessible.description: row.list
            onClicked: row.transfer.exportFile()
        }
    }
    VNote {
        text: row.transfer.news
        color: row.transfer.isProblem ? Theme.error : Theme.textSecondary
        Accessible.role: Accessible.AlertMessage
    }
}
