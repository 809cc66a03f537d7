#!/usr/bin/python3
"""Dictations that a language model rewrites: through a local server, with the key in a real Secret Service."""

import json
import sqlite3
import sys

from dictationcase import CANCEL_KEY, CHILD, CHILD_WORDS, HUD_TITLE, ROOT, DictationCase, main, words

sys.path.insert(0, str(ROOT / "tests" / "ai" / "services"))
from chatserver import Answer, ChatServer  # noqa: E402

KEY = "sk-desktop-4f1c9a7e2b"
LETTER = "Hi,\n\nThe child almost hurt the small dog.\n\nBest,"
ATTRIBUTES = ("service", "com.vantro.app", "account")


class LanguageModelsTest(DictationCase):
    @classmethod
    def setUpClass(cls):
        cls.server = cls.enterClassContext(ChatServer())
        super().setUpClass()

    @classmethod
    def prepare_profile(cls):
        super().prepare_profile()
        cls.vantro.configure(defaultProcessingMode="Email")
        added = cls.vantro.run("providers", "add", "--type", "custom", "--name", "House", "--model", "small",
                               "--base-url", cls.server.url + "/v1", "--key-stdin", "--json", stdin=KEY.encode())
        if added.returncode != 0:
            raise AssertionError(added.stderr)
        cls.provider = json.loads(added.stdout)
        chosen = cls.vantro.run("modes", "set", "Email", "--provider", "House")
        if chosen.returncode != 0:
            raise AssertionError(chosen.stderr)

    def setUp(self):
        super().setUp()
        self.server.answer = Answer.chat(LETTER)
        self.server.requests.clear()

    def dictate_and_fail(self, message):
        with self.delivers_nothing():
            self.dictate(CHILD)
            self.dismiss_alert_saying(message)
            self.wait_until_over()

    def secret_account(self):
        return f"provider-{self.provider['id']}"

    def history(self):
        """The last dictation as it is kept: transcript, formatted text, mode."""
        store = sqlite3.connect(f"file:{self.desktop.data_home / 'vantro/MainModel.sqlite'}?mode=ro", uri=True)
        try:
            return store.execute("SELECT transcription, formatted, processingMode FROM Transcription "
                                 "ORDER BY pk DESC LIMIT 1").fetchone()
        finally:
            store.close()

    # --- tests

    def test_an_email_arrives_as_the_model_wrote_it(self):
        self.vantro.open_launcher()
        self.wait(lambda: self.server.connections, 5, "a connection while the user still speaks")
        self.speak(CHILD)
        self.vantro.end_dictation()
        self.wait(lambda: self.arrived() == LETTER, 60, "the letter in the editor")
        self.wait_until_over()
        request, = self.server.requests
        self.assertEqual(request["path"], "/v1/chat/completions")
        self.assertEqual(request["headers"]["Authorization"], f"Bearer {KEY}")
        body = json.loads(request["body"])
        system, user = body["messages"]
        self.assertEqual(body["model"], "small")
        self.assertIn("Structure it for email communication", system["content"])
        self.assertIn("CRITICAL: Respond ONLY in English.", system["content"])
        self.assertEqual(words(user["content"]), CHILD_WORDS)
        self.assertEqual(self.history(), (user["content"], LETTER, "Email"))

    def test_the_key_is_in_the_secret_service_and_nowhere_else(self):
        self.dictate(CHILD)
        self.wait(self.arrived, 60, "the letter in the editor")
        self.wait_until_over()
        stored = self.desktop.run("secret-tool", "lookup", *ATTRIBUTES, self.secret_account())
        self.assertEqual(stored.strip(), KEY)
        found = [str(path) for path in self.desktop.folder.rglob("*")
                 if path.is_file() and KEY.encode() in path.read_bytes()]
        self.assertEqual(found, [])
        for name in ("cmdline", "environ"):
            with open(f"/proc/{self.vantro.process.pid}/{name}", "rb") as file:
                self.assertNotIn(KEY.encode(), file.read())

    def test_a_failure_is_told_and_nothing_is_delivered(self):
        self.server.answer = Answer(status=503)
        self.dictate_and_fail("API error (503): Unknown error")
        transcript, formatted, _ = self.history()
        self.assertEqual(words(transcript), CHILD_WORDS)
        self.assertEqual(formatted, "")
        self.server.answer = Answer(status=401)
        self.dictate_and_fail("Invalid API key. Please check your credentials.")

    def test_what_was_not_rewritten_is_pasted_as_spoken_on_return_and_copied_on_request(self):
        self.server.answer = Answer(status=503)
        self.dictate(CHILD)
        alert = self.wait_for_alert_saying("API error (503)")
        self.answer(alert, "Return")
        self.wait(lambda: words(self.arrived()) == CHILD_WORDS, 20, "the words in the editor")

        self.dictate(CHILD)
        alert = self.wait_for_alert_saying("API error (503)")
        self.answer(alert, "Tab", "space")
        self.wait(lambda: words(self.desktop.clipboard() or "") == CHILD_WORDS, 5, "the words on the clipboard")

    def test_an_answer_that_is_not_believed_is_kept_and_the_words_are_pasted(self):
        for answer, why in (
                (Answer.chat("Hi Bob,\n\nThe child almost hurt the small dog.\n\nBest,"), "it says \u201cBob\u201d"),
                (Answer.chat("Hi,\n\nThe child almost", finish_reason="length"), "the answer is cut off"),
                (Answer.chat(" "), "the answer is empty")):
            with self.subTest(why):
                self._before = self.editor.text()
                self.server.answer = answer
                self.dictate(CHILD)
                self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
                self.wait(lambda: self.vantro.window(HUD_TITLE), 5, "the display that says why")
                row, = json.loads(self.vantro.run("history", "--limit", "1", "--json").stdout)
                self.assertEqual((words(row["transcription"]), row["formatted"]), (CHILD_WORDS, ""))
                self.assertEqual(row["set_aside"].strip(), json.loads(answer.body)["choices"][0]["message"]["content"].strip())
                self.assertIn(why, row["set_aside_reason"])

    def test_what_the_model_says_around_the_letter_is_not_pasted(self):
        self.server.answer = Answer.chat(f"<think>A mail.</think>Sure! Here is your email:\n\n```\n{LETTER}\n```\n\n"
                                         "Let me know if you would like any changes!")
        self.dictate(CHILD)
        self.wait(lambda: self.arrived() == LETTER, 60, "the letter in the editor")
        self.wait_until_over()

    def test_return_pastes_the_words_as_spoken_without_waiting(self):
        self.server.answer = Answer(stall=True)
        self.dictate(CHILD)
        self.wait(lambda: self.server.requests, 60, "the request")
        self.desktop.press("Return")
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        self.wait_until_over(timeout_s=5)
        self.assertEqual(self.history()[1], "")

    def test_what_was_said_can_be_pasted_afterwards(self):
        self.dictate(CHILD)
        self.wait(lambda: self.arrived() == LETTER, 60, "the letter in the editor")
        self.wait_until_over()
        pasted = self.vantro.run("paste-original")
        self.assertEqual((pasted.returncode, pasted.stderr), (0, ""))
        self.wait(lambda: words(self.arrived()[len(LETTER):]) == CHILD_WORDS, 20, "the words behind the letter")

    def test_a_text_is_rewritten_by_command_and_judged_there_too(self):
        def rewrite(*options, text="the child almost hurt the small dog"):
            return self.vantro.run("rewrite", "--mode", "email", *options, text)

        self.assertEqual(rewrite().stdout, LETTER + "\n")
        self.server.answer = Answer.chat("Hi Bob,\n\nThe child almost hurt the small dog.\n\nBest,")
        result = rewrite()
        self.assertEqual((result.returncode, result.stdout), (6, "the child almost hurt the small dog\n"))
        self.assertIn("it says \u201cBob\u201d", result.stderr)
        found = json.loads(rewrite("--json").stdout)
        self.assertEqual((found["doubt"], found["text"], found["said"]),
                         ("added-name", "the child almost hurt the small dog", "the child almost hurt the small dog"))
        self.server.answer = Answer(status=500)
        self.assertEqual((rewrite().returncode, rewrite().stdout), (1, ""))
        cleaned = self.vantro.run("rewrite", "--clean", "um the the dog comma new line hurt")
        self.assertEqual((cleaned.returncode, cleaned.stdout), (0, "The dog,\nHurt.\n"))
        self.assertEqual(rewrite("--provider", "Nobody").returncode, 3)

    def test_email_and_grammar_take_the_first_provider_that_gets_a_key(self):
        modes = {mode["mode"]: mode for mode in json.loads(self.vantro.run("modes", "--json").stdout)}
        self.assertEqual(modes["Grammar"].get("provider_id"), self.provider["id"])
        self.assertNotIn("provider_id", modes["Notes"])

    def test_a_default_mode_that_nobody_serves_leaves_the_text_as_it_is(self):
        self.assertEqual(self.vantro.run("providers", "edit", "House", "--disable").returncode, 0)
        self.addCleanup(self.vantro.run, "providers", "edit", "House", "--enable")
        self.dictate(CHILD)
        self.assertEqual(words(self.wait_for_text()), CHILD_WORDS)
        self.assertEqual(self.server.requests, [])

    def test_a_cancel_ends_a_request_that_nobody_answers(self):
        self.server.answer = Answer(stall=True)
        with self.delivers_nothing():
            self.dictate(CHILD)
            self.wait(lambda: self.server.requests, 60, "the request")
            self.desktop.press(CANCEL_KEY)
            self.wait_until_over(timeout_s=5)
        self.server.answer = Answer.chat(LETTER)
        self.dictate(CHILD)
        self.wait(lambda: self.arrived() == LETTER, 60, "the next letter in the editor")
        self.wait_until_over()

    def test_a_provider_that_is_changed_elsewhere_is_asked_as_it_is_now(self):
        self.assertEqual(self.vantro.run("providers", "edit", "House", "--model", "large").returncode, 0)
        self.addCleanup(self.vantro.run, "providers", "edit", "House", "--model", "small")

        def asked_model():
            self.server.requests.clear()
            self.dictate(CHILD)
            self.wait(lambda: self.server.requests, 60, "the request")
            self.wait_until_over()
            return json.loads(self.server.requests[0]["body"])["model"]

        self.assertEqual(asked_model(), "large")

    def test_a_missing_key_is_told_and_can_be_given_again(self):
        self.assertEqual(self.vantro.run("providers", "test", "House").returncode, 0)
        self.desktop.run("secret-tool", "clear", *ATTRIBUTES, self.secret_account())
        self.dictate_and_fail("Remote provider is not configured")
        self.assertEqual(self.vantro.run("providers", "test", "House").returncode, 1)
        restored = self.vantro.run("providers", "edit", "House", "--key-stdin", stdin=KEY.encode())
        self.assertEqual(restored.returncode, 0, restored.stderr)

    def test_the_command_line_keeps_the_rules_and_leaves_no_key_behind(self):
        def refused(code, message, *arguments, **more):
            result = self.vantro.run("providers", *arguments, **more)
            self.assertEqual(result.returncode, code, result.stderr)
            self.assertIn(message, result.stderr if isinstance(result.stderr, str) else result.stderr.decode())

        custom = ("add", "--type", "custom", "--name", "Second", "--model", "m")
        refused(2, "Invalid URL format", *custom, "--base-url", "house:8000/v1")
        refused(2, "has an address of its own", "add", "--type", "openai", "--name", "Gateway", "--base-url",
                "https://gateway.example/v1")
        refused(2, "there is no key on standard input", "edit", "House", "--key-stdin", stdin=b"")
        refused(2, "must be at least 1", "edit", "House", "--max-tokens", "0")
        refused(2, "must be between 0 and 2", "edit", "House", "--temperature", "-1")
        refused(2, "needs --yes", "remove", "House")
        refused(3, "there is no provider", "test", "Nobody")
        refused(4, "There is no session bus", *custom, "--base-url", self.server.url, "--key-stdin", stdin=b"key",
                env={"DBUS_SESSION_BUS_ADDRESS": "unix:path=/nonexistent"})

        def providers():
            return {entry["name"]: entry for entry in json.loads(self.vantro.run("providers", "--json").stdout)}

        self.assertEqual(list(providers()), ["OpenAI", "Anthropic", "Gemini", "House"])
        added = self.vantro.run("providers", *custom, "--base-url", self.server.url, "--temperature", "0.5",
                                "--key-stdin", stdin=b"another-key\n")
        self.assertEqual(added.returncode, 0, added.stderr)
        second = providers()["Second"]
        self.assertTrue(second["has_key"])
        self.assertEqual(second["parameters"], {"temperature": 0.5})
        for parameters, sent in (("none", {"model", "messages"}),
                                 ("standard", {"model", "messages", "temperature", "frequency_penalty",
                                               "presence_penalty"})):
            self.assertEqual(self.vantro.run("providers", "edit", "Second", "--parameters", parameters).returncode, 0)
            self.server.requests.clear()
            tested = self.vantro.run("providers", "test", "Second")
            self.assertEqual((tested.returncode, tested.stderr), (0, ""), "one line and no more")
            self.assertEqual(set(json.loads(self.server.requests[0]["body"])), sent)
        self.assertFalse(providers()["OpenAI"]["has_key"])
        removed = self.vantro.run("providers", "remove", "Second", "--yes")
        self.assertEqual(removed.returncode, 0, removed.stderr)
        self.assertIn(f"Cleaned up orphaned API key: provider-{second['id']}", removed.stderr)
        self.assertNotIn("Second", providers())


if __name__ == "__main__":
    main()
