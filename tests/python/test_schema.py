"""One set of columns for the tables of many files."""

from __future__ import annotations

from typing import Any

import pytest
from fakes import FakeRun, FakeSignal, column, signal

from kelvarin.schema import empty_frame, fit, frame_of, schema_of, shape_of, why_unlike

BIG = 2**53 + 1

# The dtype and values of a column in one file, in another one (None: it has no such column), and the column of both.
TYPES: list[tuple[str, list[Any], str, Any, str, list[Any]]] = [
    ("i8", [1, 2], "i8", [3], "int64", [1, 2, 3]),
    ("?", [True], "i8", [7], "int64", [1, 7]),
    ("?", [None, True], "i8", [7], "Int64", [None, 1, 7]),
    ("i8", [1], "f8", [0.5], "float64", [1.0, 0.5]),
    ("i8", [1, None], "f8", [0.5], "float64", [1.0, None, 0.5]),
    ("?", [True, None], "f8", [0.5], "float64", [1.0, None, 0.5]),
    ("i8", [BIG], "f8", [0.5], "object", [BIG, 0.5]),
    ("i8", [-1], "u8", [2**64 - 1], "object", [-1, 2**64 - 1]),
    ("i8", [1, None], "O", ["off"], "object", [1, None, "off"]),
    ("i8", [BIG], "i8", None, "Int64", [BIG, None]),
    ("u8", [2**64 - 1], "u8", None, "UInt64", [2**64 - 1, None]),
    ("?", [True], "?", None, "boolean", [True, None]),
    ("f8", [0.5], "f8", None, "float64", [0.5, None]),
    ("O", ["x"], "O", None, "object", ["x", None]),
]


@pytest.mark.parametrize("dtype, values, other_dtype, other_values, common, together", TYPES)
def test_column_of_two_files(
    dtype: str, values: list[Any], other_dtype: str, other_values: Any, common: str, together: list[Any]
) -> None:
    one = FakeRun(signal("a", values, list(range(len(values))), dtype))
    if other_values is None:
        other = FakeRun(signal("b", [1.0], [0]))
    else:
        other = FakeRun(signal("a", other_values, list(range(len(other_values))), other_dtype))
    reverse = together[len(values) :] + together[: len(values)]
    for first, second, wanted in [(one, other, together), (other, one, reverse)]:
        schema = schema_of([shape_of(first), shape_of(second)])
        frames = [fit(frame_of(run), schema, "x.csv") for run in (first, second)]  # type: ignore[arg-type]
        assert [str(frame.dtypes["a"]) for frame in frames] == [common] * 2
        assert column(frames[0], "a") + column(frames[1], "a") == wanted
        assert [frame.columns.tolist() for frame in frames] == [empty_frame(schema, None).columns.tolist()] * 2
        assert (frames[0].dtypes == empty_frame(schema, None).dtypes).all()


def test_path_is_in_a_column_of_its_own() -> None:
    run = FakeRun(signal("file", [1.0], [0]), signal("a", [2.0], [0]))
    frame = fit(frame_of(run), schema_of([shape_of(run)]), "x.csv")  # type: ignore[arg-type]
    assert {name: column(frame, name) for name in frame.columns} == {"file": ["x.csv"], "file (2)": [1.0], "a": [2.0]}


def bar(unit: str) -> FakeSignal:
    return signal("p", [1.0], [0], unit=unit)


UNLIKE = [
    (FakeRun(bar("bar")), ""),
    (FakeRun(bar("")), ""),
    (FakeRun(bar("psi")), '"p" is in psi, in most files in bar'),
    (FakeRun(bar("bar"), is_relative=True), "its times count from its start, unlike those of most files"),
]


@pytest.mark.parametrize("run, reason", UNLIKE)
def test_numbers_of_other_units_are_kept_apart(run: Any, reason: str) -> None:
    most = [shape_of(FakeRun(bar("bar")))] * 3  # type: ignore[arg-type]
    assert why_unlike(shape_of(run), schema_of([shape_of(run), *most])) == reason


def test_relative_times_of_all() -> None:
    run = FakeRun(bar("bar"), is_relative=True)
    schema = schema_of([shape_of(run)])  # type: ignore[arg-type]
    assert str(empty_frame(schema, None).index.dtype) == str(frame_of(run).index.dtype)  # type: ignore[arg-type]
