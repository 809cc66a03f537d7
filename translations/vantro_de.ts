<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AboutPage</name>
    <message>
        <source>About vantro</source>
        <translation>Über vantro</translation>
    </message>
    <message>
        <source>vantro %1</source>
        <translation>vantro %1</translation>
    </message>
    <message>
        <source>Speech is recognised on your own computer. Your words never leave it unless you set up a provider to rewrite them.</source>
        <translation>Die Sprache wird auf deinem eigenen Rechner erkannt. Deine Worte verlassen ihn nur, wenn du einen Anbieter einrichtest, der sie umschreibt.</translation>
    </message>
    <message>
        <source>Contact the developers</source>
        <translation>Kontakt zu den Entwicklern</translation>
    </message>
    <message>
        <source>Both open a draft in your mail program. Nothing is sent until you send it.</source>
        <translation>Beides öffnet einen Entwurf in deinem Mailprogramm. Abgeschickt wird er erst von dir.</translation>
    </message>
    <message>
        <source>Report an Error</source>
        <translation>Fehler melden</translation>
    </message>
    <message>
        <source>Send Feedback</source>
        <translation>Rückmeldung senden</translation>
    </message>
    <message>
        <source>Licences</source>
        <translation>Lizenzen</translation>
    </message>
    <message>
        <source>vantro is free software under the MIT licence. It is built on Qt (LGPL 3), whisper.cpp and ggml (MIT), QCoro (MIT), libpulse, libsoxr, libsndfile, libcanberra, libsecret, GLib and libsystemd (LGPL 2.1), OpenSSL and CLD2 (Apache 2.0), ICU (Unicode 3.0) and X11 (MIT).</source>
        <translation>vantro ist freie Software unter der MIT-Lizenz. Es baut auf Qt (LGPL 3), whisper.cpp und ggml (MIT), QCoro (MIT), libpulse, libsoxr, libsndfile, libcanberra, libsecret, GLib und libsystemd (LGPL 2.1), OpenSSL und CLD2 (Apache 2.0), ICU (Unicode 3.0) und X11 (MIT) auf.</translation>
    </message>
    <message>
        <source>This computer</source>
        <translation>Dieser Rechner</translation>
    </message>
    <message>
        <source>Quit vantro</source>
        <translation>vantro beenden</translation>
    </message>
</context>
<context>
    <name>Alerts</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>vantro ended unexpectedly</source>
        <translation>vantro wurde unerwartet beendet</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Report an Error</source>
        <translation>Fehler melden</translation>
    </message>
    <message>
        <source>The settings file comes from a newer version of vantro.</source>
        <translation>Die Einstellungsdatei stammt von einer neueren Version von vantro.</translation>
    </message>
    <message>
        <source>The settings file was damaged.</source>
        <translation>Die Einstellungsdatei war beschädigt.</translation>
    </message>
    <message>
        <source>Some settings could not be read</source>
        <translation>Einige Einstellungen sind nicht lesbar</translation>
    </message>
    <message>
        <source>Everything readable is still in force. A copy of the file is kept as %1.</source>
        <translation>Alles Lesbare gilt weiter. Eine Kopie der Datei wurde als %1 aufgehoben.</translation>
    </message>
    <message>
        <source>Settings Not Saved</source>
        <translation>Einstellungen nicht gespeichert</translation>
    </message>
    <message>
        <source>The settings file %1 cannot be written. Your changes last until vantro quits.</source>
        <translation>Die Einstellungsdatei %1 lässt sich nicht schreiben. Deine Änderungen gelten nur, bis vantro beendet wird.</translation>
    </message>
    <message>
        <source>No Mail Program</source>
        <translation>Kein Mailprogramm</translation>
    </message>
    <message>
        <source>No mail program could be started. Please write to %1.</source>
        <translation>Es konnte kein Mailprogramm gestartet werden. Bitte schreib an %1.</translation>
    </message>
    <message>
        <source>It is running again. Your earlier dictations are in the history.</source>
        <translation>Es läuft wieder. Deine bisherigen Diktate stehen im Verlauf.</translation>
    </message>
</context>
<context>
    <name>AnswerSetAside</name>
    <message>
        <source>the answer is cut off. Raise the provider&apos;s token limit, or say less at a time.</source>
        <translation>Die Antwort ist abgeschnitten. Erhöhe die Tokengrenze des Anbieters, oder sprich kürzere Abschnitte.</translation>
    </message>
    <message>
        <source>the answer is empty.</source>
        <translation>Die Antwort ist leer.</translation>
    </message>
    <message>
        <source>the model answered you instead.</source>
        <translation>Das Modell hat dir geantwortet, statt umzuschreiben.</translation>
    </message>
    <message>
        <source>the answer has a blank to fill in, %1.</source>
        <translation>Die Antwort hat eine Lücke zum Ausfüllen: %1.</translation>
    </message>
    <message>
        <source>it says “%1”, and you did not.</source>
        <translation>Darin steht „%1“, und das hast du nicht gesagt.</translation>
    </message>
    <message>
        <source>you said “%1”, and it does not.</source>
        <translation>Du hast „%1“ gesagt, und das fehlt darin.</translation>
    </message>
    <message>
        <source>it may say the opposite of what you said.</source>
        <translation>Sie sagt womöglich das Gegenteil.</translation>
    </message>
    <message>
        <source>it is in another language.</source>
        <translation>Sie ist in einer anderen Sprache.</translation>
    </message>
    <message>
        <source>it is much longer than what you said.</source>
        <translation>Sie ist viel länger als das, was du gesagt hast.</translation>
    </message>
    <message>
        <source>it leaves out much of what you said.</source>
        <translation>Sie lässt vieles von dem aus, was du gesagt hast.</translation>
    </message>
    <message>
        <source>it says something other than you did.</source>
        <translation>Sie sagt etwas anderes als du.</translation>
    </message>
    <message>
        <source>The rewriting was set aside: %1</source>
        <translation>Die Umschreibung wurde verworfen: %1</translation>
    </message>
</context>
<context>
    <name>AppDelegate</name>
    <message>
        <source>Shortcut Not Available</source>
        <translation>Tastenkürzel nicht verfügbar</translation>
    </message>
    <message>
        <source>a dictation is already in progress</source>
        <translation>es läuft bereits ein Diktat</translation>
    </message>
    <message>
        <source>the speech model is missing; see the program&apos;s window</source>
        <translation>das Sprachmodell fehlt; sieh im Fenster des Programms nach</translation>
    </message>
    <message>
        <source>Still working on the last dictation.</source>
        <translation>Das letzte Diktat ist noch in Arbeit.</translation>
    </message>
    <message>
        <source>Not pasted: %1.</source>
        <translation>Nicht eingefügt: %1.</translation>
    </message>
    <message>
        <source>a dictation is in progress</source>
        <translation>Es läuft gerade ein Diktat</translation>
    </message>
    <message>
        <source>nothing has been dictated since vantro was started; vantro last --original writes what was before</source>
        <translation>Seit dem Start von vantro wurde nichts diktiert; vantro last --original gibt das vorige Diktat aus</translation>
    </message>
    <message>
        <source>this desktop lets no program copy while you work in another</source>
        <translation>auf diesem Desktop kann kein Programm kopieren, während du in einem anderen arbeitest</translation>
    </message>
</context>
<context>
    <name>ApplicationsModel</name>
    <message>
        <source>The default mode</source>
        <translation>Der Standardmodus</translation>
    </message>
    <message>
        <source>As usual there</source>
        <translation>Wie dort üblich</translation>
    </message>
    <message>
        <source>%1 is in the list already.</source>
        <translation>%1 steht schon in der Liste.</translation>
    </message>
</context>
<context>
    <name>ApplicationsPage</name>
    <message>
        <source>Applications</source>
        <translation>Programme</translation>
    </message>
    <message>
        <source>What dictations into the windows of one application are like, where that differs from the rest.</source>
        <translation>Wie Diktate in die Fenster eines Programms sind, wo es von den anderen abweicht.</translation>
    </message>
    <message>
        <source>The rule for %1 has been removed.</source>
        <translation>Die Regel für %1 wurde entfernt.</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Add an application</source>
        <translation>Programm hinzufügen</translation>
    </message>
    <message>
        <source>Click into a window of the application and come back: its name is offered here then. Terminals and Emacs need no rule, their paste keys are known.</source>
        <translation>Klicke in ein Fenster des Programms und komm zurück: Dann wird sein Name hier angeboten. Terminals und Emacs brauchen keine Regel, ihre Tasten zum Einfügen sind bekannt.</translation>
    </message>
    <message>
        <source>Name of the application, such as thunderbird</source>
        <translation>Name des Programms, etwa thunderbird</translation>
    </message>
    <message>
        <source>Application</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Modus</translation>
    </message>
    <message>
        <source>The one a dictation begins in. Another can be chosen while you speak.</source>
        <translation>In diesem beginnt ein Diktat. Beim Sprechen lässt sich ein anderer wählen.</translation>
    </message>
    <message>
        <source>Paste keys</source>
        <translation>Tasten zum Einfügen</translation>
    </message>
    <message>
        <source>What vantro presses to paste. Choose others if your texts do not arrive there.</source>
        <translation>Was vantro zum Einfügen drückt. Wähle andere, wenn deine Texte dort nicht ankommen.</translation>
    </message>
    <message>
        <source>Full stop at the end</source>
        <translation>Punkt am Ende</translation>
    </message>
    <message>
        <source>Without it, commands and search words can be dictated.</source>
        <translation>Ohne ihn lassen sich Befehle und Suchwörter diktieren.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
</context>
<context>
    <name>AudioInputMode</name>
    <message>
        <source>Use system&apos;s default input device</source>
        <translation>Standardmikrofon des Systems</translation>
    </message>
    <message>
        <source>Select a specific input device</source>
        <translation>Ein bestimmtes Mikrofon wählen</translation>
    </message>
    <message>
        <source>Set up device priority order</source>
        <translation>Rangfolge der Mikrofone festlegen</translation>
    </message>
</context>
<context>
    <name>AudioRecorder</name>
    <message>
        <source>No usable audio input format was found.</source>
        <translation>Es wurde kein brauchbares Aufnahmeformat gefunden.</translation>
    </message>
    <message>
        <source>Could not start the microphone: %1</source>
        <translation>Das Mikrofon konnte nicht gestartet werden: %1</translation>
    </message>
    <message>
        <source>The on-device model is not available on this device.</source>
        <translation>Das Modell des Geräts ist auf diesem Gerät nicht verfügbar.</translation>
    </message>
    <message>
        <source>The model is not ready. Please wait for it to download.</source>
        <translation>Das Modell ist nicht bereit. Bitte warte, bis es geladen ist.</translation>
    </message>
    <message>
        <source>The text is too long to process. Please try with shorter text.</source>
        <translation>Der Text ist zu lang. Bitte versuche es mit einem kürzeren.</translation>
    </message>
    <message>
        <source>Generation failed: </source>
        <translation>Die Erzeugung ist fehlgeschlagen: </translation>
    </message>
    <message>
        <source>AI processing failed.</source>
        <translation>Die Verarbeitung durch das Sprachmodell ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Error processing transcription: </source>
        <translation>Fehler beim Verarbeiten der Transkription: </translation>
    </message>
</context>
<context>
    <name>ControlService</name>
    <message>
        <source>a dictation is already in progress</source>
        <translation>es läuft bereits ein Diktat</translation>
    </message>
    <message>
        <source>the recording could not start; see the program&apos;s window</source>
        <translation>die Aufnahme konnte nicht beginnen; siehe das Fenster des Programms</translation>
    </message>
    <message>
        <source>nothing is being recorded</source>
        <translation>es wird nichts aufgenommen</translation>
    </message>
    <message>
        <source>the screen is locked, or another session is in front</source>
        <translation>der Bildschirm ist gesperrt, oder eine andere Sitzung ist im Vordergrund</translation>
    </message>
    <message>
        <source>there is no window %1</source>
        <translation>ein Fenster %1 gibt es nicht</translation>
    </message>
    <message>
        <source>the mode %1 is not set up</source>
        <translation>der Modus %1 ist nicht eingerichtet</translation>
    </message>
    <message>
        <source>there is no model %1</source>
        <translation>es gibt kein Modell %1</translation>
    </message>
</context>
<context>
    <name>Csv</name>
    <message>
        <source>line %1: there is text after a closing quote</source>
        <translation>Zeile %1: hinter einem schließenden Anführungszeichen steht Text</translation>
    </message>
    <message>
        <source>line %1: a quote is not closed</source>
        <translation>Zeile %1: ein Anführungszeichen ist nicht geschlossen</translation>
    </message>
</context>
<context>
    <name>DesktopWays</name>
    <message>
        <source>On this desktop the shortcut works, and texts are pasted, only in programs of X11. Bind a shortcut to the command vantro toggle, and paste yourself.</source>
        <translation>Auf diesem Desktop wirkt das Kürzel nur in X11-Programmen, und nur dort werden Texte eingefügt. Lege ein Kürzel auf den Befehl vantro toggle und füge selbst ein.</translation>
    </message>
    <message>
        <source>This desktop lets no program copy in the background: your texts are in the history.</source>
        <translation>Auf diesem Desktop kann kein Programm im Hintergrund kopieren: deine Texte stehen im Verlauf.</translation>
    </message>
    <message>
        <source>This desktop lets no program press keys for you: paste your texts yourself.</source>
        <translation>Auf diesem Desktop kann kein Programm für dich Tasten drücken: füge deine Texte selbst ein.</translation>
    </message>
    <message>
        <source>This desktop lets no panel stay above other windows.</source>
        <translation>Auf diesem Desktop bleibt kein Feld über anderen Fenstern.</translation>
    </message>
    <message>
        <source>This desktop does not tell which window you are in: terminals need Ctrl+Shift+V.</source>
        <translation>Dieser Desktop sagt nicht, in welchem Fenster du bist: Terminals brauchen Ctrl+Shift+V.</translation>
    </message>
