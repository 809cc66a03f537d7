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
        <translation>Wie Diktate in den Fenstern eines Programms geschrieben werden, wenn anders als sonst.</translation>
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
    <name>AudioFile</name>
    <message>
        <source>its sample rate of %1 Hz cannot be converted</source>
        <translation>ihre Abtastrate von %1 Hz lässt sich nicht umrechnen</translation>
    </message>
    <message>
        <source>%1 cannot be read as audio: %2</source>
        <translation>%1 lässt sich nicht als Ton lesen: %2</translation>
    </message>
    <message>
        <source>standard input</source>
        <translation>die Standardeingabe</translation>
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
    <name>Command</name>
    <message>
        <source>What dictations into the windows of an application are like, where that differs from the rest.

  list              List the rules. The default.
  set APPLICATION   Make or change the rule of an application.
  remove APPLICATION

APPLICATION is the class of its windows, such as thunderbird or xfce4-terminal, in any case; xprop WM_CLASS and a click
tell it. In the launcher another mode can still be chosen. Terminals and Emacs need no rule for their paste keys.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such rule or mode, 5 the settings cannot be written.</source>
        <translation>Wie Diktate in den Fenstern eines Programms geschrieben werden, wenn anders als sonst.

  list              Listet die Regeln auf. Das ist die Vorgabe.
  set APPLICATION   Legt die Regel eines Programms an oder ändert sie.
  remove APPLICATION

APPLICATION ist die Klasse der Fenster, etwa thunderbird oder xfce4-terminal, groß oder klein geschrieben; xprop WM_CLASS
und ein Klick verraten sie. Im Launcher lässt sich trotzdem ein anderer Modus wählen. Terminals und Emacs brauchen für ihre
Einfügetasten keine Regel.

Exit-Status: 0 erledigt, 1 gescheitert, 2 falscher Aufruf, 3 keine solche Regel oder kein solcher Modus, 5 die Einstellungen
lassen sich nicht schreiben.</translation>
    </message>
    <message>
        <source>APPLICATION</source>
        <translation>PROGRAMM</translation>
    </message>
    <message>
        <source>MODE</source>
        <translation>MODUS</translation>
    </message>
    <message>
        <source>FULL STOP</source>
        <translation>SCHLUSSPUNKT</translation>
    </message>
    <message>
        <source>PASTE KEYS</source>
        <translation>EINFÜGETASTEN</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>no</source>
        <translation>nein</translation>
    </message>
    <message>
        <source>Dictations are alike in all applications.</source>
        <translation>Diktate sind in allen Programmen gleich.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; are no paste keys: use Ctrl+V, Ctrl+Shift+V or Shift+Insert</source>
        <translation>„%1“ sind keine Einfügetasten: nimm Ctrl+V, Ctrl+Shift+V oder Shift+Insert</translation>
    </message>
    <message>
        <source>there is no mode &quot;%1&quot;: vantro modes lists them</source>
        <translation>es gibt keinen Modus „%1“: vantro modes listet sie auf</translation>
    </message>
    <message>
        <source>choose either --full-stop or --no-full-stop</source>
        <translation>wähle entweder --full-stop oder --no-full-stop</translation>
    </message>
    <message>
        <source>there is no rule for %1: vantro applications lists them</source>
        <translation>es gibt keine Regel für %1: vantro applications listet sie auf</translation>
    </message>
    <message>
        <source>Show and change what dictations into an application are like.</source>
        <translation>Zeigt und ändert, wie Diktate in einzelnen Programmen geschrieben werden.</translation>
    </message>
    <message>
        <source>needs an APPLICATION</source>
        <translation>braucht eine APPLICATION</translation>
    </message>
    <message>
        <source>set: begin in this mode; empty for the default one.</source>
        <translation>set: in diesem Modus beginnen; leer für den Standardmodus.</translation>
    </message>
    <message>
        <source>set: leave the text&apos;s last full stop out.</source>
        <translation>set: den letzten Punkt des Textes weglassen.</translation>
    </message>
    <message>
        <source>set: keep it.</source>
        <translation>set: ihn behalten.</translation>
    </message>
    <message>
        <source>set: what is pressed to paste: Ctrl+V, Ctrl+Shift+V or Shift+Insert; empty for what is usual there.</source>
        <translation>set: womit eingefügt wird: Ctrl+V, Ctrl+Shift+V oder Shift+Insert; leer für das, was dort üblich ist.</translation>
    </message>
    <message>
        <source>The class of its windows.</source>
        <translation>Die Klasse der Fenster.</translation>
    </message>
    <message>
        <source>The rules by which a mode cleans what you said without a language model: fillers are taken out, and &quot;new line&quot; or
&quot;comma&quot; are written as what they mean. Words that were said twice, the capital at the beginning and the full stop at the
end need no rule. vantro modes set MODE --clean uses them, vantro rewrite --clean TEXT tries them.

  list                 List the rules. The default.
  add FIND [REPLACE]   Take FIND out, or write REPLACE for it; \n is a new line.
  remove FIND          Remove a rule.
  reset                Take the built-in rules again.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such rule, 5 the settings cannot be written.</source>
        <translation>Die Regeln, nach denen ein Modus ohne Sprachmodell bereinigt, was du gesagt hast: Füllwörter fallen weg, und „neue Zeile“
oder „Komma“ werden so geschrieben, wie sie gemeint sind. Doppelt Gesagtes, der große Anfangsbuchstabe und der Punkt am Ende
brauchen keine Regel. vantro modes set MODE --clean verwendet sie, vantro rewrite --clean TEXT probiert sie aus.

  list                 Listet die Regeln auf. Das ist die Vorgabe.
  add FIND [REPLACE]   Lässt FIND weg oder schreibt REPLACE dafür; \n ist eine neue Zeile.
  remove FIND          Entfernt eine Regel.
  reset                Nimmt wieder die mitgelieferten Regeln.

Exit-Status: 0 erledigt, 1 gescheitert, 2 falscher Aufruf, 3 keine solche Regel, 5 die Einstellungen lassen sich nicht
schreiben.</translation>
    </message>
    <message>
        <source>--language: choose one of %1</source>
        <translation>--language: wähle eine von %1</translation>
    </message>
    <message>
        <source>LANGUAGE</source>
        <translation>SPRACHE</translation>
    </message>
    <message>
        <source>FIND</source>
        <translation>SUCHEN</translation>
    </message>
    <message>
        <source>REPLACE</source>
        <translation>ERSETZEN</translation>
    </message>
    <message>
        <source>FIND needs at least one word, without a &quot;=&quot;</source>
        <translation>FIND braucht mindestens ein Wort, ohne „=“</translation>
    </message>
    <message>
        <source>there is no rule &quot;%1&quot; for %2: vantro cleaning lists them</source>
        <translation>es gibt keine Regel „%1“ für %2: vantro cleaning listet sie auf</translation>
    </message>
    <message>
        <source>Show and change the rules that clean texts without a language model.</source>
        <translation>Zeigt und ändert die Regeln, die Texte ohne Sprachmodell bereinigen.</translation>
    </message>
    <message>
        <source>needs a word or phrase</source>
        <translation>braucht ein Wort oder eine Wendung</translation>
    </message>
    <message>
        <source>en, de, es or fr; list and reset: all unless it is given, else en.</source>
        <translation>en, de, es oder fr; list und reset: ohne Angabe alle, sonst en.</translation>
    </message>
    <message>
        <source>A word or phrase, and what to write for it.</source>
        <translation>Ein Wort oder eine Wendung, und was dafür geschrieben wird.</translation>
    </message>
    <message>
        <source>JSON instead of text.</source>
        <translation>JSON statt Text.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number of %2</source>
        <translation>„%1“ ist keine Anzahl von %2</translation>
    </message>
    <message>
        <source>Show this text.</source>
        <translation>Zeigt diesen Text.</translation>
    </message>
    <message>
        <source>What to do.</source>
        <translation>Was zu tun ist.</translation>
    </message>
    <message>
        <source>there is no action &quot;%1&quot;</source>
        <translation>es gibt keine Aktion „%1“</translation>
    </message>
    <message>
        <source>too many words</source>
        <translation>zu viele Wörter</translation>
    </message>
    <message>
        <source>Usage: vantro %1 [options]</source>
        <translation>Aufruf: vantro %1 [Optionen]</translation>
    </message>
    <message>
        <source>%1 (see vantro %2 --help)</source>
        <translation>%1 (siehe vantro %2 --help)</translation>
    </message>
    <message>
        <source>
Exit status: 0 done, 1 failed, 2 wrong usage, 3 not found, 4 no service (sound,
model, network, keys), 5 the settings cannot be written.</source>
        <translation>
Exit-Status: 0 erledigt, 1 gescheitert, 2 falscher Aufruf, 3 nicht gefunden,
4 kein Dienst (Ton, Modell, Netz, Tasten), 5 die Einstellungen lassen sich nicht
schreiben.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a model host: use an address that starts with http:, https: or file:</source>
        <translation>„%1“ ist kein Modellserver: nimm eine Adresse, die mit http:, https: oder file: beginnt</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a shortcut: name modifiers and a key, for example Ctrl+Alt+D</source>
        <translation>„%1“ ist kein Tastenkürzel: nenne Zusatztasten und eine Taste, etwa Ctrl+Alt+D</translation>
    </message>
    <message>
        <source>Cannot write to standard output</source>
        <translation>Die Standardausgabe lässt sich nicht schreiben</translation>
    </message>
    <message>
        <source>unknown option &quot;%1&quot; (see vantro --help)</source>
        <translation>unbekannte Option „%1“ (siehe vantro --help)</translation>
    </message>
    <message>
        <source>unknown command &quot;%1&quot; (see vantro --help)</source>
        <translation>unbekannter Befehl „%1“ (siehe vantro --help)</translation>
    </message>
    <message>
        <source>%1: vantro is not running: start it first</source>
        <translation>%1: vantro läuft nicht: starte es zuerst</translation>
    </message>
    <message>
        <source>%1: vantro could not be started: %2</source>
        <translation>%1: vantro konnte nicht gestartet werden: %2</translation>
    </message>
    <message>
        <source>%1: there is no session bus: run it in your desktop session</source>
        <translation>%1: es gibt keinen Sitzungsbus: führe es in deiner Desktopsitzung aus</translation>
    </message>
    <message>
        <source>Show what the running program is doing.</source>
        <translation>Zeigt, was das laufende Programm tut.</translation>
    </message>
    <message>
        <source>Shows what the running program is doing.</source>
        <translation>Zeigt, was das laufende Programm tut.</translation>
    </message>
    <message>
        <source>One JSON object.</source>
        <translation>Ein JSON-Objekt.</translation>
    </message>
    <message>
        <source>Open one of the windows.</source>
        <translation>Öffnet eines der Fenster.</translation>
    </message>
    <message>
        <source>Opens one of the windows, of an installed vantro that is not running, too.</source>
        <translation>Öffnet eines der Fenster, auch von einem installierten vantro, das nicht läuft.</translation>
    </message>
    <message>
        <source>needs a window: settings, history, notes or guide</source>
        <translation>braucht ein Fenster: settings, history, notes oder guide</translation>
    </message>
    <message>
        <source>settings, history, notes, or guide, which leads to the first dictation.</source>
        <translation>settings, history, notes oder guide, das zum ersten Diktat führt.</translation>
    </message>
    <message>
        <source>Open the launcher and record.</source>
        <translation>Öffnet den Launcher und nimmt auf.</translation>
    </message>
    <message>
        <source>Opens the launcher and records. Starts an installed vantro that is not running.</source>
        <translation>Öffnet den Launcher und nimmt auf. Startet ein installiertes vantro, das nicht läuft.</translation>
    </message>
    <message>
        <source>Begin in this mode instead of the default one.</source>
        <translation>In diesem Modus beginnen statt im Standardmodus.</translation>
    </message>
    <message>
        <source>Recognise this dictation with another model.</source>
        <translation>Dieses Diktat mit einem anderen Modell erkennen.</translation>
    </message>
    <message>
        <source>Start a dictation, or end its recording.</source>
        <translation>Beginnt ein Diktat oder beendet seine Aufnahme.</translation>
    </message>
    <message>
        <source>Starts a dictation, or ends the recording and has it transcribed; soon after a cancel, takes that back. Starts an installed vantro that is not running.</source>
        <translation>Beginnt ein Diktat oder beendet die Aufnahme und lässt sie transkribieren; kurz nach einem Abbruch nimmt es diesen zurück. Startet ein installiertes vantro, das nicht läuft.</translation>
    </message>
    <message>
        <source>End the recording and have it transcribed.</source>
        <translation>Beendet die Aufnahme und lässt sie transkribieren.</translation>
    </message>
    <message>
        <source>Ends the recording and has it transcribed, as Space does.</source>
        <translation>Beendet die Aufnahme und lässt sie transkribieren, wie die Leertaste.</translation>
    </message>
    <message>
        <source>Paste the last dictation as it was said.</source>
        <translation>Fügt das letzte Diktat im Wortlaut ein.</translation>
    </message>
    <message>
        <source>Pastes the words of the last dictation, as they were recognised, into the window in front: what a language model has made of them is left out. Bound to a shortcut of its own by vantro shortcuts set original KEYS.</source>
        <translation>Fügt die Worte des letzten Diktats, wie sie erkannt wurden, in das vorderste Fenster ein: Was ein Sprachmodell daraus gemacht hat, bleibt weg. Ein eigenes Tastenkürzel bekommt es mit vantro shortcuts set original KEYS.</translation>
    </message>
    <message>
        <source>Discard the dictation.</source>
        <translation>Verwirft das Diktat.</translation>
    </message>
    <message>
        <source>Discards the dictation, as Escape does.</source>
        <translation>Verwirft das Diktat, wie Escape.</translation>
    </message>
    <message>
        <source>End the running program.</source>
        <translation>Beendet das laufende Programm.</translation>
    </message>
    <message>
        <source>Ends the running program. A recording that is under way is kept for the next start.</source>
        <translation>Beendet das laufende Programm. Eine Aufnahme, die gerade läuft, bleibt für den nächsten Start erhalten.</translation>
    </message>
    <message>
        <source>The microphones, and the one that vantro records from.

  list                      List all microphones; &quot;used&quot; marks the one for the next dictation. The default.
  watch                     Print the list again whenever it changes, until Ctrl-C.
  mode [system|custom|prioritized]
                            Show or set how the microphone is chosen: the system default, a specific one, or the first
                            connected one of a list.
  use NAME                  Record from this one (sets mode custom).
  priority [list]           Show the list of preferred microphones.
  priority add NAME         Append one to the list (sets mode prioritized).
  priority remove NAME      Remove one from the list.
  priority move NAME PLACE  Move one to a number from 1, or first, last, up, down.
  priority clear            Empty the list.
  bluetooth [on|off]        Show or set whether to switch a Bluetooth headset to its headset profile while recording
                            from it. Meanwhile everything it plays sounds worse.

