"""Runs as tables of pandas and as data sets of xarray."""

from __future__ import annotations

import sys
import tracemalloc
from typing import Any, Optional

import numpy
import pandas
import pytest
from fakes import FakeRun, FakeSignal, column, signal

from kelvarin.frames import distinct_names, to_pandas, to_xarray

HOUR = 3600 * 10**9
BIG = 2**63 - 1


# What it is, the signals, the times of the rows, the columns and their dtypes.
JOINS: list[tuple[str, list[FakeSignal], list[int], dict[str, list[Any]], list[str]]] = [
    ("one axis", [signal("a", [1.5, None], [0, 1]), signal("b", [3, 4], [0, 1], "i8")],
     [0, 1], {"a": [1.5, None], "b": [3, 4]}, ["float64", "int64"]),
    ("holes in whole numbers stay exact",
     [signal("a", [BIG, None, -BIG], [0, 1, 2], "i8"), signal("b", [2**64 - 1, None, 0], [0, 1, 2], "u8")],
     [0, 1, 2], {"a": [BIG, None, -BIG], "b": [2**64 - 1, None, 0]}, ["Int64", "UInt64"]),
    ("holes in truth values and texts", [signal("a", [True, None], [0, 1], "?"), signal("b", ["", None], [0, 1], "O")],
     [0, 1], {"a": [True, None], "b": ["", None]}, ["boolean", "object"]),
    ("a mask without holes is none",
     [FakeSignal("a", numpy.array([1, 2]), numpy.array([0, 1], "M8[ns]"), mask=numpy.array([False, False]),
                 utc=numpy.array([0, 1], "M8[ns]"))], [0, 1], {"a": [1, 2]}, ["int64"]),
    ("different rates",
     [signal("fast", [0, 1, 2, 3], [0, 1, 2, 3], "i8"), signal("slow", [0.5, 2.5], [0, 2])],
     [0, 1, 2, 3], {"fast": [0, 1, 2, 3], "slow": [0.5, None, 2.5, None]}, ["int64", "float64"]),
    ("times of both between each other, every type",
     [signal("i", [BIG, 7], [0, 2], "i8"), signal("u", [2**64 - 1], [1], "u8"), signal("b", [True], [3], "?"),
      signal("t", ["x"], [1], "O"), signal("f", [1e300], [2])],
     [0, 1, 2, 3],
     {"i": [BIG, None, 7, None], "u": [None, 2**64 - 1, None, None], "b": [None, None, None, True],
      "t": [None, "x", None, None], "f": [None, None, 1e300, None]},
     ["Int64", "UInt64", "boolean", "object", "float64"]),
    ("instants a nanosecond apart are two", [signal("a", [1.0], [10**18]), signal("b", [2.0], [10**18 + 1])],
     [10**18, 10**18 + 1], {"a": [1.0, None], "b": [None, 2.0]}, ["float64", "float64"]),
    ("repeated times on one axis", [signal("a", [1, 2, 3], [0, 0, 1], "i8")], [0, 0, 1], {"a": [1, 2, 3]}, ["int64"]),
    ("repeated times on two axes", [signal("a", [1, 2, 3], [0, 0, 1], "i8"), signal("b", [4, 5], [0, 1], "i8")],
     [0, 0, 1], {"a": [1, 2, 3], "b": [4, None, 5]}, ["int64", "Int64"]),
    ("times that fall on one axis keep their order",
     [signal("a", [1, 2, 3], [5, 9, 6], "i8")], [5, 9, 6], {"a": [1, 2, 3]}, ["int64"]),
    ("times that fall on two axes", [signal("a", [1, 2, 3], [5, 9, 6], "i8"), signal("b", [4, 5], [9, 5], "i8")],
     [5, 9, 5, 6], {"a": [1, 2, None, 3], "b": [None, 4, 5, None]}, ["Int64", "Int64"]),
    ("a signal without samples", [signal("a", [1.0], [4]), signal("b", [], [], "i8")],
     [4], {"a": [1.0], "b": [None]}, ["float64", "Int64"]),
    ("names that are there twice", [signal("a", [1.0], [0]), signal("a (2)", [2.0], [0]), signal("a", [3.0], [0])],
     [0], {"a": [1.0], "a (2)": [2.0], "a (3)": [3.0]}, ["float64"] * 3),
    ("no signals", [], [], {}, []),
]