</context>
<context>
    <name>Dictation</name>
    <message>
        <source>The microphone was lost during the recording. Anything said after that is missing. %1</source>
        <translation>Das Mikrofon ist während der Aufnahme ausgefallen. Was danach gesagt wurde, fehlt. %1</translation>
    </message>
    <message>
        <source>Transcription Error</source>
        <translation>Fehler bei der Transkription</translation>
    </message>
    <message>
        <source>Not in the History</source>
        <translation>Nicht im Verlauf</translation>
    </message>
    <message>
        <source>Your dictations are delivered but not stored: %1</source>
        <translation>Diktate kommen an, werden aber nicht gespeichert: %1</translation>
    </message>
    <message>
        <source>What you said is in the history, as it was said: copy it from there.</source>
        <translation>Was du gesagt hast, steht im Wortlaut im Verlauf: Kopiere es von dort.</translation>
    </message>
    <message>
        <source>What you said is on the clipboard: paste it with %1.</source>
        <translation>Was du gesagt hast, ist in der Zwischenablage: Füge es mit %1 ein.</translation>
    </message>
    <message>
        <source>The microphone sent nothing for %1 s of this recording. Anything said then is missing.</source>
        <translation>Das Mikrofon hat %1 s dieser Aufnahme lang nichts geliefert. Was in dieser Zeit gesagt wurde, fehlt.</translation>
    </message>
    <message>
        <source>Something unexpected went wrong.</source>
        <translation>Etwas Unerwartetes ist schiefgegangen.</translation>
    </message>
    <message>
        <source>It was cancelled.</source>
        <translation>Es wurde abgebrochen.</translation>
    </message>
    <message>
        <source>vantro was quit. The recording is kept.</source>
        <translation>vantro wurde beendet. Die Aufnahme ist erhalten.</translation>
    </message>
    <message>
        <source>Cancelled. Your note is kept as you said it.</source>
        <translation>Abgebrochen. Deine Notiz ist erhalten, wie du sie gesprochen hast.</translation>
    </message>
    <message>
        <source>Cancelled. What you said is in the history, as you said it.</source>
        <translation>Abgebrochen. Was du gesagt hast, steht wie gesprochen im Verlauf.</translation>
    </message>
    <message>
        <source>Failed to transcribe audio: </source>
        <translation>Die Aufnahme konnte nicht transkribiert werden: </translation>
    </message>
    <message>
        <source>Nothing was heard. Speak closer to the microphone, or choose another under Settings, Microphone.</source>
        <translation>Es war nichts zu hören. Sprich näher am Mikrofon oder wähle unter Einstellungen, Mikrofon ein anderes.</translation>
    </message>
    <message>
        <source>A recording ends after ten minutes. Anything said after that is missing: dictate the rest again.</source>
        <translation>Eine Aufnahme endet nach zehn Minuten. Was du danach gesagt hast, fehlt: diktiere den Rest noch einmal.</translation>
    </message>
</context>
<context>
    <name>DictationsPage</name>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Search the history</source>
        <translation>Im Verlauf suchen</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Modus</translation>
    </message>
    <message>
        <source>Any time</source>
        <translation>Jederzeit</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Heute</translation>
    </message>
    <message>
        <source>Last 7 days</source>
        <translation>Letzte 7 Tage</translation>
    </message>
    <message>
        <source>Last 30 days</source>
        <translation>Letzte 30 Tage</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Dictations</source>
        <translation>Diktate</translation>
    </message>
    <message>
        <source>Not rewritten</source>
        <translation>Unverändert</translation>
    </message>
    <message>
        <source>%1 dictations are selected.</source>
        <translation>%1 Diktate sind ausgewählt.</translation>
    </message>
    <message>
        <source>Select a dictation to read it.</source>
        <translation>Wähle ein Diktat, um es zu lesen.</translation>
    </message>
    <message>
        <source>No dictation matches. Change the search or the filters below it.</source>
        <translation>So ein Diktat gibt es nicht. Ändere die Suche oder die Auswahl darunter.</translation>
    </message>
    <message>
        <source>Your dictations will appear here. Press your shortcut and speak.</source>
        <translation>Hier erscheinen deine Diktate. Drücke dein Kürzel und sprich.</translation>
    </message>
    <message>
        <source>Text of the dictation</source>
        <translation>Text des Diktats</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Kopiert</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Show the rewritten text</source>
        <translation>Überarbeiteten Text zeigen</translation>
    </message>
    <message>
        <source>Show the original text</source>
        <translation>Ursprünglichen Text zeigen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Into the window you were in before</source>
        <translation>In das Fenster, in dem du vorher warst</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Rewrite as...</source>
        <translation>Umschreiben als …</translation>
    </message>
    <message>
        <source>Export...</source>
        <translation>Exportieren …</translation>
    </message>
    <message>
        <source>Show what was set aside</source>
        <translation>Verworfenes zeigen</translation>
    </message>
    <message>
        <source>Transcribe again...</source>
        <translation>Neu transkribieren …</translation>
    </message>
</context>
<context>
    <name>DownloadQueue</name>
    <message>
        <source>Waiting for %1</source>
        <translation>Wartet auf %1</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>Verbindung wird aufgebaut</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
<context>
    <name>Error</name>
    <message>
        <source>There is not enough free memory. Close other programs.</source>
        <translation>Es ist nicht genug Speicher frei. Schließe andere Programme.</translation>
    </message>
</context>
<context>
    <name>Fetch</name>
    <message>
        <source>it ended after %1 of %2</source>
        <translation>sie endete nach %1 von %2</translation>
    </message>
    <message>
        <source>no data for %1 s</source>
        <translation>seit %1 s keine Daten</translation>
    </message>
</context>
<context>
    <name>FileChoice</name>
    <message>
        <source>Export Dictations</source>
        <translation>Diktate exportieren</translation>
    </message>
    <message>
        <source>Text with headings (*.md)</source>
        <translation>Text mit Überschriften (*.md)</translation>
    </message>
    <message>
        <source>Table (*.csv)</source>
        <translation>Tabelle (*.csv)</translation>
    </message>
    <message>
        <source>JSON (*.json)</source>
        <translation>JSON (*.json)</translation>
    </message>
    <message>
        <source>Export List</source>
        <translation>Liste exportieren</translation>
    </message>
    <message>
        <source>Import List</source>
        <translation>Liste importieren</translation>
    </message>
    <message>
        <source>Table, plain list or JSON (*.csv *.txt *.json)</source>
        <translation>Tabelle, einfache Liste oder JSON (*.csv *.txt *.json)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
</context>
<context>
    <name>FileTransfer</name>
    <message>
        <source>Checking the file</source>
        <translation>Die Datei wird geprüft</translation>
    </message>
    <message>
        <source>Waiting for another vantro to download the same file</source>
        <translation>Warten auf ein anderes vantro, das dieselbe Datei lädt</translation>
    </message>
    <message>
        <source>the file keeps changing</source>
        <translation>die Datei ändert sich ständig</translation>
    </message>
    <message>
        <source>Connection lost, trying again</source>
        <translation>Verbindung verloren, neuer Versuch</translation>
    </message>
    <message>
        <source>%1 sent another file than it announced. It has been removed. Try again later.</source>
        <translation>%1 hat eine andere Datei geschickt als angekündigt. Sie ist gelöscht. Versuche es später noch einmal.</translation>
    </message>
</context>
<context>
    <name>GeneralPage</name>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Finished text</source>
        <translation>Fertiger Text</translation>
    </message>
    <message>
        <source>Paste into the window I was working in</source>
        <translation>In das Fenster einfügen, in dem ich gearbeitet habe</translation>
    </message>
    <message>
        <source>When off, the text is only copied to the clipboard.</source>
        <translation>Sonst wird der Text nur in die Zwischenablage kopiert.</translation>
    </message>
    <message>
        <source>Keep the text on the clipboard after pasting</source>
        <translation>Den Text nach dem Einfügen in der Zwischenablage lassen</translation>
    </message>
    <message>
        <source>When off, the clipboard gets its previous text back.</source>
        <translation>Sonst erhält die Zwischenablage ihren früheren Text zurück.</translation>
    </message>
    <message>
        <source>Play a sound when the text is ready</source>
        <translation>Einen Ton spielen, wenn der Text fertig ist</translation>
    </message>
    <message>
        <source>Speech</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Language you speak</source>
        <translation>Sprache, in der du sprichst</translation>
    </message>
    <message>
        <source>English-only models always expect English.</source>
        <translation>Rein englische Modelle erwarten immer Englisch.</translation>
    </message>
    <message>
        <source>Keep the speech model in memory</source>
        <translation>Das Spracherkennungsmodell im Speicher behalten</translation>
    </message>
    <message>
        <source>Transcribing starts sooner, but the model takes up memory all the time.</source>
        <translation>Die Transkription beginnt früher, aber das Modell belegt ständig Speicher.</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Aussehen</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Farben</translation>
    </message>
    <message>
        <source>Same as the desktop</source>
        <translation>Wie der Desktop</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>Animations</source>
        <translation>Animationen</translation>
    </message>
    <message>
        <source>On</source>
        <translation>An</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>Start when I log in</source>
        <translation>Beim Anmelden starten</translation>
    </message>
    <message>
        <source>Check for updates at startup</source>
        <translation>Beim Start nach Updates suchen</translation>
    </message>
    <message>
        <source>Asks a server for the latest version number. Nothing about you is sent.</source>
        <translation>Fragt einen Server nach der neuesten Versionsnummer. Es wird nichts über dich gesendet.</translation>
    </message>
    <message>
        <source>Checking...</source>
        <translation>Suche läuft...</translation>
    </message>
    <message>
        <source>Check now</source>
        <translation>Jetzt suchen</translation>
    </message>
    <message>
        <source>Give pictures, formatted text and files back too</source>
        <translation>Auch Bilder, formatierten Text und Dateien zurückgeben</translation>
    </message>
    <message>
        <source>Up to 32 MB. When off, only plain text comes back.</source>
        <translation>Bis zu 32 MB. Sonst kommt nur reiner Text zurück.</translation>
    </message>
    <message>
        <source>Recognise while I speak</source>
        <translation>Schon beim Sprechen erkennen</translation>
    </message>
    <message>
        <source>The text is there sooner. Not done while the machine saves power.</source>
        <translation>Der Text ist früher da. Nicht, solange der Rechner Strom spart.</translation>
    </message>
    <message>
        <source>Show what was understood so far</source>
        <translation>Anzeigen, was bisher verstanden wurde</translation>
    </message>
    <message>
        <source>In the panel, at each pause. The final text may differ.</source>
        <translation>Im Fenster, bei jeder Pause. Der fertige Text kann abweichen.</translation>
    </message>
</context>
<context>
    <name>History</name>
    <message>
        <source>Dictations</source>
        <translation>Diktate</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Heute</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Gestern</translation>
    </message>
    <message>
        <source>%1 It can be undone until this window closes.</source>
        <translation>%1 Bis sich dieses Fenster schließt, lässt sich das rückgängig machen.</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
</context>
<context>
    <name>HistoryModel</name>
    <message>
        <source>All modes</source>
        <translation>Alle Modi</translation>
    </message>
    <message>
        <source>Not rewritten</source>
        <translation>Unverändert</translation>
    </message>
    <message>
        <source>Unknown date</source>
        <translation>Unbekanntes Datum</translation>
    </message>
    <message>
        <source>Dictations</source>
        <translation>Diktate</translation>
    </message>
    <message>
        <source>Exporting...</source>
        <translation>Wird exportiert …</translation>
    </message>
    <message>
        <source>The dictation was deleted.</source>
        <translation>Das Diktat wurde gelöscht.</translation>
    </message>
    <message>
        <source>%1 dictations were deleted.</source>
        <translation>%1 Diktate wurden gelöscht.</translation>
    </message>
    <message>
        <source>Deleting: %1 of %2</source>
        <translation>Gelöscht: %1 von %2</translation>
    </message>
    <message>
        <source>Bringing back: %1 of %2</source>
        <translation>Zurückgeholt: %1 von %2</translation>
    </message>
    <message>
        <source>The text was changed.</source>
        <translation>Der Text wurde geändert.</translation>
    </message>
    <message>
        <source>The dictation has been deleted in the meantime.</source>
        <translation>Das Diktat wurde inzwischen gelöscht.</translation>
    </message>
    <message>
        <source>Rewriting with %1...</source>
        <translation>Wird mit %1 umgeschrieben …</translation>
    </message>
    <message>
        <source>The dictation was rewritten with %1.</source>
        <translation>Das Diktat wurde mit %1 umgeschrieben.</translation>
    </message>
    <message>
        <source>Transcribing with %1...</source>
        <translation>Wird mit %1 transkribiert …</translation>
    </message>
    <message>
        <source>%1 hears nothing in this recording. The text stays as it was.</source>
        <translation>%1 hört in dieser Aufnahme nichts. Der Text bleibt, wie er war.</translation>
    </message>
    <message>
        <source>The dictation was transcribed with %1.</source>
        <translation>Das Diktat wurde mit %1 transkribiert.</translation>
    </message>
</context>
<context>
    <name>KeyboardShortcuts</name>
    <message>
        <source>The stored shortcut is damaged. Record it again.</source>
        <translation>Das gespeicherte Tastenkürzel ist beschädigt. Nimm es neu auf.</translation>
    </message>
    <message>
        <source>%1 is already used by the desktop: %2.</source>
        <translation>%1 wird schon vom Desktop benutzt: %2.</translation>
    </message>
    <message>
        <source>Choose another shortcut, or change that one in the desktop&apos;s keyboard settings.</source>
        <translation>Wähle ein anderes Tastenkürzel oder ändere jenes in den Tastatureinstellungen des Desktops.</translation>
    </message>
    <message>
        <source>Use anyway</source>
        <translation>Trotzdem verwenden</translation>
    </message>
    <message>
        <source>%1 is needed for typing in every program. Add Ctrl, Alt or Super, or take a function or media key.</source>
        <translation>%1 wird in jedem Programm zum Tippen gebraucht. Nimm Strg, Alt oder Super dazu oder eine Funktions- oder Medientaste.</translation>
    </message>
    <message>
        <source>%1 already means &quot;%2&quot; in vantro.</source>
        <translation>%1 bedeutet in vantro schon „%2“.</translation>
    </message>
    <message>
        <source>switch to another console</source>
        <translation>zu einer anderen Konsole wechseln</translation>
    </message>
    <message>
        <source>%1 pastes in many programs: with it, each paste would start a recording.</source>
        <translation>%1 fügt in vielen Programmen ein: Damit würde jedes Einfügen eine Aufnahme beginnen.</translation>
    </message>
    <message>
        <source>%1 is used for editing in most programs. They would not get it any more.</source>
        <translation>%1 dient in den meisten Programmen der Bearbeitung. Sie bekämen es nicht mehr.</translation>
    </message>
    <message>
        <source>Choose another shortcut.</source>
        <translation>Wähle ein anderes Kürzel.</translation>
    </message>
