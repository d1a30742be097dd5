# SPDX-License-Identifier: Apache-2.0
"""Tables as a person reads them."""


def number(value):
    """Three digits that count."""
    if value == 0:
        return "0"
    if abs(value) >= 100:
        return f"{value:,.0f}"
    return f"{value:.1f}" if abs(value) >= 10 else f"{value:.2f}"


def markdown(table):
    """The table with "median / p99" in each cell, and the ratio of the medians behind all but the first column."""
    lines = ["| " + " | ".join([f"{table.title} ({table.unit})", *table.columns]) + " |",
             "|" + "-|" * (len(table.columns) + 1)]
    for row, cells in table.rows.items():
        shown = [_cell(table, row, column) if column in cells else "" for column in table.columns]
        lines.append("| " + " | ".join([row, *shown]) + " |")
    return "\n".join(lines)


def _cell(table, row, column):
    figure = table.rows[row][column]
    text = number(figure.median) if figure.count == 1 else f"{number(figure.median)} / {number(figure.p99)}"
    share = table.ratio(row, column)
    return text if column == table.columns[0] or share is None else f"{text} ({share:.2f}x)"
