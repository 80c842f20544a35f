"""One set of columns for the tables of many files."""

from __future__ import annotations

from collections import Counter
from collections.abc import Iterable, Sequence
from dataclasses import dataclass
from typing import TYPE_CHECKING, Any, Optional

from .frames import distinct_names, is_exact_in_float, to_pandas
from .optional import load_library

if TYPE_CHECKING:
    import pandas

    from .run import Run

FILE_COLUMN = "file"

_NULLABLE = {"bool": "boolean", "int64": "Int64", "uint64": "UInt64"}
_WITHOUT_HOLES = {nullable: plain for plain, nullable in _NULLABLE.items()}


@dataclass(frozen=True)
class ColumnKind:
    """What a column of a table holds."""

    dtype: str  # of pandas
    unit: str
    is_exact_in_float: bool  # as float64 all of its numbers are the same


@dataclass(frozen=True)
class Shape:
    """The columns of one file's table, by name, and what its times are."""

    columns: dict[str, ColumnKind]
    is_relative: bool


@dataclass(frozen=True)
class Schema:
    """The columns that the tables of all files get."""

    dtypes: dict[str, str]
    units: dict[str, str]
    is_relative: bool


def frame_of(run: Run, tz: Optional[str] = None) -> pandas.DataFrame:
    """The table of a run with names that leave room for the column of the file."""
    frame = to_pandas(run, tz)
    frame.columns = distinct_names(frame.columns, taken=[FILE_COLUMN])
    return frame


def shape_of(run: Run) -> Shape:
    """The columns that frame_of makes of the run."""
    frame = frame_of(run)
    columns = {
        name: ColumnKind(
            str(frame.dtypes[name]),
            signal.unit,
            signal.values.dtype.kind != "O" and is_exact_in_float(signal.values),
        )
        for name, signal in zip(frame.columns, run)
    }
    return Shape(columns, run.is_relative)


def schema_of(shapes: Sequence[Shape]) -> Schema:
    """The columns of all shapes in the order in which they come, each of a type that holds the values of all.

    A column has the unit that most files give, and times are what they are in most files; why_unlike tells which
    files don't fit in.
    """
    kinds: dict[str, list[ColumnKind]] = {}
    for shape in shapes:
        for name, kind in shape.columns.items():
            kinds.setdefault(name, []).append(kind)
    return Schema(
        {name: _common_dtype(several, len(several) < len(shapes)) for name, several in kinds.items()},
        {name: _most_common((kind.unit for kind in several if kind.unit), "") for name, several in kinds.items()},
        _most_common((shape.is_relative for shape in shapes), False),
    )


def why_unlike(shape: Shape, schema: Schema) -> str:
    """Why the numbers of a file can't go with those of the others, empty if they can."""
    if shape.is_relative != schema.is_relative:
        kinds = ("are dates", "count from its start")
        return f"its times {kinds[shape.is_relative]}, unlike those of most files"
    for name, kind in shape.columns.items():
        if kind.unit and kind.unit != schema.units[name]:
            return f'"{name}" is in {kind.unit}, in most files in {schema.units[name]}'
    return ""


def empty_frame(schema: Schema, tz: Optional[str]) -> pandas.DataFrame:
    """A table of the schema without rows."""
    library = load_library("pandas", "a table of many files")
    if schema.is_relative:
        index = library.TimedeltaIndex([], name="time")
    else:
        index = library.DatetimeIndex([], tz=tz, name="time")
    return fit(library.DataFrame(index=index), schema, "")


def fit(frame: pandas.DataFrame, schema: Schema, path: str) -> pandas.DataFrame:
    """The rows of a file's table with the columns of the schema, and the path in a column before them."""
    library = load_library("pandas", "a table of many files")
    columns = {FILE_COLUMN: library.Series([path] * len(frame), index=frame.index, dtype=object)}
    for name, dtype in schema.dtypes.items():
        if name in frame.columns:
            column = frame[name]
        else:
            column = library.Series([None] * len(frame), index=frame.index, dtype=object)
        columns[name] = _cast(column, dtype)
    return library.DataFrame(columns, index=frame.index)


def _cast(column: Any, dtype: str) -> Any:
    if str(column.dtype) == dtype:
        return column
    if dtype == "object":
        objects = column.astype(object)
        return objects.where(objects.notna(), None)
    return column.astype(dtype)


def _common_dtype(kinds: Sequence[ColumnKind], is_absent_somewhere: bool) -> str:
    dtypes = {kind.dtype for kind in kinds}
    plain = {_WITHOUT_HOLES.get(dtype, dtype) for dtype in dtypes}
    has_holes = is_absent_somewhere or bool(dtypes & _WITHOUT_HOLES.keys())
    if plain == {"bool", "int64"}:
        plain = {"int64"}
    if plain == {"bool", "uint64"}:
        plain = {"uint64"}
    if len(plain) == 1:
        common = plain.pop()
        return _NULLABLE.get(common, common) if has_holes else common
    if "float64" in plain and all(kind.is_exact_in_float for kind in kinds):
        return "float64"
    return "object"


def _most_common(values: Iterable[Any], otherwise: Any) -> Any:
    counts = Counter(values).most_common(1)
    return counts[0][0] if counts else otherwise
