# SPDX-License-Identifier: Apache-2.0
"""What is computed from measurements."""

import dataclasses
import math


def percentile(values, share):
    """The smallest of `values` that at least `share` (above 0, up to 1) of them do not exceed."""
    ordered = sorted(values)
    return ordered[max(0, math.ceil(share * len(ordered)) - 1)]


def median(values):
    """The middle one, or the mean of the two in the middle."""
    ordered = sorted(values)
    middle = len(ordered) // 2
    return ordered[middle] if len(ordered) % 2 else (ordered[middle - 1] + ordered[middle]) / 2


def ratio(value, reference):
    """How many times `reference` it is; None without a reference."""
    return value / reference if reference else None


def slope(points):
    """The growth of y with x of the straight line that fits the points (x, y) best."""
    count = len(points)
    mean_x = sum(x for x, _ in points) / count
    mean_y = sum(y for _, y in points) / count
    spread = sum((x - mean_x) ** 2 for x, _ in points)
    return sum((x - mean_x) * (y - mean_y) for x, y in points) / spread


@dataclasses.dataclass(frozen=True)
class Figure:
    """One measured cell of a table."""
    median: float
    p99: float
    count: int

    @classmethod
    def of(cls, values):
        return cls(median(values), percentile(values, 0.99), len(values))


@dataclasses.dataclass
class Table:
    """A case's result: a figure for each row and column; the first column is the one that ratios refer to."""
    name: str
    title: str
    unit: str
    columns: list
    rows: dict = dataclasses.field(default_factory=dict)

    def add(self, row, column, values):
        if column not in self.columns:
            self.columns.append(column)
        self.rows.setdefault(row, {})[column] = Figure.of(values)

    def ratio(self, row, column):
        """To the first column of the same row; None when either is missing."""
        cells = self.rows.get(row, {})
        if column not in cells or self.columns[0] not in cells:
            return None
        return ratio(cells[column].median, cells[self.columns[0]].median)

    def as_json(self):
        return {"title": self.title, "unit": self.unit, "columns": self.columns,
                "rows": {row: {column: dict(dataclasses.asdict(figure), ratio=self.ratio(row, column))
                               for column, figure in cells.items()}
                         for row, cells in self.rows.items()}}
