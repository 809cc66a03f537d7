import QtQuick
import Vantro.Style
import Vantro.Settings

VPage {
    id: page

    required property VocabularyModel settings

    title: qsTr("Vocabulary")

    function addWord() {
        if (word.text.trim() !== "" && settings.addWord(word.text))
            word.clear()
    }

    function addReplacement() {
        if (replacement.isComplete && settings.addReplacement(replacement.find, replacement.replace))
            replacement.clear()
    }

    VCard {
        visible: page.settings.removed !== ""
        VSettingRow {
            title: qsTr("\"%1\" has been removed.").arg(page.settings.removed)
            VButton {
                secondary: true
                text: qsTr("Undo")
                onClicked: page.settings.undo()
            }
        }
    }
    VCard {
        heading: qsTr("Text replacements")
        VNote {
            text: qsTr("Exact replacements will be applied to the transcription output using word boundaries.")
                  + " " + qsTr("Leave the second field empty to delete a filler word such as \"um\".")
        }
        ReplacementFields {
            id: replacement
            width: parent.width
            action: qsTr("Add")
            onAccepted: page.addReplacement()
        }
        VNote {
            text: page.settings.replacementsLimit
            color: Theme.warning
        }
        VNote {
            visible: page.settings.replacements.length === 0
            text: qsTr("No text replacements configured yet.")
        }
        Repeater {
            model: page.settings.replacements
            ReplacementRow {
                required property int index
                required property var modelData
                find: modelData.find
                replace: modelData.replace
                onChangeAccepted: (find, replace) => page.settings.updateReplacement(index, find, replace)
                onRemovePressed: page.settings.removeReplacement(index)
            }
        }
        ListTransferRow {
            transfer: page.settings.replacementsFile
            list: qsTr("Text replacements")
            hasEntries: page.settings.replacements.length > 0
        }
    }
    VCard {
        heading: qsTr("Words")
        VNote {
            text: qsTr("These words are used alongside your audio to help the model recognize and accurately transcribe.")
        }
        VNote {
            text: qsTr("Use sparingly. Too many words can confuse the AI and may affect punctuation, language detection, and formatting.")
            color: Theme.warning
        }
        Item {
            width: parent.width
            height: word.height
            VField {
                id: word
                anchors { left: parent.left; right: addWordButton.left; rightMargin: Theme.space8 }
                placeholderText: qsTr("Enter a word (e.g., vantro)")
                Accessible.name: qsTr("Word")
                onAccepted: page.addWord()
            }
            VButton {
                id: addWordButton
                anchors { right: parent.right; verticalCenter: parent.verticalCenter }
                text: qsTr("Add")
                Accessible.description: qsTr("Word")
                onClicked: page.addWord()
            }
        }
        VNote {
            text: page.settings.wordsLimit
            color: Theme.warning
        }
        VNote {
            visible: page.settings.words.length === 0
            text: qsTr("No custom vocabulary words added yet.")
        }
        Repeater {
            model: page.settings.words
            WordRow {
                required property int index
                required property string modelData
                word: modelData
                soundsLike: page.settings.soundsLike(index)
                readiness: page.settings.readiness(index)
                onChangeAccepted: (soundsLike, readiness) => page.settings.refineWord(index, soundsLike, readiness)
                onRemovePressed: page.settings.removeWord(index)
            }
        }
        ListTransferRow {
            transfer: page.settings.wordsFile
            list: qsTr("Words")
            hasEntries: page.settings.words.length > 0
        }
    }
    VCard {
        heading: qsTr("How your words are recognised")
        VSettingRow {
            title: page.settings.boostingText
            hint: page.settings.boostingHint
            VButton {
                visible: page.settings.canDownload || page.settings.isDownloading
                secondary: page.settings.isDownloading
                text: page.settings.isDownloading ? qsTr("Cancel") : qsTr("Download")
                Accessible.description: page.settings.boostingText
                onClicked: page.settings.isDownloading ? page.settings.cancelDownload() : page.settings.download()
            }
        }
        Rectangle {
            width: parent.width
            height: Theme.space8
            radius: height / 2
            visible: page.settings.isDownloading
            color: Theme.surfacePressed
            border.width: Theme.hairline
            border.color: Theme.control
            Accessible.role: Accessible.ProgressBar
            Accessible.name: qsTr("Download")
            Accessible.description: page.settings.downloadStatus
            Rectangle {
                width: parent.width * page.settings.downloadProgress
                height: parent.height
                radius: parent.radius
                color: Theme.accent
            }
        }
        VNote {
            text: page.settings.downloadStatus
            color: page.settings.isDownloading ? Theme.textSecondary : Theme.error
        }
        VNote {
            text: page.settings.boostingProblem
            color: Theme.warning
        }
    }
    VButton {
        visible: page.settings.words.length > 0 || page.settings.replacements.length > 0
        secondary: true
        text: qsTr("Reset All Vocabulary & Replacements")
        onClicked: page.settings.reset()
    }
}
