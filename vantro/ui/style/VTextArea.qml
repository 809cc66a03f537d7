import QtQuick
import QtQuick.Templates as T

// A multi-line text field. Emits typed() after a pause in typing, and before it is destroyed.
T.TextArea {
    id: area

    property bool isUnstored
    signal typed(string text)

    function store() {
        pause.stop()
        if (!isUnstored)
            return
        isUnstored = false
        typed(text)
    }

    implicitHeight: Math.max(contentHeight + 2 * Theme.space8, Theme.practiceHeight)
    padding: Theme.space8
    leftPadding: Theme.space12
    rightPadding: Theme.space12
    color: Theme.text
    placeholderTextColor: Theme.textSecondary
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentText
    selectByMouse: true
    font.pixelSize: Theme.sizeBody
    textFormat: TextEdit.PlainText
    wrapMode: TextEdit.Wrap
    // Tab moves the focus, as in every other control.
    Keys.onTabPressed: nextItemInFocusChain().forceActiveFocus(Qt.TabFocusReason)
    Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)

    onTextChanged: if (activeFocus) {
        isUnstored = true
        pause.restart()
    }
    onEditingFinished: store()
    Component.onDestruction: store()

    Timer {
        id: pause
        interval: Theme.typingPauseMs
        onTriggered: area.store()
    }
    VText {
        anchors { left: parent.left; right: parent.right; top: parent.top; margins: Theme.space12; topMargin: area.topPadding }
        visible: area.text === "" && area.preeditText === ""
        text: area.placeholderText
        color: area.placeholderTextColor
        font.pixelSize: Theme.sizeBody
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }
    background: Rectangle {
        radius: Theme.radiusSmall
        color: Theme.surface
        border.width: area.activeFocus ? Theme.focusRing : Theme.hairline
        border.color: area.activeFocus ? Theme.accent : Theme.control
    }
}
