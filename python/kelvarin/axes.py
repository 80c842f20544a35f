"""The time axes of a run's signals, and one axis that has all of their times."""

from __future__ import annotations

from dataclasses import dataclass
from typing import TYPE_CHECKING, Any

import numpy
from numpy.typing import NDArray

if TYPE_CHECKING:
    from .run import Run

Array = NDArray[Any]


@dataclass(frozen=True)
class Axis:
    """Times that one or several signals share."""

    instants: Array  # int64, ns since 1970 UTC, or since the start of a relative measurement
    clock: Array  # datetime64[ns] or timedelta64[ns], the same times as they are in the file


@dataclass(frozen=True)
class JoinedAxis:
    """One axis with the times of several."""

    axis: Axis
    rows: list[Array]  # for each of the joined axes: the row of each of its times, rising


def distinct_axes(run: Run) -> tuple[list[Axis], list[int]]:
    """The different axes of a run, in the order of their first signals, and for each signal the number of its axis."""
    axes: list[Axis] = []
    numbers = []
    for signal in run:
        clock = signal.times
        instants = (clock if run.is_relative else signal.utc).view(numpy.int64)
        number = _find(axes, instants)
        if number == len(axes):
            axes.append(Axis(instants, clock))
        numbers.append(number)
    return axes, numbers


def join(axes: list[Axis]) -> JoinedAxis:
    """An axis on which every sample of `axes` has a row, and those of one axis are in their order.

    Samples of different axes share a row if they have the same instant. Of several samples with one instant on an
    axis the first shares the row with the first of another axis, and so on. Where the times of an axis fall, the
    part behind goes with the parts of other axes behind their falls.
    """
    instants = numpy.concatenate([axis.instants for axis in axes])
    keys = [instants] if all(map(_is_rising, axes)) else _keys_with_repeats(axes)
    order = numpy.lexsort(keys)
    is_new = numpy.ones(len(order), dtype=bool)
    is_new[1:] = False
    for key in keys:
        is_new[1:] |= key[order[1:]] != key[order[:-1]]
    rows = numpy.empty(len(order), dtype=numpy.intp)
    rows[order] = numpy.cumsum(is_new) - 1
    firsts = order[is_new]
    clock = numpy.concatenate([axis.clock for axis in axes])
    ends = numpy.cumsum([len(axis.instants) for axis in axes])
    return JoinedAxis(Axis(instants[firsts], clock[firsts]), numpy.split(rows, ends[:-1]))


def _find(axes: list[Axis], instants: Array) -> int:
    for number, axis in enumerate(axes):
        if _is_same_memory(axis.instants, instants) or numpy.array_equal(axis.instants, instants):
            return number
    return len(axes)


def _is_same_memory(one: Array, other: Array) -> bool:
    return one.shape == other.shape and bool(one.ctypes.data == other.ctypes.data)


def _is_rising(axis: Axis) -> bool:
    return bool(numpy.all(axis.instants[1:] > axis.instants[:-1]))


def _keys_with_repeats(axes: list[Axis]) -> list[Array]:
    """What samples are sorted by, the last first: part of the axis between falls, instant, number of the repeat."""
    repeats, instants, parts = [], [], []
    for axis in axes:
        times = axis.instants
        index = numpy.arange(len(times))
        is_new = numpy.ones(len(times), dtype=bool)
        is_new[1:] = times[1:] != times[:-1]
        repeats.append(index - numpy.maximum.accumulate(numpy.where(is_new, index, 0)))
        instants.append(times)
        parts.append(numpy.concatenate([[0], numpy.cumsum(times[1:] < times[:-1])])[: len(times)])
    return [numpy.concatenate(key) for key in (repeats, instants, parts)]