NAME is a microphone&apos;s name, its number, or the beginning of its description. Takes effect at once.

Exit status: 0 done, 2 wrong usage, 3 no such microphone, 4 no sound server, 5 the settings cannot be written.</source>
        <translation>Die Mikrofone, und das, mit dem vantro aufnimmt.

  list                      Listet alle Mikrofone auf; „verwendet“ steht bei dem für das nächste Diktat. Das ist die
                            Vorgabe.
  watch                     Zeigt die Liste bei jeder Änderung neu, bis Strg-C.
  mode [system|custom|prioritized]
                            Zeigt oder setzt, wie das Mikrofon gewählt wird: das Standardmikrofon des Systems, ein
                            bestimmtes oder das erste angeschlossene einer Liste.
  use NAME                  Nimmt mit diesem auf (setzt den Modus custom).
  priority [list]           Zeigt die Liste der bevorzugten Mikrofone.
  priority add NAME         Hängt eines an die Liste an (setzt den Modus prioritized).
  priority remove NAME      Nimmt eines aus der Liste.
  priority move NAME PLACE  Verschiebt eines: an eine Stelle ab 1, oder first, last, up, down.
  priority clear            Leert die Liste.
  bluetooth [on|off]        Zeigt oder setzt, ob ein Bluetooth-Headset zum Aufnehmen in sein Headset-Profil geschaltet
                            wird. Was es währenddessen wiedergibt, klingt schlechter.

NAME ist der Name eines Mikrofons, seine Nummer oder der Anfang seiner Beschreibung. Wirkt sofort.

Exit-Status: 0 erledigt, 2 falscher Aufruf, 3 kein solches Mikrofon, 4 kein Tondienst, 5 die Einstellungen lassen sich nicht
schreiben.</translation>
    </message>
    <message>
        <source>there is no microphone &quot;%1&quot;: vantro devices lists them</source>
        <translation>es gibt kein Mikrofon „%1“: vantro devices listet sie auf</translation>
    </message>
    <message>
        <source>the mode is system, custom or prioritized</source>
        <translation>der Modus ist system, custom oder prioritized</translation>
    </message>
    <message>
        <source>the place is a number from 1, or first, last, up, down</source>
        <translation>die Stelle ist eine Zahl ab 1, oder first, last, up, down</translation>
    </message>
    <message>
        <source>devices priority %1: wrong number of words</source>
        <translation>devices priority %1: falsche Anzahl von Wörtern</translation>
    </message>
    <message>
        <source>there is no action &quot;priority %1&quot;</source>
        <translation>es gibt keine Aktion „priority %1“</translation>
    </message>
    <message>
        <source>devices bluetooth is on or off</source>
        <translation>devices bluetooth ist on oder off</translation>
    </message>
    <message>
        <source>List microphones, choose one, or rank them.</source>
        <translation>Listet Mikrofone auf, wählt eines oder ordnet sie.</translation>
    </message>
    <message>
        <source>needs a microphone&apos;s name</source>
        <translation>braucht den Namen eines Mikrofons</translation>
    </message>
    <message>
        <source>Arguments of the action.</source>
        <translation>Argumente der Aktion.</translation>
    </message>
    <message>
        <source>used</source>
        <translation>verwendet</translation>
    </message>
    <message>
        <source>default</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>NAME</source>
        <translation>NAME</translation>
    </message>
    <message>
        <source>DESCRIPTION</source>
        <translation>BESCHREIBUNG</translation>
    </message>
    <message>
        <source>PRIORITY</source>
        <translation>RANG</translation>
    </message>
    <message>
        <source>STATE</source>
        <translation>ZUSTAND</translation>
    </message>
    <message>
        <source>absent</source>
        <translation>nicht da</translation>
    </message>
    <message>
        <source>Your dictations, newest first.

  list           List the dictations that match the options. The default.
  show ID        Show one: the formatted text if there is one.
  audio ID [FILE]  Copy the recording of one to a FLAC file, if it was kept; without FILE, print where it is.
  delete ID...   Delete dictations permanently, with their recordings, after asking.
  export [FILE]  Write the dictations that match the options as JSON, CSV or Markdown.

ID is an id from the list or an unambiguous beginning of one. A search finds texts that contain all
its words or words that begin with them; case and accents are ignored.
DATE is 2026-11-01, 2026-11-01T10:00, today, yesterday, or 7d for the last seven days.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such dictation.</source>
        <translation>Deine Diktate, die neuesten zuerst.

  list             Listet die Diktate auf, auf die die Optionen passen. Das ist die Vorgabe.
  show ID          Zeigt eines: den überarbeiteten Text, wenn es einen gibt.
  audio ID [FILE]  Kopiert die Aufnahme in eine FLAC-Datei, falls sie aufbewahrt wurde; ohne FILE steht da, wo sie liegt.
  delete ID...     Löscht Diktate endgültig, mit ihren Aufnahmen, nach einer Rückfrage.
  export [FILE]    Schreibt die passenden Diktate als JSON, CSV oder Markdown.

ID ist eine ID aus der Liste oder ein eindeutiger Anfang davon. Eine Suche findet Texte, in denen alle ihre Wörter stehen
oder Wörter, die so beginnen; Groß- und Kleinschreibung und Akzente zählen nicht.
DATE ist 2026-11-01, 2026-11-01T10:00, today, yesterday oder 7d für die letzten sieben Tage.

Exit-Status: 0 erledigt, 1 gescheitert, 2 falscher Aufruf, 3 kein solches Diktat.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a date: write it as 2026-11-01</source>
        <translation>„%1“ ist kein Datum: schreib es wie 2026-11-01</translation>
    </message>
    <message>
        <source>TIME</source>
        <translation>ZEIT</translation>
    </message>
    <message>
        <source>TEXT</source>
        <translation>TEXT</translation>
    </message>
    <message>
        <source>There are no dictations yet.</source>
        <translation>Noch keine Diktate.</translation>
    </message>
    <message>
        <source>No dictation matches.</source>
        <translation>Kein Diktat passt.</translation>
    </message>
    <message>
        <source>dictations</source>
        <translation>Diktaten</translation>
    </message>
    <message>
        <source>
Original text:

</source>
        <translation>
Wortlaut:

</translation>
    </message>
    <message>
        <source>
Recording: </source>
        <translation>
Aufnahme: </translation>
    </message>
    <message>
        <source>the dictation has just been deleted</source>
        <translation>das Diktat wurde gerade gelöscht</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation>%1 lässt sich nicht lesen: %2</translation>
    </message>
    <message>
        <source>there is no recording of %1: vantro settings set keepRecordings 30 keeps the next ones for 30 days</source>
        <translation>es gibt keine Aufnahme von %1: vantro settings set keepRecordings 30 bewahrt die nächsten 30 Tage lang auf</translation>
    </message>
    <message>
        <source>Delete this dictation permanently?</source>
        <translation>Dieses Diktat endgültig löschen?</translation>
    </message>
    <message numerus="yes">
        <source>Delete these %n dictations permanently?</source>
        <translation>
            <numerusform>Dieses %n Diktat endgültig löschen?</numerusform>
            <numerusform>Diese %n Diktate endgültig löschen?</numerusform>
        </translation>
    </message>
    <message>
        <source>Deleted: %1</source>
        <translation>Gelöscht: %1</translation>
    </message>
    <message>
        <source>there is no format &quot;%1&quot;</source>
        <translation>es gibt kein Format „%1“</translation>
    </message>
    <message>
        <source>last: there are no dictations in the history</source>
        <translation>last: im Verlauf sind keine Diktate</translation>
    </message>
    <message>
        <source>Write the text of the last dictation to standard output.</source>
        <translation>Schreibt den Text des letzten Diktats auf die Standardausgabe.</translation>
    </message>
    <message>
        <source>Writes the text of the last dictation in the history to standard output.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 there is none.</source>
        <translation>Schreibt den Text des letzten Diktats im Verlauf auf die Standardausgabe.

Exit-Status: 0 erledigt, 1 gescheitert, 2 falscher Aufruf, 3 es gibt keines.</translation>
    </message>
    <message>
        <source>As it was said, before it was rewritten.</source>
        <translation>Wie es gesprochen wurde, vor dem Umschreiben.</translation>
    </message>
    <message>
        <source>List, search, show, delete or export your dictations, and their recordings.</source>
        <translation>Listet deine Diktate auf, durchsucht, zeigt, löscht oder exportiert sie und ihre Aufnahmen.</translation>
    </message>
    <message>
        <source>needs an ID</source>
        <translation>braucht eine ID</translation>
    </message>
    <message>
        <source>Only dictations with these words.</source>
        <translation>Nur Diktate mit diesen Wörtern.</translation>
    </message>
    <message>
        <source>Only dictations in this mode.</source>
        <translation>Nur Diktate in diesem Modus.</translation>
    </message>
    <message>
        <source>Only dictations from that date on.</source>
        <translation>Nur Diktate ab diesem Datum.</translation>
    </message>
    <message>
        <source>At most this many; 0 for all. The default is 50 for list, all for export.</source>
        <translation>Höchstens so viele; 0 für alle. Ohne Angabe 50 für list, alle für export.</translation>
    </message>
    <message>
        <source>Format of the export: json, csv or markdown. The default depends on the name of FILE.</source>
        <translation>Format des Exports: json, csv oder markdown. Ohne Angabe entscheidet der Name von FILE.</translation>
    </message>
    <message>
        <source>Delete without asking.</source>
        <translation>Ohne Rückfrage löschen.</translation>
    </message>
    <message>
        <source>IDs, or a file.</source>
        <translation>IDs oder eine Datei.</translation>
    </message>
    <message>
        <source>several dictations begin with &quot;%1&quot;: give more of it</source>
        <translation>mehrere Diktate beginnen mit „%1“: gib mehr davon an</translation>
    </message>
    <message>
        <source>there is no dictation &quot;%1&quot;</source>
        <translation>es gibt kein Diktat „%1“</translation>
    </message>
    <message>
        <source>several notes begin with &quot;%1&quot;: give more of it</source>
        <translation>mehrere Notizen beginnen mit „%1“: gib mehr davon an</translation>
    </message>
    <message>
        <source>there is no note &quot;%1&quot;</source>
        <translation>es gibt keine Notiz „%1“</translation>
    </message>
    <message>
        <source>there is no terminal to ask on: use --yes to delete</source>
        <translation>es gibt kein Terminal für die Rückfrage: nimm --yes zum Löschen</translation>
    </message>
    <message>
        <source>Nothing was deleted.</source>
        <translation>Nichts wurde gelöscht.</translation>
    </message>
    <message>
        <source>The log of vantro from the system journal, oldest first.