</context>
<context>
    <name>KeychainError</name>
    <message>
        <source>Item not found in Keychain</source>
        <translation>Der Eintrag ist nicht im Schlüsselbund</translation>
    </message>
    <message>
        <source>Item already exists in Keychain</source>
        <translation>Der Eintrag ist schon im Schlüsselbund</translation>
    </message>
    <message>
        <source>Invalid data format</source>
        <translation>Ungültiges Datenformat</translation>
    </message>
    <message>
        <source>Failed to encode data</source>
        <translation>Die Daten konnten nicht kodiert werden</translation>
    </message>
    <message>
        <source>Failed to decode data</source>
        <translation>Die Daten konnten nicht gelesen werden</translation>
    </message>
    <message>
        <source>Keychain error: </source>
        <translation>Fehler des Schlüsselbunds: </translation>
    </message>
</context>
<context>
    <name>KeychainService</name>
    <message>
        <source>vantro API key (%1)</source>
        <translation>API-Schlüssel für vantro (%1)</translation>
    </message>
</context>
<context>
    <name>KeysPage</name>
    <message>
        <source>Shortcut</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Dictate</source>
        <translation>Diktieren</translation>
    </message>
    <message>
        <source>Works in every program. To change it, click it or press Space, then press the new keys.</source>
        <translation>Funktioniert in jedem Programm. Zum Ändern klicke darauf oder drücke die Leertaste, dann die neuen Tasten.</translation>
    </message>
    <message>
        <source>Hold to talk</source>
        <translation>Zum Sprechen halten</translation>
    </message>
    <message>
        <source>The recording lasts as long as you hold the shortcut.</source>
        <translation>Die Aufnahme dauert so lange, wie du das Tastenkürzel hältst.</translation>
    </message>
    <message>
        <source>End the recording</source>
        <translation>Die Aufnahme beenden</translation>
    </message>
    <message>
        <source>Works only while vantro is recording.</source>
        <translation>Funktioniert nur, während vantro aufnimmt.</translation>
    </message>
    <message>
        <source>Paste as spoken</source>
        <translation>Gesprochenes einfügen</translation>
    </message>
    <message>
        <source>Pastes the words of the last dictation as you said them, where a language model has changed them.</source>
        <translation>Fügt das letzte Diktat so ein, wie du es gesprochen hast, auch wenn ein Sprachmodell es umgeschrieben hat.</translation>
    </message>
</context>
<context>
    <name>LanguageModels</name>
    <message>
        <source>Rewrites in 29 languages, among them English, German, French and Spanish.</source>
        <translation>Überarbeitet in 29 Sprachen, darunter Deutsch, Englisch, Französisch und Spanisch.</translation>
    </message>
    <message>
        <source>Small and fast, for old machines; makes more mistakes.</source>
        <translation>Klein und schnell, für alte Rechner; macht mehr Fehler.</translation>
    </message>
    <message>
        <source>Rewrites English only.</source>
        <translation>Überarbeitet nur Englisch.</translation>
    </message>
    <message>
        <source>Your own file: %1</source>
        <translation>Deine eigene Datei: %1</translation>
    </message>
</context>
<context>
    <name>Launcher</name>
    <message>
        <source>vantro, transcribing</source>
        <translation>vantro transkribiert</translation>
    </message>
    <message>
        <source>vantro, recording</source>
        <translation>vantro nimmt auf</translation>
    </message>
    <message>
        <source>Time %1</source>
        <translation>Zeit %1</translation>
    </message>
    <message>
        <source>&lt;%1&gt; Start transcription</source>
        <translation>&lt;%1&gt; Transkription starten</translation>
    </message>
    <message>
        <source>Understood so far: %1</source>
        <translation>Bisher verstanden: %1</translation>
    </message>
    <message>
        <source>Release &lt;%1&gt; to transcribe</source>
        <translation>&lt;%1&gt; loslassen zum Transkribieren</translation>
    </message>
    <message>
        <source>&lt;%1&gt; Cancel</source>
        <translation>&lt;%1&gt; Abbrechen</translation>
    </message>
</context>
<context>
    <name>LauncherModel</name>
    <message>
        <source>Transcribing...</source>
        <translation>Wird transkribiert...</translation>
    </message>
    <message>
        <source>The speech model cannot be loaded. What you say is kept.</source>
        <translation>Das Sprachmodell kann nicht geladen werden. Was du sagst, bleibt erhalten.</translation>
    </message>
    <message>
        <source>%1 sends nothing any more. Trying again...</source>
        <translation>%1 liefert nichts mehr. Neuer Versuch...</translation>
    </message>
    <message>
        <source>No sound from %1. Is it muted?</source>
        <translation>Kein Ton von %1. Ist es stumm?</translation>
    </message>
    <message>
        <source>Rewriting with %1...</source>
        <translation>Wird mit %1 umgeschrieben …</translation>
    </message>
    <message>
        <source>Rewriting with %1... %2 s</source>
        <translation>Wird mit %1 umgeschrieben … %2 s</translation>
    </message>
    <message>
        <source>&lt;Return&gt; As spoken</source>
        <translation>&lt;Eingabe&gt; Wie gesprochen</translation>
    </message>
    <message>
        <source>As spoken</source>
        <translation>Wie gesprochen</translation>
    </message>
</context>
<context>
    <name>ListFile</name>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation>%1 lässt sich nicht lesen: %2</translation>
    </message>
    <message>
        <source>%1 is too large: it has more than %2 MB</source>
        <translation>%1 ist zu groß: mehr als %2 MB</translation>
    </message>
    <message>
        <source>Cannot write to standard output</source>
        <translation>Auf die Standardausgabe lässt sich nicht schreiben</translation>
    </message>
</context>
<context>
    <name>ListTransfer</name>
    <message>
        <source>%1: %2 added, %3 were there already.</source>
        <translation>%1: %2 hinzugefügt, %3 waren schon da.</translation>
    </message>
    <message>
        <source>Written to %1.</source>
        <translation>Nach %1 geschrieben.</translation>
    </message>
</context>
<context>
    <name>ListTransferRow</name>
    <message>
        <source>Import...</source>
        <translation>Importieren …</translation>
    </message>
    <message>
        <source>Export...</source>
        <translation>Exportieren …</translation>
    </message>
</context>
<context>
    <name>LocalFormatError</name>
    <message>
        <source>Generation failed: </source>
        <translation>Die Erzeugung ist fehlgeschlagen: </translation>
    </message>
    <message>
        <source>The on-device model is not available on this device</source>
        <translation>Das Modell des Geräts ist auf diesem Gerät nicht verfügbar</translation>
    </message>
    <message>
        <source>The model is not ready. Please wait for it to download</source>
        <translation>Das Modell ist nicht bereit. Bitte warte, bis es geladen ist</translation>
    </message>
    <message>
        <source>The text is too long to process. Please try with shorter text</source>
        <translation>Der Text ist zu lang. Bitte versuche es mit einem kürzeren</translation>
    </message>
</context>
<context>
    <name>LocalFormatService</name>
    <message>
        <source>The model wrote nothing</source>
        <translation>Das Modell hat nichts geschrieben</translation>
    </message>
    <message>
        <source>too little memory is free for the language model. Close other programs, or choose a smaller model under Settings, Models.</source>
        <translation>Für das Sprachmodell ist zu wenig Speicher frei. Schließe andere Programme oder wähle unter Einstellungen, Modelle ein kleineres Modell.</translation>
    </message>
</context>
<context>
    <name>LoginSession</name>
    <message>
        <source>A dictation is being recorded.</source>
        <translation>Ein Diktat wird aufgenommen.</translation>
    </message>
</context>
<context>
    <name>MicrophonePage</name>
    <message>
        <source>Microphone</source>
        <translation>Mikrofon</translation>
    </message>
    <message>
        <source>Record from</source>
        <translation>Aufnehmen von</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>Nicht angeschlossen</translation>
    </message>
    <message>
        <source>The first connected one is used.</source>
        <translation>Das erste angeschlossene wird benutzt.</translation>
    </message>
    <message>
        <source>Move up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Input level</source>
        <translation>Eingangspegel</translation>
    </message>
    <message>
        <source>Microphone level</source>
        <translation>Mikrofonpegel</translation>
    </message>
    <message>
        <source>Say something: the bar should move. Nothing is recorded.</source>
        <translation>Sag etwas: Der Balken sollte sich bewegen. Es wird nichts aufgenommen.</translation>
    </message>
    <message>
        <source>Try it</source>
        <translation>Ausprobieren</translation>
    </message>
    <message>
        <source>Click here, press your shortcut and say something: the text appears here.</source>
        <translation>Klick hierher, drück dein Kürzel und sag etwas: Der Text erscheint hier.</translation>
    </message>
</context>
<context>
    <name>MicrophoneSettings</name>
    <message>
        <source>No microphone is connected.</source>
        <translation>Es ist kein Mikrofon angeschlossen.</translation>
    </message>
    <message>
        <source>In use now: %1</source>
        <translation>Jetzt benutzt: %1</translation>
    </message>
</context>
<context>
    <name>ModeCard</name>
    <message>
        <source>Move up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
</context>
<context>
    <name>ModeDetails</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Name of the mode</source>
        <translation>Name des Modus</translation>
    </message>
    <message>
        <source>Rewritten by</source>
        <translation>Umgeschrieben von</translation>
    </message>
    <message>
        <source>A removed provider</source>
        <translation>Einem entfernten Anbieter</translation>
    </message>
    <message>
        <source>Rules</source>
        <translation>Regeln</translation>
    </message>
    <message>
        <source>One a line: a filler that is taken out, or words, an equals sign and what to write for them. Words said twice, capitals and the full stop need no rule.</source>
        <translation>Eine je Zeile: ein Füllwort, das wegfällt, oder Wörter, ein Gleichheitszeichen und was dafür stehen soll. Doppelte Wörter, Großschreibung und Schlusspunkt brauchen keine Regel.</translation>
    </message>
    <message>
        <source>Language of the rules</source>
        <translation>Sprache der Regeln</translation>
    </message>
    <message>
        <source>Use the built-in rules</source>
        <translation>Mitgelieferte Regeln nehmen</translation>
    </message>
    <message>
        <source>Prompt</source>
        <translation>Anweisung</translation>
    </message>
    <message>
        <source>Tell the language model what to do with the text.</source>
        <translation>Sag dem Sprachmodell, was es mit dem Text tun soll.</translation>
    </message>
    <message>
        <source>Use the built-in prompt</source>
        <translation>Mitgelieferte Anweisung verwenden</translation>
    </message>
    <message>
        <source>Try it on a text of yours</source>
        <translation>An einem eigenen Text ausprobieren</translation>
    </message>
    <message>
        <source>um so i wanted to ask if we can meet on tuesday no wednesday at three</source>
        <translation>ähm also ich wollte fragen ob wir uns am dienstag nein mittwoch um drei treffen können</translation>
    </message>
    <message>
        <source>Text to try</source>
        <translation>Text zum Ausprobieren</translation>
    </message>
    <message>
        <source>Rewriting...</source>
        <translation>Wird umgeschrieben …</translation>
    </message>
    <message>
        <source>Try this prompt</source>
        <translation>Diese Anweisung ausprobieren</translation>
    </message>
</context>
<context>
    <name>ModelCatalogue</name>
    <message>
        <source>Whisper small model, good balance between speed and accuracy</source>
        <translation>Whispers kleines Modell, guter Mittelweg zwischen Tempo und Genauigkeit</translation>
    </message>
    <message>
        <source>Whisper quantized version of Large v3 Turbo, faster with slightly lower accuracy</source>
        <translation>Whispers Large v3 Turbo, quantisiert: schneller, etwas weniger genau</translation>
    </message>
    <message>
        <source>Whisper tiny model, fastest, least accurate</source>
        <translation>Whispers kleinstes Modell, am schnellsten und am ungenauesten</translation>
    </message>
    <message>
        <source>Whisper tiny model optimized for English, fastest, least accurate</source>
        <translation>Whispers kleinstes Modell für Englisch, am schnellsten und am ungenauesten</translation>
    </message>
    <message>
        <source>Whisper base model optimized for English, good balance between speed and accuracy</source>
        <translation>Whispers Basismodell für Englisch, guter Mittelweg zwischen Tempo und Genauigkeit</translation>
    </message>
    <message>
        <source>Whisper large model v2, slower than Medium but more accurate</source>
        <translation>Whispers großes Modell v2, langsamer als Medium, aber genauer</translation>
    </message>
    <message>
        <source>Whisper large model v3, very slow but most accurate</source>
        <translation>Whispers großes Modell v3, sehr langsam, aber am genauesten</translation>
    </message>
    <message>
        <source>Whisper large model v3 Turbo, faster than v3 with similar accuracy</source>
        <translation>Whispers großes Modell v3 Turbo, schneller als v3 und ähnlich genau</translation>
    </message>
    <message>
        <source>Fastest option, 25 European languages.</source>
        <translation>Am schnellsten, 25 europäische Sprachen.</translation>
    </message>
    <message>
        <source>English only, highest accuracy.</source>
        <translation>Nur Englisch, am genauesten.</translation>
    </message>
</context>
<context>
    <name>ModelDownload</name>
    <message>
        <source>Downloading the speech model</source>
        <translation>Das Spracherkennungsmodell wird heruntergeladen</translation>
    </message>
    <message>
        <source>Size %1</source>
        <translation>Größe %1</translation>
    </message>
    <message>
        <source>Download of %1</source>
        <translation>Download von %1</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Go on in the background</source>
        <translation>Im Hintergrund weiter</translation>
    </message>
