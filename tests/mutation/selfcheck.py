#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks the mutation test itself: what each operator makes of a few lines, what is left alone, and that a survivor
nobody has answered for is told and fails the run.
"""

from __future__ import annotations

import tempfile
import unittest
from pathlib import Path
from typing import List, Set

from answers import Answer, read_answers
from cpp import Code
from mutants import Mutant, in_drawn_order, mutants_of, quotas
from operators import OPERATORS
from report import summarize
from workshop import Verdict, of_compiler


def body(statement: str) -> str:
    return f'int f(int a, int b, int c) {{\n    {statement}\n}}\n'


def changed(operator: str, statement: str) -> List[str]:
    """What the operator makes of a statement, in the order of its places."""
    source = body(statement)
    changes = sorted(set(OPERATORS[operator](Code(source))), key=lambda change: (change.start, change.end, change.text))
    results = [change.apply(source) for change in changes]
    return [result.split('\n', 1)[1].rsplit('\n', 2)[0].strip() for result in results]


class Operators(unittest.TestCase):
    ROWS = (
        ('relation', 'if (a < b) c = 0;', ['if (a <= b) c = 0;']),
        ('relation', 'return a >= b;', ['return a > b;']),
        ('relation', 'return a == b;', ['return a != b;']),
        ('relation', 'return static_cast<int>(a);', []),
        ('relation', 'return f<g<1>>(a) <= 2;', ['return f<g<1>>(a) < 2;']),
        ('constant', 'return 9;', ['return 10;', 'return 8;']),
        ('constant', 'return 0;', ['return 1;']),
        ('constant', "return 1'000u;", ['return 1001u;', 'return 999u;']),
        ('constant', 'return 0xff;', ['return 0x100;', 'return 0xfe;']),
        ('constant', 'return 0xffffffffffffffff;', ['return 0xfffffffffffffffe;']),
        ('constant', 'return 0b101;', ['return 0b100;', 'return 0b110;']),
        ('constant', 'return true;', ['return false;']),
        ('constant', 'return 1.5;', []),
        ('constant', 'return a ? 1 : 0;', ['return a ? 0 : 0;', 'return a ? 1 : 1;']),
        ('constant', 'return a ? 1 : 0 + b;', ['return a ? 0 : 0 + b;', 'return a ? 1 : 1 + b;']),
        ('constant', 'return a ? 1 : 2;', ['return a ? 0 : 2;', 'return a ? 2 : 2;', 'return a ? 1 : 1;',
                                           'return a ? 1 : 3;']),
        ('constant', 'a |= 1;', ['a |= 0;']),
        ('sign', 'return a + b - c;', ['return a - b - c;', 'return a + b + c;']),
        ('sign', 'return -a;', ['return a;']),
        ('sign', 'a += b;', ['a -= b;']),
        ('sign', 'return *--a;', ['return *++a;']),
        ('shift', 'return a << b;', ['return a << 1 + b;']),
        ('shift', 'a >>= 8;', ['a >>= 1 + 8;']),
        ('condition', 'if (a) b = c;', ['if (!(a)) b = c;']),
        ('condition', 'if (!a) b = c;', ['if (a) b = c;']),
        ('condition', 'while (a && b) c = f(c);', ['while (!(a && b)) c = f(c);', 'while (a || b) c = f(c);']),
        ('condition', 'return a + 1 ? b : c;', ['return !(a + 1) ? b : c;']),
        ('condition', 'return f(a, b ? 1 : c);', ['return f(a, !(b) ? 1 : c);']),
        ('condition', 'for (; a != b; ++a) c = a;', ['for (; !(a != b); ++a) c = a;']),
        ('statement', 'a = b;', [';']),
        ('statement', 'f(a, b, c);', [';']),
        ('statement', '*a = b;', [';']),
        ('statement', 'a.b->c[3] |= f(c);', [';']),
        ('statement', '++a;', [';']),
        ('statement', 'int d = a;', []),
        ('statement', 'const Pair d{a, b};', []),
        ('statement', 'return a;', []),
        ('statement', 'if (a) return b;', [';']),
        ('statement', 'if (a) b = c;', [';', 'if (a) ;']),
        ('statement', 'if (a) b = c; else c = b;', ['if (a) ; else c = b;', 'if (a) b = c; else ;']),
        ('statement', 'for (; a < b; ++a) c = a;', ['for (; a < b; ++a) ;']),
        ('operands', 'return a - b;', ['return b - a;']),
        ('operands', 'return a * b - c + 1;', ['return c - (a * b) + 1;']),
        ('operands', 'return a - b - c;', ['return b - a - c;', 'return c - (a - b);']),
        ('operands', 'return a / (b + c);', ['return (b + c) / a;']),
        ('operands', 'return a << b | c;', ['return b << a | c;']),
        ('operands', 'return a + b;', []),
        ('operands', 'return f(a, b, c);', ['return f(b, a, c);', 'return f(a, c, b);']),
        ('operands', 'return min(a, b);', []),
        ('operands', 'return f(a, a);', []),
        ('operands', 'return are_rounding_modes(a, b, c);', []),
        ('operands', 'return {a, b};', ['return {b, a};']),
        ('operands', 'for (int i : {a, b}) c = i;', []),
    )

    def test_each_on_a_line(self) -> None:
        for operator, statement, expected in self.ROWS:
            with self.subTest(operator=operator, statement=statement):
                self.assertEqual(changed(operator, statement), expected)

    def test_each_has_rows(self) -> None:
        self.assertEqual({operator for operator, _, _ in self.ROWS}, set(OPERATORS))


class LeftAlone(unittest.TestCase):
    ROWS = (
        ('comments', '// a < b + 1\n/* c << 2; d(e, f);\n if (!g) */\n'),
        ('strings', 'const char* const text = "a < b + 1 // \\" << 2";\n'),
        ('characters', "const char quote = '\\'', less = '<', one = '1';\n"),
        ('directives', '#include <a-1.h>\n#define A(x) (x) < 1 \\\n    ? 2 : 3\n#if A(2) - 1\n#endif\n'),
        ('what only the compiler reads', 'static_assert(1 + 1 < 3, "no");\nstruct alignas(64) A;\n[[f(1)]] int a();\n'),
        ('parts that no known build has', '#if defined(X)\nint a = 1;\n#else\nint a = 2;\n#endif\n'),
        ('declarations', 'int f(int a, int b);\nusing g::h;\n'),
    )

    def test_no_change(self) -> None:
        for name, source in self.ROWS:
            with self.subTest(name):
                self.assertEqual([mutant for mutants in mutants_of('f.cpp', source).values() for mutant in mutants], [])

    def test_code_beside_it_is_changed(self) -> None:
        source = body('return f("1", a /* 2 */, \'3\') + 4;  // 5')
        self.assertEqual([change.text for change in OPERATORS['constant'](Code(source))], ['5', '3'])


def single(mutants: List[Mutant]) -> Mutant:
    assert len(mutants) == 1, mutants
    return mutants[0]


class Names(unittest.TestCase):
    SOURCE = ('namespace n {\nnamespace {\nstruct A {\n    int g() const { return 1; }\n};\n}  // namespace\n'
              'inline constexpr auto t = []() { return 2; }();\ntemplate <class X>\nX h(X x) { return x - 3; }\n'
              'bool operator<(A a, A b) { return 4; }\n}\nextern "C" int k(void) { return 5; }\n')

    def test_definitions(self) -> None:
        code = Code(self.SOURCE)
        found = {token.text: code.definitions[number] for number, token in enumerate(code.tokens)
                 if token.kind == 'number'}
        self.assertEqual(found, {'1': 'A::g', '2': 't', '3': 'h', '4': 'operator<', '5': 'k'})

    def test_edits_elsewhere_leave_the_identity(self) -> None:
        one = single(mutants_of('f.cpp', body('return a << b;'))['shift'])
        other = single(mutants_of('f.cpp', 'int z;\n' + body('return a  <<  b;  // why'))['shift'])
        self.assertEqual(one.identity, other.identity)
        self.assertNotEqual(one.identity, single(mutants_of('f.cpp', body('return a << c;'))['shift']).identity)

    def test_same_words_twice_are_two(self) -> None:
        two = mutants_of('f.cpp', body('a += b;\n    a += b;'))['sign']
        self.assertEqual(two[0].words, two[1].words)
        self.assertNotEqual(two[0].identity, two[1].identity)

    def test_builds(self) -> None:
        source = '#ifndef H\n#if QV8NUMERIC_NATIVE_128\nint a = 1;\n#else\nint a = 3;\n#endif\nint b = 5;\n#endif\n'
        builds = {mutant.before: mutant.build for mutant in mutants_of('f.h', source)['constant']}
        self.assertEqual(builds, {'int a = 1;': 'native', 'int a = 3;': 'portable', 'int b = 5;': 'both'})


class Drawing(unittest.TestCase):
    MUTANTS = mutants_of('f.cpp', body('return f(a - 1 < b + 2 ? a << 3 : b >> 4, c);'))

    def order(self, seed: int) -> List[str]:
        return [mutant.identity for mutant in in_drawn_order(self.MUTANTS, seed, 'f.cpp')]

    def test_the_seed_decides(self) -> None:
        self.assertEqual(self.order(1), self.order(1))
        self.assertNotEqual(self.order(1), self.order(2))
        self.assertEqual(sorted(self.order(1)), sorted(self.order(2)))

    def test_every_operator_early(self) -> None:
        there = {operator for operator, mutants in self.MUTANTS.items() if mutants}
        first = in_drawn_order(self.MUTANTS, 1, 'f.cpp')[:len(there)]
        self.assertEqual({mutant.operator for mutant in first}, there)

    def test_quotas(self) -> None:
        self.assertEqual(quotas({'a': 4, 'b': 110, 'c': 60}, 0, 10), {'a': 4, 'b': 10, 'c': 10})
        self.assertEqual(quotas({'a': 4, 'b': 110, 'c': 60}, 99, 10), {'a': 4, 'b': 60, 'c': 35})
        self.assertEqual(quotas({'a': 4, 'b': 110}, 1000, 10), {'a': 4, 'b': 110})


class Compiler(unittest.TestCase):
    def test_an_assertion_notices(self) -> None:
        output = ('/a/tree/src/x.h:5:1: error: static assertion failed\n'
                  'x.h:9:2: error: non-constant condition for static assertion\n')
        self.assertEqual(of_compiler(output),
                         Verdict('killed', 'static_assert', 'src/x.h:5:1: error: static assertion failed'))

    def test_what_is_no_program_is_no_mutant(self) -> None:
        for output in ("x.h:5:1: error: no match for 'operator-'\nx.h:9:2: error: static assertion failed\n", 'killed'):
            self.assertEqual(of_compiler(output).verdict, 'stillborn')


class Outcome(unittest.TestCase):
    MUTANTS = mutants_of('src/f.cpp', body('return f(a - 1 < b + 2 ? a << 3 : b >> 4, c);'))['constant']

    def summary(self, verdicts: List[str], answers: dict, existing: Set[tuple] = frozenset()):
        judged = [(mutant, Verdict(verdict)) for mutant, verdict in zip(self.MUTANTS, verdicts)]
        return summarize(judged, answers, existing or {mutant.words for mutant in self.MUTANTS})

    def test_a_planted_survivor_is_told_and_fails(self) -> None:
        summary = self.summary(['killed'] * 3 + ['survived'], {})
        self.assertEqual(summary.unanswered, [self.MUTANTS[3]])
        self.assertFalse(summary.passed)

    def test_a_slower_road_is_counted_apart(self) -> None:
        summary = self.summary(['killed'] * 3 + ['survived'], {self.MUTANTS[3].words: Answer('slower road', 'so')})
        self.assertEqual((summary.slower, summary.killed_per_cent), ([self.MUTANTS[3]], 100.0))
        self.assertTrue(summary.passed)

    def test_an_equivalent_one_is_answered_but_lives(self) -> None:
        summary = self.summary(['killed'] * 3 + ['survived'], {self.MUTANTS[3].words: Answer('equivalent', 'so')})
        self.assertEqual((summary.equivalent, summary.killed_per_cent), ([self.MUTANTS[3]], 75.0))
        self.assertFalse(summary.passed)

    def test_what_is_no_mutant_does_not_count(self) -> None:
        summary = self.summary(['killed', 'stillborn', 'unchanged'], {})
        self.assertEqual(summary.killed_per_cent, 100.0)
        self.assertTrue(summary.passed)

    def test_answers_that_do_not_apply(self) -> None:
        gone = ('src/f.cpp', 'f', 'x', 'y')
        answers = {self.MUTANTS[0].words: Answer('equivalent', 'so'), gone: Answer('equivalent', 'so')}
        summary = self.summary(['killed'], answers)
        self.assertEqual(summary.killed_answers, [self.MUTANTS[0].words])
        self.assertEqual(summary.stale_answers, [gone])
        self.assertFalse(summary.passed)

    def test_nothing_tried_is_no_success(self) -> None:
        self.assertFalse(self.summary([], {}).passed)


class Answers(unittest.TestCase):
    GOOD = ('# a comment\n\nsrc/f.cpp A::g\n- return a < b;\n+ return a <= b;\n'
            'equivalent: a is never b,\nas told above.\n')

    def read(self, text: str) -> dict:
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / 'answers.txt'
            path.write_text(text)
            return read_answers(path)

    def test_words_and_reason(self) -> None:
        self.assertEqual(self.read(self.GOOD), {('src/f.cpp', 'A::g', 'return a < b;', 'return a <= b;'):
                                                Answer('equivalent', 'a is never b, as told above.')})

    def test_refused(self) -> None:
        for name, text in (('another kind', self.GOOD.replace('equivalent', 'unlikely')),
                           ('no reason', self.GOOD.split('equivalent')[0]),
                           ('no change', self.GOOD.replace('- ', '')),
                           ('twice', self.GOOD + '\n' + self.GOOD)):
            with self.subTest(name), self.assertRaises(ValueError):
                self.read(text)


if __name__ == '__main__':
    unittest.main()
