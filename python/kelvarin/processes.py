"""Functions that are called in other processes, several at once, so that one that is killed ends its own call alone."""

from __future__ import annotations

import os
import pickle
import signal
import subprocess
import sys
from collections import deque
from collections.abc import Callable, Iterable, Iterator
from concurrent.futures import Future, ThreadPoolExecutor
from itertools import islice
from typing import Any, Union

from .errors import Error

# A fresh interpreter that finds what this one finds. The caller's main module isn't imported, so that a script
# needs no guard around its calls.
_START = "import sys; sys.path[:] = sys.argv[1:]; from kelvarin.processes import serve; serve()"

Outcome = Union[Any, Exception]


class ProcessEnded(Error):
    """The process in which a call was made ended before it returned."""


def call_in_processes(
    function: Callable[..., Any], calls: Iterable[tuple[Any, ...]], jobs: int
) -> Iterator[Outcome]:
    """What `function` returns or raises for the arguments of each call, in their order, from `jobs` processes.

    The function is one of a module. At most twice as many calls as processes are ahead of the caller. Closing the
    iterator, or an interrupt, ends the processes.
    """
    team = _Team(function)
    threads = ThreadPoolExecutor(jobs)
    waiting: deque[Future[Outcome]] = deque()
    remaining = iter(calls)
    try:
        waiting.extend(threads.submit(team.call, call) for call in islice(remaining, 2 * jobs))
        while waiting:
            outcome = waiting.popleft().result()
            waiting.extend(threads.submit(team.call, call) for call in islice(remaining, 1))
            yield outcome
    finally:
        for future in waiting:
            future.cancel()
        team.end()
        threads.shutdown()


class _Team:
    """Processes that wait for calls, each used by one thread at a time."""

    def __init__(self, function: Callable[..., Any]) -> None:
        self._function = function
        self._processes: list[_Process] = []
        self._idle: list[_Process] = []
        self._is_ended = False

    def call(self, arguments: tuple[Any, ...]) -> Outcome:
        process = self._take()
        try:
            outcome = process.call(self._function, arguments)
        except (EOFError, OSError, pickle.UnpicklingError):
            return ProcessEnded(process.why_ended())
        self._idle.append(process)
        return outcome

    def end(self) -> None:
        self._is_ended = True
        for process in self._processes:
            process.kill()

    def _take(self) -> _Process:
        while self._idle:
            process = self._idle.pop()
            if process.is_running():
                return process
        process = _Process()
        self._processes.append(process)
        if self._is_ended:
            process.kill()
        return process


class _Process:
    def __init__(self) -> None:
        path = [entry or os.getcwd() for entry in sys.path]
        self._process = subprocess.Popen(
            [sys.executable, "-c", _START, *path], stdin=subprocess.PIPE, stdout=subprocess.PIPE
        )

    def is_running(self) -> bool:
        return self._process.poll() is None

    def call(self, function: Callable[..., Any], arguments: tuple[Any, ...]) -> Outcome:
        assert self._process.stdin and self._process.stdout
        self._process.stdin.write(pickle.dumps((function, arguments)))
        self._process.stdin.flush()
        return pickle.load(self._process.stdout)

    def kill(self) -> None:
        self._process.kill()
        self._process.wait()

    def why_ended(self) -> str:
        """Why a process that closed its pipe has ended; one that hasn't after a second is killed."""
        try:
            status = self._process.wait(1)
        except subprocess.TimeoutExpired:
            self.kill()
            return "the process that read it sent something else than a result"
        if status == -signal.SIGKILL:
            return "the process that read it was killed, perhaps for want of memory"
        if status < 0:
            return f"the process that read it was ended by signal {-status}"
        return f"the process that read it ended with status {status}"


def serve() -> None:
    """Makes calls that come from standard input and writes their outcomes to standard output, until that ends."""
    # An interrupt from the keyboard comes to all processes; the one that started this one ends it.
    signal.signal(signal.SIGINT, signal.SIG_IGN)
    outcomes = os.fdopen(os.dup(1), "wb")
    # What else is printed must not come between the outcomes.
    os.dup2(2, 1)
    while True:
        try:
            function, arguments = pickle.load(sys.stdin.buffer)
        except EOFError:
            return
        pickle.dump(outcome_of(function, arguments), outcomes, protocol=pickle.HIGHEST_PROTOCOL)
        outcomes.flush()


def outcome_of(function: Callable[..., Any], arguments: tuple[Any, ...]) -> Outcome:
    """What a call returns or raises, in a form that can be sent to another process."""
    try:
        return function(*arguments)
    except Exception as error:
        try:
            pickle.loads(pickle.dumps(error))
        except Exception:
            return RuntimeError(f"{type(error).__name__}: {error}")
        return error
