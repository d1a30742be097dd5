# SPDX-License-Identifier: Apache-2.0
"""The request for attention: the window manager's state of the windows, and what docks hear on the session bus."""

import os
import subprocess

from support import ZEPA, DesktopTest, screen

PROBE = os.path.join(os.path.dirname(ZEPA), "attention_probe")
ASKED = "_NET_WM_STATE_DEMANDS_ATTENTION"


class Probe:
    """A program with windows, which asks for attention when it is told to."""

    def __init__(self, test, windows):
        self._test = test
        self._popen = subprocess.Popen([PROBE, str(windows)], env=test.desktop.env, stdin=subprocess.PIPE,
                                       stdout=subprocess.PIPE, text=True, bufsize=1)
        test.addCleanup(self._end)
        self.pid = self._popen.pid
        self.windows = []
        for line in iter(self._line, "ready"):
            self.windows += [line.split()[1]] if line.startswith("window ") else []

    def tell(self, command):
        self._popen.stdin.write(command + "\n")
        self.wait_for("done " + command)

    def wait_for(self, line):
        while self._line() != line:
            pass

    def _line(self):
        line = self._popen.stdout.readline()
        self._test.assertTrue(line, "the probe ended")
        return line.strip()

    def _end(self):
        if self._popen.poll() is None:
            self._popen.kill()
            self._popen.wait()
        self._popen.stdin.close()
        self._popen.stdout.close()


class AttentionTest(DesktopTest):
    """Has no test itself: what those of X11 and Wayland share."""

    options = {"service": "none"}

    def setUp(self):
        super().setUp()
        self.bus_log = self.desktop.folder / "launcher.log"
        with open(self.bus_log, "w", encoding="utf-8") as log:
            self.monitor = subprocess.Popen(
                ["dbus-monitor", "--session", "interface='com.canonical.Unity.LauncherEntry'"], env=self.desktop.env,
                stdin=subprocess.DEVNULL, stdout=log, stderr=subprocess.STDOUT)
        self.addCleanup(self._end_monitor)
        screen.wait_until(lambda: "NameLost" in self.bus_log.read_text(), "the monitor should listen")

    def _end_monitor(self):
        self.monitor.kill()
        self.monitor.wait()

    def start_in_background(self, windows):
        probe = Probe(self, windows)
        probe.wait_for("active")
        self.other = Probe(self, 1)
        self.activate(self.other)
        probe.wait_for("inactive")
        return probe

    def heard(self):
        """What docks heard, in order: True for urgent."""
        lines = self.bus_log.read_text().splitlines()
        return [line.endswith("true") for line in lines if "boolean" in line]

    def wait_until_heard(self, updates):
        screen.wait_until(lambda: len(self.heard()) >= len(updates), "docks should have heard of it")
        self.assertEqual(self.heard(), updates)
        self.assertEqual(self.bus_log.read_text().count('string "application://zepa.desktop"'), len(updates))


