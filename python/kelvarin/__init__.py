"""Measurement files of loggers and test benches as arrays of numpy.

    import kelvarin
    run = kelvarin.read("bench.csv")
    run["Druck"].values, run["Druck"].times, run["Druck"].unit
    run.to_pandas()
"""

from __future__ import annotations

import os as _os

from . import _native
from .convert import Converted, convert
from .errors import CopyError, Error, FileError, FormatError, SettingError
from .many import Failure, Runs, read_many
from .processes import ProcessEnded
from .reports import Analysis, Check, Explanation, Prepared, analyze, check, explain, prepare
from .run import Assumption, Finding, Message, Run, Signal, read

__version__ = _native.VERSION
__all__ = [
    "Analysis",
    "Assumption",
    "Check",
    "Converted",
    "CopyError",
    "Error",
    "Explanation",
    "Failure",
    "FileError",
    "Finding",
    "FormatError",
    "Message",
    "Prepared",
    "ProcessEnded",
    "Run",
    "Runs",
    "SettingError",
    "Signal",
    "analyze",
    "check",
    "convert",
    "explain",
    "prepare",
    "read",
    "read_many",
]

if hasattr(_os, "register_at_fork"):
    _os.register_at_fork(after_in_child=_native.begin_forked_child)
