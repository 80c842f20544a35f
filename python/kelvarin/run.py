"""A file that was read: its signals as arrays, and what was found out on the way."""

from __future__ import annotations

import xml.etree.ElementTree
from dataclasses import dataclass
from typing import TYPE_CHECKING, Any, Callable, Dict, Iterable, Iterator, Mapping, Optional, Tuple, Union

import numpy
from numpy.typing import NDArray

from . import _native
from .request import Column, Progress, ProgressWish, Source, Value, make_request, path_of

if TYPE_CHECKING:
    import pandas
    import xarray

Array = NDArray[Any]


@dataclass(frozen=True)
class Message:
    """What was said about the file or one of its cells while it was read."""

    text: str
    line: Optional[int]  # of the file, from 1; None for none
    is_failure: bool  # about the file as a whole


@dataclass(frozen=True)
class Assumption:
    """What was assumed of a file."""

    kind: str  # "table", "times", "rows", "units", "types" or "copy"
    text: str
    certainty: str  # "certain", "likely" or "guess"
    doubts: Tuple[str, ...]  # what speaks against it


@dataclass(frozen=True)
class Finding:
    """Something that was lost, or that should be looked at."""

    kind: str  # a word for programs, such as "repeats" or "refusedCells"
    is_fault: bool  # else a note
    text: str
    count: int  # of the rows, cells or lines that it is about; 0 if it is about none
    lines: Tuple[int, ...]  # of the file, from 1: the first few of these and the last
    column: Optional[int]  # from 1; None if it is not about one column
    remedy: str  # what to do about it, with the arguments that do it; empty for nothing


class _Times:
    """The times of one or several signals, which share the arrays."""

    def __init__(self, instants: Array, is_relative: bool, start: int) -> None:
        self.instants = instants
        self._is_relative = is_relative
        self._start = start
        self._clock: Optional[Array] = None

    @property
    def clock(self) -> Array:
        if self._clock is None:
            if self._is_relative:
                self._clock = (self.instants - self._start).view("timedelta64[ns]")
            else:
                self._clock = _native.local_times(self.instants).view("datetime64[ns]")
        return self._clock


class Signal:
    """A signal of a run: a name, a unit, and one array each of values and times.

    The arrays are made when they are first asked for, and are then always the same ones.
    """

    name: str  #: as in the file, or as `names` has it
    unit: str  #: "" for none
    type: str  #: "boolean", "integer", "float" or "text"
    column: int  #: of the file, from 1
    course: str  #: its course in block characters, such as "▁▂▅█"; "" of a text
    metadata: Dict[str, str]  #: what else is known of it, such as {"Hex": "1"}

    def __init__(self, samples: _native.SignalSamples, times: Callable[[_native.SignalSamples], _Times]) -> None:
        self.name = samples.name
        self.unit = samples.unit
        self.type = samples.type
        self.column = samples.column + 1
        self.course = samples.course(24)
        self.metadata = _metadata(samples.metadata)
        self._count = samples.count
        self._samples: Optional[_native.SignalSamples] = samples
        self._make_times = times
        self._times: Optional[_Times] = None
        self._values: Optional[Array] = None
        self._mask: Optional[Array] = None

    def __len__(self) -> int:
        return self._count

    @property
    def values(self) -> Array:
        """The values, an array of one dimension: float64 (NaN where a value is missing), int64, uint64 (hexadecimal
        numbers), bool, or object (str; None where a text is missing). Where an integer or a truth value is missing,
        which `mask` says, it is 0."""
        if self._values is None:
            samples = self._held()
            self._values = samples.values()
            self._mask = samples.mask()
            self._let_go()
        return self._values

    @property
    def mask(self) -> Optional[Array]:
        """An array of bool as long as `values`, True where there is no value; None if none is missing, and for floats."""
        self.values
        return self._mask

    @property
    def times(self) -> Array:
        """The times, an array as long as `values`: datetime64[ns] as the clocks of the process's time zone show them,
        which is as they are in a file of local times, or timedelta64[ns] since the start of a relative measurement.
        Signals with the same times have the same array."""
        return self._axis().clock

    @property
    def utc(self) -> Array:
        """The same moments in UTC, datetime64[ns]: they rise also where clocks are set back. Of a relative measurement
        they count from its `base_time`, or from 1980 without one."""
        return self._axis().instants.view("datetime64[ns]")

    def __repr__(self) -> str:
        unit = f" [{self.unit}]" if self.unit else ""
        return f"<Signal {self.name!r}{unit}: {self._count} samples of type {self.type}>"

    def __getstate__(self) -> Dict[str, Any]:
        self.values
        self._axis()
        return {name: value for name, value in self.__dict__.items() if name not in ("_samples", "_make_times")}

    def __setstate__(self, state: Dict[str, Any]) -> None:
        self.__dict__.update(state, _samples=None, _make_times=None)

    def _held(self) -> _native.SignalSamples:
        assert self._samples is not None
        return self._samples

    def _axis(self) -> _Times:
        if self._times is None:
            self._times = self._make_times(self._held())
            self._let_go()
        return self._times

    def _let_go(self) -> None:
        """The samples of the extension are freed when no signal needs them any more."""
        if self._values is not None and self._times is not None:
            self._samples = None


