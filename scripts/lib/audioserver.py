"""A private PulseAudio server with a silent loudspeaker, and a microphone that records what is played to it."""

import os
import signal
import subprocess
from contextlib import contextmanager

MICROPHONE = "microphone"
LOUDSPEAKER = "loudspeaker"
# Audio played into this sink is recorded by the microphone.
VOICE = "voice"
RATE_HZ = 48000

# Without norewinds, the first frames of a played recording can get lost. The remapped source is needed because programs
# distinguish microphones from loudspeaker monitors.
_SCRIPT = f"""
load-module module-native-protocol-unix auth-anonymous=1 socket={{socket}}
load-module module-null-sink sink_name={LOUDSPEAKER} rate={RATE_HZ} sink_properties=device.description=Loudspeaker
load-module module-null-sink sink_name={VOICE} rate={RATE_HZ} norewinds=1 sink_properties=device.description=Voice
load-module module-remap-source master={VOICE}.monitor source_name={MICROPHONE} source_properties=device.description=Microphone
set-default-sink {LOUDSPEAKER}
set-default-source {MICROPHONE}
"""


class AudioServer:
    """Started by the desktop; tests add and remove devices, or kill it."""

    def __init__(self, desktop):
        self._desktop = desktop
        self._socket = desktop.runtime_folder / "pulse" / "native"
        self._program = None
        desktop.env["PULSE_SERVER"] = f"unix:{self._socket}"

    def start(self):
        self._socket.parent.mkdir(mode=0o700, exist_ok=True)
        self._socket.unlink(missing_ok=True)
        script = self._desktop.folder / "pulse.pa"
        script.write_text(_SCRIPT.format(socket=self._socket))
        self._program = self._desktop.start_service(
            "pulseaudio", "--daemonize=no", "--exit-idle-time=-1", "--realtime=no", "--high-priority=no",
            "--log-target=stderr", "--log-level=error", "-n", "-F", script)
        self._desktop.wait_until(lambda: self._default_source() == MICROPHONE, 10, "the sound server")

    def kill(self):
        """Ends the server like a crash. start() starts a new one."""
        self._desktop.end_service(self._program)

    @contextmanager
    def frozen(self):
        """Suspends the server during the context, as on a sleeping machine."""
        os.kill(self._program.pid, signal.SIGSTOP)
        try:
            yield
        finally:
            os.kill(self._program.pid, signal.SIGCONT)

    @contextmanager
    def stalling_microphone(self, name):
        """A microphone that records what is played into VOICE, and sends nothing within the context that this yields."""
        pipe = self._desktop.folder / name
        module = self.load_module("module-pipe-source", source_name=name, file=pipe, format="s16le", rate=RATE_HZ,
                                  channels=1, source_properties=f"device.description={name}")
        with open(pipe, "wb") as end, subprocess.Popen(
                ["parec", f"--device={VOICE}.monitor", "--format=s16le", f"--rate={RATE_HZ}", "--channels=1",
                 "--latency-msec=20"], env=self._desktop.env, stdout=end) as feed:
            @contextmanager
            def stalled():
                feed.send_signal(signal.SIGSTOP)
                try:
                    yield
                finally:
                    feed.send_signal(signal.SIGCONT)
            try:
                yield stalled
            finally:
                feed.terminate()
                self.set_default_source(MICROPHONE)
                self.unload_module(module)

    def load_module(self, name, **arguments):
        """Loads a module of PulseAudio and returns its index."""
        return int(self._pactl("load-module", name, *(f"{key}={value}" for key, value in arguments.items())))

    def unload_module(self, index):
        self._pactl("unload-module", str(index))

    def add_microphone(self, name):
        """Adds a silent microphone. Returns the indices of its modules, for unload_module()."""
        sink = self.load_module("module-null-sink", sink_name=f"{name}-voice", rate=RATE_HZ, norewinds=1)
        source = self.load_module("module-remap-source", master=f"{name}-voice.monitor", source_name=name,
                                  source_properties=f"device.description={name}")
        return [source, sink]

    def remove_source(self, name=MICROPHONE):
        """Unplugs a microphone."""
        for line in self._pactl("list", "short", "modules").splitlines():
            index, module, arguments = (line.split("\t") + ["", ""])[:3]
            if module == "module-remap-source" and f"source_name={name}" in arguments.split():
                self.unload_module(index)
                return
        raise LookupError(f"there is no source {name}")

    def restore_microphone(self):
        """Plugs the microphone in again after remove_source() and makes it the default."""
        self.load_module("module-remap-source", master=f"{VOICE}.monitor", source_name=MICROPHONE,
                         source_properties="device.description=Microphone")
        self.set_default_source(MICROPHONE)

    def sources(self):
        """The names of all sources, monitors included."""
        return [line.split("\t")[1] for line in self._pactl("list", "short", "sources").splitlines()]

    def recording_sources(self):
        """The names of the sources being recorded from, once per stream."""
        names = dict(line.split("\t")[:2] for line in self._pactl("list", "short", "sources").splitlines())
        return [names.get(line.split("\t")[1]) for line in
                self._pactl("list", "short", "source-outputs").splitlines()
                if "module-remap-source" not in line]

    def set_default_source(self, name):
        self._pactl("set-default-source", name)

    def start_playing(self, recording):
        """Plays a recording (WAV, FLAC, OGG, MP3) into the microphone. Returns the player's Program."""
        return self.start_playing_into(VOICE, recording)

    def start_playing_into(self, sink, recording):
        return self._desktop.start("paplay", f"--device={sink}", "--latency-msec=20", recording)

    def wait_until_heard(self, player):
        """Until what start_playing() began is being played: on a busy machine a moment later."""
        self._desktop.wait_until(lambda: not player.running or self._pactl("list", "short", "sink-inputs"), 10,
                                 "the recording to be played")

    def play(self, recording, timeout_s=120):
        """The same, but waits for the end of playback."""
        self.play_into(VOICE, recording, timeout_s)

    def play_into(self, sink, recording, timeout_s=120):
        self.start_playing_into(sink, recording).expect_exit(0, timeout_s)

    def _default_source(self):
        answer = subprocess.run(["pactl", "get-default-source"], env=self._desktop.env, capture_output=True, text=True)
        return answer.stdout.strip()

    def _pactl(self, *arguments):
        return self._desktop.run("pactl", *arguments)