Exit status: 0 done, 2 wrong usage, 4 there is no journal: start vantro in a terminal to see its log.</source>
        <translation>Das Protokoll von vantro aus dem Journal des Systems, das Älteste zuerst.

Exit-Status: 0 erledigt, 2 falscher Aufruf, 4 es gibt kein Journal: starte vantro in einem Terminal, um das Protokoll zu sehen.</translation>
    </message>
    <message>
        <source>this system has no journal: start vantro in a terminal to see its log</source>
        <translation>dieses System hat kein Journal: starte vantro in einem Terminal, um das Protokoll zu sehen</translation>
    </message>
    <message>
        <source>Show the log of the program.</source>
        <translation>Zeigt das Protokoll des Programms.</translation>
    </message>
    <message>
        <source>Keep printing new entries.</source>
        <translation>Zeigt fortlaufend neue Einträge.</translation>
    </message>
    <message>
        <source>Skip older entries; for example &quot;-1h&quot; or &quot;today&quot;.</source>
        <translation>Ältere Einträge übergehen; zum Beispiel „-1h“ oder „today“.</translation>
    </message>
    <message>
        <source>The models that vantro can use: speech models turn speech into text, one beside them looks for your words,
language models rewrite texts on this machine.

  list           List all models, with those downloaded and selected. The default.
  download NAME  Download a model or resume a download. Ctrl-C keeps the part already downloaded.
  add FILE       Add a language model of your own: a GGUF file, which stays where it is.
  select NAME    Use this model for dictations, or to rewrite.
  verify [NAME]  Read the downloaded files and compare them with the published checksums.
  remove NAME    Remove a downloaded model; the selected one only with --force.
  clear          Remove all downloaded models but the selected ones.

The model host is the value of --model-host, else of VANTRO_MODEL_HOST, else of the setting
&quot;modelHostBaseURL&quot;, else the public repository.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such model, 4 the model host cannot deliver, 5 the settings
cannot be written, 130 interrupted.</source>
        <translation>Die Modelle, die vantro verwenden kann: Spracherkennungsmodelle machen aus Sprache Text, eines daneben sucht nach deinen
Wörtern, Sprachmodelle schreiben Texte auf diesem Rechner um.

  list           Listet alle Modelle auf, mit den geladenen und ausgewählten. Das ist die Vorgabe.
  download NAME  Lädt ein Modell herunter oder setzt einen Download fort. Strg-C behält, was schon geladen ist.
  add FILE       Fügt ein eigenes Sprachmodell hinzu: eine GGUF-Datei, die bleibt, wo sie ist.
  select NAME    Verwendet dieses Modell für Diktate oder zum Umschreiben.
  verify [NAME]  Liest die geladenen Dateien und vergleicht sie mit den veröffentlichten Prüfsummen.
  remove NAME    Entfernt ein geladenes Modell; das ausgewählte nur mit --force.
  clear          Entfernt alle geladenen Modelle außer den ausgewählten.

Der Modellserver ist der Wert von --model-host, sonst von VANTRO_MODEL_HOST, sonst der Einstellung „modelHostBaseURL“, sonst
die öffentliche Quelle.

Exit-Status: 0 erledigt, 1 gescheitert, 2 falscher Aufruf, 3 kein solches Modell, 4 der Modellserver kann nicht liefern,
5 die Einstellungen lassen sich nicht schreiben, 130 unterbrochen.</translation>
    </message>
    <message>
        <source>there is no model &quot;%1&quot;: vantro models lists them</source>
        <translation>es gibt kein Modell „%1“: vantro models listet sie auf</translation>
    </message>
    <message>
        <source>%1 looks for your words beside the Parakeet models: it works once it is downloaded, without being selected</source>
        <translation>%1 sucht neben den Parakeet-Modellen nach deinen Wörtern: Es arbeitet, sobald es heruntergeladen ist, ohne dass du es auswählst</translation>
    </message>
    <message>
        <source>%1 is selected</source>
        <translation>%1 ist ausgewählt</translation>
    </message>
    <message>
        <source>it is not downloaded yet: run vantro models download &quot;%1&quot;</source>
        <translation>es ist noch nicht heruntergeladen: führe vantro models download &quot;%1&quot; aus</translation>
    </message>
    <message>
        <source>%1 is not downloaded: run vantro models download &quot;%1&quot;</source>
        <translation>%1 ist nicht heruntergeladen: führe vantro models download &quot;%1&quot; aus</translation>
    </message>
    <message>
        <source>%1 is not downloaded</source>
        <translation>%1 ist nicht heruntergeladen</translation>
    </message>
    <message>
        <source>%1 is installed for all users: %2 is left alone</source>
        <translation>%1 ist für alle Benutzer installiert: %2 bleibt unberührt</translation>
    </message>
    <message>
        <source>%1 is selected: select another model first, or use --force</source>
        <translation>%1 ist ausgewählt: wähle zuerst ein anderes Modell aus oder nimm --force</translation>
    </message>
    <message>
        <source>%1 leaves the list, its file stays</source>
        <translation>%1 ist aus der Liste entfernt, seine Datei bleibt</translation>
    </message>
    <message>
        <source>%1 is removed, which frees %2</source>
        <translation>%1 ist entfernt; das macht %2 frei</translation>
    </message>
    <message>
        <source>%1 is added. To use it: vantro models select &quot;%1&quot;</source>
        <translation>%1 ist hinzugefügt. So verwendest du es: vantro models select &quot;%1&quot;</translation>
    </message>
    <message>
        <source>%1 cannot be used: %2</source>
        <translation>%1 ist nicht verwendbar: %2</translation>
    </message>
    <message>
        <source>Freed %1.</source>
        <translation>%1 frei geworden.</translation>
    </message>
    <message>
        <source>Downloaded models use %1 of disk space. The selected model is kept.</source>
        <translation>Geladene Modelle belegen %1. Das ausgewählte Modell bleibt.</translation>
    </message>
    <message>
        <source>no model host has this model yet: make it with convert-ctc from NVIDIA&apos;s published model, and put it there: %1/%2</source>
        <translation>noch hat kein Modellserver dieses Modell: mach es mit convert-ctc aus dem Modell, das NVIDIA veröffentlicht, und leg es dort ab: %1/%2</translation>
    </message>
    <message>
        <source>List, download, add, select, verify or remove models.</source>
        <translation>Listet Modelle auf, lädt, ergänzt, wählt, prüft oder entfernt sie.</translation>
    </message>
    <message>
        <source>needs a model&apos;s name</source>
        <translation>braucht den Namen eines Modells</translation>
    </message>
    <message>
        <source>needs a GGUF file</source>
        <translation>braucht eine GGUF-Datei</translation>
    </message>
    <message>
        <source>Remove the selected model too.</source>
        <translation>Auch das ausgewählte Modell entfernen.</translation>
    </message>
    <message>
        <source>Base address of the model host: http, https or file.</source>
        <translation>Basisadresse des Modellservers: http, https oder file.</translation>
    </message>
    <message>
        <source>A model&apos;s name, or a file.</source>
        <translation>Der Name eines Modells oder eine Datei.</translation>
    </message>
    <message>
        <source>%1 %  %2 of %3</source>
        <translation>%1 %  %2 von %3</translation>
    </message>
    <message>
        <source>%1 is ready: %2</source>
        <translation>%1 ist bereit: %2</translation>
    </message>
    <message>
        <source>download of %1: %2</source>
        <translation>Download von %1: %2</translation>
    </message>
    <message>
        <source>%1 downloaded</source>
        <translation>%1 geladen</translation>
    </message>
    <message>
        <source>%1 % downloaded</source>
        <translation>%1 % geladen</translation>
    </message>
    <message>
        <source>selected</source>
        <translation>ausgewählt</translation>
    </message>
    <message>
        <source>installed for all</source>
        <translation>für alle installiert</translation>
    </message>
    <message>
        <source>downloaded</source>
        <translation>geladen</translation>
    </message>
    <message>
        <source>not downloaded</source>
        <translation>nicht geladen</translation>
    </message>
    <message>
        <source>not checked yet</source>
        <translation>noch nicht geprüft</translation>
    </message>
    <message>
        <source>English</source>
        <translation>Englisch</translation>
    </message>
    <message>
        <source>multilingual</source>
        <translation>mehrsprachig</translation>
    </message>
    <message>
        <source>SIZE</source>
        <translation>GRÖSSE</translation>
    </message>
    <message>
        <source>LANGUAGES</source>
        <translation>SPRACHEN</translation>
    </message>
    <message>
        <source>LICENCE</source>
        <translation>LIZENZ</translation>
    </message>
    <message>
        <source>MEMORY</source>
        <translation>SPEICHER</translation>
    </message>
    <message>
        <source>vocabulary model</source>
        <translation>Wortschatzmodell</translation>
    </message>
    <message>
        <source>language model</source>
        <translation>Sprachmodell</translation>
    </message>
    <message>
        <source>speech model</source>
        <translation>Spracherkennungsmodell</translation>
    </message>
    <message>
        <source>SPEED</source>
        <translation>TEMPO</translation>
    </message>
    <message>
        <source>ACCURACY</source>
        <translation>GENAU</translation>
    </message>
    <message>
        <source>
For your words, beside a Parakeet model:
</source>
        <translation>
Für deine Wörter, neben einem Parakeet-Modell:
</translation>
    </message>
    <message>
        <source>
Language models, which rewrite on this machine:
</source>
        <translation>
Sprachmodelle, die auf diesem Rechner umschreiben:
</translation>
    </message>
    <message>
        <source>
Downloaded models use %1 of disk space.</source>
        <translation>
Geladene Modelle belegen %1.</translation>
    </message>
    <message>
        <source>What happens to a dictation. Normal keeps the text; Email, Grammar and Custom have a language model rewrite it;
Notes adds it to the notes of the day. In the launcher, the digit keys choose a mode.

  list           List all modes and their language models. The default.
  show MODE      Show a mode with its prompt.
  set MODE       Change a mode with the options below.
  default MODE   Start dictations in this mode.
  add NAME       Make a mode of your own; the options below set it up.
  remove MODE    Remove a mode that you have added, with its prompt, after asking.
  move MODE N    Give a mode the place N, and with it the digit key.

MODE is its built-in name or the one you gave it.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such mode or provider, 5 the settings cannot be written.</source>
        <translation>Was mit einem Diktat geschieht. Normal behält den Text; Email, Grammar und Custom lassen ihn von einem Sprachmodell
umschreiben; Notes fügt ihn den Notizen des Tages hinzu. Im Launcher wählen die Zifferntasten einen Modus.

  list           Listet alle Modi und ihre Sprachmodelle auf. Das ist die Vorgabe.
  show MODE      Zeigt einen Modus mit seiner Anweisung.
  set MODE       Ändert einen Modus mit den Optionen unten.
  default MODE   Beginnt Diktate in diesem Modus.
  add NAME       Legt einen eigenen Modus an; die Optionen unten richten ihn ein.
  remove MODE    Entfernt einen eigenen Modus mit seiner Anweisung, nach einer Rückfrage.
  move MODE N    Gibt einem Modus den Platz N, und damit die Zifferntaste.

MODE ist der mitgelieferte Name oder der, den du vergeben hast.

