import QtQuick
import Vantro.Style
import Vantro.Settings
import Vantro.Shortcuts

VPage {
    id: page

    required property GeneralSettings settings
    required property RecorderCocoa openRecorder
    required property RecorderCocoa stopRecorder

    title: qsTr("Shortcut")

    VCard {
        heading: qsTr("Dictate")
        Text {
            width: parent.width
            text: qsTr("Works in every program. Press Space or click, then press the keys.")
            color: Theme.textSecondary
            font.pixelSize: Theme.sizeSecondary
            wrapMode: Text.Wrap
        }
        ShortcutRecorder {
            width: parent.width
            model: page.openRecorder
        }
        VToggleRow {
            title: qsTr("Hold to talk")
            hint: qsTr("The recording lasts as long as you hold the shortcut.")
            checked: page.settings.holdToTalk
            onToggled: on => page.settings.holdToTalk = on
        }
    }
    VCard {
        heading: qsTr("End the recording")
        Text {
            width: parent.width
            text: qsTr("Only while vantro listens.")
            color: Theme.textSecondary
            font.pixelSize: Theme.sizeSecondary
            wrapMode: Text.Wrap
        }
        ShortcutRecorder {
            width: parent.width
            model: page.stopRecorder
        }
    }
}
