"""Measurement files as HDF5 files."""

from __future__ import annotations

import os
from dataclasses import dataclass
from typing import Iterable, Mapping, Optional, Union

from . import _native
from .request import Column, Progress, ProgressWish, Source, Value, make_request, path_of


@dataclass(frozen=True)
class Converted:
    """An HDF5 file that was written."""

    path: str  # of the source
    output: str
    signals: int
    samples: int  # of all signals


def convert(
    path: Source,
    out: Union[str, "os.PathLike[str]"],
    *,
    set: Mapping[str, Value] = {},
    types: Mapping[Column, str] = {},
    names: Mapping[Column, str] = {},
    units: Mapping[Column, str] = {},
    skip: Iterable[Column] = (),
    guess: bool = True,
    threads: Optional[int] = None,
    base_time: Optional[int] = None,
    progress: ProgressWish = None,
) -> Converted:
    """Writes every sample of a measurement file to an HDF5 file, as the program's `import --store` does.

    `out` appears when it is complete; until then, and after an error, what was there stays. Memory doesn't grow with
    the file. Arguments and errors are those of read(); CopyError: `out` can't be written, or is the file itself.
    """
    name = path_of(path)
    output = os.fsdecode(out)
    request = make_request(
        name,
        set=set,
        types=types,
        names=names,
        units=units,
        skip=skip,
        guess=guess,
        threads=threads,
        base_time=base_time,
    )
    with Progress(progress, name) as shown:
        signals, samples = _native.store(request, os.fsencode(output), shown.tell)
    return Converted(name, output, signals, samples)