</context>
<context>
    <name>ModelDownloadError</name>
    <message>
        <source>%1 has no readable file %2. Check the model host&apos;s address.</source>
        <translation>%1 hat keine lesbare Datei %2. Prüfe die Adresse des Modellservers.</translation>
    </message>
    <message>
        <source>%1 has no file %2 (error %3). Check the model host&apos;s address.</source>
        <translation>%1 hat keine Datei %2 (Fehler %3). Prüfe die Adresse des Modellservers.</translation>
    </message>
    <message>
        <source>%1 refuses access to %2 (error %3). Check the model host&apos;s address and whether it requires a login.</source>
        <translation>%1 verweigert den Zugriff auf %2 (Fehler %3). Prüfe die Adresse des Modellservers und ob er eine Anmeldung verlangt.</translation>
    </message>
    <message>
        <source>%1 cannot deliver %2 at the moment (error %3). Try again later.</source>
        <translation>%1 kann %2 im Moment nicht liefern (Fehler %3). Versuche es später noch einmal.</translation>
    </message>
    <message>
        <source>The connection to %1 was lost (%2). Try again to resume the download.</source>
        <translation>Die Verbindung zu %1 ging verloren (%2). Versuche es erneut, um den Download fortzusetzen.</translation>
    </message>
    <message>
        <source>There is not enough space in %1: %2 more needed, %3 free. Free some space, or choose a smaller model.</source>
        <translation>In %1 ist nicht genug Platz: Es fehlen noch %2, frei sind %3. Schaffe Platz oder wähle ein kleineres Modell.</translation>
    </message>
    <message>
        <source>The disk of %1 is full. Free some space, then try again to resume the download.</source>
        <translation>Der Datenträger von %1 ist voll. Schaffe Platz und versuche es erneut, um den Download fortzusetzen.</translation>
    </message>
    <message>
        <source>The folder %1 is not writable (%2). Change its permissions.</source>
        <translation>Der Ordner %1 ist nicht beschreibbar (%2). Ändere seine Rechte.</translation>
    </message>
    <message>
        <source>%1 could not be written (%2). Check the disk.</source>
        <translation>%1 konnte nicht geschrieben werden (%2). Prüfe den Datenträger.</translation>
    </message>
    <message>
        <source>The download was stopped. It can be resumed later.</source>
        <translation>Der Download wurde angehalten. Er lässt sich später fortsetzen.</translation>
    </message>
</context>
<context>
    <name>ModelDownloadWindow</name>
    <message>
        <source>Speech model</source>
        <translation>Spracherkennungsmodell</translation>
    </message>
</context>
<context>
    <name>ModelDownloader</name>
    <message>
        <source>Download failed: </source>
        <translation>Herunterladen fehlgeschlagen: </translation>
    </message>
</context>
<context>
    <name>ModelListModel</name>
    <message>
        <source>English</source>
        <translation>Englisch</translation>
    </message>
    <message>
        <source>Many languages</source>
        <translation>Viele Sprachen</translation>
    </message>
    <message>
        <source>10 s of speech in less than 1 s</source>
        <translation>10 s Sprache in weniger als 1 s</translation>
    </message>
    <message>
        <source>10 s of speech in about %1 s</source>
        <translation>10 s Sprache in etwa %1 s</translation>
    </message>
    <message>
        <source>Downloaded models take up %1.</source>
        <translation>Heruntergeladene Modelle belegen %1.</translation>
    </message>
    <message>
        <source>%1 GB of memory</source>
        <translation>%1 GB Arbeitsspeicher</translation>
    </message>
</context>
<context>
    <name>ModelRow</name>
    <message>
        <source>%1: %2 of 10</source>
        <translation>%1: %2 von 10</translation>
    </message>
    <message>
        <source>in use</source>
        <translation>in Gebrauch</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Geschwindigkeit</translation>
    </message>
    <message>
        <source>Accuracy</source>
        <translation>Genauigkeit</translation>
    </message>
    <message>
        <source>Use</source>
        <translation>Verwenden</translation>
    </message>
    <message>
        <source>Resume download</source>
        <translation>Download fortsetzen</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Herunterladen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Download of %1</source>
        <translation>Herunterladen von %1</translation>
    </message>
    <message>
        <source>recommended for this computer</source>
        <translation>für diesen Rechner empfohlen</translation>
    </message>
</context>
<context>
    <name>ModelsPage</name>
    <message>
        <source>Models</source>
        <translation>Modelle</translation>
    </message>
    <message>
        <source>Models turn speech into text on this computer. Larger ones make fewer mistakes but take longer.</source>
        <translation>Modelle machen auf diesem Rechner aus Sprache Text. Größere machen weniger Fehler, brauchen aber länger.</translation>
    </message>
    <message>
        <source>Disk space</source>
        <translation>Speicherplatz</translation>
    </message>
    <message>
        <source>The model in use stays.</source>
        <translation>Das benutzte Modell bleibt.</translation>
    </message>
    <message>
        <source>Delete Models Cache</source>
        <translation>Modelle löschen</translation>
    </message>
    <message>
        <source>Rewriting on this computer</source>
        <translation>Überarbeiten auf diesem Rechner</translation>
    </message>
    <message>
        <source>A language model corrects and shapes what you said, without an account and without the network. Settings, Modes says which modes use it. A model of your own: vantro models add FILE.gguf</source>
        <translation>Ein Sprachmodell verbessert und formt, was du gesagt hast, ohne Konto und ohne Netz. Welche Modi es nutzen, steht unter Einstellungen, Modi. Ein eigenes Modell: vantro models add DATEI.gguf</translation>
    </message>
</context>
<context>
    <name>ModesModel</name>
    <message>
        <source>The text is kept as recognised; only your replacements are applied.</source>
        <translation>Der Text bleibt, wie er erkannt wurde; nur deine Ersetzungen werden angewendet.</translation>
    </message>
    <message>
        <source>A language model turns the text into an email.</source>
        <translation>Ein Sprachmodell macht aus dem Text eine E-Mail.</translation>
    </message>
    <message>
        <source>A language model corrects grammar, spelling and punctuation.</source>
        <translation>Ein Sprachmodell berichtigt Grammatik, Rechtschreibung und Zeichensetzung.</translation>
    </message>
    <message>
        <source>You can customize the name and prompt to suit your needs.</source>
        <translation>Name und Anweisung kannst du nach deinem Bedarf wählen.</translation>
    </message>
    <message>
        <source>The text is added to today&apos;s notes, which a language model summarises.</source>
        <translation>Der Text kommt zu den Notizen des Tages, die ein Sprachmodell zusammenfasst.</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keinem</translation>
    </message>
    <message>
        <source>%1 (disabled)</source>
        <translation>%1 (ausgeschaltet)</translation>
    </message>
    <message>
        <source>%1 was chosen, but is not set up. Until it is, your text stays as it is.</source>
        <translation>%1 ist gewählt, aber nicht eingerichtet. Bis dahin bleibt dein Text, wie er ist.</translation>
    </message>
    <message>
        <source>This computer (%1)</source>
        <translation>Dieser Rechner (%1)</translation>
    </message>
    <message>
        <source>This computer (needs a language model)</source>
        <translation>Dieser Rechner (braucht ein Sprachmodell)</translation>
    </message>
    <message>
        <source>To use this mode, download a language model under Settings, Models.</source>
        <translation>Um diesen Modus zu benutzen, lade unter Einstellungen, Modelle ein Sprachmodell herunter.</translation>
    </message>
    <message>
        <source>Rules on this computer</source>
        <translation>Regeln auf diesem Rechner</translation>
    </message>
    <message>
        <source>Ready: %1.</source>
        <translation>Bereit: %1.</translation>
    </message>
    <message>
        <source>To be set up below: %1.</source>
        <translation>Unten einzurichten: %1.</translation>
    </message>
    <message>
        <source>English</source>
        <translation>Englisch</translation>
    </message>
    <message>
        <source>German</source>
        <translation>Deutsch</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>Spanisch</translation>
    </message>
    <message>
        <source>French</source>
        <translation>Französisch</translation>
    </message>
    <message>
        <source>To use this mode, write a prompt and choose a provider, or the rules.</source>
        <translation>Schreib für diesen Modus einen Prompt und wähle einen Anbieter, oder nimm die Regeln.</translation>
    </message>
    <message>
        <source>To use this mode, choose an enabled provider, or the rules. Set up providers and their keys under Settings, Providers, or download a language model for this computer under Settings, Models.</source>
        <translation>Wähle für diesen Modus einen aktiven Anbieter oder die Regeln. Anbieter und ihre Schlüssel richtest du unter Einstellungen, Anbieter ein; oder lade unter Einstellungen, Modelle ein Sprachmodell für diesen Rechner herunter.</translation>
    </message>
    <message>
        <source>New mode</source>
        <translation>Neuer Modus</translation>
    </message>
    <message>
        <source>New mode %1</source>
        <translation>Neuer Modus %1</translation>
    </message>
    <message>
        <source>As you said it</source>
        <translation>Wie gesprochen</translation>
    </message>
    <message>
        <source>To be set up</source>
        <translation>Noch einzurichten</translation>
    </message>
    <message>
        <source>A removed provider</source>
        <translation>Einem entfernten Anbieter</translation>
    </message>
</context>
<context>
    <name>ModesPage</name>
    <message>
        <source>Modes</source>
        <translation>Modi</translation>
    </message>
    <message>
        <source>The mode decides what happens to a dictation. While recording, press a digit to choose another mode.</source>
        <translation>Der Modus bestimmt, was mit einem Diktat geschieht. Während der Aufnahme wählst du mit einer Zifferntaste einen anderen.</translation>
    </message>
    <message>
        <source>Default mode</source>
        <translation>Standardmodus</translation>
    </message>
    <message>
        <source>Add a mode</source>
        <translation>Modus hinzufügen</translation>
    </message>
</context>
<context>
    <name>NetworkError</name>
    <message>
        <source>The encrypted connection to %1 cannot be trusted (%2). Check this computer&apos;s clock, or install the certificate of your own server.</source>
        <translation>Der verschlüsselten Verbindung zu %1 ist nicht zu trauen (%2). Prüfe die Uhr dieses Rechners oder installiere das Zertifikat deines eigenen Servers.</translation>
    </message>
    <message>
        <source>%1 cannot be reached (%2). Check the network connection, the proxy and the address.</source>
        <translation>%1 ist nicht erreichbar (%2). Prüfe die Netzwerkverbindung, den Proxy und die Adresse.</translation>
    </message>
    <message>
        <source>The connection to %1 was lost before the response was complete. Try again.</source>
        <translation>Die Verbindung zu %1 brach ab, bevor die Antwort vollständig war. Versuche es erneut.</translation>
    </message>
    <message>
        <source>%1 has not responded within %2 seconds.</source>
        <translation>%1 hat nicht innerhalb von %2 Sekunden geantwortet.</translation>
    </message>
    <message>
        <source>The response from %1 is larger than %2.</source>
        <translation>Die Antwort von %1 ist größer als %2.</translation>
    </message>
    <message>
        <source>The request was cancelled.</source>
        <translation>Die Anfrage wurde abgebrochen.</translation>
    </message>
    <message>
        <source>%1 redirects in a loop or to an insecure address (%2). Check the address.</source>
        <translation>%1 leitet im Kreis oder an eine unsichere Adresse weiter (%2). Prüfe die Adresse.</translation>
    </message>
    <message>
        <source>%1 is not a web server. Check the address.</source>
        <translation>%1 ist kein Webserver. Prüfe die Adresse.</translation>
    </message>
    <message>
        <source>%1 does not speak https. Use another port, or an address that begins with http:// if the server is yours.</source>
        <translation>%1 spricht kein https. Nimm einen anderen Port, oder eine Adresse mit http://, wenn der Server deiner ist.</translation>
    </message>
    <message>
        <source>%1 closed the connection without an answer.</source>
        <translation>%1 hat die Verbindung ohne Antwort geschlossen.</translation>
    </message>
    <message>
        <source>If it expects encryption, begin the address with https://; otherwise try again.</source>
        <translation>Erwartet er Verschlüsselung, beginne die Adresse mit https://; sonst versuch es noch einmal.</translation>
    </message>
    <message>
        <source>Try again.</source>
        <translation>Versuch es noch einmal.</translation>
    </message>
</context>
<context>
    <name>NotesModel</name>
    <message>
        <source>The summary could not be updated: %1</source>
        <translation>Die Zusammenfassung konnte nicht erneuert werden: %1</translation>
    </message>
    <message>
        <source>The day was deleted.</source>
        <translation>Der Tag wurde gelöscht.</translation>
    </message>
    <message>
        <source>The note was deleted.</source>
        <translation>Die Notiz wurde gelöscht.</translation>
    </message>
    <message>
        <source>The note has been deleted in the meantime.</source>
        <translation>Die Notiz wurde inzwischen gelöscht.</translation>
    </message>
    <message>
        <source>Transcribing with %1...</source>
        <translation>Wird mit %1 transkribiert …</translation>
    </message>
    <message>
        <source>%1 hears nothing in this recording. The text stays as it was.</source>
        <translation>%1 hört in dieser Aufnahme nichts. Der Text bleibt, wie er war.</translation>
    </message>
    <message>
        <source>The note was transcribed with %1.</source>
        <translation>Die Notiz wurde mit %1 transkribiert.</translation>
    </message>
</context>
<context>
    <name>NotesPage</name>
    <message>
        <source>Days with notes</source>
        <translation>Tage mit Notizen</translation>
    </message>
    <message>
        <source>1 note</source>
        <translation>1 Notiz</translation>
    </message>
    <message>
        <source>%1 notes</source>
        <translation>%1 Notizen</translation>
    </message>
    <message>
        <source>Your notes will appear here, day by day. Choose the mode Notes while you record.</source>
        <translation>Hier erscheinen deine Notizen, Tag für Tag. Wähle beim Aufnehmen den Modus Notes.</translation>
    </message>
    <message>
        <source>Summary</source>
        <translation>Zusammenfassung</translation>
    </message>
    <message>
        <source>Updating summary...</source>
        <translation>Zusammenfassung wird erneuert ...</translation>
    </message>
    <message>
        <source>There is no summary yet. It is written when the mode Notes has a provider.</source>
        <translation>Es gibt noch keine Zusammenfassung. Sie wird geschrieben, wenn der Modus Notes einen Anbieter hat.</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Kopiert</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Copy the day</source>
        <translation>Tag kopieren</translation>
    </message>
    <message>
        <source>Regenerate summary</source>
        <translation>Zusammenfassung erneuern</translation>
    </message>
    <message>
        <source>Delete the day</source>
        <translation>Tag löschen</translation>
    </message>
    <message>
        <source>Transcribe again...</source>
        <translation>Neu transkribieren …</translation>
    </message>
