# SPDX-License-Identifier: Apache-2.0
"""A session bus that starts nothing by itself unless it is told to."""

import os
import pathlib
import re
import subprocess

_SYSTEMS_OWN = pathlib.Path("/usr/share/dbus-1/session.conf")

_CONFIG = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <auth>EXTERNAL</auth>
  <listen>unix:path={socket}</listen>
  <servicedir>{services}</servicedir>
  <policy context="default">
    <allow user="*"/>
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
  {limits}
</busconfig>
"""


def write_config(folder, socket, services):
    """Returns the path of a configuration in `folder` that offers only the services in the folder `services`.

    The limits are the system's session bus's: with the built-in ones, which are meant for a system bus, a burst of
    pop-ups is refused.
    """
    limits = "\n  ".join(re.findall(r"<limit .*?</limit>", _SYSTEMS_OWN.read_text(), re.DOTALL))
    path = pathlib.Path(folder, "bus.conf")
    path.write_text(_CONFIG.format(socket=socket, services=services, limits=limits))
    return path


def has_owner(name, env):
    """Whether somebody owns `name` on the bus that `env` names."""
    asked = subprocess.run(
        ["gdbus", "call", "--session", "--dest", "org.freedesktop.DBus", "--object-path", "/org/freedesktop/DBus",
         "--method", "org.freedesktop.DBus.NameHasOwner", name],
        env=env, stdin=subprocess.DEVNULL, capture_output=True, text=True)
    return asked.stdout.strip() == "(true,)"


def offer(services, name, command):
    """Lets the bus start `command` when somebody calls `name`."""
    os.makedirs(services, exist_ok=True)
    pathlib.Path(services, f"{name}.service").write_text(f"[D-BUS Service]\nName={name}\nExec={command}\n")
