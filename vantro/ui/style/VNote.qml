import QtQuick

// Small explanatory text; hidden when empty.
Text {
    width: parent ? parent.width : implicitWidth
    visible: text !== ""
    textFormat: Text.PlainText
    color: Theme.textSecondary
    font.pixelSize: Theme.sizeSecondary
    wrapMode: Text.Wrap
}
