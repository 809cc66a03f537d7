import QtQuick
import Vantro.Style
import Vantro.Settings

VPage {
    id: page

    required property ModesModel settings

    title: qsTr("Modes")
    subtitle: qsTr("The mode decides what happens to a dictation. While recording, press a digit to choose another mode.")

    VCard {
        VSettingRow {
            title: qsTr("Default mode")
            hint: page.settings.defaultNote !== "" ? page.settings.defaultNote
                : page.settings.overview
            VChoice {
                model: page.settings.defaultModes
                currentIndex: page.settings.defaultMode
                Accessible.name: qsTr("Default mode")
                onActivated: index => page.settings.defaultMode = index
            }
        }
    }
    VCard {
        VSettingRow {
            title: qsTr("Mode")
            hint: page.settings.purpose
            VChoice {
                model: page.settings.modes
                currentIndex: page.settings.shown
                Accessible.name: qsTr("Mode")
                onActivated: index => {
                    prompt.store()
                    page.settings.shown = index
                }
            }
        }
        VText {
            width: parent.width
            visible: text !== ""
            text: page.settings.lacking
            color: Theme.warning
            font.pixelSize: Theme.sizeSecondary
            wrapMode: Text.Wrap
        }
        VSettingRow {
            visible: page.settings.takesName
            title: qsTr("Name")
            VField {
                width: Theme.fieldWidth
                text: page.settings.name
                placeholderText: qsTr("Custom")
                Accessible.name: qsTr("Name of the mode")
                onEditingFinished: page.settings.name = text
            }
        }
        VSettingRow {
            title: qsTr("Rewritten by")
            VChoice {
                model: page.settings.providers
                currentIndex: page.settings.provider
                displayText: currentIndex < 0 ? qsTr("A removed provider") : currentText
                Accessible.name: qsTr("Rewritten by")
                onActivated: index => page.settings.provider = index
            }
        }
        Column {
            visible: page.settings.cleans
            width: parent.width
            spacing: Theme.space8

            VSettingRow {
                title: qsTr("Rules")
                hint: qsTr("One a line: a filler that is taken out, or words, an equals sign and what to write for them. Words said twice, capitals and the full stop need no rule.")
                VChoice {
                    model: page.settings.ruleLanguages
                    currentIndex: page.settings.ruleLanguage
                    Accessible.name: qsTr("Language of the rules")
                    onActivated: index => {
                        rules.store()
                        page.settings.ruleLanguage = index
                    }
                }
            }
            VTextArea {
                id: rules
                width: parent.width
                text: page.settings.rules
                Accessible.name: qsTr("Rules")
                onTyped: text => page.settings.rules = text
            }
            VButton {
                secondary: true
                text: qsTr("Use the built-in rules")
                onClicked: page.settings.useBuiltInRules()
            }
        }
        Column {
            visible: page.settings.asksModel && !page.settings.cleans
            width: parent.width
            spacing: Theme.space8

            VText {
                text: qsTr("Prompt")
                color: Theme.text
                font.pixelSize: Theme.sizeBody
            }
            VTextArea {
                id: prompt
                width: parent.width
                text: page.settings.prompt
                placeholderText: qsTr("Tell the language model what to do with the text.")
                Accessible.name: qsTr("Prompt")
                onTyped: text => page.settings.prompt = text
            }
            VButton {
                visible: page.settings.hasBuiltInPrompt
                secondary: true
                text: qsTr("Use the built-in prompt")
                onClicked: page.settings.useBuiltInPrompt()
            }
        }
    }
}
