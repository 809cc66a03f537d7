import QtQuick
import Vantro.Style
import Vantro.Settings

VPage {
    id: page

    required property MicrophoneSettings settings

    title: qsTr("Microphone")

    VCard {
        VSettingRow {
            title: qsTr("Record from")
            hint: page.settings.inUse
            VChoice {
                width: Theme.wideFieldWidth
                model: page.settings.modes
                currentIndex: page.settings.mode
                Accessible.name: qsTr("Record from")
                onActivated: index => page.settings.mode = index
            }
        }
        VSettingRow {
            visible: page.settings.mode === 1
            height: visible ? implicitHeight : 0
            title: qsTr("Microphone")
            VChoice {
                width: Theme.wideFieldWidth
                model: page.settings.devices
                currentIndex: page.settings.device
                displayText: currentIndex < 0 ? qsTr("Not connected") : currentText
                Accessible.name: qsTr("Microphone")
                onActivated: index => page.settings.device = index
            }
        }
        VNote {
            visible: page.settings.mode === 2
            text: qsTr("The first connected one is used.")
        }
        Repeater {
            model: page.settings.mode === 2 ? page.settings.order : []
            VSettingRow {
                required property int index
                required property string modelData
                title: (index + 1) + ".  " + modelData
                VButton {
                    visible: index > 0
                    secondary: true
                    text: qsTr("Move up")
                    Accessible.description: modelData
                    onClicked: page.settings.prefer(index)
                }
            }
        }
    }
    VCard {
        heading: qsTr("Input level")
        VLevel {
            width: parent.width
            level: page.settings.level
            name: qsTr("Microphone level")
        }
        VText {
            width: parent.width
            text: page.settings.problem !== "" ? page.settings.problem : qsTr("Say something: the bar should move. Nothing is recorded.")
            color: page.settings.problem !== "" ? Theme.error : Theme.textSecondary
            font.pixelSize: Theme.sizeSecondary
            wrapMode: Text.Wrap
        }
    }
    VCard {
        heading: qsTr("Try it")
        VTextArea {
            width: parent.width
            placeholderText: qsTr("Click here, press your shortcut and say something: the text appears here.")
            Accessible.name: qsTr("Try it")
        }
    }
}
