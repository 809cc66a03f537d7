import QtQuick

// The list of pages: one Tab stop, the arrow keys choose. The chosen entry has the keyboard, so that it is read aloud.
FocusScope {
    id: list

    property var pages: [] // of {key, name}
    property string current
    readonly property int currentIndex: pages.findIndex(page => page.key === current)
    signal picked(string key)

    function pick(index) {
        picked(pages[Math.max(0, Math.min(index, pages.length - 1))].key)
    }

    implicitHeight: entries.implicitHeight

    Accessible.role: Accessible.PageTabList
    Accessible.name: qsTr("Pages")
    Keys.onUpPressed: pick(currentIndex - 1)
    Keys.onDownPressed: pick(currentIndex + 1)
    Keys.onPressed: event => {
        if (event.key !== Qt.Key_Home && event.key !== Qt.Key_End)
            return
        pick(event.key === Qt.Key_Home ? 0 : pages.length - 1)
        event.accepted = true
    }

    Column {
        id: entries
        width: parent.width
        spacing: Theme.space4

        Repeater {
            model: list.pages
            VNavItem {
                required property var modelData
                text: modelData.name
                current: modelData.key === list.current
                focus: current
                activeFocusOnTab: current
                onPicked: {
                    list.forceActiveFocus(Qt.MouseFocusReason)
                    list.picked(modelData.key)
                }
            }
        }
    }
}
