import QtQuick
import Vantro.Style
import Vantro.Settings
import Vantro.Shortcuts

VPage {
    id: page

    required property GeneralSettings settings
    required property RecorderCocoa openRecorder
    required property RecorderCocoa stopRecorder
    required property RecorderCocoa originalRecorder

    title: qsTr("Shortcut")

    VCard {
        heading: qsTr("Dictate")
        VNote {
            text: qsTr("Works in every program. To change it, click it or press Space, then press the new keys.")
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
        VNote {
            text: qsTr("Works only while vantro is recording.")
        }
        ShortcutRecorder {
            width: parent.width
            model: page.stopRecorder
        }
    }
    VCard {
        heading: qsTr("Paste as spoken")
        VNote {
            text: qsTr("Pastes the words of the last dictation as you said them, where a language model has changed them.")
        }
        ShortcutRecorder {
            width: parent.width
            model: page.originalRecorder
        }
    }
}
