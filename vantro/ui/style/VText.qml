import QtQuick

// Every text of the windows. What a server, a model or a device says is shown as it is, never as a document.
Text {
    textFormat: Text.PlainText
}
