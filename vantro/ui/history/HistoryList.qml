import QtQuick
import QtQuick.Templates as T
import Vantro.Style

// A list that follows the rows its model has chosen: one Tab stop, with the keys of a list of files.
ListView {
    id: list

    property int current
    property bool takesMany: false
    property double releasedAt: 0 // when Delete was released, in milliseconds
    signal picked(int row)
    signal extended(int row)
    signal toggled(int row)
    signal allChosen
    signal removed
    signal editWanted
    signal useWanted
    signal endWanted
    signal searchWanted

    readonly property real rowWidth: width - Theme.scrollBarWidth - Theme.space4 // beside the scroll bar
    readonly property int pageRows: currentItem ? Math.max(1, Math.floor(height / currentItem.height) - 1) : 8

    function rowFor(key) {
        return key === Qt.Key_Up ? current - 1 : key === Qt.Key_Down ? current + 1
             : key === Qt.Key_PageUp ? current - pageRows : key === Qt.Key_PageDown ? current + pageRows
             : key === Qt.Key_Home ? 0 : -2
    }
    // Held down, a key would empty the list. Its repeats are not always marked: they come as releases and presses, and
    // are known by their nearness.
    function isRepeated(event) {
        return event.isAutoRepeat || Date.now() - releasedAt < Theme.repeatGapMs
    }
    function go(row, modifiers) {
        const to = Math.max(0, Math.min(row, count - 1))
        if (takesMany && modifiers & Qt.ShiftModifier)
            extended(to)
        else
            picked(to)
    }
    function tapped(row, modifiers) {
        forceActiveFocus(Qt.MouseFocusReason)
        if (takesMany && modifiers & Qt.ControlModifier)
            toggled(row)
        else
            go(row, modifiers)
    }

    clip: true
    activeFocusOnTab: true
    keyNavigationEnabled: false
    highlightFollowsCurrentItem: false
    boundsBehavior: Flickable.StopAtBounds
    spacing: Theme.space4
    currentIndex: current
    onCurrentChanged: {
        currentIndex = current
        if (current >= 0)
            positionViewAtIndex(current, ListView.Contain)
    }

    Accessible.role: Accessible.List
    Accessible.focusable: true
    Keys.onPressed: event => {
        event.accepted = true
        const row = rowFor(event.key)
        if (event.key === Qt.Key_Up && current <= 0 && event.modifiers === Qt.NoModifier)
            searchWanted()
        else if (row !== -2)
            go(row, event.modifiers)
        else if (event.key === Qt.Key_End)
            endWanted()
        else if (event.key === Qt.Key_Delete && !isRepeated(event))
            removed()
        else if (event.key === Qt.Key_F2)
            editWanted()
        else if ((event.key === Qt.Key_Return || event.key === Qt.Key_Enter) && !event.isAutoRepeat)
            useWanted()
        else if (event.key === Qt.Key_Space && takesMany && event.modifiers & Qt.ControlModifier)
            toggled(current)
        else if (takesMany && event.matches(StandardKey.SelectAll))
            allChosen()
        else
            event.accepted = false
    }
    Keys.onReleased: event => {
        if (event.key === Qt.Key_Delete && !event.isAutoRepeat)
            releasedAt = Date.now()
    }
    T.ScrollBar.vertical: VScrollBar {}
}