</context>
<context>
    <name>Onboarding</name>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Später</translation>
    </message>
    <message>
        <source>Can you be heard?</source>
        <translation>Hört man dich?</translation>
    </message>
    <message>
        <source>Say something and watch the bar. Nothing is recorded here.</source>
        <translation>Sag etwas und beobachte den Balken. Hier wird nichts aufgenommen.</translation>
    </message>
    <message>
        <source>Microphone level</source>
        <translation>Mikrofonpegel</translation>
    </message>
    <message>
        <source>Can vantro type for you?</source>
        <translation>Kann vantro für dich tippen?</translation>
    </message>
    <message>
        <source>The finished text is pasted into the window you were working in. This page tests the keystroke for that on itself.</source>
        <translation>Der fertige Text wird in das Fenster eingefügt, in dem du gearbeitet hast. Diese Seite probiert den Tastendruck dafür an sich selbst aus.</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Your shortcut</source>
        <translation>Dein Tastenkürzel</translation>
    </message>
    <message>
        <source>Press it anywhere, and speak.</source>
        <translation>Drücke es irgendwo und sprich.</translation>
    </message>
    <message>
        <source>The speech model</source>
        <translation>Das Spracherkennungsmodell</translation>
    </message>
    <message>
        <source>It turns your speech into text on this computer. It only has to be downloaded once.</source>
        <translation>Es macht auf diesem Rechner aus deiner Sprache Text und muss nur einmal heruntergeladen werden.</translation>
    </message>
    <message>
        <source>%1 is ready.</source>
        <translation>%1 ist bereit.</translation>
    </message>
    <message>
        <source>%1 (%2) has not been downloaded yet.</source>
        <translation>%1 (%2) ist noch nicht heruntergeladen.</translation>
    </message>
    <message>
        <source>Download of %1</source>
        <translation>Download von %1</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Herunterladen</translation>
    </message>
    <message>
        <source>The speech model is still missing. Go back one page to download it.</source>
        <translation>Das Spracherkennungsmodell fehlt noch. Geh eine Seite zurück, um es herunterzuladen.</translation>
    </message>
    <message>
        <source>No shortcut is set yet. You can start a dictation from vantro&apos;s tray menu instead.</source>
        <translation>Es gibt noch kein Tastenkürzel. Du kannst ein Diktat stattdessen im Menü des vantro-Symbols beginnen.</translation>
    </message>
    <message>
        <source>Press %1, say a sentence, then press Space.</source>
        <translation>Drücke %1, sag einen Satz und drücke dann die Leertaste.</translation>
    </message>
    <message>
        <source>Your sentence appears here</source>
        <translation>Dein Satz erscheint hier</translation>
    </message>
    <message>
        <source>Try it</source>
        <translation>Ausprobieren</translation>
    </message>
    <message>
        <source>Step %1 of %2</source>
        <translation>Schritt %1 von %2</translation>
    </message>
    <message>
        <source>Speak instead of typing</source>
        <translation>Sprechen statt tippen</translation>
    </message>
    <message>
        <source>Press a shortcut, speak, press Space: the text stands in the window you were working in.</source>
        <translation>Kürzel drücken, sprechen, Leertaste drücken: Der Text steht in dem Fenster, in dem du gearbeitet hast.</translation>
    </message>
    <message>
        <source>Speech is recognised on this computer. Nothing you say leaves it, unless you set up a provider that rewrites your text elsewhere.</source>
        <translation>Die Sprache wird auf diesem Rechner erkannt. Nichts davon verlässt ihn, solange du keinen Anbieter einrichtest, der deinen Text anderswo umschreibt.</translation>
    </message>
    <message>
        <source>The next pages try your microphone, keyboard, shortcut and speech model. It takes about three minutes, and each can wait.</source>
        <translation>Die nächsten Seiten probieren Mikrofon, Tastatur, Kürzel und Sprachmodell aus. Das dauert etwa drei Minuten, und jede davon kann warten.</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>Mikrofon</translation>
    </message>
    <message>
        <source>Language you speak</source>
        <translation>Sprache, in der du sprichst</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>That is all</source>
        <translation>Das war alles</translation>
    </message>
    <message>
        <source>%1 starts a dictation in every program.</source>
        <translation>%1 beginnt in jedem Programm ein Diktat.</translation>
    </message>
    <message>
        <source>vantro waits in the tray: its menu has the history, the notes and the settings, and leads back to these pages. Starting vantro again opens the settings.</source>
        <translation>vantro wartet im Benachrichtigungsfeld: Sein Menü führt zum Verlauf, zu den Notizen, den Einstellungen und zurück auf diese Seiten. Wird vantro noch einmal gestartet, öffnen sich die Einstellungen.</translation>
    </message>
    <message>
        <source>Start when I log in</source>
        <translation>Beim Anmelden starten</translation>
    </message>
</context>
<context>
    <name>OnboardingModel</name>
    <message>
        <source>The default microphone</source>
        <translation>Das Standardmikrofon</translation>
    </message>
    <message>
        <source>%1 hears you.</source>
        <translation>%1 hört dich.</translation>
    </message>
    <message>
        <source>%1 is listening. Say something.</source>
        <translation>%1 hört zu. Sag etwas.</translation>
    </message>
    <message>
        <source>Trying the keyboard...</source>
        <translation>Die Tastatur wird ausprobiert...</translation>
    </message>
    <message>
        <source>The keystroke arrived: vantro can paste for you.</source>
        <translation>Der Tastendruck kam an: vantro kann für dich einfügen.</translation>
    </message>
    <message>
        <source>The keystroke did not arrive.</source>
        <translation>Der Tastendruck kam nicht an.</translation>
    </message>
    <message>
        <source>Bring this window to the front and try again. Otherwise you can paste your text yourself with %1.</source>
        <translation>Hole dieses Fenster nach vorn und versuche es erneut. Sonst fügst du den Text selbst mit %1 ein.</translation>
    </message>
    <message>
        <source>It works in every program. Press it to start, and Space when you are done.</source>
        <translation>Es funktioniert in jedem Programm. Drücke es, um zu beginnen, und die Leertaste, wenn du fertig bist.</translation>
    </message>
    <message>
        <source>None of the usual shortcuts is free. Record one of your own.</source>
        <translation>Keines der üblichen Tastenkürzel ist frei. Nimm ein eigenes auf.</translation>
    </message>
    <message>
        <source>The desktop&apos;s microphone</source>
        <translation>Das Mikrofon des Desktops</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1 (recommended)</source>
        <translation>%1 (empfohlen)</translation>
    </message>
    <message>
        <source>A sentence of ten seconds takes it less than a second on this computer.</source>
        <translation>Für einen Satz von zehn Sekunden braucht es auf diesem Rechner weniger als eine Sekunde.</translation>
    </message>
    <message>
        <source>A sentence of ten seconds takes it about %1 s on this computer.</source>
        <translation>Für einen Satz von zehn Sekunden braucht es auf diesem Rechner etwa %1 s.</translation>
    </message>
    <message>
        <source>Do what stands below, once. Then press it to start, and Space when you are done.</source>
        <translation>Tu einmal, was unten steht. Dann beginnst du damit, und mit der Leertaste endest du.</translation>
    </message>
</context>
<context>
    <name>OutputFile</name>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 lässt sich nicht schreiben: %2</translation>
    </message>
</context>
<context>
    <name>PasteDelivery</name>
    <message>
        <source>The text is on the clipboard.</source>
        <translation>Der Text ist in der Zwischenablage.</translation>
    </message>
    <message>
        <source>The window you were working in has not taken the text.</source>
        <translation>Das Fenster, in dem du gearbeitet hast, hat den Text nicht übernommen.</translation>
    </message>
    <message>
        <source>The text is in the history.</source>
        <translation>Der Text steht im Verlauf.</translation>
    </message>
    <message>
        <source>No window was active when the dictation began.</source>
        <translation>Beim Beginn des Diktats war kein Fenster aktiv.</translation>
    </message>
    <message>
        <source>The window you were working in has been closed.</source>
        <translation>Das Fenster, in dem du gearbeitet hast, wurde geschlossen.</translation>
    </message>
    <message>
        <source>You have moved on to another window.</source>
        <translation>Du arbeitest inzwischen in einem anderen Fenster.</translation>
    </message>
    <message>
        <source>The window you were working in did not become active again.</source>
        <translation>Das Fenster, in dem du gearbeitet hast, wurde nicht wieder aktiv.</translation>
    </message>
    <message>
        <source>You were away when the text was ready.</source>
        <translation>Du warst nicht da, als der Text fertig war.</translation>
    </message>
    <message>
        <source>A menu or a locked screen had the keyboard to itself.</source>
        <translation>Ein Menü oder ein gesperrter Bildschirm hatte die Tastatur für sich.</translation>
    </message>
    <message>
        <source>The window you were working in may not have taken the text. If it does not appear, press %1 there.</source>
        <translation>Das Fenster, in dem du gearbeitet hast, hat den Text vielleicht nicht übernommen. Erscheint er nicht, drücke dort %1.</translation>
    </message>
    <message>
        <source>The window you were working in has not taken the text yet. It appears when the window responds; only if it does not, press %1 there.</source>
        <translation>Das Fenster, in dem du gearbeitet hast, hat den Text noch nicht übernommen. Er erscheint, sobald es antwortet; nur wenn er ausbleibt, drücke dort %1.</translation>
    </message>
    <message>
        <source>This desktop lets no program copy while you work in another.</source>
        <translation>Auf diesem Desktop kann kein Programm kopieren, während du in einem anderen arbeitest.</translation>
    </message>
    <message>
        <source>A window has not taken the text before this one yet. It appears when the window responds.</source>
        <translation>Ein Fenster hat den Text vor diesem noch nicht übernommen. Er erscheint, sobald das Fenster wieder reagiert.</translation>
    </message>
    <message>
        <source>A window has not taken the text before this one.</source>
        <translation>Ein Fenster hat den Text vor diesem nicht übernommen.</translation>
    </message>
    <message>
        <source>What was copied has taken the place of the text that waited there.</source>
        <translation>Was kopiert wurde, hat den Text ersetzt, der dort wartete.</translation>
    </message>
    <message>
        <source>The window you were working in has no use for the text there. Click where it belongs and press %1.</source>
        <translation>Das Fenster, in dem du gearbeitet hast, kann dort mit dem Text nichts anfangen. Klicke dorthin, wo er stehen soll, und drücke %1.</translation>
    </message>
    <message>
        <source>That text is in the history.</source>
        <translation>Jener Text steht im Verlauf.</translation>
    </message>
    <message>
        <source>Its recording is kept: the command vantro retry transcribes it again.</source>
        <translation>Seine Aufnahme ist aufbewahrt: Der Befehl vantro retry transkribiert sie noch einmal.</translation>
    </message>
    <message>
        <source>The recording is kept: the command vantro retry transcribes it again.</source>
        <translation>Die Aufnahme ist aufbewahrt: Der Befehl vantro retry transkribiert sie noch einmal.</translation>
    </message>
    <message>
        <source>That program has not taken the text before this one yet. This text follows when it responds.</source>
        <translation>Dieses Programm hat den Text vor diesem noch nicht übernommen. Dieser folgt, sobald es wieder reagiert.</translation>
    </message>
    <message>
        <source>A text for a window you have left or closed since had to wait for its program.</source>
        <translation>Ein Text für ein Fenster, das du inzwischen verlassen oder geschlossen hast, musste auf dessen Programm warten.</translation>
    </message>
</context>
<context>
    <name>PasteHUDWindow</name>
    <message>
        <source>to paste</source>
        <translation>zum Einfügen</translation>
    </message>
</context>
<context>
    <name>PrivacyPage</name>
    <message>
        <source>Privacy</source>
        <translation>Privatsphäre</translation>
    </message>
    <message>
        <source>Speech is recognised on this computer. Your words leave it only in a mode whose provider runs elsewhere.</source>
        <translation>Die Sprache wird auf diesem Rechner erkannt. Deine Worte verlassen ihn nur in einem Modus, dessen Anbieter anderswo arbeitet.</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Keep dictations</source>
        <translation>Diktate aufbewahren</translation>
    </message>
    <message>
        <source>Older ones are deleted automatically, once a day. Notes stay until you delete them.</source>
        <translation>Ältere werden einmal am Tag von selbst gelöscht. Notizen bleiben, bis du sie löschst.</translation>
    </message>
    <message>
        <source>Private session</source>
        <translation>Private Sitzung</translation>
    </message>
    <message>
        <source>Until you switch it off or vantro quits, dictations are pasted but not kept. The tray&apos;s menu has it too.</source>
        <translation>Bis du sie ausschaltest oder vantro endet, werden Diktate eingefügt, aber nicht aufbewahrt. Auch im Menü im Benachrichtigungsfeld.</translation>
    </message>
    <message>
        <source>Stored on this computer</source>
        <translation>Auf diesem Rechner gespeichert</translation>
    </message>
    <message>
        <source>Clearing...</source>
        <translation>Wird gelöscht …</translation>
    </message>
    <message>
        <source>Clear all...</source>
        <translation>Alles löschen …</translation>
    </message>
    <message>
        <source>Recordings</source>
        <translation>Aufnahmen</translation>
    </message>
    <message>
        <source>Keep recordings</source>
        <translation>Aufnahmen aufbewahren</translation>
    </message>
    <message>
        <source>Keeps what you said as sound, to hear it again in the history or have it transcribed by another model. Notes have none.</source>
        <translation>Bewahrt das Gesprochene als Ton auf, um es im Verlauf wieder zu hören oder von einem anderen Modell transkribieren zu lassen. Notizen haben keine Aufnahme.</translation>
    </message>
    <message>
        <source>At most</source>
        <translation>Höchstens</translation>
    </message>
    <message>
        <source>The oldest ones make room. One hour takes about 60 MB.</source>
        <translation>Die ältesten machen Platz. Eine Stunde braucht etwa 60 MB.</translation>
    </message>
    <message>
        <source>Recordings take at most</source>
        <translation>Platz für Aufnahmen</translation>
    </message>
