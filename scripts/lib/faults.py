"""What goes wrong around a dictation. Each fault is a function: it dictates the user's speech, has something go wrong,
puts it right again, and returns where the text was found. It raises where a wait for the text was in vain.
"""

import os
import shlex
import signal
import subprocess
import time
from contextlib import contextmanager

from dictating import ARGUMENTS, CHILD, TABLE, Found
from smalldisk import SmallDisk
from vantro import CANCEL_KEY, HUD_TITLE, SHORTCUT_KEYS

MODEL = "ggml-tiny.en.bin"
DOWNLOAD_TITLE = "Speech model"
# At most so much of what was said before a kill may be missing.
ALLOWED_LOSS_S = 1.0
UNPLUGGED_S = 0.3  # what has been said is on its way to the program meanwhile
STILL_S = 2.0
AFTERWARDS = "copied afterwards"
LONGEST_SLEEP_S = 3.0
RESTORE_S = 0.3


@contextmanager
def frozen(pid):
    os.kill(pid, signal.SIGSTOP)
    try:
        yield
    finally:
        os.kill(pid, signal.SIGCONT)


@contextmanager
def moved_away(path):
    away = path.with_name(path.name + ".away")
    path.rename(away)
    try:
        yield
    finally:
        path.unlink(missing_ok=True)
        away.rename(path)


# --- windows

def target_frozen(user, random):
    user.record()
    with frozen(user.editor.program.pid):
        user.stop()
        user.wait_for_word()
        time.sleep(random.uniform(0, LONGEST_SLEEP_S))  # how long it stays frozen
    user.wait_for_text()
    return Found("window", clipboard=" ".join(user.speech.words))


def target_closed(user, random):
    terminal = user.desktop.open_xterm("Closing")  # the other window is an XTerm
    user.vantro.open_launcher()
    user.speak()
    terminal.program.stop()
    user.stop()
    user.wait_for_word()
    return Found("clipboard")


def user_moved_on(user, random):
    user.record()
    user.stop()
    time.sleep(random.uniform(0, 0.5))  # how long the user hesitates
    user.click_elsewhere()
    return user.wherever_it_is()


def alert_in_front(user, random):
    user.vantro.run(*ARGUMENTS[:2])
    alert = user.wait(lambda: next(iter(user.vantro.alerts()), None), 20, "an alert")
    user.desktop.activate(alert)
    user.record()
    user.stop()
    user.wait_for_text()
    return Found("window")


def cancelled_by_mistake(user, random):
    user.record()
    user.desktop.press(CANCEL_KEY)
    user.vantro.wait_until_closed()
    offer = user.wait(lambda: user.vantro.window(HUD_TITLE), 10, "the offer")
    if random.random() < 0.5:
        user.desktop.press(SHORTCUT_KEYS)
    else:
        user.desktop.run("xdotool", "mousemove", "--window", offer.id, 60, 60, "click", 1)
    user.wait_for_text()
    return Found("window")


def focus_lost(user, random):
    user.record()
    user.click_elsewhere()
    user.wait_until_over()
    return user.expect_from_retry()


# --- the program

def killed_while_recording(user, random):
    speech = user.speech = random.choice((CHILD, TABLE))
    user.vantro.open_launcher()
    player = user.desktop.audio.start_playing(speech.recordings[0])
    user.desktop.audio.wait_until_heard(player)
    begin = time.monotonic()
    time.sleep(random.uniform(1.5, speech.duration_s + ALLOWED_LOSS_S))  # the moment
    user.vantro.process.kill()
    reaches_s = min(speech.duration_s, max(0.0, time.monotonic() - begin - ALLOWED_LOSS_S))
    player.stop()
    user.start_after_end()
    said = user.retry()
    # As if all words were equally long.
    spoken = speech.words[:int(len(speech.words) * reaches_s / speech.duration_s)]
    if said[:len(spoken)] != spoken:
        raise user.misplaced(f"\"{' '.join(spoken)}\" was said a second before, and \"{' '.join(said)}\" is kept")
    return Found("retry", words=said, is_stored=bool(said))


def ended_while_transcribing(user, random):
    user.record()
    user.stop()
    user.wait(lambda: user.vantro.status()["state"] != "recording", 10, "the end of the recording")
    time.sleep(random.uniform(0, 1))  # the moment
    code = user.vantro.process.stop(signal.SIGTERM, patience_s=10)
    if code != 0:
        raise user.misplaced(f"SIGTERM ended it with {code}")
    user.start()
    user.close_alerts()
    if user.editor.changed():
        # Ended before it could hand the former clipboard back, and no clipboard manager has it either.
        return Found("window", clipboard=user.desktop.clipboard() or "")
    return user.expect_from_retry()


def two_commands_at_once(user, random):
    user.record()
    first, second = random.choice((("toggle", "toggle"), ("stop", "toggle"), ("stop", CANCEL_KEY), ("stop", "cancel")))
    commands = [subprocess.Popen([user.vantro.program, command], env=user.desktop.env, stderr=subprocess.DEVNULL)
                for command in (first, second) if command != CANCEL_KEY]
    if second == CANCEL_KEY:
        user.desktop.press(CANCEL_KEY)
    for command in commands:
        command.wait(30)
    return user.wherever_it_is()


