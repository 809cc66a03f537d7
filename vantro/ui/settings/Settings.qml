import QtQuick
import Vantro.Style
import Vantro.Settings
import Vantro.Shortcuts

// The list of pages on the left, the current page on the right.
Rectangle {
    id: window

    required property GeneralSettings general
    required property ModelListModel models
    required property MicrophoneSettings microphone
    required property RecorderCocoa openRecorder
    required property RecorderCocoa stopRecorder
    required property ModesModel modes
    required property ProvidersModel providers
    required property VocabularyModel vocabulary
    required property AboutModel about
    property string page: "general"
    signal closeRequested

    color: Theme.surface

    Keys.onEscapePressed: closeRequested()
    Keys.onPressed: event => {
        if (event.key !== Qt.Key_PageDown && event.key !== Qt.Key_PageUp)
            return
        pageLoader.item.turn(event.key === Qt.Key_PageDown ? 1 : -1)
        event.accepted = true
    }

    Rectangle {
        id: navigation
        anchors { left: parent.left; top: parent.top; bottom: parent.bottom }
        width: Theme.navWidth
        color: Theme.surfaceRaised

        VNavList {
            anchors { left: parent.left; right: parent.right; top: parent.top; margins: Theme.space12 }
            focus: true
            pages: [
                { key: "general", name: qsTr("General") },
                { key: "shortcut", name: qsTr("Shortcut") },
                { key: "microphone", name: qsTr("Microphone") },
                { key: "models", name: qsTr("Models") },
                { key: "modes", name: qsTr("Modes") },
                { key: "providers", name: qsTr("Providers") },
                { key: "vocabulary", name: qsTr("Vocabulary") },
                { key: "about", name: qsTr("About") }
            ]
            current: window.page
            onPicked: key => window.page = key
        }
        Rectangle {
            anchors { right: parent.right; top: parent.top; bottom: parent.bottom }
            width: Theme.hairline
            color: Theme.outline
        }
    }
    Loader {
        id: pageLoader
        anchors { left: navigation.right; right: parent.right; top: parent.top; bottom: parent.bottom }
        sourceComponent: window.page === "models" ? modelsPage
                       : window.page === "shortcut" ? keysPage
                       : window.page === "microphone" ? microphonePage
                       : window.page === "modes" ? modesPage
                       : window.page === "providers" ? providersPage
                       : window.page === "vocabulary" ? vocabularyPage
                       : window.page === "about" ? aboutPage : generalPage
    }
    Component {
        id: generalPage
        GeneralPage { settings: window.general }
    }
    Component {
        id: keysPage
        KeysPage {
            settings: window.general
            openRecorder: window.openRecorder
            stopRecorder: window.stopRecorder
        }
    }
    Component {
        id: microphonePage
        MicrophonePage { settings: window.microphone }
    }
    Component {
        id: modelsPage
        ModelsPage { models: window.models }
    }
    Component {
        id: modesPage
        ModesPage { settings: window.modes }
    }
    Component {
        id: providersPage
        ProvidersPage { settings: window.providers }
    }
    Component {
        id: vocabularyPage
        VocabularyPage { settings: window.vocabulary }
    }
    Component {
        id: aboutPage
        AboutPage { about: window.about }
    }
}
