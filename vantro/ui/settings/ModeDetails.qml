import QtQuick
import Vantro.Style
import Vantro.Settings

// What the mode that is shown does, and a text of one's own to try it on.
Column {
    id: details

    required property ModesModel settings

    function store() {
        name.store()
        rules.store()
        prompt.store()
    }

    width: parent ? parent.width : implicitWidth
    spacing: Theme.space16

    VNote {
        text: details.settings.purpose
    }
    VText {
        width: parent.width
        visible: text !== ""
        text: details.settings.lacking
        color: Theme.warning
        font.pixelSize: Theme.sizeSecondary
        wrapMode: Text.Wrap
    }
    VSettingRow {
        title: qsTr("Name")
        VField {
            id: name
            function store() {
                details.settings.name = text
            }
            width: Theme.fieldWidth
            text: details.settings.name
            placeholderText: details.settings.builtInName
            Accessible.name: qsTr("Name of the mode")
            onEditingFinished: store()
        }
    }
    VSettingRow {
        title: qsTr("Rewritten by")
        VChoice {
            model: details.settings.providers
            currentIndex: details.settings.provider
            displayText: currentIndex < 0 ? qsTr("A removed provider") : currentText
            Accessible.name: qsTr("Rewritten by")
            onActivated: index => details.settings.provider = index
        }
    }
    Column {
        visible: details.settings.cleans
        width: parent.width
        spacing: Theme.space8

        VSettingRow {
            title: qsTr("Rules")
            hint: qsTr("One a line: a filler that is taken out, or words, an equals sign and what to write for them. Words said twice, capitals and the full stop need no rule.")
            VChoice {
                model: details.settings.ruleLanguages
                currentIndex: details.settings.ruleLanguage
                Accessible.name: qsTr("Language of the rules")
                onActivated: index => {
                    rules.store()
                    details.settings.ruleLanguage = index
                }
            }
        }
        VTextArea {
            id: rules
            width: parent.width
            text: details.settings.rules
            Accessible.name: qsTr("Rules")
            onTyped: text => details.settings.rules = text
        }
        VButton {
            secondary: true
            text: qsTr("Use the built-in rules")
            onClicked: details.settings.useBuiltInRules()
        }
    }
    Column {
        visible: details.settings.asksModel && !details.settings.cleans
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
            text: details.settings.prompt
            placeholderText: qsTr("Tell the language model what to do with the text.")
            Accessible.name: qsTr("Prompt")
            onTyped: text => details.settings.prompt = text
        }
        VButton {
            visible: details.settings.hasBuiltInPrompt
            secondary: true
            text: qsTr("Use the built-in prompt")
            onClicked: details.settings.useBuiltInPrompt()
        }
    }
    Column {
        visible: details.settings.canTry
        width: parent.width
        spacing: Theme.space8

        VText {
            text: qsTr("Try it on a text of yours")
            color: Theme.text
            font.pixelSize: Theme.sizeBody
        }
        VTextArea {
            id: trial
            width: parent.width
            text: qsTr("um so i wanted to ask if we can meet on tuesday no wednesday at three")
            Accessible.name: qsTr("Text to try")
        }
        VButton {
            enabled: !details.settings.isTrying && trial.text.trim() !== ""
            text: details.settings.isTrying ? qsTr("Rewriting...") : qsTr("Try this prompt")
            onClicked: {
                details.store()
                details.settings.tryOut(trial.text)
            }
        }
        VText {
            width: parent.width
            visible: text !== ""
            text: details.settings.trialProblem !== "" ? details.settings.trialProblem : details.settings.trialResult
            color: details.settings.trialProblem !== "" ? Theme.error : Theme.text
            font.pixelSize: Theme.sizeBody
            wrapMode: Text.Wrap
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
        }
    }
}
