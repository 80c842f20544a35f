"""Many files, read by the workers of a Dask cluster."""

from __future__ import annotations

import os
from collections.abc import Callable, Iterable, Sequence
from dataclasses import dataclass
from typing import TYPE_CHECKING, Any, Optional, Union

from .errors import Error
from .files import Path, list_files
from .many import Failure, Summary, read_file, summary_of, summary_table
from .optional import load_library
from .processes import Outcome, ProcessEnded, outcome_of
from .schema import Schema, Shape, empty_frame, fit, frame_of, schema_of, shape_of, why_unlike

if TYPE_CHECKING:
    import pandas
    from dask.dataframe.core import DataFrame
    from distributed import Client


@dataclass(frozen=True)
class Result:
    """What a cluster made of many files."""

    frame: Optional[DataFrame]  # a partition for each file that could be read; None with `out`
    units: dict[str, str]  # of the frame's columns, "" for none
    summary: pandas.DataFrame  # a row for each file, as Runs.to_pandas makes it
    failures: tuple[Failure, ...]  # files that are in no partition, or have no HDF5 file, and why
    outputs: dict[str, str]  # HDF5 files by their sources


@dataclass(frozen=True)
class _Look:
    summary: Summary
    shape: Shape


def read_many(
    patterns: Union[Path, Iterable[Path]],
    client: Client,
    out: Optional[Path] = None,
    *,
    tz: Optional[str] = None,
    recursive: bool = False,
    **options: Any,
) -> Result:
    """Reads files by the workers of `client`, which see the files under the same paths.

    Without `out` the workers look through all files first: what columns they have, and which can't be read. The
    frame then reads a file again for each partition that is computed. It has the columns of all files, of types
    that hold the values of all, and the path in the column "file"; its index is that of Run.to_pandas, with tz.

    With `out`, a folder, each file becomes an HDF5 file there, written by the worker, complete or not at all. The
    folders below the one that all files share are kept.

    A worker that ends loses nothing: its files go to others. A file whose workers end each time is tried alone, and
    then listed as failed. `patterns`, `recursive` and the options are those of kelvarin.read_many.
    """
    paths = list_files(patterns, recursive)
    options.setdefault("threads", 1)
    if out is not None:
        return _convert_all(paths, client, os.path.abspath(os.fspath(out)), options)
    looks = dict(zip(paths, _call_on_workers(client, _look, [(path, options) for path in paths])))
    schema = schema_of([look.shape for look in looks.values() if isinstance(look, _Look)])
    for path, look in looks.items():
        reason = why_unlike(look.shape, schema) if isinstance(look, _Look) else ""
        if reason:
            looks[path] = Error(reason, path)
    readable = [path for path, look in looks.items() if isinstance(look, _Look)]
    outcomes = [look.summary if isinstance(look, _Look) else look for look in looks.values()]
    return Result(
        _lazy_frame(readable, schema, tz, options),
        schema.units,
        summary_table(paths, outcomes),
        _failures(looks),
        {},
    )


def _lazy_frame(paths: Sequence[str], schema: Schema, tz: Optional[str], options: dict[str, Any]) -> Any:
    delayed = load_library("dask", "kelvarin.dask").delayed
    frames = load_library("dask.dataframe", "kelvarin.dask")
    meta = empty_frame(schema, tz)
    if not paths:
        return frames.from_pandas(meta, npartitions=1)
    return frames.from_delayed([delayed(_partition)(path, schema, tz, options) for path in paths], meta=meta)


def _convert_all(paths: Sequence[str], client: Client, folder: str, options: dict[str, Any]) -> Result:
    outputs = output_names(paths, folder)
    calls = [(path, outputs[path], options) for path in paths]
    converted = dict(zip(paths, _call_on_workers(client, _convert, calls)))
    failures = _failures(converted)
    for failure in failures:
        del outputs[failure.path]
    return Result(None, {}, summary_table(paths, list(converted.values())), failures, outputs)


def output_names(paths: Sequence[str], folder: str) -> dict[str, str]:
    """The HDF5 file of each source, below `folder` as the source is below the folder that all share."""
    whole = {path: os.path.abspath(path) for path in paths}
    shared = os.path.commonpath([os.path.dirname(path) for path in whole.values()]) if paths else ""
    return {path: os.path.join(folder, os.path.relpath(absolute, shared) + ".h5") for path, absolute in whole.items()}


def _failures(outcomes: dict[str, Outcome]) -> tuple[Failure, ...]:
    return tuple(Failure(path, outcome) for path, outcome in outcomes.items() if isinstance(outcome, Exception))


def _call_on_workers(
    client: Client, function: Callable[..., Any], calls: Sequence[tuple[Any, ...]]
) -> list[Outcome]:
    """What the calls return or raise, in their order."""
    distributed = load_library("distributed", "kelvarin.dask")
    outcomes = _gather(client, function, calls)
    for number, call in enumerate(calls):
        # One whose worker ended may only have been beside one that ended it.
        if isinstance(outcomes[number], distributed.KilledWorker):
            outcomes[number] = _gather(client, function, [call])[0]
        if isinstance(outcomes[number], distributed.KilledWorker):
            outcomes[number] = ProcessEnded("every worker that read it ended, perhaps for want of memory")
    return outcomes


def _gather(client: Any, function: Callable[..., Any], calls: Sequence[tuple[Any, ...]]) -> list[Outcome]:
    distributed = load_library("distributed", "kelvarin.dask")
    if not calls:
        return []
    futures = client.map(outcome_of, [function] * len(calls), calls, pure=False)
    distributed.wait(futures)
    return [future.result() if future.status == "finished" else future.exception() for future in futures]


def _look(path: str, options: dict[str, Any]) -> _Look:
    run = read_file(path, options)
    return _Look(summary_of(run), shape_of(run))


def _partition(path: str, schema: Schema, tz: Optional[str], options: dict[str, Any]) -> Any:
    return fit(frame_of(read_file(path, options), tz), schema, path)


def _convert(path: str, output: str, options: dict[str, Any]) -> Summary:
    from . import convert

    os.makedirs(os.path.dirname(output), exist_ok=True)
    converted = convert(path, output, **options)
    return Summary(converted.signals, converted.samples, None, None)
