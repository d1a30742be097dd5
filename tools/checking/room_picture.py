# SPDX-License-Identifier: Apache-2.0
"""docs/pictures/rooms.svg: the rooms and the includes between them, as they really are."""

import include_table
from sources import ROOT

PICTURE = ROOT / "docs" / "pictures" / "rooms.svg"

_BOX_WIDTH, _BOX_HEIGHT = 150, 30
_COLUMN, _ROW = 166, 74
_MARGIN = 24
_COLOURS = {"host": "#e8e0c8", "core": "#cfe3cf", "methods": "#cfe3cf", "platform": "#d5dcea", "kit": "#f1d9c4",
            "client": "#e4d3e6"}


def direct_arrows(arrows):
    """The arrows without those that a longer way stands for: who includes b, which includes c, may include c, too."""
    def reached(node):
        found = set()
        for target in arrows.get(node, ()):
            found |= {target} | reached(target)
        return found

    return {node: {target for target in targets if not any(target in reached(other) for other in targets)}
            for node, targets in arrows.items()}


def _layers(arrows):
    """The layer of each room: one above the highest that it includes."""
    layers = {}

    def layer(room):
        if room not in layers:
            layers[room] = max((layer(target) + 1 for target in arrows.get(room, ())), default=0)
        return layers[room]

    for room in sorted({*arrows, *(target for targets in arrows.values() for target in targets)}):
        layer(room)
    return layers


def _ways(arrows, layers):
    """Each arrow as the points that it passes, one on each layer: (room, layer), which is a bend between boxes."""
    ways = []
    for room in sorted(arrows):
        for target in sorted(arrows[room]):
            bends = [((room, target), at) for at in range(layers[room] - 1, layers[target], -1)]
            ways.append([(room, layers[room]), *bends, (target, layers[target])])
    return ways


def _columns(ways, layers):
    """Where each point stands in its layer: near what it is connected to, so that few arrows cross."""
    rows = [[] for _ in range(max(layers.values()) + 1)]
    for point in sorted({*((room, at) for room, at in layers.items()), *(point for way in ways for point in way)},
                        key=str):
        rows[point[1]].append(point)
    neighbours = {}
    for way in ways:
        for upper, lower in zip(way, way[1:]):
            neighbours.setdefault(upper, []).append(lower)
            neighbours.setdefault(lower, []).append(upper)
    widest = max(map(len, rows))
    columns = {}

    def place(row):
        for at, point in enumerate(row):
            columns[point] = at + (widest - len(row)) / 2

    for row in rows:
        place(row)
    for turn in range(24):
        for row in rows if turn % 2 else reversed(rows):
            row.sort(key=lambda point: (sum(columns[other] for other in neighbours.get(point, [point])) /
                                        len(neighbours.get(point, [point])), str(point)))
            place(row)
    return columns, widest


def drawing(arrows):
    """The picture as text, given the arrows from each room to those that it includes."""
    arrows = direct_arrows(arrows)
    layers = _layers(arrows)
    ways = _ways(arrows, layers)
    columns, widest = _columns(ways, layers)
    top = max(layers.values())
    width, height = 2 * _MARGIN + widest * _COLUMN, 2 * _MARGIN + top * _ROW + _BOX_HEIGHT

    def middle(point):
        return _MARGIN + (columns[point] + 0.5) * _COLUMN, _MARGIN + (top - point[1]) * _ROW + _BOX_HEIGHT / 2

    lines = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width:.0f} {height:.0f}" width="{width:.0f}" '
             f'height="{height:.0f}" font-family="sans-serif" font-size="12">',
             "<!-- Drawn by tools/rooms from the includes. -->",
             '<defs><marker id="tip" viewBox="0 0 8 8" refX="8" refY="4" markerWidth="7" markerHeight="7" '
             'orient="auto"><path d="M0,0 L8,4 L0,8 z" fill="#555"/></marker></defs>',
             f'<rect width="{width:.0f}" height="{height:.0f}" fill="#ffffff"/>']
    half = _BOX_HEIGHT / 2
    for way in ways:
        points = [middle(point) for point in way]
        path = f"M{points[0][0]:.0f},{points[0][1] + half:.0f}"
        for at, ((from_x, from_y), (to_x, to_y)) in enumerate(zip(points, points[1:]), start=1):
            start, end = from_y + half, to_y - half
            bend = (start + end) / 2
            path += f" C{from_x:.0f},{bend:.0f} {to_x:.0f},{bend:.0f} {to_x:.0f},{end:.0f}"
            if at + 1 < len(points):
                path += f" V{to_y + half:.0f}"
        lines.append(f'<path d="{path}" fill="none" stroke="#555" marker-end="url(#tip)"/>')
    for room in sorted(layers):
        x, y = middle((room, layers[room]))
        colour = _COLOURS.get(room.split("/")[0], "#eeeeee")
        lines.append(f'<rect x="{x - _BOX_WIDTH / 2:.0f}" y="{y - half:.0f}" width="{_BOX_WIDTH}" '
                     f'height="{_BOX_HEIGHT}" rx="4" fill="{colour}" stroke="#555"/>')
        lines.append(f'<text x="{x:.0f}" y="{y + 4:.0f}" text-anchor="middle">{room}</text>')
    return "\n".join([*lines, "</svg>", ""])


def draw():
    """Writes the picture of the includes that are there now."""
    PICTURE.write_text(drawing(include_table.arrows()[1]))


def problems():
    if circles := include_table.circles(include_table.arrows()[1]):
        return [f"cannot be drawn: {circle}" for circle in circles]
    current = PICTURE.read_text() if PICTURE.exists() else ""
    if current == drawing(include_table.arrows()[1]):
        return []
    return [f"{PICTURE.relative_to(ROOT)} shows other includes than there are: tools/rooms draws it"]
