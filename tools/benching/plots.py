# SPDX-License-Identifier: Apache-2.0
"""Pictures of the tables."""

import matplotlib

matplotlib.use("Agg")
matplotlib.rcParams["svg.hashsalt"] = "zepa"  # the same figures give the same file

from matplotlib import pyplot  # noqa: E402: the backend comes first


def write(tables, folder):
    """NAME.svg and NAME.png for each table."""
    for table in tables:
        figure = _growth(table) if _is_growth(table) else _bars(table)
        for suffix in ("svg", "png"):
            figure.savefig(folder / f"{table.name}.{suffix}", dpi=110, metadata={"Date": None} if suffix == "svg" else None)
        pyplot.close(figure)


def _is_growth(table):
    """Whether the rows are counts, so that a line says more than bars."""
    return len(table.rows) > 2 and all(row.split()[0].replace(",", "").isdigit() for row in table.rows)


def _growth(table):
    figure, axes = pyplot.subplots(figsize=(6, 3.6), layout="constrained")
    for column in table.columns:
        points = [(int(row.split()[0].replace(",", "")), cells[column].median)
                  for row, cells in table.rows.items() if column in cells]
        axes.plot(*zip(*points), marker="o", label=column)
    axes.set_xscale("symlog")
    axes.set_yscale("log")
    axes.set_xlabel(" ".join(next(iter(table.rows)).split()[1:]))
    _finish(axes, table)
    axes.set_ylabel(table.unit)
    return figure


def _bars(table):
    rows = list(table.rows)
    figure, axes = pyplot.subplots(figsize=(8, 1.2 + 0.22 * len(rows) * len(table.columns)), layout="constrained")
    thickness = 0.8 / len(table.columns)
    for index, column in enumerate(table.columns):
        present = [(place, table.rows[row][column]) for place, row in enumerate(rows) if column in table.rows[row]]
        places = [place + index * thickness for place, _ in present]
        axes.barh(places, [cell.median for _, cell in present], thickness * 0.9, label=column)
        axes.plot([cell.p99 for _, cell in present], places, "k|", markersize=4)
    axes.set_yticks([place + 0.4 - thickness / 2 for place in range(len(rows))], rows)
    axes.invert_yaxis()
    axes.set_xscale("log")
    _finish(axes, table)
    axes.set_xlabel(f"{table.unit}; bars are medians, marks 99th percentiles")
    return figure


def _finish(axes, table):
    axes.set_title(table.title, fontsize=10)
    axes.grid(True, which="major", alpha=0.3)
    if len(table.columns) > 1:
        axes.legend(fontsize=8)
