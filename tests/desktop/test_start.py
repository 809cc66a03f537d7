#!/usr/bin/python3
"""The program meets a system that is not as it should be: a taken hot key, a damaged model. And it rests at rest."""

import time

from dictationcase import CHILD, CHILD_WORDS, SHORTCUT_KEYS, STOP_KEY, DictationCase, main, words

from usage import ProcessUsage
from vantro import BUS_NAME

MODEL = "ggml-tiny.en.bin"
IDLE_S = 10
MOST_IDLE_CPU = 0.01
MOST_WAKEUPS_PER_S = 1  # a timer would fire more often


class TakenShortcutTest(DictationCase):
    def test_the_user_reads_that_another_program_has_the_hot_key_and_chooses_another(self):
        self.vantro.quit()
        with self.desktop.display.grabbed(SHORTCUT_KEYS):
            self.vantro.start()
            self._log_before = 0
            self.dismiss_alert_saying("Ctrl+Alt+D is already used by another program")
            self.assertIn("already used by another program", self.vantro.status()["shortcut_failure"])
            self.assertIn("already used by another program", self.vantro.run("status").stdout)
            self.assertEqual(self.vantro.run("--shortcut", "Ctrl+Alt+K").returncode, 0)
            self.dismiss_alert_saying("Press Ctrl+Alt+K")
            self.assertNotIn("shortcut_failure", self.vantro.status())
            self.desktop.press("ctrl+alt+k")
            self.vantro.wait_for_launcher()
            self.speak(CHILD)
            self.desktop.press(STOP_KEY)
            self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        self.restart()
        self.check_next_dictation()


class ActivationTest(DictationCase):
    """The session bus starts an installed program."""

    def setUp(self):
        super().setUp()
        self.vantro.quit()
        service = self.desktop.data_home / "dbus-1/services/com.vantro.app.service"
        service.parent.mkdir(parents=True)
        service.write_text(f"[D-BUS Service]\nName={BUS_NAME}\nExec={self.vantro.program} --shortcut Ctrl+Alt+D\n")
        self.call_bus("ReloadConfig")
        names = ("DISPLAY", "PULSE_SERVER", "HOME", *(name for name in self.desktop.env if name.startswith("XDG_")))
        env = ", ".join(f"'{name}': '{self.desktop.env[name]}'" for name in names if name in self.desktop.env)
        self.call_bus("UpdateActivationEnvironment", "{" + env + "}")
        self.addCleanup(service.unlink)

    def call_bus(self, method, *arguments):
        return self.desktop.call_bus("org.freedesktop.DBus", "/org/freedesktop/DBus", f"org.freedesktop.DBus.{method}",
                                     *arguments)

    def test_a_command_that_begins_something_starts_it_and_others_do_not(self):
        for command in ("status", "stop", "cancel", "quit"):
            self.assertEqual(self.vantro.run(command).returncode, 3, command)
        self.assertFalse(self.desktop.bus_name_owned(BUS_NAME))
        self.desktop.activate(self.editor.window)
        result = self.vantro.run("toggle")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.vantro.wait_for_launcher()
        self.speak(CHILD)
        self.assertEqual(self.vantro.run("toggle").returncode, 0)
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        self.assertEqual(self.vantro.run("quit").returncode, 0)
        self.wait(lambda: not self.desktop.bus_name_owned(BUS_NAME), 10, "its end")
        self.vantro.start()


class BadModelTest(DictationCase):
    @property
    def model(self):
        return self.vantro.models_folder / MODEL

    def fail_dictation(self):
        with self.delivers_nothing():
            self.vantro.open_launcher()
            self.speak(CHILD)
            self.desktop.press(STOP_KEY)
            self.dismiss_alert_saying("Could not load the whisper model at")
            self.wait_until_over()

    def test_a_dictation_without_a_usable_model_says_so_and_the_next_one_with_a_model_works(self):
        self.wait(lambda: "Model tiny.en is downloaded" in self.vantro.log(), 20, "the check of the start")
        whole = self.model.read_bytes()
        faults = {"truncated": whole[:20_000_000], "cut inside the last tensor": whole[:-4],
                  "foreign": b"RIFF" + bytes(100_000)}
        for fault, contents in faults.items():
            with self.subTest(fault):
                self._log_before = len(self.vantro.log())
                self.model.unlink()
                self.model.write_bytes(contents)
                self.fail_dictation()
        self.model.write_bytes(whole)
        self.check_next_dictation()


class IdleTest(DictationCase):
    def test_it_rests_between_dictations(self):
        self.check_next_dictation()
        process = ProcessUsage(self.vantro.process.pid)
        self.wait(lambda: process.rests_for(1), 20, "the end of what a dictation leaves to be done")
        before = process.look()
        time.sleep(IDLE_S)  # what is measured is that nothing happens meanwhile
        after = process.look()
        cpu = (after.cpu_s - before.cpu_s) / IDLE_S
        wakeups = (after.wakeups - before.wakeups) / IDLE_S
        print(f"idle after a dictation: {cpu:.2%} CPU, {wakeups:.1f} wake-ups/s, {after.resident_mb:.0f} MB resident")
        self.assertLess(cpu, MOST_IDLE_CPU)
        self.assertLess(wakeups, MOST_WAKEUPS_PER_S)


if __name__ == "__main__":
    main()
