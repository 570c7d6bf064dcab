#!/usr/bin/env python3
"""What tools/mutate changes, what it leaves alone, and what it says about the results."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
HOME = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(HOME / "tools" / "mutation"))

import ledger  # noqa: E402
from mutants import mutants_of  # noqa: E402


def changes(source):
    return [(mutant.kind, mutant.before, mutant.after) for mutant in mutants_of("a.cpp", source)]


class WhatIsChanged(unittest.TestCase):
    TABLE = {
        "if (a == b)": [("comparison", "==", "!=")],
        "if (a != b)": [("comparison", "!=", "==")],
        "if (a < b)": [("comparison", "<", "<="), ("comparison", "<", ">=")],
        "if (a > b)": [("comparison", ">", ">="), ("comparison", ">", "<=")],
        "if (a <= b)": [("comparison", "<=", "<"), ("comparison", "<=", ">")],
        "if (a >= b)": [("comparison", ">=", ">"), ("comparison", ">=", "<")],
        "if (a && b)": [("logic", "&&", "||")],
        "if (a || b)": [("logic", "||", "&&")],
        "if (!a)": [("logic", "!", "")],
        "return a + b;": [("arithmetic", "+", "-")],
        "return a - b;": [("arithmetic", "-", "+")],
        "return a * b;": [("arithmetic", "*", "/")],
        "return a / b;": [("arithmetic", "/", "*")],
        "a += b": [("arithmetic", "+=", "-=")],
        "a -= b": [("arithmetic", "-=", "+=")],
        "return ++a;": [("arithmetic", "++", "--")],
        "return --a;": [("arithmetic", "--", "++")],
        "return std::max(a, b);": [("arithmetic", "std::max", "std::min")],
        "return std::min(a, b);": [("arithmetic", "std::min", "std::max")],
        "return true;": [("constant", "true", "false")],
        "return false;": [("constant", "false", "true")],
        "return 7;": [("constant", "7", "8")],
        "return 0.5;": [("constant", "0.5", "1.5")],
        "return 200'000;": [("constant", "200'000", "200001")],
        'return "Item";': [("text", '"Item"', '"Item~"')],
        "    close(cheque);": [("call", "close(cheque);", ";")],
    }

    def test_each_pattern(self):
        for source, expected in self.TABLE.items():
            with self.subTest(source):
                self.assertEqual(changes(source), expected)

    def test_two_statements_change_places(self):
        self.assertIn(("order", "a = 1;\n    b = 2;", "b = 2;\n    a = 1;"), changes("    a = 1;\n    b = 2;"))

    def test_statements_of_different_blocks_do_not(self):
        kinds = [kind for kind, *_ in changes("    a = c;\n        b = d;\n    return e;")]
        self.assertNotIn("order", kinds)

    def test_leaves_the_order_of_constants_alone(self):
        for constant in ("constexpr int a = 1;", "static constexpr int a = 1;"):
            for pair in (f"    {constant}\n    b = 2;", f"    b = 2;\n    {constant}"):
                self.assertNotIn("order", [kind for kind, _, _ in changes(pair)])

    def test_leaves_the_order_of_declarations_alone(self):
        for declaration in ("qint64 a;", "std::vector<int> m_b;", "const Offers &c;", "mutable QMutex d;", "double m_e = 0.0;",
                            "int f(const A &a) const;", "Chosen g(h.size(), false);"):
            self.assertNotIn("order", [kind for kind, *_ in changes(f"    {declaration}\n    b = 2;")])
        for statement in ("delete a;", "a(b, 1);", "a->b(c);"):
            self.assertIn("order", [kind for kind, *_ in changes(f"    {statement}\n    b = 2;")])

    def test_leaves_memory_that_is_taken_early_alone(self):
        self.assertEqual(changes("    a.reserve(b + 1);"), [])
        self.assertEqual(changes("    a.reserve(b + 1);\n    a.reserve(c);"), [])
        self.assertNotIn("order", [kind for kind, *_ in changes("    b = 2;\n    a.reserve(c);")])

    def test_leaves_the_order_of_two_properties_alone(self):
        orders = lambda source: [kind for kind, _, _ in changes(source) if kind == "order"]
        self.assertEqual(orders("    a.setB(1);\n    a.setC(2);"), [])
        self.assertEqual(orders("    a->setB(1);\n    a->setC(2);"), [])
        self.assertEqual(orders("    a.b = c();\n    a.d = e();"), [])
        self.assertEqual(orders("    a.b = 1;\n    a.b = 2;"), ["order"])
        for pair in ("    a.setB(1);\n    a.setB(2);", "    a.setB(1);\n    b.setC(2);", "    a.setB(1);\n    a.add(2);"):
            with self.subTest(pair=pair):
                self.assertEqual(orders(pair), ["order"])


class WhatIsLeftAlone(unittest.TestCase):
    def test_comments_directives_and_pointers(self):
        for source in [
            "// a == b, 7", "/* a == b\n 7 true */", '#include "a.h"', "#if A == 7", "Card *card;", "Card &&card",
            "QList<int> list;", "return -a;", 'QStringLiteral', "x1 = y2.z3",
            'QString prefix; ///< "%1" is the number', '/* "a"\n "b" */',
        ]:
            with self.subTest(source):
                self.assertEqual(changes(source), [])

    def test_a_text_that_looks_like_a_comment(self):
        self.assertEqual(changes('return u"http://a"; // "b"'), [("text", '"http://a"', '"http://a~"')])

    def test_what_looks_like_code_in_a_text(self):
        self.assertEqual(changes('return "a == 7";'), [("text", '"a == 7"', '"a == 7~"')])


class Applying(unittest.TestCase):
    SOURCE = "int f()\n{\n    return a + 1;\n}\n"

    def mutant(self, kind):
        return next(mutant for mutant in mutants_of("a.cpp", self.SOURCE) if mutant.kind == kind)

    def test_changes_that_place_only(self):
        self.assertEqual(self.mutant("arithmetic").applied(self.SOURCE), self.SOURCE.replace("+", "-"))

    def test_changes_the_order(self):
        source = "{\n    a = b;\n    c = d;\n}\n"
        order = next(mutant for mutant in mutants_of("a.cpp", source) if mutant.kind == "order")
        self.assertEqual(order.applied(source), "{\n    c = d;\n    a = b;\n}\n")

    def test_refuses_another_text(self):
        with self.assertRaises(ValueError):
            self.mutant("arithmetic").applied(self.SOURCE.replace("+", "*"))


class Identity(unittest.TestCase):
    def test_stays_where_lines_are_added_above(self):
        before = mutants_of("a.cpp", "return 7;")[0]
        after = mutants_of("a.cpp", "\n\nreturn 7;")[0]
        self.assertEqual(before.identity, after.identity)

    def test_differs_between_equal_lines_places_and_replacements(self):
        mutants = mutants_of("a.cpp", "if (a < b && c < d)\nif (a < b && c < d)")
        self.assertEqual(len({mutant.identity for mutant in mutants}), len(mutants))


class Ledger(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.file = pathlib.Path(folder.name) / "results"
        self.mutants = mutants_of("a.cpp", "return a == 7;")
        for mutant, verdict in zip(self.mutants, ["killed by client_tests", "survived"]):
            ledger.append(self.file, mutant, verdict)

    def test_keeps_what_was_found(self):
        self.assertEqual(list(ledger.read(self.file).values()), ["killed by client_tests", "survived"])

    def test_the_last_try_counts(self):
        ledger.append(self.file, self.mutants[1], "killed by plugin_tests")
        self.assertEqual(ledger.read(self.file)[self.mutants[1].identity], "killed by plugin_tests")

    def test_leaves_out_a_line_that_was_cut(self):
        with self.file.open("a") as file:
            file.write("0123456789ab surv")
        self.assertEqual(len(ledger.read(self.file)), 2)
        ledger.append(self.file, self.mutants[1], "killed by plugin_tests")
        self.assertEqual(ledger.read(self.file)[self.mutants[1].identity], "killed by plugin_tests")

    def test_tells_survivors_without_a_reason(self):
        survivor = self.mutants[1]
        results = ledger.read(self.file)
        self.assertEqual(ledger.lacks(self.mutants, results, {}), [survivor])
        self.assertEqual(ledger.lacks(self.mutants, results, {survivor.identity: "it is equal"}), [])
        self.assertIn("NO REASON GIVEN", ledger.report(self.mutants, results, {}))
        self.assertIn("it is equal", ledger.report(self.mutants, results, {survivor.identity: "it is equal"}))

    def test_counts_by_kind(self):
        report = ledger.report(self.mutants, ledger.read(self.file), {})
        self.assertIn("| comparison | 1 | 1 |", report)
        self.assertIn("| constant | 1 | 0 |", report)
        self.assertIn("| all | 2 | 1 (50.0 %) |", report)

    def test_reads_reasons_and_passes_over_comments(self):
        self.file.write_text("# why\n\nabc123 both are the same here\n")
        self.assertEqual(ledger.reasons(self.file), {"abc123": "both are the same here"})


class Program(unittest.TestCase):
    def run_it(self, *arguments):
        return subprocess.run([HOME / "tools" / "mutate", *arguments], capture_output=True, text=True)

    def test_lists_the_same_mutants_for_the_same_seed(self):
        first, second, other = (self.run_it("--list", "--count", "9", "--seed", seed).stdout for seed in "112")
        self.assertEqual(first, second)
        self.assertNotEqual(first, other)
        self.assertEqual(first.count("\n"), 9)

    def test_names_a_file_that_is_missing(self):
        done = self.run_it("client/nothing.cpp", "--list")
        self.assertEqual(done.returncode, 2)
        self.assertIn("client/nothing.cpp: there is no such file", done.stderr)

    def test_every_reason_belongs_to_a_mutant(self):
        known = ledger.reasons(HOME / "tests" / "mutation" / "survivors")
        listed = {line.split()[0] for line in self.run_it("--list").stdout.splitlines()}
        self.assertEqual(set(known) - listed, set())


if __name__ == "__main__":
    unittest.main()
