"""What is found of a file without reading it into memory: its columns, why it is read so, what an import would lose;
and a clean copy of it."""

from __future__ import annotations

import os
from dataclasses import dataclass
from typing import Dict, Iterable, Mapping, Optional, Tuple, Union

import numpy

from . import _native
from .request import Column, Progress, ProgressWish, Source, Value, make_request, path_of
from .run import Assumption, Finding


@dataclass(frozen=True)
class AnalyzedColumn:
    """A column of a file."""

    number: int  # in the file, from 1
    name: str
    unit: str  # "" for none
    type: str  # as `types` of read() takes it
    is_time: bool  # its cells are the times
    is_signal: bool  # read() makes a signal of it


@dataclass(frozen=True)
class Analysis:
    """How a file is read."""

    path: str
    columns: Tuple[AnalyzedColumn, ...]
    format: str  # separator, header and first line, in words
    header_line: Optional[int]  # with the names, from 1; None for none
    first_line: int  # of the rows, from 1
    timestamp_format: str  # "" for none
    needs_copy: bool  # no settings read it so; lines and format are those of a copy that is read in its place
    settings: Dict[str, str]  # that were found out, as read() takes them by `set`
    assumed: Tuple[Assumption, ...]

    def _repr_html_(self) -> str:
        from .notebook import analysis_as_html

        return analysis_as_html(self)


@dataclass(frozen=True)
class ExplainedColumn:
    """Why a column has its type."""

    number: int  # in the file, from 1
    name: str
    type: str
    is_time: bool
    why: str


@dataclass(frozen=True)
class Warning:
    """What people do not expect of the way a file is read."""

    kind: str  # a word for programs
    text: str
    remedy: str  # what to do about it; "" for nothing


@dataclass(frozen=True)
class Explanation:
    """Why a file is read as it is."""

    path: str
    columns: Tuple[ExplainedColumn, ...]
    format: str  # separator, header and first line, in words
    why: Tuple[str, ...]  # why this format, a sentence each; empty where `assumed` says it
    runner_up: str  # the separator that came next; "" for none
    warnings: Tuple[Warning, ...]
    advised: Dict[str, str]  # settings that would read it better, as read() takes them by `set`; empty for none
    needs_copy: bool  # none would, but a copy made by prepare() would
    settings: Dict[str, str]  # that were found out
    assumed: Tuple[Assumption, ...]


@dataclass(frozen=True)
class CheckedColumn:
    """What becomes of the cells of a column."""

    number: int  # in the file, from 1
    name: str
    type: str
    samples: int
    empty: int  # samples without a value whose cell was empty
    refused: int  # samples without a value whose cell is not of the type


@dataclass(frozen=True)
class CheckedTimes:
    """The times of the rows."""

    first: Union[numpy.datetime64, numpy.timedelta64]  # on the clock of the file, as Signal.times
    last: Union[numpy.datetime64, numpy.timedelta64]
    shortest: numpy.timedelta64  # interval between two rows
    median: numpy.timedelta64
    longest: numpy.timedelta64
    is_steady: bool  # nine of ten intervals are within a tenth of the median


@dataclass(frozen=True)
class Check:
    """What reading a file would lose."""

    path: str
    is_clean: bool  # none of the findings is a fault
    findings: Tuple[Finding, ...]  # faults first
    lines: int  # from the first of the table on
    rows: int  # that become samples
    columns: Tuple[CheckedColumn, ...]
    dropped: Dict[str, int]  # rows that don't, by the kinds of findings
    times: Optional[CheckedTimes]  # None without a row
    settings: Dict[str, str]  # that were found out, as read() takes them by `set`
    assumed: Tuple[Assumption, ...]

    def _repr_html_(self) -> str:
        from .notebook import check_as_html

        return check_as_html(self)


@dataclass(frozen=True)
class Copy:
    """A copy that was written."""

    path: str
    device: str  # whose rows it has, of a file with the rows of several; "" for all rows
    rows: int
    is_sorted: bool  # the rows of the file are in another order
    left_out: Dict[str, int]  # lines and cells that it doesn't have, by kind
    rewritten: int  # numbers and truth values that are written in another way
    emptied: int  # words for a missing value that became empty cells


@dataclass(frozen=True)
class PreparedColumn:
    """A column of a copy."""

    number: int  # in the source, from 1
    name: str
    unit: str  # "" for none
    type: str  # "text", "character", "boolean", "integer", "hexadecimal" or "float"


@dataclass(frozen=True)
class Prepared:
    """The clean copies of a file."""

    path: str  # of the source
    copies: Tuple[Copy, ...]  # one, or one for each device
    columns: Tuple[PreparedColumn, ...]  # but for that of the times, which is the first
    times: str  # "local": as written in the source; "utc": seconds since 1970; "elapsed": seconds
    assumed: Tuple[Assumption, ...]


