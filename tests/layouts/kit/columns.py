"""The columns of a table, and its times. What stands in them comes of the random source when the table is made, column
by column from the left; `unit`, `show` and what is left to `more` are those of Column."""

from dataclasses import replace

from kit import signals, times as moments
from kit.layout import Column
from kit.numbers import plain


def evenly(start, step):
    """Times at one distance from a start, which is a date as a text, or nanoseconds."""
    return lambda random, rows: moments.every(nanoseconds(start), step, rows)


def unevenly(start, grain, most):
    """Times that are 1 to `most` grains apart."""
    return lambda random, rows: moments.uneven(random, nanoseconds(start), grain, most, rows)


def nanoseconds(start):
    return moments.moment(start) if isinstance(start, str) else start


def time(name, show, unit="", **more):
    return Column(name, lambda table: table.times, show=show, unit=unit, **more)


def smooth(name, low, high, places=2, unit="", show=plain, **more):
    more.setdefault("kind", "float" if places else "integer")
    return Column(name, lambda table: signals.smooth(table.random, table.rows, low, high, places), unit=unit, show=show,
                  **more)


def significant(name, low, high, digits=7, unit="", show=plain, **more):
    return Column(name, lambda table: signals.significant(table.random, table.rows, low, high, digits), "float", unit,
                  show, **more)


def growing(name, start, step, places=2, unit="", show=plain, **more):
    return Column(name, lambda table: signals.growing(table.random, table.rows, start, step, places),
                  "float" if places else "integer", unit, show, **more)


def counting(name, start=1, step=1, unit="", kind="integer", show=plain):
    return Column(name, lambda table: signals.counting(table.rows, start, step), kind, unit, show)


def held(name, choices, kind=None, longest=20, unit="", show=plain, **more):
    return Column(name, lambda table: signals.held(table.random, table.rows, choices, longest), kind, unit, show,
                  **more)


def late(name, before, after, unit=""):
    return Column(name, lambda table: signals.late(table.random, table.rows, before, after), "integer", unit)


def any_of(name, choices, show):
    """Hexadecimal numbers, each of them at random."""
    return Column(name, lambda table: [table.random.choice(choices) for _ in range(table.rows)], "hex", show=show)


def same(name, value=None, kind=None, unit="", show=plain):
    return Column(name, lambda table: [value] * table.rows, kind, unit, show)


def gaps(column, missing="", share=0.04, first=False):
    """The column with gaps, which are shown as `missing`."""
    return replace(column, missing=missing,
                   values=lambda table: signals.with_gaps(table.random, column.values(table), share, first))