class Run:
    """A file that was read: a sequence of its signals, and a mapping of their names to them.

    `run["Druck"]` is the first signal of that name, KeyError if there is none; `run[0]` is the first one of all.
    """

    path: str  #: of the file
    signals: Tuple[Signal, ...]  #: in the order of the file
    lines: int  #: that were read, from the first one of the table on
    is_relative: bool  #: the times count from the start of the measurement, and belong to no date
    messages: Tuple[Message, ...]  #: about the file and its cells, the first 10,000
    messages_left_out: int  #: messages that came after these
    findings: Tuple[Finding, ...]  #: what was lost or is doubtful, faults first; found in the same pass over the file
    settings: Dict[str, str]  #: that were found out, as `read` takes them by `set`; empty if it was told all
    assumed: Tuple[Assumption, ...]  #: what was found out, in words

    def __init__(self, path: str, result: _native.RunDict, base_time: Optional[int] = None) -> None:
        self.path = path
        self.lines = result["lines"]
        self.is_relative = result["is_relative"]
        self.messages = tuple(Message(text, line or None, failed) for text, line, failed in result["messages"])
        self.messages_left_out = result["messages_left_out"]
        self.findings = tuple(Finding(*finding) for finding in result["findings"])
        self.settings = result["settings"]
        self.assumed = tuple(Assumption(*assumption) for assumption in result["assumed"])
        times = _SharedTimes(self.is_relative, base_time)
        self.signals = tuple(Signal(samples, times) for samples in result["signals"])

    def __getitem__(self, key: Union[str, int]) -> Signal:
        if not isinstance(key, str):
            return self.signals[key]
        for signal in self.signals:
            if signal.name == key:
                return signal
        raise KeyError(key)

    def __contains__(self, key: object) -> bool:
        return any(key is signal or key == signal.name for signal in self.signals)

    def __iter__(self) -> Iterator[Signal]:
        return iter(self.signals)

    def __len__(self) -> int:
        return len(self.signals)

    def __repr__(self) -> str:
        samples = sum(map(len, self.signals))
        return f"<Run {self.path!r}: {len(self)} signals, {samples} samples>"

    def to_pandas(self, tz: Optional[str] = None) -> pandas.DataFrame:
        """A table with a column for each signal and a row for each time.

        Where a value is missing, floats are NaN and other columns are of pandas' nullable types. Signals with other
        times than the others are missing in the rows of those. The index has the times as `Signal.times`; with `tz`,
        the name of a time zone, it is aware of that zone. Units are in `frame.attrs["units"]`. ImportError without
        pandas.
        """
        from .frames import to_pandas

        return to_pandas(self, tz)

    def to_xarray(self, tz: Optional[str] = None) -> xarray.Dataset:
        """A data set with a variable for each signal, and a dimension for each different list of times.

        Units and metadata are attributes of the variables. ImportError without xarray.
        """
        from .frames import to_xarray

        return to_xarray(self, tz)

    def _repr_html_(self) -> str:
        from .notebook import run_as_html

        return run_as_html(self)


class _SharedTimes:
    """Makes the times of signals, the same ones for those that share them."""

    def __init__(self, is_relative: bool, base_time: Optional[int]) -> None:
        self._is_relative = is_relative
        self._start = _native.RELATIVE_TIME_EPOCH if base_time is None else base_time
        self._made: Dict[int, _Times] = {}

    def __call__(self, samples: _native.SignalSamples) -> _Times:
        times = self._made.get(samples.times_id)
        # A signal of the same list may be longer than another one by the samples that its last row lacks.
        if times is None or len(times.instants) != samples.count:
            times = _Times(samples.times(), self._is_relative, self._start)
            self._made[samples.times_id] = times
        return times


def read(
    path: Source,
    *,
    set: Mapping[str, Value] = {},
    types: Mapping[Column, str] = {},
    names: Mapping[Column, str] = {},
    units: Mapping[Column, str] = {},
    skip: Iterable[Column] = (),
    signals: Optional[Iterable[Column]] = None,
    guess: bool = True,
    threads: Optional[int] = None,
    base_time: Optional[int] = None,
    progress: ProgressWish = None,
) -> Run:
    """Reads a measurement file into memory, and finds out by itself how.

    Columns are named by their number in the file, from 1, or by their name.

    Args:
        path: a path, or an open file, whose name is read.
        set: settings that are to hold, such as {"TimestampFormat": "DD.MM.YYYY hh:mm:ss"}; the rest is found out.
        types: data types of columns: "boolean", "integer", "integer-unit", "hex", "float", "float-unit", "character"
            or "text".
        names, units: of the signals of columns, in place of those in the file.
        skip: columns that become no signals.
        signals: the only columns that do, by number or by the name that their signal has.
        guess: False reads the file by the settings in force alone.
        threads: that read a large file, by default one for each processor.
        base_time: the start of a relative measurement, in nanoseconds since 1970 UTC.
        progress: True for a bar, or a function that is called with the part that is done, 0 to 1.

    Raises:
        FileError: the file can't be read. FormatError: it has no table, no times or no sample. SettingError: an
            argument can't be followed, such as a column that isn't there.
        KeyboardInterrupt: Ctrl-C, within a tenth of a second.

    The interpreter is free for other threads meanwhile. A process reads one file at a time: a second call waits.
    """
    name = path_of(path)
    request = make_request(
        name,
        set=set,
        types=types,
        names=names,
        units=units,
        skip=skip,
        signals=signals,
        guess=guess,
        threads=threads,
        base_time=base_time,
    )
    with Progress(progress, name) as shown:
        return Run(name, _native.read(request, shown.tell), base_time)


def _metadata(pieces: Iterable[str]) -> Dict[str, str]:
    """The texts of the innermost elements, by their names."""
    values = {}
    for piece in pieces:
        for element in xml.etree.ElementTree.fromstring(piece).iter():
            if len(element) == 0 and element.text:
                values[element.tag] = element.text
    return values