@pytest.mark.parametrize("name, signals, times, columns, dtypes", JOINS, ids=[case[0] for case in JOINS])
def test_frame_has_each_sample_in_its_row(
    name: str, signals: list[FakeSignal], times: list[int], columns: dict[str, list[Any]], dtypes: list[str]
) -> None:
    frame = to_pandas(FakeRun(*signals))
    assert frame.index.view("i8").tolist() == times
    assert {name: column(frame, name) for name in frame.columns} == columns
    assert [str(dtype) for dtype in frame.dtypes] == dtypes


ZONES: list[tuple[Optional[str], list[str]]] = [
    (None, ["1970-01-01T01:00:00", "1970-01-01T02:00:00"]),
    ("UTC", ["1970-01-01T00:00:00+00:00", "1970-01-01T01:00:00+00:00"]),
    ("Asia/Tokyo", ["1970-01-01T09:00:00+09:00", "1970-01-01T10:00:00+09:00"]),
]


@pytest.mark.parametrize("tz, index", ZONES)
def test_index_is_the_clock_of_the_zone(tz: Optional[str], index: list[str]) -> None:
    run = FakeRun(signal("a", [1.0, 2.0], [0, HOUR], clock_ahead=HOUR))
    assert [time.isoformat() for time in to_pandas(run, tz=tz).index] == index
    assert [str(time)[:19] for time in to_xarray(run, tz=tz)["time"].values] == [time[:19] for time in index]


def test_hour_that_comes_twice_is_joined_by_instants() -> None:
    # The clock is set back by an hour after the second sample.
    first, second = signal("a", [1.0, 2.0, 3.0], [0, HOUR, 2 * HOUR]), signal("b", [4.0], [2 * HOUR])
    first.times = numpy.array([HOUR, 2 * HOUR, 2 * HOUR], "M8[ns]")
    second.times = numpy.array([2 * HOUR], "M8[ns]")
    frame = to_pandas(FakeRun(first, second))
    assert column(frame, "b") == [None, None, 4.0]
    assert frame.index.view("i8").tolist() == [HOUR, 2 * HOUR, 2 * HOUR]


def test_relative_times_are_spans_and_have_no_zone() -> None:
    run = FakeRun(signal("a", [1.0], [5]), signal("b", [2.0], [7]), is_relative=True)
    assert to_pandas(run).index.tolist() == [pandas.Timedelta(5), pandas.Timedelta(7)]
    assert to_xarray(run)["time"].dtype == "m8[ns]"
    for convert in (to_pandas, to_xarray):
        with pytest.raises(ValueError, match="no time zone"):
            convert(run, tz="UTC")


def test_units_are_kept() -> None:
    run = FakeRun(signal("p", [1.0], [0], unit="bar"), signal("p", [2.0], [1], unit="°C"), signal("n", [3.0], [0]))
    frame = to_pandas(run)
    assert frame.attrs == {"file": "bench.csv", "units": {"p": "bar", "p (2)": "°C", "n": ""}}
    assert frame["p (2)"].attrs["unit"] == "°C"
    assert frame.copy().attrs["units"]["p"] == "bar"


def test_frame_and_data_set_are_copies() -> None:
    one, masked = signal("a", [1.0, 2.0], [0, 1]), signal("b", [1, None], [0, 1], "i8")
    for values in (one.values, masked.values):
        values.flags.writeable = False
    run = FakeRun(one, masked)
    frame, data = to_pandas(run), to_xarray(run)
    frame.iloc[0, 0], frame.iloc[1, 1] = 9.0, 9
    data["a"].values[0] = 9.0
    assert one.values.tolist() == [1.0, 2.0]
    assert masked.values.tolist() == [1, 0] and masked.mask.tolist() == [False, True]