</context>
<context>
    <name>PrivacySettings</name>
    <message>
        <source>For ever</source>
        <translation>Für immer</translation>
    </message>
    <message>
        <source>Not at all</source>
        <translation>Gar nicht</translation>
    </message>
    <message>
        <source>One year</source>
        <translation>Ein Jahr</translation>
    </message>
    <message>
        <source>%1 days</source>
        <translation>%1 Tage</translation>
    </message>
    <message>
        <source>Delete Older Dictations</source>
        <translation>Ältere Diktate löschen</translation>
    </message>
    <message>
        <source>Clear All</source>
        <translation>Alles löschen</translation>
    </message>
    <message>
        <source>Dictations that are older than that: %1. They will be deleted now and cannot be restored.</source>
        <translation>Ältere Diktate: %1. Sie werden jetzt gelöscht und lassen sich nicht zurückholen.</translation>
    </message>
    <message>
        <source>%1 GB</source>
        <translation>%1 GB</translation>
    </message>
    <message>
        <source>%1 MB</source>
        <translation>%1 MB</translation>
    </message>
    <message>
        <source>Delete Recordings</source>
        <translation>Aufnahmen löschen</translation>
    </message>
    <message>
        <source>Recordings beyond that: %1. They will be deleted now and cannot be restored. The texts stay.</source>
        <translation>Aufnahmen darüber hinaus: %1. Sie werden jetzt endgültig gelöscht. Die Texte bleiben.</translation>
    </message>
    <message>
        <source>Dictations: %1. Notes: %2. Recordings: %3. Together %4, in %5.</source>
        <translation>Diktate: %1. Notizen: %2. Aufnahmen: %3. Zusammen %4, in %5.</translation>
    </message>
    <message>
        <source>Dictations: %1. Notes: %2. They will be deleted, with all recordings and summaries, and cannot be had back.</source>
        <translation>Diktate: %1. Notizen: %2. Sie werden mit allen Aufnahmen und Zusammenfassungen endgültig gelöscht.</translation>
    </message>
</context>
<context>
    <name>ProcessingMode</name>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Email</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>Grammar</source>
        <translation>Grammatik</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Eigener</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
</context>
<context>
    <name>ProviderConfigurationManager</name>
    <message>
        <source>The keys of removed providers will be deleted at the next start: </source>
        <translation>Die Schlüssel entfernter Anbieter werden beim nächsten Start gelöscht: </translation>
    </message>
</context>
<context>
    <name>ProviderForm</name>
    <message>
        <source>Name is required</source>
        <translation>Ein Name ist nötig</translation>
    </message>
    <message>
        <source>Model is required</source>
        <translation>Ein Modell ist nötig</translation>
    </message>
    <message>
        <source>URL is required for custom provider</source>
        <translation>Für einen eigenen Anbieter ist eine URL nötig</translation>
    </message>
    <message>
        <source>Invalid URL format</source>
        <translation>Ungültiges URL-Format</translation>
    </message>
    <message>
        <source>must be a whole number</source>
        <translation>muss eine ganze Zahl sein</translation>
    </message>
    <message>
        <source>Set either max tokens or max completion tokens, not both — the API rejects requests carrying both.</source>
        <translation>Setze entweder „max tokens“ oder „max completion tokens“, nicht beides – die API lehnt Anfragen mit beidem ab.</translation>
    </message>
    <message>
        <source>must be a number</source>
        <translation>muss eine Zahl sein</translation>
    </message>
    <message>
        <source>Used for legacy models</source>
        <translation>Für ältere Modelle</translation>
    </message>
    <message>
        <source>Newer models (gpt-5, o-series)</source>
        <translation>Neuere Modelle (gpt-5, o-Reihe)</translation>
    </message>
    <message>
        <source>Lower is more focused; Empty omits it from the request.</source>
        <translation>Niedriger ist strenger; leer lässt es in der Anfrage weg.</translation>
    </message>
    <message>
        <source>Alternative to temperature; empty omits it.</source>
        <translation>Statt der Temperatur; leer lässt es weg.</translation>
    </message>
    <message>
        <source>fast, priority...</source>
        <translation>fast, priority...</translation>
    </message>
    <message>
        <source>For reasoning-capable models; minimal is usually right for formatting.</source>
        <translation>Für Modelle, die nachdenken können; zum Formatieren genügt meist minimal.</translation>
    </message>
    <message>
        <source>%1 has an address of its own. Leave this empty, or choose the type Custom for your own server.</source>
        <translation>%1 hat eine eigene Adresse. Lass das Feld leer, oder wähle für deinen eigenen Server den Typ Custom.</translation>
    </message>
    <message>
        <source>must be at least 1</source>
        <translation>muss mindestens 1 sein</translation>
    </message>
    <message>
        <source>must be between 0 and %1</source>
        <translation>muss zwischen 0 und %1 liegen</translation>
    </message>
</context>
<context>
    <name>ProviderSheet</name>
    <message>
        <source>Type</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>API key</source>
        <translation>API-Schlüssel</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Test</source>
        <translation>Testen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Request parameters</source>
        <translation>Parameter der Anfrage</translation>
    </message>
    <message>
        <source>Standard parameters</source>
        <translation>Übliche Parameter</translation>
    </message>
    <message>
        <source>While the fields above are empty: temperature 0.3 and both penalties as 0. Switch them off for a model that refuses them.</source>
        <translation>Solange die Felder darüber leer sind: Temperatur 0.3 und beide Penalties 0. Schalte sie für ein Modell ab, das sie ablehnt.</translation>
    </message>
    <message>
        <source>Models it offers</source>
        <translation>Angebotene Modelle</translation>
    </message>
    <message>
        <source>Needs the API key below.</source>
        <translation>Braucht den API-Schlüssel weiter unten.</translation>
    </message>
    <message>
        <source>Choose a model</source>
        <translation>Modell wählen</translation>
    </message>
    <message>
        <source>Ask the server</source>
        <translation>Server fragen</translation>
    </message>
    <message>
        <source>Make a key in the browser</source>
        <translation>Schlüssel im Browser anlegen</translation>
    </message>
</context>
<context>
    <name>ProvidersModel</name>
    <message>
        <source>No API key configured</source>
        <translation>Kein API-Schlüssel eingerichtet</translation>
    </message>
    <message>
        <source>Are you sure you want to delete &apos;%1&apos;? This action cannot be undone.</source>
        <translation>Soll „%1“ wirklich gelöscht werden? Das kann nicht rückgängig gemacht werden.</translation>
    </message>
    <message>
        <source>New provider</source>
        <translation>Neuer Anbieter</translation>
    </message>
    <message>
        <source>Everything except the key has been saved. %1</source>
        <translation>Alles außer dem Schlüssel ist gespeichert. %1</translation>
    </message>
    <message>
        <source>Asking %1...</source>
        <translation>%1 wird gefragt ...</translation>
    </message>
    <message>
        <source>%1 accepts the key</source>
        <translation>%1 nimmt den Schlüssel an</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Max tokens</source>
        <translation>Höchstzahl der Token</translation>
    </message>
    <message>
        <source>Max completion tokens</source>
        <translation>Höchstzahl der Antworttoken</translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation>Temperatur</translation>
    </message>
    <message>
        <source>Top p</source>
        <translation>Top p</translation>
    </message>
    <message>
        <source>Service tier</source>
        <translation>Dienststufe</translation>
    </message>
    <message>
        <source>Reasoning effort</source>
        <translation>Denkaufwand</translation>
    </message>
    <message>
        <source>Over http, your text and the key can be read on their way. Use https if the server has it.</source>
        <translation>Über http lassen sich Text und Schlüssel unterwegs mitlesen. Nimm https, wenn der Server es kann.</translation>
    </message>
    <message>
        <source>%1 offers %2 models. Choose one above.</source>
        <translation>%1 bietet %2 Modelle an. Wähle oben eines aus.</translation>
    </message>
    <message>
        <source>No browser could be started. The page is %1</source>
        <translation>Es ließ sich kein Browser starten. Die Seite ist %1</translation>
    </message>
</context>
<context>
    <name>ProvidersPage</name>
    <message>
        <source>Providers</source>
        <translation>Anbieter</translation>
    </message>
    <message>
        <source>Language models that rewrite your dictations. Choose one for each mode under Modes.</source>
        <translation>Sprachmodelle, die deine Diktate umschreiben. Unter Modi wählst du für jeden Modus eines.</translation>
    </message>
    <message>
        <source>Your providers will appear here. Add one to have dictations rewritten.</source>
        <translation>Hier erscheinen deine Anbieter. Füge einen hinzu, um Diktate umschreiben zu lassen.</translation>
    </message>
    <message>
        <source>Use %1</source>
        <translation>%1 verwenden</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Add a provider</source>
        <translation>Anbieter hinzufügen</translation>
    </message>
</context>
<context>
    <name>PulseAudioEngine</name>
    <message>
        <source>&quot;%1&quot; is switched off in the sound settings. Switch it on or choose another under Settings, Microphone.</source>
        <translation>„%1“ ist in den Toneinstellungen ausgeschaltet. Schalte es ein oder wähle ein anderes unter Einstellungen, Mikrofon.</translation>
    </message>
    <message>
        <source>The sound server does not let vantro record from &quot;%1&quot;. Choose another under Settings, Microphone.</source>
        <translation>Der Audioserver lässt vantro nicht von „%1“ aufnehmen. Wähle ein anderes unter Einstellungen, Mikrofon.</translation>
    </message>
</context>
<context>
    <name>PulseSoundPlayer</name>
    <message>
        <source>The sound server does not play the recording. Look at the sound settings.</source>
        <translation>Der Audioserver spielt die Aufnahme nicht ab. Sieh in den Klangeinstellungen nach.</translation>
    </message>
</context>
<context>
    <name>QGuiApplication</name>
    <message>
        <source>vantro is running</source>
        <translation>vantro läuft</translation>
    </message>
    <message>
        <source>Press %1 to dictate into the window you are working in.</source>
        <translation>Drücke %1, um in das Fenster zu diktieren, in dem du arbeitest.</translation>
    </message>
    <message>
        <source>The usual shortcuts are all taken by other programs. Record one of your own.</source>
        <translation>Die üblichen Tastenkürzel sind alle von anderen Programmen belegt. Nimm ein eigenes auf.</translation>
    </message>
    <message>
        <source>%1 pastes in many programs: choose another shortcut</source>
        <translation>%1 fügt in vielen Programmen ein: Wähle ein anderes Kürzel</translation>
    </message>
</context>
<context>
    <name>RecordingBar</name>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>The recording of this dictation</source>
        <translation>Die Aufnahme dieses Diktats</translation>
    </message>
    <message>
        <source>Place in the recording</source>
        <translation>Stelle in der Aufnahme</translation>
    </message>
</context>
<context>
    <name>Recovery</name>
    <message>
        <source>Transcription Error</source>
        <translation>Fehler bei der Transkription</translation>
    </message>
    <message>
        <source>Your recording is kept. Transcribe it now?</source>
        <translation>Deine Aufnahme ist erhalten. Jetzt transkribieren?</translation>
    </message>
    <message>
        <source>vantro ended before your recording of %1 became text. Transcribe it?</source>
        <translation>vantro wurde beendet, bevor deine Aufnahme vom %1 zu Text wurde. Transkribieren?</translation>
    </message>
    <message>
        <source>vantro ended before %1 recordings became text. Transcribe them?</source>
        <translation>vantro wurde beendet, bevor %1 Aufnahmen zu Text wurden. Transkribieren?</translation>
    </message>
    <message>
        <source>Recording Kept</source>
        <translation>Aufnahme erhalten</translation>
    </message>
    <message>
        <source>The text goes to the clipboard and into the history.</source>
        <translation>Der Text kommt in die Zwischenablage und in den Verlauf.</translation>
    </message>
    <message>
        <source>there is no recording to transcribe</source>
        <translation>es gibt keine Aufnahme zum Transkribieren</translation>
    </message>
    <message>
        <source>That recording is kept. After this dictation the command vantro retry transcribes it.</source>
        <translation>Diese Aufnahme ist aufbewahrt. Nach diesem Diktat transkribiert sie der Befehl vantro retry.</translation>
    </message>
</context>
<context>
    <name>RemoteFormatError</name>
    <message>
        <source>Network error: </source>
        <translation>Netzwerkfehler: </translation>
    </message>
    <message>
        <source>API error (%1): </source>
        <translation>API-Fehler (%1): </translation>
    </message>
    <message>
        <source>Remote provider is not configured</source>
        <translation>Es ist kein Anbieter eingerichtet</translation>
    </message>
    <message>
        <source>Invalid API key. Please check your credentials.</source>
        <translation>Ungültiger API-Schlüssel. Bitte prüfe deine Zugangsdaten.</translation>
    </message>
    <message>
        <source>Invalid response from API</source>
        <translation>Ungültige Antwort der API</translation>
    </message>
    <message>
        <source>Rate limit exceeded. Please try again later.</source>
        <translation>Zu viele Anfragen. Bitte versuche es später noch einmal.</translation>
    </message>
    <message>
        <source>Text too long for model context window</source>
        <translation>Der Text ist zu lang für das Modell</translation>
    </message>
    <message>
        <source>Unknown error</source>
        <translation>Unbekannter Fehler</translation>
    </message>
    <message>
        <source>Nothing was sent: %1 would be asked at its own address, not at %2. Choose the type Custom for that address, or clear it, under Settings, Providers.</source>
        <translation>Es wurde nichts gesendet: %1 würde unter der eigenen Adresse gefragt, nicht unter %2. Wähle dafür den Typ Custom, oder lösche die Adresse, unter Einstellungen, Anbieter.</translation>
    </message>
    <message>
        <source>The model does not take “%1” as it is sent: change or switch off the request parameters under Settings, Providers.</source>
        <translation>Das Modell nimmt „%1“ so nicht an: Ändere die Anfrageparameter unter Einstellungen, Anbieter, oder schalte sie ab.</translation>
    </message>
    <message>
        <source>The server has moved to %1. Enter that address for the provider.</source>
        <translation>Der Server ist nach %1 umgezogen. Trag diese Adresse beim Anbieter ein.</translation>
    </message>
    <message>
        <source>the key store does not answer. Unlock it, or log in anew.</source>
        <translation>Der Schlüsselspeicher antwortet nicht. Entsperre ihn, oder melde dich neu an.</translation>
    </message>
</context>
<context>
    <name>ReplacementFields</name>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Replace with</source>
        <translation>Ersetzen durch</translation>
    </message>
    <message>
        <source>Replacement</source>
        <translation>Ersetzung</translation>
    </message>
