import QtQuick

// The small text below or between what it explains; takes no place while it is empty.
Text {
    width: parent ? parent.width : implicitWidth
    visible: text !== ""
    textFormat: Text.PlainText
    color: Theme.textSecondary
    font.pixelSize: Theme.sizeSecondary
    wrapMode: Text.Wrap
}