# --- sound

def microphone_unplugged(user, random):
    user.record()
    time.sleep(UNPLUGGED_S)
    user.desktop.audio.remove_source()
    try:
        user.wait_for_text()
        user.wait_for_word()
    finally:
        user.desktop.audio.restore_microphone()
        wait_for_microphone(user)
    return Found("window")


def sound_server_killed(user, random):
    user.record()
    time.sleep(UNPLUGGED_S)
    user.desktop.audio.kill()
    try:
        user.wait_for_text()
        user.wait_for_word()
    finally:
        user.desktop.audio.start()
        wait_for_microphone(user)
    return Found("window")


def sound_server_frozen(user, random):
    user.record()
    with user.desktop.audio.frozen():
        time.sleep(STILL_S)  # how long it stands still
    user.stop()
    user.wait_for_text()
    return Found("window")


# --- the model

def model_away_while_idle(user, random):
    with moved_away(user.vantro.models_folder / MODEL):
        user.desktop.press(SHORTCUT_KEYS)
        user.wait(lambda: user.vantro.window(DOWNLOAD_TITLE), 20, "the window that says what is missing")
    user.close_alerts()
    user.desktop.activate(user.editor.window)
    user.record()
    user.stop()
    user.wait_for_text()
    return Found("window")


def model_broken(user, random):
    path = user.vantro.models_folder / MODEL
    contents = path.read_bytes()
    with moved_away(path):
        path.write_bytes(contents[:random.randrange(1_000_000, len(contents))])
        user.record()
        user.stop()
        user.wait(user.vantro.alerts, 60, "the alert")
    user.close_alerts()
    return user.expect_from_retry()


# --- the clipboard

def clipboard_owner_hangs(user, random):
    owner = user.desktop.start("xclip", "-selection", "clipboard", "-in", "-quiet", stdin=b"what hangs")
    user.wait(lambda: user.desktop.clipboard() == "what hangs", 5, "the clipboard")
    os.kill(owner.pid, signal.SIGSTOP)
    try:
        user.record()
        user.stop()
        user.wait_for_text()
        user.wait_until_over()
    finally:
        owner.kill()
    user.desktop.set_clipboard(AFTERWARDS)
    return Found("window", clipboard=AFTERWARDS)


def copied_during_the_paste(user, random):
    """Once the window has the text, and before the former one is back."""
    user.record()
    user.stop()
    user.wait_for_text()
    time.sleep(random.uniform(0, RESTORE_S))  # the moment
    user.desktop.set_clipboard(AFTERWARDS)
    return Found("window", clipboard=AFTERWARDS)


# --- the disk

def disk_full(user, random):
    vantro = user.vantro
    vantro.quit()
    disk, program = SmallDisk(user.desktop), vantro.program
    try:
        disk.run("mkdir", "-p", disk.path / "data/vantro")
        disk.run("ln", "-s", vantro.models_folder, disk.path / "data/vantro/models")
        vantro.program = user.desktop.home / "vantro-on-the-small-disk"
        vantro.program.write_text(f'#!/bin/sh\nexec {shlex.join(disk.command(str(program)))} "$@"\n')
        vantro.program.chmod(0o755)
        user.start(env={"XDG_DATA_HOME": str(disk.path / "data")})
        disk.fill()
        user.desktop.activate(user.editor.window)
        user.record()
        user.stop()
        user.wait_for_text()
        user.wait(vantro.alerts, 20, "the alert")
        user.close_alerts()
        user.wait_until_over()
        vantro.quit()
    finally:
        disk.stop()
        vantro.program = program
    user.start()
    user.desktop.set_clipboard(AFTERWARDS)  # vantro, which had put the former one back, has ended
    return Found("window", clipboard=AFTERWARDS, is_stored=False)


def settings_unwritable(user, random):
    folder = user.desktop.config_home / "vantro"
    with moved_away(folder):
        folder.write_text("no folder")
        user.vantro.run("shortcuts", "mode", "press")
        user.close_alerts()
        user.desktop.activate(user.editor.window)
        user.record()
        user.stop()
        user.wait_for_text()
        user.wait_until_over()
    return Found("window")


def wait_for_microphone(user):
    user.wait(lambda: user.vantro.status()["microphone"] == "Microphone", 20, "the microphone to be seen again")


FAULTS = (target_frozen, target_closed, user_moved_on, alert_in_front, cancelled_by_mistake, focus_lost,
          killed_while_recording, ended_while_transcribing, two_commands_at_once, microphone_unplugged,
          sound_server_killed, sound_server_frozen, model_away_while_idle, model_broken, clipboard_owner_hangs,
          copied_during_the_paste, disk_full, settings_unwritable)


def name_of(fault):
    return fault.__name__.replace("_", " ")
