import QtQuick
import Vantro.Style
import Vantro.Settings
import Vantro.Shortcuts

// The list of pages on the left, the current page on the right.
Rectangle {
    id: window

    required property GeneralSettings general
    required property ModelListModel models
    required property ModelListModel languageModels
    required property MicrophoneSettings microphone
    required property RecorderCocoa openRecorder
    required property RecorderCocoa stopRecorder
    required property RecorderCocoa originalRecorder
    required property ModesModel modes
    required property ProvidersModel providers
    required property ApplicationsModel applications
    required property VocabularyModel vocabulary
    required property PrivacySettings privacy
    required property StatisticsModel statistics
    required property AboutModel about
    property string page: "general"
    signal closeRequested

    color: Theme.surface

    // The place on a page that a search has led to; without a title, the page itself.
    function go(place, title) {
        searchField.clear()
        page = place
        if (title !== "") {
            pageLoader.item.mark(title)
            return
        }
        pageLoader.item.moveTo(0)
        list.forceActiveFocus(Qt.TabFocusReason)
    }

    Keys.onEscapePressed: searchField.text !== "" ? searchField.clear() : closeRequested()
    Keys.onPressed: event => {
        if (event.matches(StandardKey.Find)) {
            searchField.forceActiveFocus(Qt.ShortcutFocusReason)
            event.accepted = true
            return
        }
        if (event.key !== Qt.Key_PageDown && event.key !== Qt.Key_PageUp)
            return
        pageLoader.item.turn(event.key === Qt.Key_PageDown ? 1 : -1)
        event.accepted = true
    }

    // Not by the page, since a search makes others of it.
    Binding {
        target: window.microphone
        property: "listening"
        value: window.page === "microphone"
    }
    Rectangle {
        id: navigation
        anchors { left: parent.left; top: parent.top; bottom: parent.bottom }
        width: Theme.navWidth
        color: Theme.surfaceRaised

        VField {
            id: searchField
            anchors { left: parent.left; right: parent.right; top: parent.top; margins: Theme.space12 }
            placeholderText: qsTr("Search")
            Accessible.role: Accessible.EditableText
            Accessible.name: qsTr("Search the settings")
            Accessible.description: results.visible ? results.Accessible.name : ""
            Keys.onDownPressed: results.visible ? results.step(1) : list.forceActiveFocus(Qt.TabFocusReason)
            Keys.onUpPressed: results.step(-1)
            Keys.onReturnPressed: results.pickCurrent()
            Keys.onEnterPressed: results.pickCurrent()
        }
        SearchResults {
            id: results
            anchors { left: parent.left; right: parent.right; top: searchField.bottom; margins: Theme.space12 }
            visible: searchField.text.trim() !== ""
            pages: list.pages
            search: visible ? searchField.text : ""
            onPicked: (page, title) => window.go(page, title)
        }
        VNavList {
            id: list
            anchors { left: parent.left; right: parent.right; top: searchField.bottom; margins: Theme.space12 }
            visible: !results.visible
            focus: true
            pages: [
                { key: "general", name: qsTr("General"), component: generalPage },
                { key: "shortcut", name: qsTr("Shortcut"), component: keysPage },
                { key: "microphone", name: qsTr("Microphone"), component: microphonePage },
                { key: "models", name: qsTr("Models"), component: modelsPage },
                { key: "modes", name: qsTr("Modes"), component: modesPage },
                { key: "providers", name: qsTr("Providers"), component: providersPage },
                { key: "applications", name: qsTr("Applications"), component: applicationsPage },
                { key: "vocabulary", name: qsTr("Vocabulary"), component: vocabularyPage },
                { key: "privacy", name: qsTr("Privacy"), component: privacyPage },
                { key: "statistics", name: qsTr("Statistics"), component: statisticsPage },
                { key: "about", name: qsTr("About"), component: aboutPage }
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
        sourceComponent: (list.pages.find(each => each.key === window.page) ?? list.pages[0]).component
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
            originalRecorder: window.originalRecorder
        }
    }
    Component {
        id: microphonePage
        MicrophonePage { settings: window.microphone }
    }
    Component {
        id: modelsPage
        ModelsPage {
            models: window.models
            languageModels: window.languageModels
        }
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
        id: applicationsPage
        ApplicationsPage { settings: window.applications }
    }
    Component {
        id: vocabularyPage
        VocabularyPage { settings: window.vocabulary }
    }
    Component {
        id: privacyPage
        PrivacyPage { settings: window.privacy }
    }
    Component {
        id: statisticsPage
        StatisticsPage { settings: window.statistics }
    }
    Component {
        id: aboutPage
        AboutPage { about: window.about }
    }
}