Exit-Status: 0 erledigt, 1 gescheitert, 2 falscher Aufruf, 3 kein solcher Modus oder Anbieter, 5 die Einstellungen lassen
sich nicht schreiben.</translation>
    </message>
    <message>
        <source>rules, no language model</source>
        <translation>Regeln, kein Sprachmodell</translation>
    </message>
    <message>
        <source>no language model</source>
        <translation>kein Sprachmodell</translation>
    </message>
    <message>
        <source>no provider chosen</source>
        <translation>kein Anbieter gewählt</translation>
    </message>
    <message>
        <source>its provider has been removed</source>
        <translation>der Anbieter wurde entfernt</translation>
    </message>
    <message>
        <source>%1 (disabled)</source>
        <translation>%1 (abgeschaltet)</translation>
    </message>
    <message>
        <source>this computer (%1)</source>
        <translation>dieser Rechner (%1)</translation>
    </message>
    <message>
        <source>this computer, which has no language model yet</source>
        <translation>dieser Rechner, der noch kein Sprachmodell hat</translation>
    </message>
    <message>
        <source>not offered</source>
        <translation>nicht angeboten</translation>
    </message>
    <message>
        <source>Mode:      %1</source>
        <translation>Modus:     %1</translation>
    </message>
    <message>
        <source>Name:      %1</source>
        <translation>Name:      %1</translation>
    </message>
    <message>
        <source>Provider:  %1</source>
        <translation>Anbieter:  %1</translation>
    </message>
    <message>
        <source>there is no provider &quot;%1&quot;: vantro providers lists them. Nothing was changed</source>
        <translation>es gibt keinen Anbieter „%1“: vantro providers listet sie auf. Nichts wurde geändert</translation>
    </message>
    <message>
        <source>--clean: notes are kept as they were said</source>
        <translation>--clean: Notizen bleiben, wie sie gesprochen wurden</translation>
    </message>
    <message>
        <source>there is no language model on this computer yet: vantro models lists those that can be downloaded</source>
        <translation>auf diesem Rechner ist noch kein Sprachmodell: vantro models listet die auf, die sich laden lassen</translation>
    </message>
    <message>
        <source>the mode needs a name</source>
        <translation>der Modus braucht einen Namen</translation>
    </message>
    <message>
        <source>there is a mode &quot;%1&quot; already</source>
        <translation>es gibt schon einen Modus „%1“</translation>
    </message>
    <message>
        <source>there are nine modes already, as many as digit keys: remove one first</source>
        <translation>es gibt schon neun Modi, so viele wie Zifferntasten: entferne zuerst einen</translation>
    </message>
    <message>
        <source>%1 is built in: only modes that you have added can be removed</source>
        <translation>%1 ist mitgeliefert: nur eigene Modi lassen sich entfernen</translation>
    </message>
    <message>
        <source>Remove the mode %1 with its prompt?</source>
        <translation>Den Modus %1 mit seiner Anweisung entfernen?</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a place: use 1 to %2</source>
        <translation>„%1“ ist kein Platz: nimm 1 bis %2</translation>
    </message>
    <message>
        <source>Dictations now start in %1</source>
        <translation>Diktate beginnen jetzt in %1</translation>
    </message>
    <message>
        <source>Show and change modes: prompts, names, language models.</source>
        <translation>Zeigt und ändert Modi: Anweisungen, Namen, Sprachmodelle.</translation>
    </message>
    <message>
        <source>needs one mode</source>
        <translation>braucht einen Modus</translation>
    </message>
    <message>
        <source>needs a name</source>
        <translation>braucht einen Namen</translation>
    </message>
    <message>
        <source>needs a mode and a place</source>
        <translation>braucht einen Modus und einen Platz</translation>
    </message>
    <message>
        <source>set: the name in the launcher; empty for the built-in name.</source>
        <translation>set: der Name im Launcher; leer für den mitgelieferten.</translation>
    </message>
    <message>
        <source>set: the prompt for the language model.</source>
        <translation>set: die Anweisung für das Sprachmodell.</translation>
    </message>
    <message>
        <source>set: the prompt from a file; &quot;-&quot; for standard input.</source>
        <translation>set: die Anweisung aus einer Datei; „-“ für die Standardeingabe.</translation>
    </message>
    <message>
        <source>set: the built-in prompt.</source>
        <translation>set: die mitgelieferte Anweisung.</translation>
    </message>
    <message>
        <source>set: the provider (see vantro providers).</source>
        <translation>set: der Anbieter (siehe vantro providers).</translation>
    </message>
    <message>
        <source>set: rewrite on this computer (see vantro models).</source>
        <translation>set: auf diesem Rechner umschreiben (siehe vantro models).</translation>
    </message>
    <message>
        <source>set: clean the text by rules, without a language model (see vantro cleaning).</source>
        <translation>set: den Text nach Regeln bereinigen, ohne Sprachmodell (siehe vantro cleaning).</translation>
    </message>
    <message>
        <source>set: neither a provider nor rules.</source>
        <translation>set: weder ein Anbieter noch Regeln.</translation>
    </message>
    <message>
        <source>remove: without asking.</source>
        <translation>remove: ohne Rückfrage.</translation>
    </message>
    <message>
        <source>A mode.</source>
        <translation>Ein Modus.</translation>
    </message>
    <message>
        <source>move: its place.</source>
        <translation>move: sein Platz.</translation>
    </message>
    <message>
        <source>Your notes by day.

  list              List the days with notes, newest first. The default.
  show [DATE]       Show the summary and the notes of a day, by default today.
  add TEXT...       Add a note to today. - reads the text from standard input.
  delete DATE       Delete a day with its summary and all its notes, after asking.
  delete ID...      Delete notes but keep the day, after asking.
  summarize [DATE]  Have the language model of the mode Notes rewrite the summary of a day, by default today.

DATE is 2026-11-01, today or yesterday. ID is an id printed by show, or an unambiguous beginning of one.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such day or note, 4 no service: the provider or its key cannot be
reached, 6 the model&apos;s answer was set aside.</source>
        <translation>Deine Notizen nach Tagen.

  list              Listet die Tage mit Notizen auf, die neuesten zuerst. Das ist die Vorgabe.
  show [DATE]       Zeigt die Zusammenfassung und die Notizen eines Tages, ohne Angabe die von heute.
  add TEXT...       Fügt heute eine Notiz hinzu. - liest den Text von der Standardeingabe.
  delete DATE       Löscht einen Tag mit seiner Zusammenfassung und allen Notizen, nach einer Rückfrage.
  delete ID...      Löscht Notizen, aber nicht den Tag, nach einer Rückfrage.
  summarize [DATE]  Lässt das Sprachmodell des Modus Notes die Zusammenfassung eines Tages neu schreiben, ohne Angabe die von heute.

DATE ist 2026-11-01, today oder yesterday. ID ist eine ID, die show ausgibt, oder ein eindeutiger Anfang davon.

Exit-Status: 0 erledigt, 1 gescheitert, 2 falscher Aufruf, 3 kein solcher Tag oder keine solche Notiz, 4 kein Dienst: der
Anbieter oder sein Schlüssel ist nicht erreichbar, 6 die Antwort des Modells wurde verworfen.</translation>
    </message>
    <message>
        <source>1 note</source>
        <translation>1 Notiz</translation>
    </message>
    <message numerus="yes">
        <source>%n notes</source>
        <translation>
            <numerusform>%n Notiz</numerusform>
            <numerusform>%n Notizen</numerusform>
        </translation>
    </message>
    <message>
        <source>days</source>
        <translation>Tagen</translation>
    </message>
    <message>
        <source>There are no notes yet.</source>
        <translation>Noch keine Notizen.</translation>
    </message>
    <message>
        <source>DAY</source>
        <translation>TAG</translation>
    </message>
    <message>
        <source>NOTES</source>
        <translation>NOTIZEN</translation>
    </message>
    <message>
        <source>SUMMARY</source>
        <translation>ZUSAMMENFASSUNG</translation>
    </message>
    <message>
        <source>there are no notes for %1</source>
        <translation>es gibt keine Notizen vom %1</translation>
    </message>
    <message>
        <source>a note needs a text</source>
        <translation>eine Notiz braucht einen Text</translation>
    </message>
    <message>
        <source>Permanently delete %1 with its summary and %2?</source>
        <translation>%1 mit Zusammenfassung und %2 endgültig löschen?</translation>
    </message>
    <message>
        <source>Permanently delete %1?</source>
        <translation>%1 endgültig löschen?</translation>
    </message>
    <message>
        <source>List, show, add or delete notes.</source>
        <translation>Listet Notizen auf, zeigt, ergänzt oder löscht sie.</translation>
    </message>
    <message>
        <source>needs a text</source>
        <translation>braucht einen Text</translation>
    </message>
    <message>
        <source>needs a DATE or an ID</source>
        <translation>braucht ein DATE oder eine ID</translation>
    </message>
    <message>
        <source>List at most this many days; 0 for all. The default is 50.</source>
        <translation>Höchstens so viele Tage auflisten; 0 für alle. Ohne Angabe 50.</translation>
    </message>
    <message>
        <source>A date, ids or a text.</source>
        <translation>Ein Datum, IDs oder ein Text.</translation>
    </message>
    <message>
        <source>The language models that rewrite dictations in the modes Email, Grammar, Custom and Notes.

  list         List all providers and whether they have a key. The default.
  add          Add one: --type, and for your own server --base-url and --model.
  edit NAME    Change what the options say. An empty value (&quot;&quot;) removes a parameter.
  remove NAME  Remove a provider and its key, after asking.
  test NAME    Check that the provider accepts the key.
  models NAME  List the models that the provider offers.

The key is read from the terminal without showing it, or from standard input with --key-stdin. It is stored only in the
desktop&apos;s Secret Service. A server that needs no key still has to be given one: any word will do.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such provider, 4 no service: the Secret Service is not available
or locked, or the provider cannot be reached, 5 the settings cannot be written.</source>
        <translation>Die Sprachmodelle, die Diktate in den Modi Email, Grammar, Custom und Notes umschreiben.

  list         Listet alle Anbieter auf und ob sie einen Schlüssel haben. Das ist die Vorgabe.
  add          Fügt einen hinzu: --type, und für einen eigenen Server --base-url und --model.
  edit NAME    Ändert, was die Optionen nennen. Ein leerer Wert (&quot;&quot;) entfernt einen Parameter.
  remove NAME  Entfernt einen Anbieter und seinen Schlüssel, nach einer Rückfrage.
  test NAME    Prüft, ob der Anbieter den Schlüssel annimmt.
  models NAME  Listet die Modelle auf, die der Anbieter bietet.

Der Schlüssel wird im Terminal verdeckt eingegeben oder mit --key-stdin von der Standardeingabe gelesen. Er liegt nur im
Secret Service des Desktops. Auch ein Server, der keinen Schlüssel braucht, muss einen bekommen: irgendein Wort.

