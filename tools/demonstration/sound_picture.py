# SPDX-License-Identifier: Apache-2.0
"""Draws a recording over time, with the events marked, for those who cannot listen."""

import subprocess

_WIDTH, _LEFT, _RIGHT, _TOP, _WAVE = 1280, 40, 20, 64, 220
_ROW = 17


def draw(path, samples, rate, marks):
    """Saves a png. `marks` are (seconds, text); the sound of each starts at its mark."""
    duration = max(len(samples) / rate, 1.0)
    scale = (_WIDTH - _LEFT - _RIGHT) / duration
    rows = _rows(marks, scale)
    top = _TOP + _ROW * (max(rows, default=0) + 1)
    height = top + _WAVE + 50
    middle = top + _WAVE // 2

    commands = [f"fill '#ffffff' rectangle 0,0 {_WIDTH},{height}",
                f"fill '#f1f5f9' rectangle {_LEFT},{top} {_WIDTH - _RIGHT},{top + _WAVE}",
                "font-size 18 fill '#1f2d3a'", _text(_LEFT, 30, "What was heard during the conversation"),
                "font-size 12"]
    for second in range(int(duration) + 1):
        x = _LEFT + second * scale
        commands += [f"fill '#cbd5e1' line {x:.1f},{top} {x:.1f},{top + _WAVE}",
                     "fill '#475569'", _text(x - 4, top + _WAVE + 18, str(second))]
    commands += ["fill '#475569'", _text(_LEFT, top + _WAVE + 38, "seconds from the start"), "fill '#2f6fb0'"]
    commands += _wave(samples, middle)
    for (seconds, text), row in zip(marks, rows):
        x, y = _LEFT + seconds * scale, _TOP + _ROW * row
        commands += [f"fill '#d9577a' line {x:.1f},{y - 10} {x:.1f},{top + _WAVE}", _text(x + 4, y, text)]

    subprocess.run(["convert", "-size", f"{_WIDTH}x{height}", "xc:white", "-font", "DejaVu-Sans", "-draw",
                    "\n".join(commands), str(path)], check=True)


def _rows(marks, scale):
    """A row for each mark's text, so that no two texts overlap."""
    ends, rows = [], []
    for seconds, text in marks:
        start = seconds * scale
        row = next((number for number, end in enumerate(ends) if end < start), len(ends))
        if row == len(ends):
            ends.append(0.0)
        ends[row] = start + 10 + 7.6 * len(text)
        rows.append(row)
    return rows


def _wave(samples, middle):
    """A vertical line for each column of the picture, from the lowest to the highest sample."""
    columns = _WIDTH - _LEFT - _RIGHT
    height = _WAVE / 2 - 4
    for column in range(columns):
        part = samples[column * len(samples) // columns:(column + 1) * len(samples) // columns]
        if len(part) == 0:
            continue
        high, low = (middle - value / 32768 * height for value in (max(part), min(part)))
        yield f"line {_LEFT + column},{high:.1f} {_LEFT + column},{low + 1:.1f}"


def _text(x, y, text):
    quoted = text.replace("\\", "\\\\").replace("'", "\\'")
    return f"text {x:.1f},{y:.1f} '{quoted}'"
