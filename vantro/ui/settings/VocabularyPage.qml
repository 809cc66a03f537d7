import QtQuick
import Vantro.Style
import Vantro.Settings

VPage {
    id: page

    required property VocabularyModel settings

    title: qsTr("Vocabulary")
    covered: undoOffer.visible ? undoOffer.height : 0

    function addWord() {
        if (word.text.trim() !== "" && settings.addWord(word.text))
            word.clear()
    }

    function addReplacement() {
        if (replacement.isComplete && settings.addReplacement(replacement.find, replacement.replace))
            replacement.clear()
    }

    // The keyboard stays in the list when the button that it was on goes away with its row.
    function focusRow(rows, index) {
        const row = rows.itemAt(Math.min(index, rows.count - 1))
        if (row)
            row.takeKeyboard()
        else if (rows === wordRows)
            word.forceActiveFocus(Qt.TabFocusReason)
        else
            replacement.takeKeyboard()
    }

    function removeWord(index) {
        undoPlace = { rows: wordRows, index: index }
        settings.removeWord(index)
        focusRow(wordRows, index)
    }

    function removeReplacement(index) {
        undoPlace = { rows: replacementRows, index: index }
        settings.removeReplacement(index)
        focusRow(replacementRows, index)
    }

    function undo() {
        settings.undo()
        focusRow(undoPlace.rows, undoPlace.index)
    }

    Keys.onPressed: event => {
        if (!event.matches(StandardKey.Undo) || settings.removed === "")
            return
        undo()
        event.accepted = true
    }

    property var undoPlace: ({ rows: wordRows, index: 0 })
    // A file may have been put in its place, or a dictation been made, behind the page.
    readonly property bool isLookedAt: visible && Window.active
    onIsLookedAtChanged: {
        if (isLookedAt)
            settings.refreshBoosting()
    }

    // Stays in sight, however long the lists are.
    Rectangle {
        id: undoOffer
        parent: page
        y: page.height - height
        z: 1
        width: page.width
        height: removed.height + 2 * Theme.space12
        visible: page.settings.removed !== ""
        color: Theme.surface

        VCard {
            id: removed
            x: Theme.space24
            y: Theme.space12
            width: parent.width - 2 * x
            VSettingRow {
                title: qsTr("\"%1\" has been removed.").arg(page.settings.removed)
                VButton {
                    secondary: true
                    text: qsTr("Undo")
                    onClicked: page.undo()
                }
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
            id: replacementRows
            model: page.settings.replacementRows
            ReplacementRow {
                required property int index
                onChangeAccepted: (find, replace) => page.settings.updateReplacement(index, find, replace)
                onRemovePressed: page.removeReplacement(index)
            }
        }
        ListTransferRow {
            transfer: page.settings.replacementsFile
            list: qsTr("Text replacements")
            hasEntries: page.settings.replacements.length > 0
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
            id: wordRows
            model: page.settings.wordRows
            WordRow {
                required property int index
                onChangeAccepted: (soundsLike, readiness) => page.settings.refineWord(index, soundsLike, readiness)
                onRemovePressed: page.removeWord(index)
            }
        }
        ListTransferRow {
            transfer: page.settings.wordsFile
            list: qsTr("Words")
            hasEntries: page.settings.words.length > 0
        }
    }
    VButton {
        visible: page.settings.words.length > 0 || page.settings.replacements.length > 0
        secondary: true
        text: qsTr("Reset All Vocabulary & Replacements")
        onClicked: page.settings.reset()
    }
}
