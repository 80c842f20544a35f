"""The arguments of the functions that take a file, as the extension takes them."""

from __future__ import annotations

import os
import sys
from typing import IO, Any, Callable, Iterable, Mapping, Optional, Union

from . import _native
from .errors import FileError

#: A path, or an open file, of which the name is read.
Source = Union[str, "os.PathLike[str]", bytes, IO[Any]]

#: A column: its number in the file, from 1, or its name.
Column = Union[int, str]

#: True for a bar (of tqdm, if it is installed) or lines on standard error; or a function of the part that is done, 0 to 1.
ProgressWish = Union[bool, None, Callable[[float], object]]

#: A value of a setting; True and False are 1 and 0.
Value = Union[str, int, float]


def path_of(source: Source) -> str:
    """The path of a file; FileError for an object without one."""
    if isinstance(source, (str, bytes, os.PathLike)):
        return os.fsdecode(source)
    name = getattr(source, "name", None)
    if not isinstance(name, (str, bytes, os.PathLike)) or not os.path.isfile(name):
        raise FileError(f"{source!r} is no file with a name, which is what can be read")
    return os.fsdecode(name)


def make_request(
    path: str,
    *,
    set: Mapping[str, Value],
    types: Mapping[Column, str],
    names: Mapping[Column, str],
    units: Mapping[Column, str],
    skip: Iterable[Column],
    signals: Optional[Iterable[Column]] = None,
    guess: bool = True,
    threads: Optional[int] = None,
    base_time: Optional[int] = None,
) -> _native.Request:
    """What the extension is asked for; TypeError for an argument of another type."""
    request = _native.Request()
    request.path = os.fsencode(path)
    request.settings = [(key, _setting_text(value)) for key, value in set.items()]
    request.wishes = [_wish(column, type=word) for column, word in types.items()]
    request.wishes += [_wish(column, name=name) for column, name in names.items()]
    request.wishes += [_wish(column, unit=unit) for column, unit in units.items()]
    request.wishes += [_wish(column, skip=True) for column in _columns(skip, "skip")]
    request.signals = None if signals is None else [str(column) for column in _columns(signals, "signals")]
    request.guess = guess
    request.threads = threads or processor_count()
    request.base_time = base_time
    return request


class Progress:
    """Shows how far a call is; `tell` is what the extension calls, None for nobody."""

    def __init__(self, wish: ProgressWish, path: str) -> None:
        self._bar: Any = None
        self._path = path
        self.tell: Optional[Callable[[float], object]] = None
        if callable(wish):
            self.tell = wish
        elif wish:
            self.tell = self._bar_teller() or self._write_line

    def __enter__(self) -> Progress:
        return self

    def __exit__(self, *_: object) -> None:
        if self._bar is not None:
            self._bar.close()

    def _bar_teller(self) -> Optional[Callable[[float], object]]:
        try:
            from tqdm.auto import tqdm
        except ImportError:
            return None
        self._bar = tqdm(total=100, desc=os.path.basename(self._path), unit="%")
        return lambda part: self._bar.update(round(part * 100) - self._bar.n)

    def _write_line(self, part: float) -> None:
        end = "\n" if part == 1 else ""
        sys.stderr.write(f"\r{os.path.basename(self._path)}: {part:.0%}{end}")
        sys.stderr.flush()


def _setting_text(value: Value) -> str:
    return str(int(value)) if isinstance(value, bool) else str(value)


def _columns(columns: Iterable[Column], argument: str) -> Iterable[Column]:
    if isinstance(columns, (str, int)):
        raise TypeError(f"{argument} takes a list of columns, such as [{columns!r}]")
    return columns


def _wish(column: Column, **choices: Any) -> _native.Wish:
    wish = _native.Wish()
    wish.column = str(column)
    for name, value in choices.items():
        setattr(wish, name, value)
    return wish


def processor_count() -> int:
    """How many processors this process may use."""
    return len(os.sched_getaffinity(0)) if hasattr(os, "sched_getaffinity") else os.cpu_count() or 1