Exit-Status: 0 erledigt, 1 gescheitert, 2 falscher Aufruf, 3 kein solcher Anbieter, 4 kein Dienst: der Secret Service fehlt
oder ist gesperrt, oder der Anbieter ist nicht erreichbar, 5 die Einstellungen lassen sich nicht schreiben.</translation>
    </message>
    <message>
        <source>there is no provider &quot;%1&quot;: vantro providers lists them</source>
        <translation>es gibt keinen Anbieter „%1“: vantro providers listet sie auf</translation>
    </message>
    <message>
        <source>Remove without asking.</source>
        <translation>Ohne Rückfrage entfernen.</translation>
    </message>
    <message>
        <source>List, add, edit, remove or test providers of language models.</source>
        <translation>Listet Anbieter von Sprachmodellen auf, ergänzt, ändert, entfernt oder prüft sie.</translation>
    </message>
    <message>
        <source>needs a provider&apos;s name</source>
        <translation>braucht den Namen eines Anbieters</translation>
    </message>
    <message>
        <source>A provider&apos;s name or id.</source>
        <translation>Name oder ID eines Anbieters.</translation>
    </message>
    <message>
        <source>Name in the list.</source>
        <translation>Name in der Liste.</translation>
    </message>
    <message>
        <source>Model.</source>
        <translation>Modell.</translation>
    </message>
    <message>
        <source>Address of your own server, up to /v1.</source>
        <translation>Adresse deines eigenen Servers, bis /v1.</translation>
    </message>
    <message>
        <source>Maximum number of tokens in the answer.</source>
        <translation>Höchstzahl der Token in der Antwort.</translation>
    </message>
    <message>
        <source>The same, under its newer name.</source>
        <translation>Dasselbe unter dem neueren Namen.</translation>
    </message>
    <message>
        <source>Temperature.</source>
        <translation>Temperatur.</translation>
    </message>
    <message>
        <source>Top p.</source>
        <translation>Top p.</translation>
    </message>
    <message>
        <source>Service tier:</source>
        <translation>Dienststufe:</translation>
    </message>
    <message>
        <source>Reasoning effort.</source>
        <translation>Denkaufwand.</translation>
    </message>
    <message>
        <source>--parameters: choose none or standard</source>
        <translation>--parameters: wähle none oder standard</translation>
    </message>
    <message>
        <source>--type: there is no type &quot;%1&quot;: choose OpenAI, Anthropic, Gemini or Custom</source>
        <translation>--type: es gibt keinen Typ „%1“: wähle OpenAI, Anthropic, Gemini oder Custom</translation>
    </message>
    <message>
        <source>choose either --enable or --disable</source>
        <translation>wähle entweder --enable oder --disable</translation>
    </message>
    <message>
        <source>API key (Return for none): </source>
        <translation>API-Schlüssel (Eingabetaste für keinen): </translation>
    </message>
    <message>
        <source>--key-stdin: there is no key on standard input; nothing was changed</source>
        <translation>--key-stdin: auf der Standardeingabe ist kein Schlüssel; nichts wurde geändert</translation>
    </message>
    <message>
        <source>texts and the key will be sent to %1 unencrypted</source>
        <translation>Texte und der Schlüssel werden unverschlüsselt an %1 gesendet</translation>
    </message>
    <message>
        <source>OpenAI, Anthropic, Gemini or Custom (any server with OpenAI&apos;s chat completions API: vLLM, Ollama, llama.cpp).</source>
        <translation>OpenAI, Anthropic, Gemini oder Custom (jeder Server mit der Chat-Completions-API von OpenAI: vLLM, Ollama, llama.cpp).</translation>
    </message>
    <message>
        <source>Remove all parameters: standard sends temperature 0.3 and both penalties as 0, which is also what a provider without parameters gets; none sends nothing, for models that refuse them.</source>
        <translation>Alle Parameter entfernen: standard sendet Temperatur 0,3 und beide Strafen als 0, wie bei einem Anbieter ohne Parameter; none sendet nichts, für Modelle, die sie ablehnen.</translation>
    </message>
    <message>
        <source>Let modes use it.</source>
        <translation>Modi dürfen ihn verwenden.</translation>
    </message>
    <message>
        <source>Send nothing to it.</source>
        <translation>Ihm nichts senden.</translation>
    </message>
    <message>
        <source>Read the key from standard input.</source>
        <translation>Den Schlüssel von der Standardeingabe lesen.</translation>
    </message>
    <message>
        <source>With edit: ask for a new key.</source>
        <translation>Bei edit: nach einem neuen Schlüssel fragen.</translation>
    </message>
    <message>
        <source>providers add needs --type</source>
        <translation>providers add braucht --type</translation>
    </message>
    <message>
        <source>there is already a provider &quot;%1&quot;: edit it, or choose another --name</source>
        <translation>es gibt schon einen Anbieter „%1“: ändere ihn oder wähle einen anderen --name</translation>
    </message>
    <message>
        <source>No API key configured: vantro providers edit &quot;%1&quot; --ask-key</source>
        <translation>Kein API-Schlüssel eingerichtet: vantro providers edit &quot;%1&quot; --ask-key</translation>
    </message>
    <message>
        <source>%1 has been added</source>
        <translation>%1 wurde hinzugefügt</translation>
    </message>
    <message>
        <source>%1 has been changed</source>
        <translation>%1 wurde geändert</translation>
    </message>
    <message>
        <source>providers remove needs --yes when there is no terminal to ask on</source>
        <translation>providers remove braucht --yes, wenn es kein Terminal für die Rückfrage gibt</translation>
    </message>
    <message>
        <source>Are you sure you want to delete &apos;%1&apos;? This action cannot be undone.</source>
        <translation>„%1“ wirklich löschen? Das lässt sich nicht rückgängig machen.</translation>
    </message>
    <message>
        <source>%1 has been removed</source>
        <translation>%1 wurde entfernt</translation>
    </message>
    <message>
        <source>%1 accepts the key (%2 ms)</source>
        <translation>%1 nimmt den Schlüssel an (%2 ms)</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>unbekannt</translation>
    </message>
    <message>
        <source>No API key configured</source>
        <translation>Kein API-Schlüssel eingerichtet</translation>
    </message>
    <message>
        <source>TYPE</source>
        <translation>TYP</translation>
    </message>
    <message>
        <source>MODEL</source>
        <translation>MODELL</translation>
    </message>
    <message>
        <source>KEY</source>
        <translation>SCHLÜSSEL</translation>
    </message>
    <message>
        <source>ADDRESS</source>
        <translation>ADRESSE</translation>
    </message>
    <message>
        <source>enabled</source>
        <translation>eingeschaltet</translation>
    </message>
    <message>
        <source>disabled</source>
        <translation>abgeschaltet</translation>
    </message>
    <message>
        <source>%1 is not asked: the type %2 has an address of its own, and %3 is given: vantro providers edit &quot;%1&quot; --type custom, or --base-url &quot;&quot;</source>
        <translation>%1 wird nicht gefragt: der Typ %2 hat eine eigene Adresse, und angegeben ist %3: vantro providers edit &quot;%1&quot; --type custom, oder --base-url &quot;&quot;</translation>
    </message>
    <message>
        <source>retry: there is no recording to transcribe</source>
        <translation>retry: es gibt keine Aufnahme zu transkribieren</translation>
    </message>
    <message>
        <source>retry: another vantro is transcribing: wait for it to end</source>
        <translation>retry: ein anderes vantro transkribiert gerade: warte, bis es fertig ist</translation>
    </message>
    <message>
        <source>retry: no model: &quot;%1&quot; is not downloaded: run vantro models download &quot;%1&quot;</source>
        <translation>retry: kein Modell: „%1“ ist nicht heruntergeladen: führe vantro models download &quot;%1&quot; aus</translation>
    </message>
    <message>
        <source>retry: %1 The recording is kept.</source>
        <translation>retry: %1 Die Aufnahme bleibt erhalten.</translation>
    </message>
    <message>
        <source>Transcribe what has not become text.</source>
        <translation>Transkribiert, was nicht Text geworden ist.</translation>
    </message>
    <message>
        <source>Transcribes recordings that have not become text, after a failure, a crash or, for ten seconds, a cancel. Their text is printed, goes into the history and, while vantro is running, to the clipboard.

Exit status: 0 done, 1 failed or refused, 2 wrong usage, 3 there is no such recording, 4 the model is missing.</source>
        <translation>Transkribiert Aufnahmen, die nicht Text geworden sind, nach einem Fehler, einem Absturz oder, zehn Sekunden lang, einem Abbruch. Ihr Text wird ausgegeben, kommt in den Verlauf und, solange vantro läuft, in die Zwischenablage.

Exit-Status: 0 erledigt, 1 gescheitert oder abgelehnt, 2 falscher Aufruf, 3 keine solche Aufnahme, 4 das Modell fehlt.</translation>
    </message>
    <message>
        <source>Delete the recordings instead.</source>
        <translation>Die Aufnahmen stattdessen löschen.</translation>
    </message>
    <message>
        <source>Rewrites a text as a dictation in a mode is, and writes the result to standard output. The answer of a language model
is judged as it is there: one that is not believed is told on standard error, the text as it was goes to standard output,
and the exit status is 6.

TEXT is the text; - reads it from standard input.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such mode or provider, 4 no service: the provider or its key cannot be
reached, 6 the answer was set aside.</source>
        <translation>Schreibt einen Text um, wie es mit einem Diktat in einem Modus geschieht, und gibt das Ergebnis auf der Standardausgabe
aus. Die Antwort eines Sprachmodells wird beurteilt wie dort: Eine unglaubwürdige wird auf der Standardfehlerausgabe
gemeldet, der unveränderte Text kommt auf die Standardausgabe, und der Exit-Status ist 6.

TEXT ist der Text; - liest ihn von der Standardeingabe.

Exit-Status: 0 erledigt, 1 gescheitert, 2 falscher Aufruf, 3 kein solcher Modus oder Anbieter, 4 kein Dienst: der Anbieter
oder sein Schlüssel ist nicht erreichbar, 6 die Antwort wurde verworfen.</translation>
    </message>
    <message>
        <source>there is no text</source>
        <translation>es gibt keinen Text</translation>
    </message>
    <message>
        <source>choose one of --clean, --local and --provider</source>
        <translation>wähle eines von --clean, --local und --provider</translation>
    </message>
    <message>
        <source>%1 is not set up: vantro modes set %1 --provider NAME, --local or --clean</source>
        <translation>%1 ist nicht eingerichtet: vantro modes set %1 --provider NAME, --local oder --clean</translation>
    </message>
    <message>
        <source>Rewrite a text as a dictation would be.</source>
        <translation>Schreibt einen Text um wie ein Diktat.</translation>
    </message>
    <message>
        <source>needs a TEXT</source>
        <translation>braucht einen TEXT</translation>
    </message>
    <message>
        <source>The mode whose prompt is used. The default is Grammar.</source>
        <translation>Der Modus, dessen Anweisung gilt. Ohne Angabe Grammar.</translation>
    </message>
    <message>
        <source>Ask this provider instead of the mode&apos;s.</source>
        <translation>Diesen Anbieter fragen statt den des Modus.</translation>
    </message>
    <message>
        <source>Use the language model of this computer (see vantro models).</source>
        <translation>Das Sprachmodell dieses Rechners verwenden (siehe vantro models).</translation>
    </message>
    <message>
        <source>Clean the text by rules, without a language model.</source>
        <translation>Den Text nach Regeln bereinigen, ohne Sprachmodell.</translation>
    </message>
    <message>
        <source>The text; - for standard input.</source>
        <translation>Der Text; - für die Standardeingabe.</translation>
    </message>
    <message>
        <source>The settings, each by its key. The running program follows a change at once.

  list             List all settings with their values. The default.
  get KEY          Show one setting&apos;s value.
  set KEY VALUE    Change a setting.
  reset KEY        Go back to its default.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such setting, 5 the settings cannot be written.</source>
        <translation>Die Einstellungen, jede unter ihrem Schlüssel. Das laufende Programm folgt einer Änderung sofort.

  list             Listet alle Einstellungen mit ihren Werten auf. Das ist die Vorgabe.
  get KEY          Zeigt den Wert einer Einstellung.
  set KEY VALUE    Ändert eine Einstellung.
  reset KEY        Kehrt zu ihrer Vorgabe zurück.

Exit-Status: 0 erledigt, 1 gescheitert, 2 falscher Aufruf, 3 keine solche Einstellung, 5 die Einstellungen lassen sich nicht
schreiben.</translation>
    </message>
    <message>
        <source>there is no setting &quot;%1&quot;: vantro settings lists them</source>
        <translation>es gibt keine Einstellung „%1“: vantro settings listet sie auf</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not %2</source>
        <translation>„%1“ ist %2</translation>
    </message>
    <message>
        <source>one of: </source>
        <translation>keines von: </translation>
    </message>
    <message>
        <source>a language the models know: use a code such as en, de or fr, or auto</source>
        <translation>keine Sprache, die die Modelle können: nimm ein Kürzel wie en, de oder fr, oder auto</translation>
    </message>
    <message>
        <source>a speech model: vantro models lists them</source>
        <translation>kein Spracherkennungsmodell: vantro models listet sie auf</translation>
    </message>
    <message>
        <source>a language model: vantro models lists them</source>
        <translation>kein Sprachmodell: vantro models listet sie auf</translation>
    </message>
    <message>
        <source>a model host: use an address that starts with http:, https: or file:</source>
        <translation>kein Modellserver: nimm eine Adresse, die mit http:, https: oder file: beginnt</translation>
    </message>
    <message>
        <source>a number of days, &quot;forever&quot; or &quot;never&quot;</source>
        <translation>weder eine Anzahl von Tagen noch „forever“ oder „never“</translation>
    </message>
    <message>
        <source>a number of megabytes</source>
        <translation>keine Anzahl von Megabyte</translation>
    </message>
    <message>
        <source>true or false</source>
        <translation>weder true noch false</translation>
    </message>
    <message>
        <source>JSON</source>
        <translation>kein JSON</translation>
    </message>
    <message>
        <source>VALUE</source>
        <translation>WERT</translation>
    </message>
    <message>
        <source>MEANING</source>
        <translation>BEDEUTUNG</translation>
    </message>
    <message>
        <source>List, show, change or reset settings.</source>
        <translation>Listet Einstellungen auf, zeigt, ändert oder setzt sie zurück.</translation>
    </message>
    <message>
        <source>needs a key</source>
        <translation>braucht einen Schlüssel</translation>
    </message>
    <message>
        <source>needs a key and a value</source>
        <translation>braucht einen Schlüssel und einen Wert</translation>
    </message>
    <message>
        <source>A setting&apos;s key, as in the list.</source>
        <translation>Der Schlüssel einer Einstellung, wie in der Liste.</translation>
    </message>
    <message>
        <source>Its new value.</source>
        <translation>Ihr neuer Wert.</translation>
    </message>
    <message>
        <source>The keyboard shortcuts of vantro.

  show            Show all, and whether they work. The default.
  set NAME KEYS   Use these keys, for example Ctrl+Alt+D, F9 or MediaRecord.
  test NAME       Wait until the shortcut is pressed.
  clear NAME      Remove a shortcut; &quot;stop&quot; goes back to Space.
  mode [MODE]     Show or set the mode. press: the shortcut opens the launcher, Space ends the recording. hold: the
                  recording lasts as long as the shortcut is held.

