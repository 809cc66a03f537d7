import QtQuick
import Vantro.Style
import Vantro.Settings

VPage {
    id: page

    required property ModelListModel models
    required property ModelListModel languageModels

    title: qsTr("Models")
    subtitle: qsTr("Models turn speech into text on this computer. Larger ones make fewer mistakes but take longer.")

    Component.onCompleted: {
        if (!visible)
            return
        models.sortAgain()
        languageModels.sortAgain()
    }

    VCard {
        visible: problem.text !== ""
        VText {
            id: problem
            width: parent.width
            text: page.models.problem !== "" ? page.models.problem : page.languageModels.problem
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
        heading: qsTr("Rewriting on this computer")
        VNote {
            text: qsTr("A language model corrects and shapes what you said, without an account and without the network. Settings, Modes says which modes use it. A model of your own: vantro models add FILE.gguf")
        }
    }
    Repeater {
        model: page.languageModels
        ModelRow {
            onSelectPressed: page.languageModels.select(index)
            onDownloadPressed: page.languageModels.download(index)
            onCancelPressed: page.languageModels.cancel(index)
            onRemovePressed: page.languageModels.remove(index)
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
