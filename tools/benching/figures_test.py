# SPDX-License-Identifier: Apache-2.0
"""The arithmetic of the benchmarks and of the budgets."""

import unittest

import budgets
from figures import Figure, Table, median, percentile, ratio, slope
from report import markdown, number


class Figures(unittest.TestCase):
    def test_the_percentile_is_a_measured_value(self):
        self.assertEqual(percentile([3, 1, 2], 0.5), 2)
        self.assertEqual(percentile(range(1, 101), 0.99), 99)
        self.assertEqual(percentile(range(1, 1001), 0.99), 990)
        self.assertEqual(percentile([7], 0.99), 7)
        self.assertEqual(percentile([1, 2], 1), 2)

    def test_the_median_is_the_middle(self):
        self.assertEqual(median([5, 1, 3]), 3)
        self.assertEqual(median([4, 1, 3, 2]), 2.5)

    def test_a_ratio_needs_a_reference(self):
        self.assertEqual(ratio(3, 2), 1.5)
        self.assertIsNone(ratio(3, 0))

    def test_the_slope_is_that_of_the_line(self):
        self.assertAlmostEqual(slope([(0, 5), (10, 25), (20, 45)]), 2)
        self.assertAlmostEqual(slope([(0, 0), (1, 2), (2, 2)]), 1)

    def test_a_table_compares_with_its_first_column(self):
        table = Table("name", "Title", "us", ["limit"])
        table.add("row", "library", [3, 5, 4])
        table.add("row", "limit", [2, 2, 2])
        table.add("other", "library", [1])
        self.assertEqual(table.rows["row"]["library"], Figure(4, 5, 3))
        self.assertEqual(table.ratio("row", "library"), 2)
        self.assertIsNone(table.ratio("other", "library"))
        self.assertEqual(table.as_json()["rows"]["row"]["library"]["ratio"], 2)
        self.assertEqual(markdown(table).splitlines()[2:],
                         ["| row | 2.00 / 2.00 | 4.00 / 5.00 (2.00x) |", "| other |  | 1.00 |"])

    def test_numbers_have_three_digits_that_count(self):
        self.assertEqual([number(value) for value in (0, 0.123, 4.567, 45.67, 4567.8)],
                         ["0", "0.12", "4.57", "45.7", "4,568"])


class Budgets(unittest.TestCase):
    def test_a_case_may_grow_by_the_tolerance_and_shrink_by_anything(self):
        self.assertEqual(budgets.problems({"a": 1050, "b": 10}, {"a": 1000, "b": 1000}), [])

    def test_a_case_that_grew_is_named_with_its_counts(self):
        self.assertEqual(budgets.problems({"a": 1060}, {"a": 1000}),
                         ["a: 1,060 instructions, +6.0% over its budget of 1,000"])

    def test_cases_and_budgets_belong_together(self):
        self.assertEqual(len(budgets.problems({"new": 1}, {"old": 1})), 2)

    def test_a_dump_names_its_case_and_its_count(self):
        text = "desc: Trigger: Client Request: a posting\nevents: Ir\nfn=(1)\n1 2\ntotals: 1234\n"
        self.assertEqual(budgets.read_dump(text), ("a posting", 1234))
        self.assertIsNone(budgets.read_dump("desc: Trigger: Program termination\ntotals: 0\n"))


if __name__ == "__main__":
    unittest.main()