NAME is &quot;open&quot; (openModal: start a dictation), &quot;stop&quot; (stopRecordingAndCloseModal: end the recording; only while the
launcher has the focus) or &quot;original&quot; (pasteOriginal: paste the words of the last dictation as they were said).
Changes take effect at once.

Exit status: 0 done, 1 refused or not pressed, 2 wrong usage, 4 no desktop, 5 the settings cannot be written.</source>
        <translation>Die Tastenkürzel von vantro.

  show            Zeigt alle und ob sie wirken. Das ist die Vorgabe.
  set NAME KEYS   Verwendet diese Tasten, zum Beispiel Ctrl+Alt+D, F9 oder MediaRecord.
  test NAME       Wartet, bis das Tastenkürzel gedrückt wird.
  clear NAME      Entfernt ein Tastenkürzel; „stop“ kehrt zur Leertaste zurück.
  mode [MODE]     Zeigt oder setzt den Modus. press: das Tastenkürzel öffnet den Launcher, die Leertaste beendet die
                  Aufnahme. hold: die Aufnahme dauert so lange, wie du das Tastenkürzel hältst.

NAME ist „open“ (openModal: ein Diktat beginnen), „stop“ (stopRecordingAndCloseModal: die Aufnahme beenden; nur solange der
Launcher den Fokus hat) oder „original“ (pasteOriginal: das letzte Diktat im Wortlaut einfügen).
Änderungen wirken sofort.

Exit-Status: 0 erledigt, 1 abgelehnt oder nicht gedrückt, 2 falscher Aufruf, 4 kein Desktop, 5 die Einstellungen lassen sich
nicht schreiben.</translation>
    </message>
    <message>
        <source>there is no shortcut &quot;%1&quot;: use open, stop or original</source>
        <translation>es gibt kein Tastenkürzel „%1“: nimm open, stop oder original</translation>
    </message>
    <message>
        <source>there is no desktop: run it in your desktop session</source>
        <translation>es gibt keinen Desktop: führe es in deiner Desktopsitzung aus</translation>
    </message>
    <message>
        <source>none is set: run vantro shortcuts set open Ctrl+Alt+D</source>
        <translation>keines gesetzt: führe vantro shortcuts set open Ctrl+Alt+D aus</translation>
    </message>
    <message>
        <source>KEYS</source>
        <translation>TASTEN</translation>
    </message>
    <message>
        <source>FOR</source>
        <translation>WOFÜR</translation>
    </message>
    <message>
        <source>not set</source>
        <translation>nicht gesetzt</translation>
    </message>
    <message>
        <source>in the launcher</source>
        <translation>im Launcher</translation>
    </message>
    <message>
        <source>by your desktop&apos;s binding</source>
        <translation>über die Tastenbelegung deines Desktops</translation>
    </message>
    <message>
        <source>works</source>
        <translation>wirkt</translation>
    </message>
    <message>
        <source>
The recording lasts as long as the shortcut is held (mode hold).</source>
        <translation>
Die Aufnahme dauert so lange, wie du das Tastenkürzel hältst (Modus hold).</translation>
    </message>
    <message>
        <source>
The shortcut opens the launcher (mode press).</source>
        <translation>
Das Tastenkürzel öffnet den Launcher (Modus press).</translation>
    </message>
    <message>
        <source>the running vantro has not adopted it: restart it</source>
        <translation>das laufende vantro hat es nicht übernommen: starte es neu</translation>
    </message>
    <message>
        <source>--force uses it anyway.</source>
        <translation>--force nimmt es trotzdem.</translation>
    </message>
    <message>
        <source>no shortcut</source>
        <translation>kein Tastenkürzel</translation>
    </message>
    <message>
        <source>Press %1 within %2 s.</source>
        <translation>Drück %1 innerhalb von %2 s.</translation>
    </message>
    <message>
        <source>%1 was not pressed, or did not arrive</source>
        <translation>%1 wurde nicht gedrückt oder kam nicht an</translation>
    </message>
    <message>
        <source>%1 works: it was held for %2 ms</source>
        <translation>%1 wirkt: es wurde %2 ms lang gehalten</translation>
    </message>
    <message>
        <source>%1 works: it is used by the running vantro</source>
        <translation>%1 wirkt: das laufende vantro verwendet es</translation>
    </message>
    <message>
        <source>the mode is press or hold</source>
        <translation>der Modus ist press oder hold</translation>
    </message>
    <message>
        <source>Show, set, test and clear shortcuts; press or hold to talk.</source>
        <translation>Zeigt, setzt, prüft und entfernt Tastenkürzel; drücken oder halten.</translation>
    </message>
    <message>
        <source>needs a name and keys</source>
        <translation>braucht einen Namen und Tasten</translation>
    </message>
    <message>
        <source>Use a shortcut even if something else uses it.</source>
        <translation>Ein Tastenkürzel verwenden, auch wenn es schon anderswo dient.</translation>
    </message>
    <message>
        <source>The keys.</source>
        <translation>Die Tasten.</translation>
    </message>
    <message>
        <source>no recording given</source>
        <translation>keine Aufnahme angegeben</translation>
    </message>
    <message>
        <source>there is no format &quot;%1&quot;: %2</source>
        <translation>es gibt kein Format „%1“: %2</translation>
    </message>
    <message>
        <source>subtitles of several recordings need a folder: --output DIR</source>
        <translation>Untertitel mehrerer Aufnahmen brauchen einen Ordner: --output DIR</translation>
    </message>
    <message>
        <source>there is no folder %1</source>
        <translation>es gibt keinen Ordner %1</translation>
    </message>
    <message>
        <source>two recordings are called %1: give them different folders</source>
        <translation>zwei Aufnahmen heißen %1: gib ihnen verschiedene Ordner</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a language the models know: use a code such as en, de or fr, or auto</source>
        <translation>„%1“ ist keine Sprache, die die Modelle können: nimm ein Kürzel wie en, de oder fr, oder auto</translation>
    </message>
    <message>
        <source>%1: %2 s in %3 s</source>
        <translation>%1: %2 s in %3 s</translation>
    </message>
    <message>
        <source>%1: your words were not looked for: %2</source>
        <translation>%1: nach deinen Wörtern wurde nicht gesucht: %2</translation>
    </message>
    <message>
        <source>Write the text of recordings to standard output.</source>
        <translation>Schreibt den Text von Aufnahmen auf die Standardausgabe.</translation>
    </message>
    <message>
        <source>Writes the text of recordings (WAV, FLAC, OGG, MP3) to standard output.

Exit status: 0 done, 1 recognition failed, 2 wrong usage, 3 a recording could not be read, 4 the model is missing or cannot be loaded.</source>
        <translation>Schreibt den Text von Aufnahmen (WAV, FLAC, OGG, MP3) auf die Standardausgabe.

Exit-Status: 0 erledigt, 1 Erkennung gescheitert, 2 falscher Aufruf, 3 eine Aufnahme ließ sich nicht lesen, 4 das Modell fehlt oder lässt sich nicht laden.</translation>
    </message>
    <message>
        <source>Name of a model, such as parakeet-v3, or path of its file.</source>
        <translation>Name eines Modells, etwa parakeet-v3, oder Pfad seiner Datei.</translation>
    </message>
    <message>
        <source>Language code, or &quot;auto&quot;.</source>
        <translation>Sprachkürzel oder „auto“.</translation>
    </message>
    <message>
        <source>txt, srt or vtt (subtitles), or json. The default is txt.</source>
        <translation>txt, srt oder vtt (Untertitel) oder json. Ohne Angabe txt.</translation>
    </message>
    <message>
        <source>The same as --format json: one object per line, with duration and timings.</source>
        <translation>Dasselbe wie --format json: ein Objekt je Zeile, mit Dauer und Zeiten.</translation>
    </message>
    <message>
        <source>Path of the model that looks for your words beside a Parakeet model.</source>
        <translation>Pfad des Modells, das neben einem Parakeet-Modell nach deinen Wörtern sucht.</translation>
    </message>
    <message>
        <source>Look for this word instead of your own; may be repeated.</source>
        <translation>Nach diesem Wort suchen statt nach deinen; mehrfach möglich.</translation>
    </message>
    <message>
        <source>How readily words are written, from 0 to 4; usually 1.</source>
        <translation>Wie bereitwillig Wörter geschrieben werden, von 0 bis 4; üblich ist 1.</translation>
    </message>
    <message>
        <source>Write each text into this folder, named after its recording.</source>
        <translation>Jeden Text in diesen Ordner schreiben, benannt nach der Aufnahme.</translation>
    </message>
    <message>
        <source>Recordings; - for standard input.</source>
        <translation>Aufnahmen; - für die Standardeingabe.</translation>
    </message>
    <message>
        <source>no model: </source>
        <translation>kein Modell: </translation>
    </message>
    <message>
        <source>There is no model file %1</source>
        <translation>Es gibt keine Modelldatei %1</translation>
    </message>
    <message>
        <source>%1 is no speech model, which are .bin files. --ctc-model takes the one that looks for words</source>
        <translation>%1 ist kein Spracherkennungsmodell; das sind .bin-Dateien. --ctc-model nimmt das Modell, das nach Wörtern sucht</translation>
    </message>
    <message>
        <source>There is no model &quot;%1&quot;. The catalogue has %2; the path of a file works too</source>
        <translation>Es gibt kein Modell „%1“. Zur Wahl stehen %2; auch der Pfad einer Datei geht</translation>
    </message>
    <message>
        <source>The model &quot;%1&quot; is not downloaded: run vantro models download %2</source>
        <translation>Das Modell „%1“ ist nicht heruntergeladen: führe vantro models download %2 aus</translation>
    </message>
    <message>
        <source>Texts to replace in what was recognised. Whole words are replaced, in any case and in the order of the list, in
every dictation and by vantro transcribe.

  list               List all entries, numbered. The default.
  add FIND [WITH]    Replace FIND by WITH; without WITH, delete it.
  remove FIND|#N     Remove the entries for FIND, or entry number N.
  import FILE        Add the entries of a JSON or CSV file (&quot;find,replace&quot;); &quot;-&quot; is standard input.
  export [FILE]      Write all entries to a file, or to standard output.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such entry, 5 the settings cannot be
written.</source>
        <translation>Texte, die im Erkannten ersetzt werden. Ersetzt werden ganze Wörter, groß oder klein geschrieben und in der Reihenfolge der
Liste, in jedem Diktat und von vantro transcribe.

  list               Listet alle Einträge nummeriert auf. Das ist die Vorgabe.
  add FIND [WITH]    Ersetzt FIND durch WITH; ohne WITH wird es gelöscht.
  remove FIND|#N     Entfernt die Einträge für FIND oder den Eintrag Nummer N.
  import FILE        Fügt die Einträge einer JSON- oder CSV-Datei hinzu („find,replace“); „-“ ist die Standardeingabe.
  export [FILE]      Schreibt alle Einträge in eine Datei oder auf die Standardausgabe.

Exit-Status: 0 erledigt, 1 gescheitert, 2 falscher Aufruf, 3 kein solcher Eintrag, 5 die Einstellungen lassen sich nicht
schreiben.</translation>
    </message>
    <message>
        <source>Words that the engine should recognise and spell correctly. Use sparingly: too many words can
confuse it and may affect punctuation, language detection, and formatting.

  list               List all words, numbered. The default.
  add WORD...        Add words. --sounds-like TEXT and --weight NUMBER are for the
                     Parakeet models, and change words that are there already, too.
  try FILE           Transcribe a recording with a Parakeet model and show where your
                     words, or those given by --term, were looked for and what spoke
                     for them: logarithms of likelihoods of what was heard and of the term.
  remove WORD|#N     Remove a word, or word number N.
  import FILE        Add the words of a JSON or CSV file (&quot;word&quot;); &quot;-&quot; is standard input.
  export [FILE]      Write all words to a file, or to standard output.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such word, 5 the settings cannot be
written.</source>
        <translation>Wörter, die richtig erkannt und geschrieben werden sollen. Nimm wenige: Zu viele Wörter können verwirren und