class Attention(AttentionTest):
    def activate(self, probe):
        self.desktop.run("xdotool", "windowactivate", "--sync", probe.windows[0])

    def asks(self, window):
        return ASKED in self.desktop.run("xprop", "-id", window, "_NET_WM_STATE")

    def test_the_window_that_was_active_last_asks_and_no_other_and_withdraws_when_the_application_is_activated(self):
        probe = self.start_in_background(3)
        last = probe.windows[1]
        self.desktop.run("xdotool", "windowactivate", "--sync", last)
        probe.wait_for("active")
        self.activate(self.other)
        probe.wait_for("inactive")
        probe.tell("request")
        screen.wait_until(lambda: self.asks(last), "the window should ask for attention")
        self.wait_until_heard([True])
        self.assertEqual([window for window in probe.windows + self.other.windows if self.asks(window)], [last])

        self.activate(probe)
        screen.wait_until(lambda: not self.asks(last), "the window should not ask any more")
        self.wait_until_heard([True, False])

    def test_the_named_window_asks_instead_of_the_one_that_asked_before(self):
        probe = self.start_in_background(2)
        named, last = probe.windows
        self.desktop.run("xdotool", "windowactivate", "--sync", last)
        probe.wait_for("active")
        self.activate(self.other)
        probe.wait_for("inactive")
        probe.tell("request")
        screen.wait_until(lambda: self.asks(last), "the last active window should ask for attention")
        probe.tell("name")
        probe.tell("request")
        screen.wait_until(lambda: self.asks(named), "the named window should ask for attention")
        screen.wait_until(lambda: not self.asks(last), "the other one should not ask any more")

    def test_a_minimised_window_asks_and_a_hidden_one_does_not(self):
        probe = self.start_in_background(2)
        hidden, minimised = probe.windows
        probe.tell("hide")
        self.desktop.run("xdotool", "windowminimize", "--sync", minimised)
        probe.tell("request")
        screen.wait_until(lambda: self.asks(minimised), "the minimised window should ask for attention")
        self.assertFalse(self.asks(hidden))

    def test_an_active_application_asks_for_nothing(self):
        probe = Probe(self, 1)
        # A window manager that is busy may not give the focus to a new window by itself.
        self.activate(probe)
        probe.wait_for("active")
        probe.tell("request")
        self.other = Probe(self, 1)
        self.activate(self.other)
        probe.wait_for("inactive")
        self.assertFalse(self.asks(probe.windows[0]))
        # Updates keep their order: one of the first request would be heard before these of the second.
        probe.tell("request")
        # What is asked and taken back before the bus is reached comes as one update.
        self.wait_until_heard([True])
        self.activate(probe)
        self.wait_until_heard([True, False])

    def test_an_application_without_windows_tells_docks_only(self):
        probe = Probe(self, 0)
        probe.tell("request")
        self.wait_until_heard([True])
        probe.tell("request")
        self.wait_until_heard([True, True])


class AttentionOnWayland(AttentionTest):
    options = {"service": "none", "wayland": True}

    def activate(self, probe):
        # The window says that it is active a moment before sway finds it by its process.
        focus = ["swaymsg", f"[pid={probe.pid}]", "focus"]
        screen.wait_until(lambda: subprocess.run(focus, env=self.desktop.env, capture_output=True).returncode == 0,
                          "sway should find the window")

    def test_docks_hear_of_the_request_and_of_its_end(self):
        probe = self.start_in_background(1)
        probe.tell("request")
        self.wait_until_heard([True])
        self.activate(probe)
        self.wait_until_heard([True, False])

    def test_windows_ask_for_attention(self):
        self.skipTest("Qt 6.4 has no attention state on Wayland; docks are told instead")


class AttentionOfTheClient(DesktopTest):
    """The program itself, from the posting to the window manager."""

    options = {"service": "none"}

    def test_a_message_asks_with_the_chat_window_of_its_contact_until_that_is_activated(self):
        script = self.desktop.folder / "script.jsonl"
        # On a slow machine the first comes before the other window is active, and asks for nothing. Bob's window opens
        # last, so it is the one that was active last.
        script.write_text("".join(
            f'{{"at": {at}, "type": "message_received_initial", "title": "{at}", "buddy": "{who}"}}\n'
            for at, who in ((3, "Ann"), (8, "Ann"), (15, "Ann"), (100, "Bob"))))
        self.start_zepa("play", str(script), "--chats")
        ann, bob = (screen.wait_until(lambda name=name: screen.windows(self.desktop, "--name", name), "the chat")[0]
                    for name in ("^Ann", "^Bob"))
        other = Probe(self, 1)
        self.desktop.run("xdotool", "windowactivate", "--sync", other.windows[0])

        def asks(chat):
            return ASKED in self.desktop.run("xprop", "-id", chat, "_NET_WM_STATE")

        screen.wait_until(lambda: asks(ann), "the chat window should ask for attention")
        self.assertFalse(asks(bob))
        self.desktop.run("xdotool", "windowactivate", "--sync", ann)
        screen.wait_until(lambda: not asks(ann), "the chat window should not ask any more")
