import QtQuick
import Vantro.Style
import Vantro.Settings

VPage {
    id: page

    required property ModelListModel models

    title: qsTr("Models")
    subtitle: qsTr("Models turn speech into text on this computer. Larger ones make fewer mistakes but take longer.")

    Component.onCompleted: if (visible) models.sortAgain()

    VCard {
        visible: page.models.problem !== ""
        Text {
            width: parent.width
            text: page.models.problem
            textFormat: Text.PlainText
            color: Theme.error
            font.pixelSize: Theme.sizeBody
            wrapMode: Text.Wrap
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
        }
    }
    Repeater {
        model: page.models
        ModelRow {
            onSelectPressed: page.models.select(index)
            onDownloadPressed: page.models.download(index)
            onCancelPressed: page.models.cancel(index)
            onRemovePressed: page.models.remove(index)
        }
    }
    VCard {
        heading: qsTr("Disk space")
        VSettingRow {
            title: page.models.diskUse
            hint: qsTr("The model in use stays.")
            VButton {
                secondary: true
                text: qsTr("Delete Models Cache")
                onClicked: page.models.clearCache()
            }
        }
    }
}