Zeichensetzung, Spracherkennung und Formatierung stören.

  list               Listet alle Wörter nummeriert auf. Das ist die Vorgabe.
  add WORD...        Fügt Wörter hinzu. --sounds-like TEXT und --weight NUMBER sind für die
                     Parakeet-Modelle und ändern auch Wörter, die schon da sind.
  try FILE           Transkribiert eine Aufnahme mit einem Parakeet-Modell und zeigt, wo nach
                     deinen Wörtern oder denen von --term gesucht wurde und was für sie sprach:
                     Logarithmen der Wahrscheinlichkeit des Gehörten und des Wortes.
  remove WORD|#N     Entfernt ein Wort oder das Wort Nummer N.
  import FILE        Fügt die Wörter einer JSON- oder CSV-Datei hinzu („word“); „-“ ist die Standardeingabe.
  export [FILE]      Schreibt alle Wörter in eine Datei oder auf die Standardausgabe.

Exit-Status: 0 erledigt, 1 gescheitert, 2 falscher Aufruf, 3 kein solches Wort, 5 die Einstellungen lassen sich nicht
schreiben.</translation>
    </message>
    <message>
        <source>No text replacements configured yet.</source>
        <translation>Noch keine Ersetzungen.</translation>
    </message>
    <message>
        <source>(deleted)</source>
        <translation>(gelöscht)</translation>
    </message>
    <message>
        <source>NO.</source>
        <translation>NR.</translation>
    </message>
    <message>
        <source>REPLACE WITH</source>
        <translation>ERSETZEN DURCH</translation>
    </message>
    <message>
        <source>No custom vocabulary words added yet.</source>
        <translation>Noch keine eigenen Wörter.</translation>
    </message>
    <message>
        <source>sounds like </source>
        <translation>klingt wie </translation>
    </message>
    <message>
        <source>weight %1</source>
        <translation>Gewicht %1</translation>
    </message>
    <message>
        <source>WORD</source>
        <translation>WORT</translation>
    </message>
    <message>
        <source>WITH PARAKEET</source>
        <translation>MIT PARAKEET</translation>
    </message>
    <message>
        <source>there is no entry &quot;%1&quot;: vantro %2 lists them</source>
        <translation>es gibt keinen Eintrag „%1“: vantro %2 listet sie auf</translation>
    </message>
    <message>
        <source>%1 removed</source>
        <translation>%1 entfernt</translation>
    </message>
    <message>
        <source>give what to add</source>
        <translation>gib an, was hinzukommt</translation>
    </message>
    <message>
        <source>%1 added</source>
        <translation>%1 hinzugefügt</translation>
    </message>
    <message>
        <source>Changed</source>
        <translation>Geändert</translation>
    </message>
    <message>
        <source>Nothing new</source>
        <translation>Nichts Neues</translation>
    </message>
    <message>
        <source>. It was read as JSON: --format csv reads one entry a line.</source>
        <translation>. Es wurde als JSON gelesen: --format csv liest einen Eintrag je Zeile.</translation>
    </message>
    <message>
        <source>%1 added to %2</source>
        <translation>%1 zu %2 hinzugefügt</translation>
    </message>
    <message>
        <source>needs an entry</source>
        <translation>braucht einen Eintrag</translation>
    </message>
    <message>
        <source>needs a file</source>
        <translation>braucht eine Datei</translation>
    </message>
    <message>
        <source>json or csv, regardless of the file name.</source>
        <translation>json oder csv, gleich wie die Datei heißt.</translation>
    </message>
    <message>
        <source>Show and edit text replacements.</source>
        <translation>Zeigt und ändert Ersetzungen.</translation>
    </message>
    <message>
        <source>Show and edit words that the engine should know.</source>
        <translation>Zeigt und ändert Wörter, die erkannt werden sollen.</translation>
    </message>
    <message>
        <source>needs a recording</source>
        <translation>braucht eine Aufnahme</translation>
    </message>
    <message>
        <source>Another spelling of how the word is said; may be repeated.</source>
        <translation>Eine weitere Schreibung, nach der das Wort klingt; mehrfach möglich.</translation>
    </message>
    <message>
        <source>How readily the word is written, from 0 to 4; usually 1.</source>
        <translation>Wie bereitwillig das Wort geschrieben wird, von 0 bis 4; üblich ist 1.</translation>
    </message>
    <message>
        <source>A word to try; may be repeated.</source>
        <translation>Ein Wort zum Ausprobieren; mehrfach möglich.</translation>
    </message>
    <message>
        <source>Catalogue name or path of the Parakeet model to try with.</source>
        <translation>Katalogname oder Pfad des Parakeet-Modells zum Ausprobieren.</translation>
    </message>
    <message>
        <source>Path of the model that looks for words.</source>
        <translation>Pfad des Modells, das nach Wörtern sucht.</translation>
    </message>
    <message>
        <source>  %1 to %2 s  &quot;%3&quot; → %4: %5 (similarity %6, heard %7, term %8, bias %9)</source>
        <translation>  %1 bis %2 s  „%3“ → %4: %5 (Ähnlichkeit %6, gehört %7, Wort %8, Zugabe %9)</translation>
    </message>
    <message>
        <source>replaced</source>
        <translation>ersetzt</translation>
    </message>
    <message>
        <source>kept</source>
        <translation>behalten</translation>
    </message>
    <message>
        <source>  &quot;%1&quot; cannot be looked for: it needs at least three letters that the model knows, and at most a thousand</source>
        <translation>  nach „%1“ lässt sich nicht suchen: Es braucht mindestens drei Buchstaben, die das Modell kennt, und höchstens tausend</translation>
    </message>
    <message>
        <source>  No place in the recording sounds like it.</source>
        <translation>  Keine Stelle der Aufnahme klingt danach.</translation>
    </message>
    <message>
        <source>  No place in the recording sounds like the others.</source>
        <translation>  Keine Stelle der Aufnahme klingt nach den anderen.</translation>
    </message>
    <message>
        <source>there is no word to try: name one with --term</source>
        <translation>es gibt kein Wort zum Ausprobieren: nenne eines mit --term</translation>
    </message>
    <message>
        <source>whisper models get the words as a prompt: there is nothing to try. Name a Parakeet model with --model</source>
        <translation>Whisper-Modelle bekommen die Wörter als Anweisung: da gibt es nichts auszuprobieren. Nenne mit --model ein Parakeet-Modell</translation>
    </message>
    <message>
        <source>no model: There is no model file %1</source>
        <translation>kein Modell: Es gibt keine Modelldatei %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a weight from 0 to 4</source>
        <translation>„%1“ ist kein Gewicht von 0 bis 4</translation>
    </message>
    <message>
        <source>Exit status: 0 done, 1 refused, 2 wrong usage, 3 vantro is not running, 4 no session bus.</source>
        <translation>Exit-Status: 0 erledigt, 1 abgelehnt, 2 falscher Aufruf, 3 vantro läuft nicht, 4 kein Sitzungsbus.</translation>
    </message>
    <message>
        <source>open, stop or original.</source>
        <translation>open, stop oder original.</translation>
    </message>
    <message>
        <source>Usage: vantro [--shortcut KEYS] [--model-host URL] [--verbose]
       vantro COMMAND [OPTION...]

Without a command, vantro starts and waits for its shortcut: press it, speak, press
Space, and the text appears in the window you were working in. Escape cancels.

Options:
  --shortcut KEYS   Use this shortcut from now on, for example Ctrl+Alt+D.
  --model-host URL  Download speech models from there (http, https or file) instead of the public repository.
                    VANTRO_MODEL_HOST does the same.
  --verbose         Log in detail to standard error.
  --help            Show this help; after a command, that of the command.
  --version         Show the version.

Commands:
</source>
        <translation>Aufruf: vantro [--shortcut KEYS] [--model-host URL] [--verbose]
        vantro COMMAND [OPTION...]

Ohne Befehl startet vantro und wartet auf sein Tastenkürzel: Drück es, sprich, drück
die Leertaste, und der Text erscheint im Fenster, in dem du gerade warst. Escape
bricht ab.

Optionen:
  --shortcut KEYS   Ab jetzt dieses Tastenkürzel verwenden, etwa Ctrl+Alt+D.
  --model-host URL  Sprachmodelle von dort laden (http, https oder file) statt aus der öffentlichen Quelle.
                    VANTRO_MODEL_HOST bewirkt dasselbe.
  --verbose         Ausführlich auf der Standardfehlerausgabe protokollieren.
  --help            Zeigt diese Hilfe; nach einem Befehl die seine.
  --version         Zeigt die Version.

