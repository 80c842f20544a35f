"""The files that folders, patterns and names stand for."""

from __future__ import annotations

import glob
import os
from collections.abc import Iterable
from typing import Union

Path = Union[str, "os.PathLike[str]"]

_ENDINGS = (".csv", ".txt")


def list_files(patterns: Union[Path, Iterable[Path]], recursive: bool = False) -> list[str]:
    """The files in the order of the patterns, each once.

    A folder stands for its *.csv and *.txt in the order of their names, with `recursive` also those of the folders
    in it. A name with *, ? or [ that is no file is a pattern, in which ** is any folders. What stands for no file is
    listed as it is, so that reading it says why.
    """
    given = [patterns] if isinstance(patterns, (str, os.PathLike)) else patterns
    files: dict[str, None] = {}
    for each in given:
        pattern = os.fspath(each)
        files.update(dict.fromkeys(_expand(pattern, recursive) or [pattern]))
    return list(files)


def _expand(pattern: str, recursive: bool) -> list[str]:
    if os.path.isdir(pattern):
        return _measurements_in(pattern, recursive)
    if glob.has_magic(pattern) and not os.path.exists(pattern):
        return sorted(path for path in glob.glob(pattern, recursive=True) if os.path.isfile(path))
    return [pattern]


def _measurements_in(folder: str, recursive: bool) -> list[str]:
    found: list[str] = []
    for inner, folders, names in os.walk(folder):
        found.extend(os.path.join(inner, name) for name in names if name.lower().endswith(_ENDINGS))
        if not recursive:
            folders.clear()
    return sorted(found)
