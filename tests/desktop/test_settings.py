#!/usr/bin/python3
"""The settings' pages with lists of the user's own, walked through by keyboard: modes, applications, a provider's models."""

import json
import sys
import tempfile
from pathlib import Path

from dictationcase import ROOT, main
from shellcase import SETTINGS_TITLE, SettingsCase

sys.path.insert(0, str(ROOT / "tests" / "ai" / "services"))
from chatserver import Answer, ChatServer  # noqa: E402


class SettingsTest(SettingsCase):
    @classmethod
    def setUpClass(cls):
        cls.server = cls.enterClassContext(ChatServer())
        super().setUpClass()
        cls.vantro.quit()
        cls.vantro.run("providers", "add", "--type", "custom", "--name", "House", "--model", "small", "--base-url",
                       cls.server.url + "/v1", "--key-stdin", stdin=b"sk-house")
        cls.vantro.start()

    def command(self, *words):
        result = self.vantro.run(*words, "--json")
        self.assertEqual(result.returncode, 0, result.stderr)
        return json.loads(result.stdout)

    def test_a_mode_is_made_tried_and_given_its_digit(self):
        self.open("Modes")
        self.tab_to("Add a mode")
        self.desktop.press("space")
        self.tab_to("Name of the mode", key="shift+Tab")
        self.desktop.press("ctrl+a")
        self.desktop.type_text("Letters")
        self.tab_to("Rewritten by")
        self.desktop.press("End")
        self.desktop.press("Up")
        self.wait(lambda: self.command("modes", "show", "Letters").get("provider_id"), 5, "a provider")
        self.tab_to("Prompt")
        self.desktop.type_text("Write a letter.")
        self.tab_to("Prompt", key="shift+Tab")
        self.wait(lambda: self.command("modes", "show", "Letters")["usable"], 5, "the mode to be ready")
        self.server.answer = Answer.chat("Dear Anna, may we meet on Wednesday at three?")
        self.tab_to("Try this prompt")
        self.desktop.press("space")
        self.wait(lambda: "Dear Anna, may we meet on Wednesday at three?" in self.shown(), 20, "the letter")
        self.server.answer = Answer(status=500)
        self.desktop.press("space")
        self.wait(lambda: any("500" in name for name in self.shown()), 20, "the error")
        self.tab_to("Move up", of="Letters", key="shift+Tab")
        for place in range(len(self.command("modes")) - 2, -1, -1):
            self.desktop.press("space")
            self.wait(lambda: self.command("modes")[place]["name"] == "Letters", 5, f"place {place}")
        self.wait(lambda: (stop := self.reader.focused(SETTINGS_TITLE)) and stop.name == "Move down", 5,
                  "the keyboard on what still can be pressed, and in sight")
        self.drag_to_the_end("Letters")
        self.close(SETTINGS_TITLE)
        self.vantro.run("modes", "remove", "Letters", "--yes")

    def drag_to_the_end(self, name):
        """With the mouse, over all other modes: the page scrolls along."""
        grip = next(node for node in self.reader.nodes(SETTINGS_TITLE)
                    if node.name == "Drag to move" and node.description == name)
        x, y, width, height = grip.extents()
        window = self.window(SETTINGS_TITLE)
        self.desktop.run("xdotool", "mousemove", str(x + width // 2), str(y + height // 2), "mousedown", "1")
        for to in range(y, window.y + window.height - 20, 40):
            self.desktop.run("xdotool", "mousemove", str(x + width // 2), str(to))
        self.wait(lambda: self.command("modes")[-1]["name"] == name, 10, "the last place")
        self.desktop.run("xdotool", "mouseup", "1")
        self.wait(lambda: grip.extents()[1] < window.y + window.height, 2, "the card to be in sight")

    def listeners(self):
        return len(self.desktop.audio._pactl("list", "short", "source-outputs").splitlines())

    def test_the_level_is_shown_as_long_as_its_page_is_whatever_is_searched(self):
        before = self.listeners()
        self.open("Microphone")
        self.wait(lambda: self.listeners() > before, 10, "the microphone to be heard")
        for _ in range(10):
            # Faster than what was searched is cleared away: what is left of it would complain in the log.
            for words in ("level", "stored computer", "input"):
                self.desktop.press("ctrl+f")
                self.desktop.type_text(words)
                self.desktop.press("ctrl+a")
                self.desktop.press("BackSpace")
        self.assertGreater(self.listeners(), before)
        self.open("General")
        self.wait(lambda: self.listeners() == before, 10, "it to end with the page")
        self.close(SETTINGS_TITLE)

    def test_an_application_that_was_clicked_into_gets_paste_keys(self):
        self.open("Applications")
        self.desktop.activate(self.editor.window)
        self.desktop.activate(self.window(SETTINGS_TITLE))
        self.wait(lambda: "mousepad" in self.shown(), 5, "its name")
        self.tab_to("mousepad")
        self.desktop.press("space")
        self.wait(lambda: self.command("applications"), 5, "its rule")
        self.tab_to("Paste keys")
        for keys in ("Ctrl+V", "Ctrl+Shift+V", "Shift+Insert"):
            self.desktop.press("Down")
            self.wait(lambda: self.command("applications")[0]["paste_keys"] == keys, 5, keys)
        self.tab_to("Remove", of="mousepad")
        self.desktop.press("space")
        self.wait(lambda: not self.command("applications"), 5, "the removal")
        self.tab_to("Undo", key="shift+Tab")
        self.desktop.press("space")
        self.wait(lambda: self.command("applications"), 5, "it to come back")
        self.close(SETTINGS_TITLE)
        self.vantro.run("applications", "remove", "mousepad")

    def choose_file(self, title, path):
        self.has_keyboard(self.window(title))
        self.desktop.press("ctrl+a")
        self.desktop.type_text(str(path))
        self.desktop.press("Return")
        self.wait(lambda: not self.vantro.window(title), 5, f"{title} to close")
        self.has_keyboard(self.window(SETTINGS_TITLE))

    def test_words_are_imported_all_or_none_and_exported(self):
        folder = Path(self.enterContext(tempfile.TemporaryDirectory(prefix="vantro-lists-")))
        self.vantro.run("vocabulary", "add", "Grafana")
        self.addCleanup(lambda: [self.vantro.run("vocabulary", "remove", word) for word in self.command("vocabulary")])
        self.open("Vocabulary")
        self.tab_to("Import...", of="Words")
        for name, content, told in (
                ("damaged.csv", 'word\nQuillon\n"Tensora\n', "line 3: a quote is not closed"),
                ("two.csv", "word\nQuillon,Tensora\n", "entry 1 is not of the form word"),
                ("many.csv", "".join(f"word{number}\n" for number in range(60)), "no room for 60 more"),
                ("binary.json", "\0" * 100, "at byte")):
            (folder / name).write_text(content)
            self.desktop.press("space")
            self.choose_file("Import List", folder / name)
            self.wait(lambda: any(name in text and told in text and text.endswith("The list is unchanged.")
                                  for text in self.shown()), 5, told)
            self.assertEqual(self.command("vocabulary"), ["Grafana"])
        (folder / "good.csv").write_text("word\nQuillon\nGrafana\nBär\nQuillon\n")
        self.desktop.press("space")
        self.choose_file("Import List", folder / "good.csv")
        self.wait(lambda: "good.csv: 2 added, 2 were there already." in self.shown(), 5, "what was added")
        self.assertEqual(self.command("vocabulary"), ["Grafana", "Quillon", "Bär"])
        self.tab_to("Export...", of="Words")
        self.desktop.press("space")
        self.choose_file("Export List", folder / "out.csv")
        self.wait(lambda: f"Written to {folder / 'out.csv'}." in self.shown(), 5, "where it is")
        self.assertEqual((folder / "out.csv").read_text(), "word\nGrafana\nQuillon\nBär\n")
        self.close(SETTINGS_TITLE)

    def test_a_providers_models_are_asked_for_and_chosen(self):
        self.open("Providers")
        self.tab_to("Edit", of="House")
        self.desktop.press("space")
        self.server.answer = Answer(status=401)
        self.tab_to("Ask the server", key="shift+Tab")
        self.desktop.press("space")
        self.wait(lambda: any("invalid" in name.lower() for name in self.shown()), 20, "the refusal")
        self.server.answer = Answer(body=json.dumps({"data": [{"id": "tiny"}, {"id": "large"}]}), delay_s=1)
        self.desktop.press("space")
        self.assertEqual(self.vantro.status()["state"], "idle", "the program answers meanwhile")
        self.wait(lambda: any("2 models" in name for name in self.shown()), 20, "the list")
        self.tab_to("Models it offers", key="shift+Tab")
        self.desktop.press("End")
        self.tab_to("Save")
        self.desktop.press("space")
        self.wait(lambda: self.command("providers")[-1]["model"] == "tiny", 5, "the model")
        self.close(SETTINGS_TITLE)


if __name__ == "__main__":
    main()
