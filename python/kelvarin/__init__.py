"""Measurement files of loggers and test benches as arrays of numpy.

    import kelvarin
    run = kelvarin.read("bench.csv")
    run["Druck"].values, run["Druck"].times, run["Druck"].unit
    run.to_pandas()
"""

from __future__ import annotations

import os as _os

from . import _native
from .errors import CopyError, Error, FileError, FormatError, SettingError
from .run import Assumption, Finding, Message, Run, Signal, read

__version__ = _native.VERSION
__all__ = [
    "Assumption",
    "CopyError",
    "Error",
    "FileError",
    "Finding",
    "FormatError",
    "Message",
    "Run",
    "SettingError",
    "Signal",
    "read",
]

if hasattr(_os, "register_at_fork"):
    _os.register_at_fork(after_in_child=_native.begin_forked_child)
