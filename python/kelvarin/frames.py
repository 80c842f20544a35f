"""Runs as tables of pandas and as data sets of xarray."""

from __future__ import annotations

from collections.abc import Iterable
from typing import TYPE_CHECKING, Any, Optional

import numpy

from .axes import Array, Axis, distinct_axes, join
from .optional import load_library

if TYPE_CHECKING:
    import pandas
    import xarray

    from .run import Run, Signal

# Up to here whole numbers are exact as float64.
_EXACT_IN_FLOAT = 2**53


def to_pandas(run: Run, tz: Optional[str] = None) -> pandas.DataFrame:
    """A column for each signal, a row for each time.

    Every sample has a row, those of one signal are in their order. Signals share a row where their instants are the
    same, also if they repeat or fall. A column with a missing sample is NaN there, or nullable: Int64, UInt64,
    boolean, None in texts; all others have the type of their values. A name that comes again gets " (2)".

    The index is the clock as it is in the file; with tz, such as "UTC" or "Europe/Berlin", the clock there. Times
    that count from the start of the measurement are a TimedeltaIndex, and ValueError is raised for a tz.

    attrs["units"] has the unit of each column, "" for none. ImportError if there is no pandas.
    """
    library = load_library("pandas", "to_pandas")
    axes, numbers = distinct_axes(run)
    names = distinct_names(signal.name for signal in run)
    is_joined = len(axes) > 1
    if is_joined:
        joined = join(axes)
        axis, rows = joined.axis, joined.rows
    else:
        axis = axes[0] if axes else _no_times(run)
    columns = {}
    for name, signal, number in zip(names, run, numbers):
        if is_joined:
            values, missing = _spread(signal, rows[number], len(axis.instants))
        else:
            values, missing = signal.values, signal.mask
        columns[name] = _column(library, values, missing)
    # Spread values are copies already. pandas makes the one copy of the others, and a block of those of one type.
    frame = library.DataFrame(columns, index=_index(library, run, axis, tz), copy=not is_joined)
    units = {name: signal.unit for name, signal in zip(names, run)}
    frame.attrs.update(file=run.path, units=units)
    for name, unit in units.items():
        frame[name].attrs["unit"] = unit
    return frame


def to_xarray(run: Run, tz: Optional[str] = None) -> xarray.Dataset:
    """A variable for each signal, a dimension for each different time axis: "time", "time_2" and so on.

    Attributes of a variable: long_name, units, column (from 1) and the signal's metadata. Missing samples are NaN;
    whole numbers with missing ones become float64 where that is exact, else objects with None, as truth values and
    texts do. The times are the clock as it is in the file, or that of tz, without a zone. ImportError if there is no
    xarray.
    """
    library = load_library("xarray", "to_xarray")
    axes, numbers = distinct_axes(run)
    dims = ["time" if number == 0 else f"time_{number + 1}" for number in range(len(axes))]
    pandas = load_library("pandas", "to_xarray")
    coords = {}
    for dim, axis in zip(dims, axes):
        index = _index(pandas, run, axis, tz).rename(dim)
        coords[dim] = index if run.is_relative or tz is None else index.tz_localize(None)
    names = distinct_names((signal.name for signal in run), taken=dims)
    variables = {}
    for name, signal, number in zip(names, run, numbers):
        labels = {"long_name": signal.name, "units": signal.unit, "column": signal.column}
        labels.update((key, value) for key, value in signal.metadata.items() if key not in labels)
        variables[name] = (dims[number], _values_with_holes(signal), labels)
    attrs = {"file": run.path, "clock": tz or "as in the file"}
    data: xarray.Dataset = library.Dataset(variables, coords=coords, attrs=attrs)
    return data


def distinct_names(names: Iterable[str], taken: Iterable[str] = ()) -> list[str]:
    """The names, with " (2)" and so on behind those that are in `taken` or came before."""
    seen = set(taken)
    distinct = []
    for name in names:
        choice, number = name, 1
        while choice in seen:
            number += 1
            choice = f"{name} ({number})"
        seen.add(choice)
        distinct.append(choice)
    return distinct


def is_exact_in_float(values: Array) -> bool:
    """True if each number is the same as float64."""
    if values.dtype.kind == "f" or len(values) == 0:
        return True
    return bool(-_EXACT_IN_FLOAT <= values.min() and values.max() <= _EXACT_IN_FLOAT)


def _no_times(run: Run) -> Axis:
    none = numpy.empty(0, dtype=numpy.int64)
    return Axis(none, none.view("timedelta64[ns]" if run.is_relative else "datetime64[ns]"))


def _index(library: Any, run: Run, axis: Axis, tz: Optional[str]) -> Any:
    if run.is_relative:
        if tz is not None:
            raise ValueError("the times count from the start of the measurement and have no time zone")
        return library.TimedeltaIndex(axis.clock, name="time")
    if tz is None:
        return library.DatetimeIndex(axis.clock, name="time")
    instants = axis.instants.view("datetime64[ns]")
    return library.DatetimeIndex(instants, tz="UTC", name="time").tz_convert(tz)


def _spread(signal: Signal, rows: Array, length: int) -> tuple[Array, Optional[Array]]:
    """The values in their rows of a longer column, and where there is none; floats are NaN there."""
    values = signal.values
    if values.dtype.kind == "f":
        spread = numpy.full(length, numpy.nan)
    elif values.dtype.kind == "O":
        spread = numpy.full(length, None, dtype=object)
    else:
        spread = numpy.zeros(length, dtype=values.dtype)
    spread[rows] = values
    missing = numpy.ones(length, dtype=bool)
    missing[rows] = False if signal.mask is None else signal.mask
    return spread, missing


def _column(library: Any, values: Array, missing: Optional[Array]) -> Any:
    """Values as a column of pandas: nullable where one is missing, else as they are."""
    if missing is None or not missing.any():
        return values
    if values.dtype.kind == "f":
        return _with_holes(values, missing, numpy.nan)
    if values.dtype.kind == "O":
        return _with_holes(values, missing, None)
    if values.dtype.kind == "b":
        return library.arrays.BooleanArray(values, missing)
    return library.arrays.IntegerArray(values, missing)


def _values_with_holes(signal: Signal) -> Array:
    """A copy of the values, for a library without nullable types: missing ones are NaN, or None among objects."""
    values, missing = signal.values, signal.mask
    if missing is None or not missing.any():
        copy: Array = values.copy()
        return copy
    if values.dtype.kind in "fiu" and is_exact_in_float(values[~missing]):
        return _with_holes(values.astype(numpy.float64), missing, numpy.nan)
    return _with_holes(values.astype(object), missing, None)


def _with_holes(values: Array, missing: Array, hole: Optional[float]) -> Array:
    copy: Array = values.copy()
    copy[missing] = hole
    return copy