</context>
<context>
    <name>ReplacementRow</name>
    <message>
        <source>%1  →  %2</source>
        <translation>%1  →  %2</translation>
    </message>
    <message>
        <source>%1  is deleted</source>
        <translation>%1  wird gelöscht</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Edit replacement</source>
        <translation>Ersetzung bearbeiten</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Remove replacement</source>
        <translation>Ersetzung entfernen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
</context>
<context>
    <name>SearchResults</name>
    <message>
        <source>Nothing found</source>
        <translation>Nichts gefunden</translation>
    </message>
</context>
<context>
    <name>SecondTranscription</name>
    <message>
        <source>Wait until your dictation is over, and try again.</source>
        <translation>Warte, bis dein Diktat beendet ist, und versuche es erneut.</translation>
    </message>
    <message>
        <source>A dictation came in between. Try again.</source>
        <translation>Ein Diktat kam dazwischen. Versuche es erneut.</translation>
    </message>
    <message>
        <source>Failed to transcribe audio: </source>
        <translation>Die Aufnahme konnte nicht transkribiert werden: </translation>
    </message>
</context>
<context>
    <name>Settings</name>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Models</source>
        <translation>Modelle</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>Mikrofon</translation>
    </message>
    <message>
        <source>Modes</source>
        <translation>Modi</translation>
    </message>
    <message>
        <source>Providers</source>
        <translation>Anbieter</translation>
    </message>
    <message>
        <source>Vocabulary</source>
        <translation>Wortschatz</translation>
    </message>
    <message>
        <source>Privacy</source>
        <translation>Privatsphäre</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Search the settings</source>
        <translation>Einstellungen durchsuchen</translation>
    </message>
    <message>
        <source>Statistics</source>
        <translation>Statistik</translation>
    </message>
    <message>
        <source>Applications</source>
        <translation>Programme</translation>
    </message>
</context>
<context>
    <name>ShortcutPage</name>
    <message>
        <source>Choose the shortcut for dictation</source>
        <translation>Wähle das Tastenkürzel zum Diktieren</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
</context>
<context>
    <name>ShortcutRecorder</name>
    <message>
        <source>Press the keys</source>
        <translation>Drücke die Tasten</translation>
    </message>
    <message>
        <source>Record a shortcut</source>
        <translation>Tastenkürzel aufnehmen</translation>
    </message>
    <message>
        <source>Clear the shortcut</source>
        <translation>Das Tastenkürzel löschen</translation>
    </message>
    <message>
        <source>Esc keeps the current shortcut, Backspace clears it.</source>
        <translation>Esc behält das bisherige Tastenkürzel, die Rücktaste löscht es.</translation>
    </message>
</context>
<context>
    <name>ShortcutValidator</name>
    <message>
        <source>Start a dictation</source>
        <translation>Ein Diktat beginnen</translation>
    </message>
    <message>
        <source>End the recording</source>
        <translation>Die Aufnahme beenden</translation>
    </message>
    <message>
        <source>Cancel the dictation</source>
        <translation>Das Diktat abbrechen</translation>
    </message>
    <message>
        <source>Choose mode %1</source>
        <translation>Modus %1 wählen</translation>
    </message>
    <message>
        <source>Paste as spoken</source>
        <translation>Gesprochenes einfügen</translation>
    </message>
</context>
<context>
    <name>ShortcutWindow</name>
    <message>
        <source>Shortcut</source>
        <translation>Tastenkürzel</translation>
    </message>
</context>
<context>
    <name>SpokenLanguages</name>
    <message>
        <source>Detect automatically</source>
        <translation>Automatisch erkennen</translation>
    </message>
</context>
<context>
    <name>StatisticsModel</name>
    <message>
        <source>Your words will be counted here. Press your shortcut and speak.</source>
        <translation>Hier werden deine Wörter gezählt. Drück dein Kürzel und sprich.</translation>
    </message>
    <message>
        <source>Words in the last year: %1. Dictations: %2.</source>
        <translation>Wörter im letzten Jahr: %1. Diktate: %2.</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation>%1 h %2 min</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>Typing them at 40 words a minute would have taken %1 longer.</source>
        <translation>Sie mit 40 Wörtern in der Minute zu tippen hätte %1 länger gedauert.</translation>
    </message>
    <message>
        <source>Words a day in the last 30 days, %1 at most.</source>
        <translation>Wörter am Tag in den letzten 30 Tagen, höchstens %1.</translation>
    </message>
</context>
<context>
    <name>StatisticsPage</name>
    <message>
        <source>Statistics</source>
        <translation>Statistik</translation>
    </message>
    <message>
        <source>Only numbers, and only on this computer. A private session is not counted.</source>
        <translation>Nur Zahlen, und nur auf diesem Rechner. Eine private Sitzung wird nicht gezählt.</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Heute</translation>
    </message>
    <message>
        <source>Count the words I dictate</source>
        <translation>Diktierte Wörter zählen</translation>
    </message>
    <message>
        <source>When off, what has been counted is forgotten.</source>
        <translation>Ausgeschaltet wird vergessen, was gezählt wurde.</translation>
    </message>
</context>
<context>
    <name>TextHandover</name>
    <message>
        <source>“%1”</source>
        <translation>„%1“</translation>
    </message>
    <message>
        <source>Your words are there as you said them.</source>
        <translation>Dein Text steht da, wie du ihn gesprochen hast.</translation>
    </message>
    <message>
        <source>The text of your recording is on the clipboard.</source>
        <translation>Der Text deiner Aufnahme ist in der Zwischenablage.</translation>
    </message>
</context>
<context>
    <name>TransferRate</name>
    <message>
        <source>%1 s left</source>
        <translation>noch %1 s</translation>
    </message>
    <message>
        <source>%1 min left</source>
        <translation>noch %1 min</translation>
    </message>
    <message>
        <source>%1 h %2 min left</source>
        <translation>noch %1 h %2 min</translation>
    </message>
    <message>
        <source>%1/s</source>
        <translation>%1/s</translation>
    </message>
</context>
<context>
    <name>TrayIcon</name>
    <message>
        <source>Dictate</source>
        <translation>Diktieren</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Models</source>
        <translation>Modelle</translation>
    </message>
    <message>
        <source>Check for Updates</source>
        <translation>Nach Updates suchen</translation>
    </message>
    <message>
        <source>Report an Error</source>
        <translation>Fehler melden</translation>
    </message>
    <message>
        <source>Send Feedback</source>
        <translation>Rückmeldung senden</translation>
    </message>
    <message>
        <source>About vantro</source>
        <translation>Über vantro</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>vantro: press %1 and speak</source>
        <translation>vantro: %1 drücken und sprechen</translation>
    </message>
    <message>
        <source>vantro is listening</source>
        <translation>vantro hört zu</translation>
    </message>
    <message>
        <source>vantro is transcribing</source>
        <translation>vantro transkribiert</translation>
    </message>
    <message>
        <source>Cancel Dictation</source>
        <translation>Diktat abbrechen</translation>
    </message>
    <message>
        <source>End Recording</source>
        <translation>Aufnahme beenden</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>First Steps</source>
        <translation>Erste Schritte</translation>
    </message>
    <message>
        <source>Copy a Recent Dictation</source>
        <translation>Letztes Diktat kopieren</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>Mikrofon</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Modus</translation>
    </message>
    <message>
        <source>Private Session</source>
        <translation>Private Sitzung</translation>
    </message>
    <message>
        <source>vantro: private session, nothing is kept</source>
        <translation>vantro: private Sitzung, nichts wird aufbewahrt</translation>
    </message>
</context>
<context>
    <name>UpdateChecker</name>
    <message>
        <source>You have version %1.</source>
        <translation>Du hast Version %1.</translation>
    </message>
    <message>
        <source>vantro %1 is available</source>
        <translation>vantro %1 ist verfügbar</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Herunterladen</translation>
    </message>
    <message>
        <source>Skip This Version</source>
        <translation>Diese Version überspringen</translation>
    </message>
    <message>
        <source>You&apos;re up to date</source>
        <translation>Du bist auf dem neuesten Stand</translation>
    </message>
    <message>
        <source>vantro %1 is the latest version.</source>
        <translation>vantro %1 ist die neueste Version.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>VGrip</name>
    <message>
        <source>Drag to move</source>
        <translation>Ziehen zum Verschieben</translation>
    </message>
</context>
<context>
    <name>VocabularyFile</name>
    <message>
        <source>the text is not UTF-8</source>
        <translation>der Text ist kein UTF-8</translation>
    </message>
    <message>
        <source>at byte %1: %2</source>
        <translation>bei Byte %1: %2</translation>
    </message>
    <message>
        <source>the JSON text is not a list</source>
        <translation>der JSON-Text ist keine Liste</translation>
    </message>
    <message>
        <source>entry %1 needs the texts &quot;find&quot;, which must not be empty, and &quot;replace&quot;</source>
        <translation>Eintrag %1 braucht die Texte „find“, der nicht leer sein darf, und „replace“</translation>
    </message>
    <message>
        <source>entry %1 is not of the form %2</source>
        <translation>Eintrag %1 hat nicht die Form %2</translation>
    </message>
    <message>
        <source>entry %1 is not a word</source>
        <translation>Eintrag %1 ist kein Wort</translation>
    </message>
</context>
<context>
    <name>VocabularyModel</name>
    <message>
        <source>Maximum limit reached (%1 words)</source>
        <translation>Die Höchstzahl ist erreicht (%1 Wörter)</translation>
    </message>
    <message>
        <source>Maximum limit reached (%1 replacements)</source>
        <translation>Die Höchstzahl ist erreicht (%1 Ersetzungen)</translation>
    </message>
    <message>
        <source>Your words are given to the whisper model as a hint before it listens.</source>
        <translation>Deine Wörter werden dem Whisper-Modell als Hinweis vorangestellt.</translation>
    </message>
    <message>
        <source>Ready: Parakeet dictations are searched for your words.</source>
        <translation>Bereit: Diktate mit Parakeet werden nach deinen Wörtern durchsucht.</translation>
    </message>
    <message>
        <source>Parakeet models need a second model that looks for your words (%1).</source>
        <translation>Parakeet-Modelle brauchen ein zweites Modell, das nach deinen Wörtern sucht (%1).</translation>
    </message>
    <message>
        <source>Parakeet models need a second model that looks for your words. No model host has it yet.</source>
        <translation>Parakeet-Modelle brauchen ein zweites Modell, das nach deinen Wörtern sucht. Noch bietet es kein Modellserver an.</translation>
    </message>
    <message>
        <source>The model that looks for your words is damaged or of another kind.</source>
        <translation>Das Modell, das nach deinen Wörtern sucht, ist beschädigt oder von anderer Art.</translation>
    </message>
    <message>
        <source>The model that looks for your words is being downloaded.</source>
        <translation>Das Modell, das nach deinen Wörtern sucht, wird heruntergeladen.</translation>
    </message>
    <message>
        <source>Costs about 0.2 GB of memory and a third more computing, mostly while you speak. English words are found best.</source>
        <translation>Kostet etwa 0,2 GB Speicher und ein Drittel mehr Rechenzeit, meist während du sprichst. Englische Wörter werden am besten gefunden.</translation>
    </message>
    <message>
        <source>Make it with convert-ctc from NVIDIA&apos;s published model, and put it there: %1</source>
        <translation>Erzeuge es mit convert-ctc aus dem Modell, das NVIDIA veröffentlicht hat, und lege es hier ab: %1</translation>
    </message>
    <message>
        <source>Replace or delete this file: %1</source>
        <translation>Ersetze oder lösche diese Datei: %1</translation>
    </message>
    <message>
        <source>The latest dictation was not searched for your words: %1</source>
        <translation>Das letzte Diktat wurde nicht nach deinen Wörtern durchsucht: %1</translation>
    </message>
    <message>
        <source>Words</source>
        <translation>Wörter</translation>
    </message>
    <message>
        <source>Replacements</source>
        <translation>Ersetzungen</translation>
    </message>
</context>
<context>
    <name>VocabularyPage</name>
    <message>
        <source>Vocabulary</source>
        <translation>Wortschatz</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has been removed.</source>
        <translation>„%1“ wurde entfernt.</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Text replacements</source>
        <translation>Ersetzungen</translation>
    </message>
    <message>
        <source>Exact replacements will be applied to the transcription output using word boundaries.</source>
        <translation>Ersetzt werden genau diese Wörter im erkannten Text, nie Teile eines Wortes.</translation>
    </message>
    <message>
        <source>Leave the second field empty to delete a filler word such as &quot;um&quot;.</source>
        <translation>Ein leeres zweites Feld löscht das Wort, etwa ein „äh“.</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>No text replacements configured yet.</source>
        <translation>Noch keine Ersetzungen.</translation>
    </message>
    <message>
        <source>Words</source>
        <translation>Wörter</translation>
    </message>
    <message>
        <source>These words are used alongside your audio to help the model recognize and accurately transcribe.</source>
        <translation>Diese Wörter bekommt das Modell zum Ton dazu, damit es sie erkennt und richtig schreibt.</translation>
    </message>
    <message>
        <source>Use sparingly. Too many words can confuse the AI and may affect punctuation, language detection, and formatting.</source>
        <translation>Sparsam verwenden: Zu viele Wörter können das Modell verwirren und Zeichensetzung, Spracherkennung und Form verschlechtern.</translation>
    </message>
    <message>
        <source>Enter a word (e.g., vantro)</source>
        <translation>Ein Wort (etwa vantro)</translation>
    </message>
    <message>
        <source>Word</source>
        <translation>Wort</translation>
    </message>
    <message>
        <source>No custom vocabulary words added yet.</source>
        <translation>Noch keine eigenen Wörter.</translation>
    </message>
    <message>
        <source>Reset All Vocabulary &amp; Replacements</source>
        <translation>Alle Wörter und Ersetzungen entfernen</translation>
    </message>
    <message>
        <source>How your words are recognised</source>
        <translation>So werden deine Wörter erkannt</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Herunterladen</translation>
    </message>
