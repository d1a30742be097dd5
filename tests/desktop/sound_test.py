# SPDX-License-Identifier: Apache-2.0
"""What is heard: recorded behind a real sound server and recognised by its likeness to the theme's files."""

import subprocess

import numpy

from support import ROOT, DesktopTest, screen
from virtualdesktop.sound import RATE

THEME = ROOT / "client" / "themes" / "sounds" / "default"


def samples_of(path):
    """A sound file as the recording would hold it."""
    raw = subprocess.run(["sox", str(path), "-t", "raw", "-r", str(RATE), "-c", "1", "-e", "signed", "-b", "16", "-"],
                         stdin=subprocess.DEVNULL, check=True, capture_output=True).stdout
    return numpy.frombuffer(raw, dtype="<i2").astype(float)


def likeness(recorded, sound):
    """How well `sound` fits at its best place in `recorded`: 1 is the same, up to loudness; 0 is nothing alike."""
    size = len(recorded) + len(sound)
    fits = numpy.fft.irfft(numpy.fft.rfft(recorded, size) * numpy.conj(numpy.fft.rfft(sound, size)), size)
    place = int(numpy.argmax(fits))
    heard = recorded[place:place + len(sound)]
    loudness = numpy.linalg.norm(heard) * numpy.linalg.norm(sound)
    return fits[place] / loudness if loudness else 0.0


class HeardTest(DesktopTest):
    """Has no test itself: hears what is played."""

    options = {"service": "none", "sound": True}

    def setUp(self):
        super().setUp()
        self.start = self.desktop.sound.position()

    def heard(self):
        """What was recorded from the start to half a second from now."""
        sound = self.desktop.sound
        enough = sound.position() + RATE // 2
        screen.wait_until(lambda: sound.position() >= enough, "the recording should go on")
        return numpy.array(sound.samples(self.start), dtype=float)

    def assert_heard(self, name):
        recorded = self.heard()
        likenesses = {path.name: likeness(recorded, samples_of(path)) for path in THEME.glob("*.wav")}
        self.assertEqual(len(likenesses), 6)
        self.assertGreater(likenesses[name], 0.9, likenesses)
        self.assertEqual(max(likenesses, key=likenesses.get), name, likenesses)


class AlertFilter:
    """The test of X11 and Wayland; a class below names the desktop."""

    def test_an_alert_is_silent_when_alerts_are_muted_and_a_message_is_not(self):
        self.zepa("setting", "set", "alerts", "never")
        self.zepa("post", "alert_received_notify", "--title", "Ann", "--buddy", "Ann")
        self.assertEqual(numpy.abs(self.heard()).max(), 0)
        self.zepa("post", "message_received", "--title", "Ann")
        self.assert_heard("message.wav")


class Sound(AlertFilter, HeardTest):
    def test_a_message_sounds_like_message_wav(self):
        self.zepa("post", "message_received", "--title", "Ann")
        self.assert_heard("message.wav")

    def test_an_email_sounds_like_mail_wav(self):
        self.zepa("post", "email_notify", "--title", "Ann")
        self.assert_heard("mail.wav")

    def test_a_buddy_who_comes_online_sounds_like_online_wav(self):
        self.zepa("post", "buddy_connected", "--title", "Ann")
        self.assert_heard("online.wav")

    def test_an_information_sounds_like_file_wav(self):
        self.zepa("post", "info_notify", "--title", "Ann")
        self.assert_heard("file.wav")

    def test_a_login_sounds_like_login_wav(self):
        self.zepa("post", "logged_in", "--title", "Ann")
        self.assert_heard("login.wav")

    def test_an_alert_of_a_contact_sounds_like_bell_wav(self):
        self.zepa("post", "alert_received_notify", "--title", "Ann", "--buddy", "Ann")
        self.assert_heard("bell.wav")

    def test_an_alert_without_a_sender_is_silent_unless_all_alerts_sound(self):
        self.zepa("post", "alert_received_notify", "--title", "Ann")
        self.assertEqual(numpy.abs(self.heard()).max(), 0)
        self.zepa("setting", "set", "alerts", "always")
        self.zepa("post", "alert_received_notify", "--title", "Bob")
        self.assert_heard("bell.wav")

    def test_a_killed_sound_server_costs_its_sounds_and_a_new_one_is_heard(self):
        self.desktop.sound.server.kill()
        self.zepa("post", "message_received", "--title", "Ann")
        self.desktop.sound.restart()
        self.start = self.desktop.sound.position()
        self.zepa("post", "message_received", "--title", "Bob")
        self.assert_heard("message.wav")


class SoundOnWayland(AlertFilter, HeardTest):
    """What a client plays does not depend on its windows; one sound and one silence show it."""

    options = {"service": "none", "sound": True, "wayland": True}
