import QtQuick
import Vantro.Style
import Vantro.Settings

VPage {
    id: page

    required property ProvidersModel settings

    readonly property bool isEditing: settings.isEditing
    // The focus would be lost with the form.
    onIsEditingChanged: if (!isEditing) addButton.forceActiveFocus()

    title: qsTr("Providers")
    subtitle: qsTr("Language models that rewrite your dictations. Choose one for each mode under Modes.")

    VCard {
        visible: page.settings.problem !== ""
        VText {
            width: parent.width
            text: page.settings.problem
            color: Theme.error
            font.pixelSize: Theme.sizeBody
            wrapMode: Text.Wrap
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
        }
    }
    VCard {
        visible: !page.settings.isEditing

        VText {
            width: parent.width
            visible: page.settings.providers.length === 0
            text: qsTr("Your providers will appear here. Add one to have dictations rewritten.")
            color: Theme.textSecondary
            font.pixelSize: Theme.sizeBody
            wrapMode: Text.Wrap
        }
        Repeater {
            model: page.settings.providers
            VSettingRow {
                id: provider
                required property int index
                required property var modelData
                title: modelData.name
                hint: modelData.key !== "" ? modelData.details + "\n" + modelData.key : modelData.details
                Row {
                    spacing: Theme.space8
                    VSwitch {
                        anchors.verticalCenter: parent.verticalCenter
                        checked: provider.modelData.enabled
                        Accessible.name: qsTr("Use %1").arg(provider.title)
                        onToggled: page.settings.setEnabled(provider.index, checked)
                    }
                    VButton {
                        secondary: true
                        text: qsTr("Edit")
                        Accessible.description: provider.title
                        onClicked: page.settings.edit(provider.index)
                    }
                    VButton {
                        secondary: true
                        text: qsTr("Remove")
                        Accessible.description: provider.title
                        onClicked: page.settings.remove(provider.index)
                    }
                }
            }
        }
        VButton {
            id: addButton
            text: qsTr("Add a provider")
            onClicked: page.settings.add()
        }
    }
    Loader {
        width: parent.width
        active: page.settings.isEditing
        visible: active
        sourceComponent: ProviderSheet { settings: page.settings }
    }
}
