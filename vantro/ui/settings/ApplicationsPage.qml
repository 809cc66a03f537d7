import QtQuick
import Vantro.Style
import Vantro.Settings

VPage {
    id: page

    required property ApplicationsModel settings

    function add(name) {
        if (settings.add(name))
            application.clear()
        application.forceActiveFocus(Qt.TabFocusReason)
    }

    title: qsTr("Applications")
    subtitle: qsTr("What dictations into the windows of one application are like, where that differs from the rest.")

    VCard {
        visible: page.settings.removed !== ""
        VSettingRow {
            title: qsTr("The rule for %1 has been removed.").arg(page.settings.removed)
            VButton {
                secondary: true
                text: qsTr("Undo")
                onClicked: page.settings.undo()
            }
        }
    }
    VCard {
        heading: qsTr("Add an application")
        VNote {
            text: qsTr("Click into a window of the application and come back: its name is offered here then. Terminals and Emacs need no rule, their paste keys are known.")
        }
        Item {
            width: parent.width
            height: application.height
            VField {
                id: application
                anchors { left: parent.left; right: addButton.left; rightMargin: Theme.space8 }
                placeholderText: qsTr("Name of the application, such as thunderbird")
                Accessible.name: qsTr("Application")
                onAccepted: page.add(text)
            }
            VButton {
                id: addButton
                anchors { right: parent.right; verticalCenter: parent.verticalCenter }
                text: qsTr("Add")
                Accessible.description: qsTr("Application")
                onClicked: page.add(application.text)
            }
        }
        VNote {
            text: page.settings.problem
            color: Theme.warning
        }
        Flow {
            width: parent.width
            visible: page.settings.seen.length > 0
            spacing: Theme.space8
            Repeater {
                model: page.settings.seen
                VButton {
                    required property string modelData
                    secondary: true
                    text: modelData
                    Accessible.description: qsTr("Add an application")
                    onClicked: page.add(modelData)
                }
            }
        }
    }
    Repeater {
        model: page.settings
        VCard {
            id: rule
            required property int index
            required property string application
            required property int mode
            required property int keys
            required property bool hasFullStop
            heading: application

            VSettingRow {
                title: qsTr("Mode")
                hint: qsTr("The one a dictation begins in. Another can be chosen while you speak.")
                VChoice {
                    model: page.settings.modes
                    currentIndex: rule.mode
                    Accessible.name: qsTr("Mode")
                    Accessible.description: displayText + ", " + rule.application
                    onActivated: index => page.settings.setMode(rule.index, index)
                }
            }
            VSettingRow {
                title: qsTr("Paste keys")
                hint: qsTr("What vantro presses to paste. Choose others if your texts do not arrive there.")
                VChoice {
                    model: page.settings.pasteKeys
                    currentIndex: rule.keys
                    Accessible.name: qsTr("Paste keys")
                    Accessible.description: displayText + ", " + rule.application
                    onActivated: index => page.settings.setPasteKeys(rule.index, index)
                }
            }
            VToggleRow {
                title: qsTr("Full stop at the end")
                hint: qsTr("Without it, commands and search words can be dictated.")
                checked: rule.hasFullStop
                onToggled: on => page.settings.setFullStop(rule.index, on)
            }
            VButton {
                secondary: true
                text: qsTr("Remove")
                Accessible.description: rule.application
                onClicked: page.settings.remove(rule.index)
            }
        }
    }
}
