#!/usr/bin/python3
"""What becomes of a dictation when microphones and the sound server go away."""

from dictationcase import CHILD, CHILD_WORDS, SHORTCUT_KEYS, TABLE, DictationCase, main, words

from audioserver import LOUDSPEAKER, MICROPHONE


class SoundFaultTest(DictationCase):
    def tearDown(self):
        audio = self.desktop.audio
        if MICROPHONE not in audio.sources():
            audio.restore_microphone()
        super().tearDown()

    def refuse_dictation(self, because):
        """The shortcut opens no launcher but an alert, and for an impatient user not another one."""
        with self.delivers_nothing():
            for presses in (1, 2):
                self.desktop.press(SHORTCUT_KEYS)
                self.wait(lambda: self.news().count("vantro[Alert]") == presses, 20, "the shortcut to be answered")
                self.assertEqual(self.vantro.status()["state"], "idle")
            alert = self.wait_for_alert_saying(because)
            self.assertEqual(self.vantro.alerts(), [alert])
            self.close_alert(alert)
            self.assertIsNone(self.vantro.launcher())
        self.assertEqual(self.vantro.status()["state"], "idle")

    def test_without_a_microphone_the_user_is_told_so(self):
        self.desktop.audio.remove_source()
        self.wait(lambda: self.vantro.status()["microphone"] != MICROPHONE, 10, "the program to notice")
        self.refuse_dictation("No microphone is connected")
        self.assertEqual(self.desktop.audio.recording_sources(), [], "a loudspeaker is being listened to")
        self.desktop.audio.restore_microphone()
        self.check_next_dictation()

    def test_without_a_sound_server_the_user_is_told_so(self):
        self.desktop.audio.kill()
        self.refuse_dictation("The sound server does not answer")
        self.desktop.audio.start()
        self.check_next_dictation()

    def test_what_was_said_before_the_sound_server_died_is_kept(self):
        self.vantro.open_launcher()
        self.speak(CHILD)
        self.desktop.audio.kill()
        text = self.wait(self.arrived, 60, "the words from before")
        self.assertEqual(words(text)[:len(CHILD_WORDS)], CHILD_WORDS)
        alert = self.wait_for_alert_saying("The microphone was lost during the recording")
        self.desktop.audio.start()
        # An alert that nobody has closed is in nobody's way.
        self.desktop.activate(self.editor.window)
        self.check_next_dictation()
        self.close_alert(alert)

    def test_a_sound_server_that_comes_back_at_once_is_recorded_again(self):
        self.vantro.open_launcher()
        self.speak(CHILD)
        self.desktop.audio.kill()
        self.desktop.audio.start()
        self.wait(self.desktop.audio.recording_sources, 10, "the recording to go on")
        self.speak(TABLE)
        self.vantro.end_dictation()
        heard = words(self.wait_for_text())
        self.assertEqual(heard[:len(CHILD_WORDS)], CHILD_WORDS)
        self.assertIn("table", heard)

    def test_no_loudspeaker_is_ever_recorded_when_the_last_microphone_is_unplugged(self):
        self.vantro.open_launcher()
        self.speak(CHILD)
        self.desktop.audio.remove_source()
        playing = self.desktop.audio.start_playing_into(LOUDSPEAKER, TABLE)

        def heard_or_over():
            self.assertNotIn(f"{LOUDSPEAKER}.monitor", self.desktop.audio.recording_sources())
            return self.arrived()

        text = self.wait(heard_or_over, 60, "the words from before")
        playing.stop()
        self.assertEqual(words(text)[:len(CHILD_WORDS)], CHILD_WORDS)
        self.assertNotIn("table", words(text))
        self.close_alert(self.wait_for_alert_saying("The microphone was lost during the recording"))
        self.desktop.audio.restore_microphone()
        self.check_next_dictation()


if __name__ == "__main__":
    main()