Befehle:
</translation>
    </message>
    <message>
        <source>y</source>
        <extracomment>What is typed for yes, in lower case, and the choice after a question.</extracomment>
        <translation>j</translation>
    </message>
    <message>
        <source>[y/N]</source>
        <translation>[j/N]</translation>
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
    <name>Exception</name>
    <message>
        <source>Speech recognition failed.</source>
        <translation>Die Spracherkennung ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>This processor cannot run the Parakeet models.</source>
        <translation>Dieser Prozessor kann die Parakeet-Modelle nicht ausführen.</translation>
    </message>
    <message>
        <source>The audio could not be converted for recognition.</source>
        <translation>Der Ton ließ sich nicht für die Erkennung umwandeln.</translation>
    </message>
    <message>
        <source>The audio file could not be read.</source>
        <translation>Die Tondatei ließ sich nicht lesen.</translation>
    </message>
    <message>
        <source>The speech encoder could not be set up.</source>
        <translation>Der Sprach-Encoder ließ sich nicht einrichten.</translation>
    </message>
    <message>
        <source>The speech recogniser has no model loaded.</source>
        <translation>Die Spracherkennung hat kein Modell geladen.</translation>
    </message>
    <message>
        <source>The recording contains no usable audio.</source>
        <translation>Die Aufnahme enthält keinen brauchbaren Ton.</translation>
    </message>
    <message>
        <source>Failed to load Parakeet CoreML models.</source>
        <translation>Die Parakeet-Modelle ließen sich nicht laden.</translation>
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
    <name>Journal</name>
    <message>
        <source>journalctl could not be started: </source>
        <translation>journalctl konnte nicht gestartet werden: </translation>
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
    <message>
        <source>Paste as spoken</source>
        <translation>Gesprochenes einfügen</translation>
    </message>
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
    <name>LlamaError</name>
    <message>
        <source>it is not the file that was published</source>
        <translation>sie ist nicht die veröffentlichte Datei</translation>
    </message>
    <message>
        <source>the text cannot be divided into tokens</source>
        <translation>der Text lässt sich nicht in Tokens zerlegen</translation>
    </message>
    <message>
        <source>its chat template is not known</source>
        <translation>seine Chatvorlage ist nicht bekannt</translation>
    </message>
    <message>
        <source>the library refuses it</source>
        <translation>die Bibliothek lehnt es ab</translation>
    </message>
    <message>
        <source>there is no memory for its context</source>
        <translation>für seinen Kontext reicht der Arbeitsspeicher nicht</translation>
    </message>
    <message>
        <source>the library&apos;s code is %1</source>
        <translation>der Code der Bibliothek ist %1</translation>
    </message>
    <message>
        <source>the answer did not end</source>
        <translation>die Antwort nahm kein Ende</translation>
    </message>
    <message>
        <source>no model is loaded</source>
        <translation>kein Modell ist geladen</translation>
    </message>
    <message>
        <source>it needs %1 MiB of memory, and %2 are available</source>
        <translation>es braucht %1 MiB Arbeitsspeicher, verfügbar sind %2</translation>
    </message>
    <message>
        <source>no ggml module for this processor is beside the program</source>
        <translation>neben dem Programm liegt kein ggml-Modul für diesen Prozessor</translation>
    </message>
    <message>
        <source>%1 tokens are too many</source>
        <translation>%1 Tokens sind zu viele</translation>
    </message>
    <message>
        <source>it is no GGUF file, or a damaged one</source>
        <translation>sie ist keine GGUF-Datei oder beschädigt</translation>
    </message>
    <message>
        <source>it does not say of which architecture it is</source>
        <translation>sie nennt ihre Architektur nicht</translation>
    </message>
    <message>
        <source>it contains no weights</source>
        <translation>sie enthält keine Gewichte</translation>
    </message>
    <message>
        <source>the file ends before its last weight</source>
        <translation>die Datei endet vor ihrem letzten Gewicht</translation>
    </message>
    <message>
        <source>the file is not there or may not be read</source>
        <translation>die Datei fehlt oder darf nicht gelesen werden</translation>
    </message>
    <message>
        <source>it has no chat template, so it follows no instructions</source>
        <translation>sie hat keine Chatvorlage und befolgt daher keine Anweisungen</translation>
    </message>
    <message>
        <source>there is no language model</source>
        <translation>es gibt kein Sprachmodell</translation>
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
    <message>
        <source>%1 is being downloaded. Stop the download first.</source>
        <translation>%1 wird gerade heruntergeladen. Halte den Download zuerst an.</translation>
    </message>
    <message>
        <source>%1 could not be removed: %2</source>
        <translation>%1 konnte nicht entfernt werden: %2</translation>
    </message>
    <message>
        <source>%1 could not be read: %2</source>
        <translation>%1 konnte nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>%1 is disabled on this system, so model files cannot be verified</source>
        <translation>%1 ist auf diesem System abgeschaltet, darum lassen sich Modelldateien nicht prüfen</translation>
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
    <name>ModelFiles</name>
    <message>
        <source>No engine runs %1</source>
        <translation>Keine Engine kann %1 ausführen</translation>
    </message>
    <message>
        <source>%1 is not a usable model: %2</source>
        <translation>%1 ist kein brauchbares Modell: %2</translation>
    </message>
    <message>
        <source>The model that looks for words is missing: Settings, Vocabulary tells how to get it.</source>
        <translation>Das Modell, das nach Wörtern sucht, fehlt: Unter Einstellungen, Wortschatz steht, wie du es bekommst.</translation>
    </message>
    <message>
        <source>%1 is not a complete Parakeet model (%2)</source>
        <translation>%1 ist kein vollständiges Parakeet-Modell (%2)</translation>
    </message>
    <message>
        <source>. It was not downloaded by vantro and is left alone: %1</source>
        <translation>. Es wurde nicht von vantro heruntergeladen und bleibt unberührt: %1</translation>
    </message>
    <message>
        <source> and is being replaced right now. Try again later.</source>
        <translation> und wird gerade ersetzt. Versuche es später erneut.</translation>
    </message>
    <message>
        <source> and cannot be removed.</source>
        <translation> und lässt sich nicht entfernen.</translation>
    </message>
    <message>
        <source>. It has been removed and will be fetched again.</source>
        <translation>. Es wurde entfernt und wird neu geladen.</translation>
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
    <message>
        <source>%1 could not be created: %2</source>
        <translation>%1 konnte nicht angelegt werden: %2</translation>
    </message>
    <message>
        <source>%1 could not be locked: %2</source>
        <translation>%1 konnte nicht gesperrt werden: %2</translation>
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
    <name>QCommandLineParser</name>
    <message>
        <source>Options:</source>
        <translation>Optionen:</translation>
    </message>
    <message>
        <source>Arguments:</source>
        <translation>Argumente:</translation>
    </message>
    <message>
        <source>Unknown option &apos;%1&apos;.</source>
        <translation>Unbekannte Option „%1“.</translation>
    </message>
    <message>
        <source>Unknown options: %1.</source>
        <translation>Unbekannte Optionen: %1.</translation>
    </message>
    <message>
        <source>Missing value after &apos;%1&apos;.</source>
        <translation>Nach „%1“ fehlt der Wert.</translation>
    </message>
    <message>
        <source>Unexpected value after &apos;%1&apos;.</source>
        <translation>Nach „%1“ steht ein Wert, der nicht erwartet wird.</translation>
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
    <name>RecordingFile</name>
    <message>
        <source>%1 is not a recording</source>
        <translation>%1 ist keine Aufnahme</translation>
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
    <name>SettingMeaning</name>
    <message>
        <source>false: only copy, and show how to paste</source>
        <translation>false: nur kopieren und zeigen, wie man einfügt</translation>
    </message>
    <message>
        <source>true: the dictated text stays on the clipboard after pasting</source>
        <translation>true: der diktierte Text bleibt nach dem Einfügen in der Zwischenablage</translation>
    </message>
    <message>
        <source>true: pictures, formatted text and files that were on the clipboard come back after pasting, not only plain text</source>
        <translation>true: nach dem Einfügen kehren auch Bilder, formatierter Text und Dateien in die Zwischenablage zurück, nicht nur reiner Text</translation>
    </message>
    <message>
        <source>true: a dictation that follows another one in the same window within a minute is joined to it with a space</source>
        <translation>true: ein Diktat, das im selben Fenster binnen einer Minute auf ein anderes folgt, schließt mit einem Leerzeichen an</translation>
    </message>
    <message>
        <source>true: a short sound when the text is ready</source>
        <translation>true: ein kurzer Ton, wenn der Text fertig ist</translation>
    </message>
    <message>
        <source>true: the recording lasts as long as the shortcut is held; `vantro shortcuts mode` sets it</source>
        <translation>true: die Aufnahme dauert so lange, wie das Tastenkürzel gehalten wird; `vantro shortcuts mode` setzt es</translation>
    </message>
    <message>
        <source>or `Custom Device`, `Prioritized`; `vantro devices` sets it</source>
        <translation>oder `Custom Device`, `Prioritized`; `vantro devices` setzt es</translation>
    </message>
    <message>
        <source>true: switch a Bluetooth headset to its headset profile while recording from it</source>
        <translation>true: ein Bluetooth-Headset zum Aufnehmen in sein Headset-Profil schalten</translation>
    </message>
    <message>
        <source>the mode a dictation starts in</source>
        <translation>der Modus, in dem ein Diktat beginnt</translation>
    </message>
    <message>
        <source>the spoken language, as a code such as `en`</source>
        <translation>die gesprochene Sprache, als Kürzel wie `en`</translation>
    </message>
    <message>
        <source>the speech model; `vantro models select NAME` sets it</source>
        <translation>das Spracherkennungsmodell; `vantro models select NAME` setzt es</translation>
    </message>
    <message>
        <source>where speech models are downloaded from</source>
        <translation>woher Spracherkennungsmodelle geladen werden</translation>
    </message>
    <message>
        <source>true: the model stays loaded between dictations</source>
        <translation>true: das Modell bleibt zwischen Diktaten geladen</translation>
    </message>
    <message>
        <source>the language model of this machine; `vantro models select NAME` sets it</source>
        <translation>das Sprachmodell dieses Rechners; `vantro models select NAME` setzt es</translation>
    </message>
    <message>
        <source>true: the language model of this machine stays loaded between dictations</source>
        <translation>true: das Sprachmodell dieses Rechners bleibt zwischen Diktaten geladen</translation>
    </message>
    <message>
        <source>false: recognition starts only when the recording has ended, which uses less power but takes longer</source>
        <translation>false: erkannt wird erst nach dem Ende der Aufnahme; das spart Strom, dauert aber länger</translation>
    </message>
    <message>
        <source>true: the panel shows what was understood until the last pause</source>
        <translation>true: das Fenster zeigt, was bis zur letzten Pause verstanden wurde</translation>
    </message>
    <message>
        <source>`light` or `dark`</source>
        <translation>`light` (hell) oder `dark` (dunkel)</translation>
    </message>
    <message>
        <source>true: no animations</source>
        <translation>true: keine Animationen</translation>
    </message>
    <message>
        <source>how long dictations stay in the history: a number of days, or `never`, which deletes those that are there</source>
        <translation>wie lange Diktate im Verlauf bleiben: eine Anzahl von Tagen oder `never`, das die vorhandenen löscht</translation>
    </message>
    <message>
        <source>how long recordings are kept with their dictations: a number of days, `forever`, or `never`, which deletes those that are there</source>
        <translation>wie lange Aufnahmen bei ihren Diktaten bleiben: eine Anzahl von Tagen, `forever` oder `never`, das die vorhandenen löscht</translation>
    </message>
    <message>
        <source>what kept recordings may take on the disk, in MB: beyond it the oldest are deleted</source>
        <translation>wie viel Platz aufbewahrte Aufnahmen belegen dürfen, in MB: darüber hinaus werden die ältesten gelöscht</translation>
    </message>
    <message>
        <source>false: the words dictated each day are not counted, and those counted are forgotten</source>
        <translation>false: die täglich diktierten Wörter werden nicht gezählt und die gezählten vergessen</translation>
    </message>
    <message>
        <source>true: check for updates at startup</source>
        <translation>true: beim Start nach neuen Versionen sehen</translation>
    </message>
    <message>
        <source>paste keystrokes of more windows, as JSON: `{&quot;my-terminal&quot;: &quot;Ctrl+Shift+V&quot;}`</source>
        <translation>Einfügetasten weiterer Fenster, als JSON: `{&quot;mein-terminal&quot;: &quot;Ctrl+Shift+V&quot;}`</translation>
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
    <name>StoreError</name>
    <message>
        <source>the day was deleted</source>
        <translation>der Tag wurde gelöscht</translation>
    </message>
    <message>
        <source>The folder %1 cannot be created</source>
        <translation>Der Ordner %1 lässt sich nicht anlegen</translation>
    </message>
    <message>
        <source>The history %1 cannot be written to: %2</source>
        <translation>Der Verlauf %1 lässt sich nicht schreiben: %2</translation>
    </message>
    <message>
        <source>Qt&apos;s SQLite driver is missing: install the package libqt6sql6-sqlite</source>
        <translation>Der SQLite-Treiber von Qt fehlt: installiere das Paket libqt6sql6-sqlite</translation>
    </message>
    <message>
        <source>The history %1 has been deleted, moved or replaced while it was in use. What was only in that file is gone with it; what follows goes into the file that is there now</source>
        <translation>Der Verlauf %1 wurde gelöscht, verschoben oder ersetzt, während er in Gebrauch war. Was nur in jener Datei stand, ist mit ihr fort; was folgt, kommt in die jetzige Datei</translation>
    </message>
    <message>
        <source>Nothing more can be written to the history %1: is a quota used up?</source>
        <translation>In den Verlauf %1 passt nichts mehr: Ist ein Kontingent aufgebraucht?</translation>
    </message>
    <message>
        <source>The history %1 is locked by another program: end that program and try again</source>
        <translation>Der Verlauf %1 ist von einem anderen Programm gesperrt: beende es und versuche es erneut</translation>
    </message>
    <message>
        <source>There is no space left on the disk for the history %1: free some space</source>
        <translation>Auf dem Datenträger ist kein Platz mehr für den Verlauf %1: schaffe Platz</translation>
    </message>
    <message>
        <source>The history %1 cannot be written to</source>
        <translation>Der Verlauf %1 lässt sich nicht schreiben</translation>
    </message>
    <message>
        <source>The history %1 is damaged (%2) and was left unchanged: replace it with a backup or move it away</source>
        <translation>Der Verlauf %1 ist beschädigt (%2) und blieb unverändert: ersetze ihn durch eine Sicherung oder verschiebe ihn</translation>
    </message>
    <message>
        <source>The history %1 cannot be opened: check that you can write to its folder and files</source>
        <translation>Der Verlauf %1 lässt sich nicht öffnen: prüfe, ob du seinen Ordner und seine Dateien schreiben darfst</translation>
    </message>
    <message>
        <source>The history %1 cannot be used: %2</source>
        <translation>Der Verlauf %1 lässt sich nicht benutzen: %2</translation>
    </message>
    <message>
        <source>Failed to load persistent stores: </source>
        <translation>Der Verlauf konnte nicht geladen werden: </translation>
    </message>
    <message>
        <source>The history %1 was written by a newer version of vantro (schema %2, this one knows %3): install that version</source>
        <translation>Den Verlauf %1 hat eine neuere Version von vantro geschrieben (Schema %2, diese kennt %3): installiere jene Version</translation>
    </message>
    <message>
        <source>The file %1 is another program&apos;s database: move it away</source>
        <translation>Die Datei %1 ist die Datenbank eines anderen Programms: verschiebe sie</translation>
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
    <message>
        <source>the server responded with status %1</source>
        <translation>der Server antwortete mit Status %1</translation>
    </message>
</context>
<context>
    <name>UserDefaults</name>
    <message>
        <source>the settings file %1 cannot be written: nothing is changed</source>
        <translation>die Einstellungsdatei %1 lässt sich nicht schreiben: nichts ist geändert</translation>
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
    <name>VNavList</name>
    <message>
        <source>Pages</source>
        <translation>Seiten</translation>
    </message>
</context>
<context>
    <name>VTabs</name>
    <message>
        <source>Pages</source>
        <translation>Seiten</translation>
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
    <name>WhisperModelFiles</name>
    <message>
        <source>%1 could not be read: %2</source>
        <translation>%1 konnte nicht gelesen werden: %2</translation>
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
