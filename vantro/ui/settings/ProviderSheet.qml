import QtQuick
import Vantro.Style
import Vantro.Settings

// The form for adding or editing a provider.
VCard {
    id: sheet

    required property ProvidersModel settings
    property bool showsParameters

    heading: settings.heading

    Keys.onEscapePressed: settings.closeForm()
    // The key is usually what is missing. Focus on the type would open its list on release of the Space that opened the
    // form.
    Component.onCompleted: key.forceActiveFocus()

    VSettingRow {
        title: qsTr("Type")
        VChoice {
            id: type
            width: Theme.wideFieldWidth
            model: sheet.settings.types
            currentIndex: sheet.settings.type
            Accessible.name: qsTr("Type")
            onActivated: index => sheet.settings.type = index
        }
    }
    Repeater {
        model: sheet.settings.fields
        VSettingRow {
            id: field
            required property int index
            required property var modelData
            readonly property string problem: sheet.settings.fieldProblems[index] ?? ""
            readonly property string warning: sheet.settings.fieldWarnings[index] ?? ""
            visible: modelData.isOffered && (!modelData.isParameter || sheet.showsParameters || problem !== "")
            title: modelData.label
            hint: modelData.hint
            Column {
                spacing: Theme.space4
                VField {
                    width: Theme.wideFieldWidth
                    text: field.modelData.text
                    Accessible.name: field.title
                    Accessible.description: field.problem
                    onTextEdited: sheet.settings.setField(field.index, text)
                    onAccepted: sheet.settings.save(key.text)
                }
                VNote {
                    width: Theme.wideFieldWidth
                    text: field.problem !== "" ? field.problem : field.warning
                    color: field.problem !== "" ? Theme.error : Theme.warning
                }
            }
        }
    }
    VSettingRow {
        title: qsTr("Models it offers")
        hint: sheet.settings.offeredModels.length === 0 ? qsTr("Needs the API key below.") : ""
        Row {
            spacing: Theme.space8
            VChoice {
                visible: sheet.settings.offeredModels.length > 0
                model: sheet.settings.offeredModels
                currentIndex: sheet.settings.offeredModel
                displayText: currentIndex < 0 ? qsTr("Choose a model") : currentText
                Accessible.name: qsTr("Models it offers")
                onActivated: index => {
                    sheet.settings.chooseModel(index)
                    currentIndex = Qt.binding(() => sheet.settings.offeredModel)
                }
            }
            VButton {
                secondary: true
                enabled: !sheet.settings.isBusy
                text: qsTr("Ask the server")
                onClicked: sheet.settings.findModels(key.text)
            }
        }
    }
    VToggleRow {
        visible: sheet.showsParameters
        title: qsTr("Standard parameters")
        hint: qsTr("While the fields above are empty: temperature 0.3 and both penalties as 0. Switch them off for a model that refuses them.")
        checked: sheet.settings.sendsStandardParameters
        onToggled: on => sheet.settings.sendsStandardParameters = on
    }
    VSettingRow {
        title: qsTr("API key")
        hint: sheet.settings.keyHint
        Column {
            spacing: Theme.space8
            VField {
                id: key
                width: Theme.wideFieldWidth
                echoMode: TextInput.Password
                placeholderText: sheet.settings.keyState
                Accessible.name: qsTr("API key")
                onAccepted: sheet.settings.save(text)
            }
            VButton {
                visible: sheet.settings.hasKeyPage
                secondary: true
                text: qsTr("Make a key in the browser")
                onClicked: sheet.settings.openKeyPage()
            }
        }
    }
    VNote {
        text: sheet.settings.report
        color: sheet.settings.reportIsProblem ? Theme.error : Theme.textSecondary
        Accessible.role: Accessible.AlertMessage
        Accessible.name: text
    }
    Flow {
        width: parent.width
        spacing: Theme.space8

        VButton {
            enabled: !sheet.settings.isBusy
            text: qsTr("Save")
            onClicked: sheet.settings.save(key.text)
        }
        VButton {
            secondary: true
            enabled: !sheet.settings.isBusy
            text: qsTr("Test")
            onClicked: sheet.settings.tryOut(key.text)
        }
        VButton {
            secondary: true
            text: qsTr("Cancel")
            onClicked: sheet.settings.closeForm()
        }
        VButton {
            secondary: true
            visible: !sheet.showsParameters
            text: qsTr("Request parameters")
            onClicked: sheet.showsParameters = true
        }
    }
}