def test_data_is_copied_once() -> None:
    times = list(range(100_000))
    numbers = [float(time) for time in times]
    signals = [signal(f"s{n}", numbers, times) for n in range(8)] + [signal("i", [None, *times[1:]], times, "i8")]
    run = FakeRun(*signals)
    to_pandas(run)  # loads what is loaded once
    size = sum(one.values.nbytes for one in signals)
    tracemalloc.start()
    frame = to_pandas(run)
    _, peak = tracemalloc.get_traced_memory()
    tracemalloc.stop()
    assert len(frame) == len(times) and size <= peak < 1.1 * size, f"{peak} bytes for {size}"


VARIABLES: list[tuple[str, list[Any], str, str, list[Any]]] = [
    ("plain whole numbers", [1, BIG], "i8", "int64", [1, BIG]),
    ("holes, exact as floats", [2**53, None], "i8", "float64", [2.0**53, None]),
    ("holes, not exact as floats", [BIG, None], "i8", "object", [BIG, None]),
    ("holes in truth values", [True, None], "?", "object", [True, None]),
    ("holes in texts", ["x", None], "O", "object", ["x", None]),
    ("holes in floats", [0.1, None], "f8", "float64", [0.1, None]),
    ("nothing but holes", [None, None], "i8", "float64", [None, None]),
]


@pytest.mark.parametrize("name, given, dtype, wanted, values", VARIABLES, ids=[case[0] for case in VARIABLES])
def test_variable_has_no_wrong_number(
    name: str, given: list[Any], dtype: str, wanted: str, values: list[Any]
) -> None:
    variable = to_xarray(FakeRun(signal("a", given, [0, 1], dtype)))["a"]
    assert str(variable.dtype) == wanted
    assert [None if pandas.isna(value) else value for value in variable.values.tolist()] == values


def test_data_set_has_a_dimension_for_each_axis() -> None:
    run = FakeRun(
        signal("fast", [0.0, 1.0, 2.0], [0, 1, 2], unit="V", column=2, metadata={"Sensor": "K7"}),
        signal("slow", [5, 6], [0, 2], "i8"),
        signal("time", [7.0, 8.0, 9.0], [0, 1, 2]),
    )
    data = to_xarray(run)
    assert {name: variable.dims for name, variable in data.data_vars.items()} == {
        "fast": ("time",), "slow": ("time_2",), "time (2)": ("time",)
    }
    assert data["slow"].dtype == "int64"
    assert data["fast"].attrs == {"long_name": "fast", "units": "V", "column": 2, "Sensor": "K7"}


NAMES = [(["a", "b"], [], ["a", "b"]), (["", ""], [], ["", " (2)"]), (["time"], ["time"], ["time (2)"])]


@pytest.mark.parametrize("names, taken, distinct", NAMES)
def test_names_are_made_distinct(names: list[str], taken: list[str], distinct: list[str]) -> None:
    assert distinct_names(names, taken) == distinct


def test_missing_library_is_named(monkeypatch: pytest.MonkeyPatch) -> None:
    for library, convert in (("pandas", to_pandas), ("xarray", to_xarray)):
        monkeypatch.setitem(sys.modules, library, None)
        with pytest.raises(ImportError, match=f"^to_{library} needs {library}, which can't be imported"):
            convert(FakeRun(signal("a", [1.0], [0])))


def test_random_axes_keep_every_sample_in_order() -> None:
    random = numpy.random.default_rng(7)
    for _ in range(200):
        signals = [
            signal(f"s{number}", [float(i) for i in range(count)], random.integers(0, 6, count).tolist())
            for number, count in enumerate(random.integers(0, 9, 3))
        ]
        frame = to_pandas(FakeRun(*signals))
        for one in signals:
            kept = frame[one.name].dropna()
            message = f"times of the signals: {[each.utc.view('i8').tolist() for each in signals]}"
            assert kept.tolist() == one.values.tolist(), message
            assert kept.index.view("i8").tolist() == one.utc.view("i8").tolist(), message
