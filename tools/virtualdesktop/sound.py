# SPDX-License-Identifier: Apache-2.0
"""A sound server whose only loudspeaker is a file."""

import array
import os
import pathlib
import subprocess
import sys
import wave

SINK = "virtual"
RATE = 44100


class Sound:
    """A sound server and a recording of everything that it plays: 16 bits, one channel, RATE samples a second."""

    def __init__(self, start, env, run_folder, folder):
        socket = pathlib.Path(run_folder, "pulse", "native")
        socket.parent.mkdir(mode=0o700, exist_ok=True)
        self._env = env
        self._raw = pathlib.Path(folder, "recording.raw")
        env["PULSE_SERVER"] = f"unix:{socket}"
        self._start = start
        self._command = [
            "pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1", "--disallow-exit",
            "--realtime=no", "--high-priority=no",
            f"--load=module-native-protocol-unix socket={socket} auth-anonymous=1",
            f"--load=module-null-sink sink_name={SINK} rate={RATE} channels=2 format=s16le"]
        self._raw.touch()
        self.restart()

    def restart(self):
        """Starts the server and the recorder; again, after the server was killed. The recording goes on."""
        self._start_server()
        self.recorder = self._start(
            "parec", ["sh", "-c", 'exec parec "$@" >>"$0"', str(self._raw), "-d", f"{SINK}.monitor",
                      "--latency-msec=5", "--format=s16le", f"--rate={RATE}", "--channels=1"], self._env)
        # The recorder's first data comes about two seconds after its start; what is played before that is lost.
        size = self._raw.stat().st_size
        self.recorder.wait_until(lambda: self._raw.stat().st_size > size)

    def _start_server(self):
        self.server = self._start("pulseaudio", self._command, self._env)
        self.server.wait_until(lambda: subprocess.run(
            ["pactl", "info"], env=self._env, stdin=subprocess.DEVNULL, capture_output=True).returncode == 0)

    def position(self):
        """How many samples are recorded by now."""
        return self._raw.stat().st_size // 2

    def samples(self, start=0, end=None):
        """The recorded samples from `start` to `end` (default: up to now)."""
        with open(self._raw, "rb") as raw:
            raw.seek(2 * start)
            data = raw.read(-1 if end is None else 2 * max(0, end - start))
        samples = array.array("h", data[: len(data) & ~1])
        if sys.byteorder == "big":
            samples.byteswap()
        return samples

    def save(self, path, start=0):
        """Writes what is recorded by now, from the sample `start` on, as a wav file."""
        os.makedirs(os.path.dirname(os.path.abspath(path)), exist_ok=True)
        with wave.open(str(path), "wb") as out:
            out.setnchannels(1)
            out.setsampwidth(2)
            out.setframerate(RATE)
            out.writeframes(self.samples(start).tobytes())