</context>
<context>
    <name>VocabularySettings</name>
    <message>
        <source>Vocabulary Limit Reached</source>
        <translation>Höchstzahl der Wörter erreicht</translation>
    </message>
    <message>
        <source>You have reached the maximum limit of %1 custom vocabulary words. Please remove some words to add new ones.</source>
        <translation>Du hast die Höchstzahl von %1 eigenen Wörtern erreicht. Bitte entferne einige, um neue hinzuzufügen.</translation>
    </message>
    <message>
        <source>Replacement Limit Reached</source>
        <translation>Höchstzahl der Ersetzungen erreicht</translation>
    </message>
    <message>
        <source>You have reached the maximum limit of %1 text replacements. Please remove some replacements to add new ones.</source>
        <translation>Du hast die Höchstzahl von %1 Ersetzungen erreicht. Bitte entferne einige, um neue hinzuzufügen.</translation>
    </message>
    <message>
        <source>the list has no room for %1 more: it takes %2 and has %3</source>
        <translation>in der Liste ist kein Platz für %1 weitere: sie fasst %2 und hat %3</translation>
    </message>
</context>
<context>
    <name>VocabularyTransfer</name>
    <message>
        <source>%1. The list is unchanged</source>
        <translation>%1. Die Liste ist unverändert</translation>
    </message>
</context>
<context>
    <name>WaylandConnection</name>
    <message>
        <source>The connection to the desktop is gone. Start vantro again.</source>
        <translation>Die Verbindung zum Desktop ist abgebrochen. Starte vantro neu.</translation>
    </message>
</context>
<context>
    <name>WaylandHotKeyManager</name>
    <message>
        <source>Dictate</source>
        <translation>Diktieren</translation>
    </message>
    <message>
        <source>Your desktop gives the shortcut to a command. Add to its configuration:</source>
        <translation>Dein Desktop gibt das Kürzel einem Befehl. Ergänze seine Konfiguration um:</translation>
    </message>
    <message>
        <source>In your desktop&apos;s keyboard settings, bind %1 to the command: %2</source>
        <translation>Lege in den Tastatureinstellungen deines Desktops %1 auf den Befehl: %2</translation>
    </message>
</context>
<context>
    <name>WaylandKeyEventPoster</name>
    <message>
        <source>This desktop lets no program press keys for you.</source>
        <translation>Auf diesem Desktop kann kein Programm für dich Tasten drücken.</translation>
    </message>
    <message>
        <source>The desktop did not take the paste keystroke.</source>
        <translation>Der Desktop hat den Tastendruck zum Einfügen nicht angenommen.</translation>
    </message>
</context>
<context>
    <name>Windows</name>
    <message>
        <source>vantro settings</source>
        <translation>vantro – Einstellungen</translation>
    </message>
    <message>
        <source>Welcome to vantro</source>
        <translation>Willkommen bei vantro</translation>
    </message>
    <message>
        <source>vantro history</source>
        <translation>vantro – Verlauf</translation>
    </message>
    <message>
        <source>Reset All Vocabulary &amp; Replacements</source>
        <translation>Alle Wörter und Ersetzungen entfernen</translation>
    </message>
    <message>
        <source>All words and replacements will be removed. This action cannot be undone.</source>
        <translation>Alle Wörter und Ersetzungen werden entfernt. Das lässt sich nicht rückgängig machen.</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Delete Provider</source>
        <translation>Anbieter löschen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>the microphone</source>
        <translation>dem Mikrofon</translation>
    </message>
    <message>
        <source>Transcribe</source>
        <translation>Transkribieren</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Recording discarded</source>
        <translation>Aufnahme verworfen</translation>
    </message>
    <message>
        <source>A click transcribes it after all</source>
        <translation>Ein Klick transkribiert sie doch noch</translation>
    </message>
    <message>
        <source>Transcribing...</source>
        <translation>Wird transkribiert...</translation>
    </message>
    <message>
        <source>Note filed</source>
        <translation>Notiz abgelegt</translation>
    </message>
    <message>
        <source>%1 is not set up: your text stays as it is.</source>
        <translation>%1 ist nicht eingerichtet: Dein Text bleibt, wie er ist.</translation>
    </message>
    <message>
        <source>Use the Built-In Prompt</source>
        <translation>Mitgelieferte Anweisung verwenden</translation>
    </message>
    <message>
        <source>Your own prompt will be overwritten and cannot be restored.</source>
        <translation>Deine eigene Anweisung wird überschrieben und lässt sich nicht zurückholen.</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Überschreiben</translation>
    </message>
    <message>
        <source>Remove the Model</source>
        <translation>Modell entfernen</translation>
    </message>
    <message>
        <source>%1 (%2) will be deleted from this computer. It would have to be downloaded again.</source>
        <translation>%1 (%2) wird von diesem Rechner gelöscht und müsste neu heruntergeladen werden.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Setup not finished</source>
        <translation>Erste Schritte verlassen</translation>
    </message>
    <message>
        <source>vantro&apos;s tray menu, or &quot;vantro show guide&quot;, continues it</source>
        <translation>Weiter geht es im Menü von vantros Symbol oder mit „vantro show guide“</translation>
    </message>
    <message>
        <source>Not Rewritten</source>
        <translation>Nicht überarbeitet</translation>
    </message>
    <message>
        <source>Paste as Spoken</source>
        <translation>Wie gesprochen einfügen</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Open Providers</source>
        <translation>Anbieter öffnen</translation>
    </message>
    <message>
        <source>The speech model is ready</source>
        <translation>Das Sprachmodell ist bereit</translation>
    </message>
    <message>
        <source>Discard the recording?</source>
        <translation>Aufnahme verwerfen?</translation>
    </message>
    <message>
        <source>What you said will be gone. If you keep it, vantro offers it again at the next start.</source>
        <translation>Was du gesagt hast, ist dann verloren. Behältst du die Aufnahme, bietet vantro sie beim nächsten Start wieder an.</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Behalten</translation>
    </message>
    <message>
        <source>Same as the Desktop</source>
        <translation>Wie der Desktop</translation>
    </message>
    <message>
        <source>Private session: this is not kept.</source>
        <translation>Private Sitzung: Das wird nicht aufbewahrt.</translation>
    </message>
    <message>
        <source>Delete Models Cache</source>
        <translation>Modelle löschen</translation>
    </message>
    <message>
        <source>All downloaded models but the one in use will be deleted from this computer. They would have to be downloaded again.</source>
        <translation>Alle heruntergeladenen Modelle außer dem benutzten werden von diesem Rechner gelöscht. Sie müssten neu heruntergeladen werden.</translation>
    </message>
    <message>
        <source>%1 leaves the list. Its file stays where it is.</source>
        <translation>%1 verschwindet aus der Liste. Die Datei bleibt, wo sie ist.</translation>
    </message>
    <message>
        <source>The language model is ready</source>
        <translation>Das Sprachmodell ist bereit</translation>
    </message>
    <message>
        <source>not offered</source>
        <translation>nicht angeboten</translation>
    </message>
    <message>
        <source>Desktop: %1</source>
        <translation>Desktop: %1</translation>
    </message>
    <message>
        <source>Shortcut: %1. Clipboard: %2. Paste: %3. Panel: %4. Windows: %5.</source>
        <translation>Kürzel: %1. Zwischenablage: %2. Einfügen: %3. Feld: %4. Fenster: %5.</translation>
    </message>
    <message>
        <source>Recordings Not Kept</source>
        <translation>Aufnahmen nicht aufbewahrt</translation>
    </message>
    <message>
        <source>Your dictations are stored, but not their recordings: %1</source>
        <translation>Deine Diktate sind gespeichert, ihre Aufnahmen aber nicht: %1</translation>
    </message>
    <message>
        <source>Remove Mode</source>
        <translation>Modus entfernen</translation>
    </message>
    <message>
        <source>%1 will be removed with its prompt, which cannot be restored.</source>
        <translation>%1 wird mit seiner Anweisung endgültig entfernt.</translation>
    </message>
    <message>
        <source>%1 in its window, or a click, transcribes it after all</source>
        <translation>%1 im selben Fenster oder ein Klick transkribiert sie doch noch</translation>
    </message>
</context>
<context>
    <name>WordRow</name>
    <message>
        <source>Sounds like: %1</source>
        <translation>Klingt wie: %1</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Edit word</source>
        <translation>Wort bearbeiten</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Sounds like, for example: greg sun, gregs on</source>
        <translation>Klingt wie, zum Beispiel: gregg sohn, greg son</translation>
    </message>
    <message>
        <source>Sounds like</source>
        <translation>Klingt wie</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>weak</source>
        <translation>schwach</translation>
    </message>
    <message>
        <source>normal</source>
        <translation>normal</translation>
    </message>
    <message>
        <source>strong</source>
        <translation>stark</translation>
    </message>
    <message>
        <source>Boost: %1</source>
        <translation>Bevorzugung: %1</translation>
    </message>
    <message>
        <source>Boost</source>
        <translation>Bevorzugung</translation>
    </message>
    <message>
        <source>How readily the word is written when something like it was heard. Parakeet models only.</source>
        <translation>Wie bereitwillig das Wort geschrieben wird, wenn Ähnliches gehört wurde. Nur mit Parakeet-Modellen.</translation>
    </message>
</context>
<context>
    <name>X11Connection</name>
    <message>
        <source>There is no connection to an X server. Start vantro inside a graphical session, with DISPLAY set.</source>
        <translation>Es gibt keine Verbindung zu einem X-Server. Starte vantro in einer grafischen Sitzung, mit gesetztem DISPLAY.</translation>
    </message>
</context>
<context>
    <name>X11HotKeyManager</name>
    <message>
        <source>No key of this keyboard gives %1. Choose another shortcut.</source>
        <translation>Keine Taste dieser Tastatur ergibt %1. Wähle ein anderes Tastenkürzel.</translation>
    </message>
    <message>
        <source>%1 is already used by another program. Choose another shortcut, or free it in that program or in the desktop&apos;s keyboard settings.</source>
        <translation>%1 wird schon von einem anderen Programm benutzt. Wähle ein anderes Tastenkürzel oder gib es in jenem Programm oder in den Tastatureinstellungen des Desktops frei.</translation>
    </message>
</context>
<context>
    <name>X11KeyEventPoster</name>
    <message>
        <source>The X server does not let programs type (its XTEST extension is missing).</source>
        <translation>Der X-Server lässt Programme nicht tippen (seine Erweiterung XTEST fehlt).</translation>
    </message>
    <message>
        <source>The X server refused the paste keystroke.</source>
        <translation>Der X-Server hat den Tastendruck zum Einfügen abgelehnt.</translation>
    </message>
    <message>
        <source>The keyboard layout has no Control or no Shift key, so nothing can be pasted.</source>
        <translation>Die Tastaturbelegung hat keine Strg- oder keine Umschalttaste, also kann nichts eingefügt werden.</translation>
    </message>
    <message>
        <source>The keyboard layout has no key for the paste keystroke and no unused key to map it to.</source>
        <translation>Die Tastaturbelegung hat keine Taste zum Einfügen und keine freie, der man sie zuweisen könnte.</translation>
    </message>
    <message>
        <source>The X server did not report the keyboard layout.</source>
        <translation>Der X-Server hat die Tastaturbelegung nicht mitgeteilt.</translation>
    </message>
</context>
<context>
    <name>XdgAutostart</name>
    <message>
        <source>%1 could not be removed: %2</source>
        <translation>%1 konnte nicht entfernt werden: %2</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>%1 konnte nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>keys</name>
    <message>
        <source>Ctrl</source>
        <translation>Strg</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Einfg</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Entf</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Rücktaste</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Pos1</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Auf</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Ab</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Druck</translation>
    </message>
    <message>
        <source>Caps Lock</source>
        <translation>Feststelltaste</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <source>PageUp</source>
        <translation>Bild auf</translation>
    </message>
    <message>
        <source>PageDown</source>
        <translation>Bild ab</translation>
    </message>
</context>
<context>
    <name>vantro::Alerts</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>wording</name>
    <message>
        <source>No microphone is connected. Plug one in or choose another under Settings, Microphone.</source>
        <translation>Es ist kein Mikrofon angeschlossen. Schließe eines an oder wähle ein anderes unter Einstellungen, Mikrofon.</translation>
    </message>
    <message>
        <source>The sound server does not answer. Start PulseAudio or PipeWire (for example: systemctl --user start pipewire-pulse) and try again.</source>
        <translation>Der Audioserver antwortet nicht. Starte PulseAudio oder PipeWire (zum Beispiel: systemctl --user start pipewire-pulse) und versuche es erneut.</translation>
    </message>
    <message>
        <source>In a terminal: vantro --shortcut Ctrl+Alt+Space</source>
        <translation>In einem Terminal: vantro --shortcut Ctrl+Alt+Space</translation>
    </message>
    <message>
        <source>Your API key is stored securely in the desktop&apos;s Secret Service</source>
        <translation>Dein API-Schlüssel liegt sicher im Secret Service des Desktops</translation>
    </message>
    <message>
        <source>No Secret Service is running, so API keys cannot be stored. Install and start GNOME Keyring or KWallet, or enable the Secret Service in KeePassXC.</source>
        <translation>Es läuft kein Secret Service, daher lassen sich keine API-Schlüssel speichern. Installiere und starte GNOME Keyring oder KWallet, oder schalte in KeePassXC den Secret Service ein.</translation>
    </message>
    <message>
        <source>There is no session bus, so the Secret Service cannot be reached. Log in to a desktop session, or start one with dbus-run-session.</source>
        <translation>Ohne Sitzungsbus ist der Secret Service nicht erreichbar. Melde dich an einem Desktop an oder starte eine Sitzung mit dbus-run-session.</translation>
    </message>
    <message>
        <source>The keyring is locked. Unlock it (Passwords and Keys, KWalletManager or KeePassXC) and try again.</source>
        <translation>Der Schlüsselbund ist gesperrt. Entsperre ihn (Passwörter und Verschlüsselung, KWalletManager oder KeePassXC) und versuche es erneut.</translation>
    </message>
    <message>
        <source>The Secret Service reported an error: %1</source>
        <translation>Der Secret Service meldet einen Fehler: %1</translation>
    </message>
    <message>
        <source>Fluid model on this computer&apos;s processor.</source>
        <translation>Fluid-Modell auf dem Prozessor dieses Rechners.</translation>
    </message>
    <message>
        <source>Local processing requires a language model, which can be downloaded under Settings, Models</source>
        <translation>Die lokale Verarbeitung braucht ein Sprachmodell, das unter Einstellungen, Modelle heruntergeladen werden kann</translation>
    </message>
    <message>
        <source>Please download a language model under Settings, Models to use local processing</source>
        <translation>Bitte lade unter Einstellungen, Modelle ein Sprachmodell herunter, um lokal zu verarbeiten</translation>
    </message>
</context>
</TS>
