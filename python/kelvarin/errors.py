"""What the functions of the package raise."""

from __future__ import annotations

from typing import Any, Optional, Tuple


class Error(Exception):
    """Something went wrong with one file; the base of all exceptions of the package.

    Attributes:
        text: what went wrong, one clause.
        file: the path of the file, as str; None if it is about none.
        line: the line of the file that it is about, from 1; None for none.
        remedy: what can be done about it, with the arguments that do it; None if nothing is known.
    """

    def __init__(
        self, text: str, file: Optional[str] = None, line: Optional[int] = None, remedy: Optional[str] = None
    ) -> None:
        super().__init__(text, file, line, remedy)
        self.text = text
        self.file = file
        self.line = line
        self.remedy = remedy or None

    def __str__(self) -> str:
        place = "" if self.file is None else self.file + ("" if self.line is None else f":{self.line}") + ": "
        return place + self.text + ("" if self.remedy is None else f" ({self.remedy})")

    def __reduce__(self) -> Tuple[Any, ...]:
        return type(self), (self.text, self.file, self.line, self.remedy)


class FileError(Error):
    """The file can't be opened or read, or holds nothing that could be read."""


class FormatError(Error):
    """The file can be read, but has no table, no times, or not one sample."""


class SettingError(Error, ValueError):
    """An argument can't be followed: a setting, a data type, a column that isn't there."""


class CopyError(Error):
    """The copy of a file can't be written."""