def analyze(
    path: Source,
    *,
    set: Mapping[str, Value] = {},
    types: Mapping[Column, str] = {},
    names: Mapping[Column, str] = {},
    units: Mapping[Column, str] = {},
    skip: Iterable[Column] = (),
    guess: bool = True,
) -> Analysis:
    """Finds out how a file is built, from lines all over it. Takes milliseconds, whatever the size, unless a clean
    copy has to be made. Arguments and errors are those of read()."""
    name = path_of(path)
    request = make_request(name, set=set, types=types, names=names, units=units, skip=skip, guess=guess)
    found = _native.analyze(request)
    return Analysis(
        path=name,
        columns=tuple(AnalyzedColumn(*column) for column in found["columns"]),
        format=found["format"],
        header_line=found["header_line"] or None,
        first_line=found["first_line"],
        timestamp_format=found["timestamp_format"],
        needs_copy=found["needs_copy"],
        settings=found["settings"],
        assumed=_assumed(found["assumed"]),
    )


def explain(
    path: Source,
    *,
    set: Mapping[str, Value] = {},
    types: Mapping[Column, str] = {},
    names: Mapping[Column, str] = {},
    units: Mapping[Column, str] = {},
    skip: Iterable[Column] = (),
    guess: bool = True,
) -> Explanation:
    """Says why a file is read as it is, and what surprises about it. Arguments and errors are those of read()."""
    name = path_of(path)
    request = make_request(name, set=set, types=types, names=names, units=units, skip=skip, guess=guess)
    found = _native.explain(request)
    return Explanation(
        path=name,
        columns=tuple(ExplainedColumn(*column) for column in found["columns"]),
        format=found["format"],
        why=found["why"],
        runner_up=found["runner_up"],
        warnings=tuple(Warning(*warning) for warning in found["warnings"]),
        advised=found["advised"],
        needs_copy=found["needs_copy"],
        settings=found["settings"],
        assumed=_assumed(found["assumed"]),
    )


def check(
    path: Source,
    *,
    set: Mapping[str, Value] = {},
    types: Mapping[Column, str] = {},
    names: Mapping[Column, str] = {},
    units: Mapping[Column, str] = {},
    skip: Iterable[Column] = (),
    guess: bool = True,
    threads: Optional[int] = None,
    progress: ProgressWish = None,
) -> Check:
    """Says what reading a file would lose, and why. Reads all of it, as read() does, in little memory; a run of read()
    has the same findings. Arguments and errors are those of read()."""
    name = path_of(path)
    request = make_request(
        name, set=set, types=types, names=names, units=units, skip=skip, guess=guess, threads=threads
    )
    with Progress(progress, name) as shown:
        found = _native.check(request, shown.tell)
    return Check(
        path=name,
        is_clean=found["is_clean"],
        findings=tuple(Finding(*finding) for finding in found["findings"]),
        lines=found["lines"],
        rows=found["rows"],
        columns=tuple(CheckedColumn(*column) for column in found["columns"]),
        dropped=found["dropped"],
        times=_checked_times(found["times"], found["is_relative"], found["has_dates"]),
        settings=found["settings"],
        assumed=_assumed(found["assumed"]),
    )


def prepare(
    path: Source,
    out: Union[str, "os.PathLike[str]", None] = None,
    *,
    force: bool = False,
    progress: ProgressWish = None,
) -> Prepared:
    """Writes a clean copy that every import reads: one table, times in one column, rows in order.

    Args:
        out: the copy, by default the path with ".prepared.csv" added. A file with the rows of several devices gets
            a copy for each, with the device's name before the ending.
        force: replaces copies that are there already.

    Raises:
        FileError, FormatError: as read(). CopyError: a copy can't be written, or is there; what was there stays.
        KeyboardInterrupt: Ctrl-C; no copy is left behind.
    """
    name = path_of(path)
    copy = name + ".prepared.csv" if out is None else os.fsdecode(out)
    with Progress(progress, name) as shown:
        made = _native.prepare(os.fsencode(name), os.fsencode(copy), force, shown.tell)
    return Prepared(
        path=name,
        copies=tuple(Copy(*one) for one in made["copies"]),
        columns=tuple(PreparedColumn(*column) for column in made["columns"]),
        times=made["times"],
        assumed=_assumed(made["assumed"]),
    )


def _assumed(assumptions: Tuple[_native.AssumptionTuple, ...]) -> Tuple[Assumption, ...]:
    return tuple(Assumption(*assumption) for assumption in assumptions)


def _checked_times(
    times: Optional[_native.TimesTuple], is_relative: bool, has_dates: bool
) -> Optional[CheckedTimes]:
    if times is None:
        return None
    first, last, *intervals, is_steady = times
    moments = numpy.array([first, last])
    if is_relative:
        clock = (moments - _native.RELATIVE_TIME_EPOCH).view("timedelta64[ns]")
    else:
        clock = _native.local_times(moments, has_dates).view("datetime64[ns]")
    shortest, median, longest = (numpy.timedelta64(interval, "ns") for interval in intervals)
    return CheckedTimes(clock[0], clock[1], shortest, median, longest, bool(is_steady))
