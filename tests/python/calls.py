"""Calls that other processes make in the tests of several processes."""

from __future__ import annotations

import os
import signal
import time
from typing import Any


class Odd(Exception):
    """An error that can be pickled and not unpickled."""

    def __init__(self, first: str, second: str) -> None:
        super().__init__(first + second)


def behave(way: str, value: Any = None) -> Any:
    """Returns `value`, or fails in the way that is named."""
    if way == "value error":
        raise ValueError(value)
    if way == "odd error":
        raise Odd("no", "where")
    if way == "killed":
        os.kill(os.getpid(), signal.SIGKILL)
    if way == "crash":
        os.kill(os.getpid(), signal.SIGSEGV)
    if way == "exit":
        os._exit(3)
    if way == "print":
        os.write(1, b"printed\n")
    if way == "no result":
        return lambda: None
    if way == "sleep":
        time.sleep(value)
    return value


def process_id(_: int) -> int:
    return os.getpid()


class Deadly(str):
    """A path that kills each process to which it is sent, or with `marker`, a path of no file yet, only the first."""

    marker: str

    def __new__(cls, path: str, marker: str = "") -> Deadly:
        deadly = super().__new__(cls, path)
        deadly.marker = marker
        return deadly

    def __reduce__(self) -> Any:
        return arrive, (str(self), self.marker, os.getpid())


def arrive(path: str, marker: str, sender: int) -> str:
    if os.getpid() == sender or os.path.exists(marker):
        return path
    if marker:
        open(marker, "x").close()
    os.kill(os.getpid(), signal.SIGKILL)
    return path
