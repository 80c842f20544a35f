"""Runs that are made of lists, for tests of what is done with a run."""

from __future__ import annotations

from collections.abc import Iterator, Sequence
from dataclasses import dataclass, field
from typing import Any, Optional

import numpy


@dataclass
class FakeSignal:
    """A signal whose times are in ns; None among the values is a missing one."""

    name: str
    values: Any
    times: Any
    unit: str = ""
    type: str = "float"
    column: int = 1
    course: str = ""
    metadata: dict[str, str] = field(default_factory=dict)
    mask: Any = None
    utc: Any = None

    def __len__(self) -> int:
        return len(self.values)


def signal(
    name: str, values: Sequence[Any], times: Sequence[int], dtype: str = "f8", clock_ahead: int = 0, **more: Any
) -> FakeSignal:
    """A signal; its clock is `clock_ahead` ns ahead of UTC."""
    holes = numpy.array([value is None for value in values], dtype=bool)
    fill = numpy.nan if dtype == "f8" else None if dtype == "O" else 0
    array = numpy.array([fill if value is None else value for value in values], dtype=dtype)
    mask = holes if holes.any() and dtype != "f8" else None
    utc = numpy.array(times, dtype="i8").view("M8[ns]")
    return FakeSignal(name, array, utc + numpy.timedelta64(clock_ahead, "ns"), mask=mask, utc=utc, **more)


class FakeRun:
    """A run of such signals."""

    def __init__(self, *signals: FakeSignal, is_relative: bool = False, path: str = "bench.csv") -> None:
        self.signals = signals
        self.is_relative = is_relative
        self.path = path
        self.lines = 7
        self.messages: tuple[Any, ...] = ()
        self.findings: tuple[Any, ...] = ()
        self.assumed: tuple[Any, ...] = ()
        if is_relative:
            for one in signals:
                one.times = one.utc.view("m8[ns]")

    def __iter__(self) -> Iterator[FakeSignal]:
        return iter(self.signals)

    def __len__(self) -> int:
        return len(self.signals)


def column(frame: Any, name: Optional[str] = None) -> list[Any]:
    """The values of a column with None where one is missing."""
    import pandas

    return [None if pandas.isna(value) else value for value in frame[name].tolist()]
