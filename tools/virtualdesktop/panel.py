# SPDX-License-Identifier: Apache-2.0
"""The looks of the panel: a task bar, a status area for both kinds of icons, a clock."""

import pathlib

COLOUR = "#1f2d3a"
HEIGHT = 34
_PANEL = f"""[General]
__userfile__=true
panels=panel1

[panel1]
alignment=-1
animation-duration=0
desktop=0
hidable=false
iconSize=22
lineCount=1
lockPanel=true
opacity=100
panelSize={HEIGHT}
plugins=taskbar, tray, statusnotifier, worldclock
position=Bottom
reserve-space=true
width=100
width-percent=true

[taskbar]
alignment=Left
buttonWidth=200
groupingEnabled=false
type=taskbar

[tray]
alignment=Right
type=tray

[statusnotifier]
alignment=Right
type=statusnotifier

[worldclock]
alignment=Right
type=worldclock
"""

_LOOKS = f"""
#BackgroundWidget {{ background: {COLOUR}; }}
* {{ color: #eceff1; }}
LXQtTaskButton {{ border: 1px solid #546e7a; border-radius: 3px; padding: 2px 6px; background: #2c3f51; }}
LXQtTaskButton:checked {{ background: #4a90d9; }}
LXQtTaskButton[urgent="true"] {{ background: #c2410c; border-color: #fb923c; }}
"""


def write_config(config_home, data_home):
    files = {
        pathlib.Path(config_home, "lxqt", "panel.conf"): _PANEL,
        pathlib.Path(config_home, "lxqt", "lxqt.conf"): "[General]\ntheme=plain\n",
        pathlib.Path(data_home, "lxqt", "themes", "plain", "lxqt-panel.qss"): _LOOKS,
    }
    for path, text in files.items():
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)
