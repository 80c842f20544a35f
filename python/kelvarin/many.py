"""Many files, read by several processes."""

from __future__ import annotations

from collections.abc import Iterable, Iterator
from dataclasses import dataclass
from typing import TYPE_CHECKING, Any, Optional, Union, overload

from .errors import Error
from .files import Path, list_files
from .optional import load_library
from .processes import call_in_processes
from .request import processor_count

if TYPE_CHECKING:
    import pandas

    from .run import Run


@dataclass(frozen=True)
class Failure:
    """A file that could not be read, and why."""

    path: str
    error: Exception


@dataclass(frozen=True)
class Summary:
    """What a file holds."""

    signals: int
    samples: int  # of all signals
    first: Any  # datetime64[ns], or timedelta64[ns] in a relative measurement; None without samples
    last: Any


class Runs:
    """Files that are read when they are asked for.

    len() is the number of files, runs[3] reads one in this process and raises what `read` does, runs[2:5] are
    several. Iterating gives the runs in the order of the files; processes read ahead, two files for each. A file
    that can't be read, or whose process is killed, is left out there and listed in `failures`.
    """

    def __init__(self, paths: Iterable[str], jobs: int, options: dict[str, Any]) -> None:
        self._paths = tuple(paths)
        self._jobs = jobs
        self._options = options
        self._outcomes: dict[int, Union[Summary, Exception]] = {}

    @property
    def paths(self) -> tuple[str, ...]:
        """The files, in order."""
        return self._paths

    @property
    def failures(self) -> tuple[Failure, ...]:
        """The files among those read so far that could not be, in order, and why."""
        outcomes = sorted(self._outcomes.items(), key=lambda item: item[0])
        return tuple(
            Failure(self._paths[number], outcome) for number, outcome in outcomes if isinstance(outcome, Exception)
        )

    def __len__(self) -> int:
        return len(self._paths)

    @overload
    def __getitem__(self, number: int) -> Run: ...

    @overload
    def __getitem__(self, number: slice) -> Runs: ...

    def __getitem__(self, number: Union[int, slice]) -> Union[Run, Runs]:
        if isinstance(number, slice):
            return Runs(self._paths[number], self._jobs, self._options)
        return read_file(self._paths[number], self._options)

    def __iter__(self) -> Iterator[Run]:
        numbers = range(len(self._paths))
        calls = [(path, self._options) for path in self._paths]
        for number, outcome in zip(numbers, call_in_processes(read_file, calls, self._jobs)):
            if isinstance(outcome, Exception):
                self._outcomes[number] = outcome
                continue
            self._outcomes[number] = summary_of(outcome)
            yield outcome

    def to_pandas(self) -> pandas.DataFrame:
        """A row for each file: path, signals, samples, first, last, error ("" if there is none).

        Files that were not read yet are read by the processes, and only their summaries are kept.
        """
        numbers = [number for number in range(len(self._paths)) if number not in self._outcomes]
        calls = [(self._paths[number], self._options) for number in numbers]
        self._outcomes.update(zip(numbers, call_in_processes(_summarize, calls, self._jobs)))
        return summary_table(self._paths, [self._outcomes[number] for number in range(len(self._paths))])

    def __repr__(self) -> str:
        return f"<{len(self._paths)} files, {len(self._outcomes)} of them read, {len(self.failures)} failed>"


def read_many(
    patterns: Union[Path, Iterable[Path]], *, jobs: Optional[int] = None, recursive: bool = False, **options: Any
) -> Runs:
    """The files that the patterns stand for, to be read lazily; see Runs.

    patterns: a folder (its *.csv and *.txt), a pattern with * or ?, a file, or several of these.
    jobs: how many processes read, by default as many as there are processors.
    recursive: folders within a folder too.
    options: those of `read`, the same for all files, but for progress: wrap the runs in tqdm for that.
    """
    if "progress" in options:
        raise TypeError("read_many takes no progress; iterate over tqdm(runs) instead")
    if jobs is not None and jobs < 1:
        raise ValueError(f"jobs must be at least 1, not {jobs}")
    count = jobs or processor_count()
    if count > 1:
        options.setdefault("threads", 1)
    return Runs(list_files(patterns, recursive), count, options)


def summary_of(run: Run) -> Summary:
    """The number of signals and samples of a run, and the span of its times."""
    times = [signal.times for signal in run if len(signal) > 0]
    first = min((axis.min() for axis in times), default=None)
    last = max((axis.max() for axis in times), default=None)
    return Summary(len(run), sum(map(len, run)), first, last)


def read_file(path: str, options: dict[str, Any]) -> Run:
    """The run of a file, by a function that other processes find."""
    from . import read

    return read(path, **options)


def summary_table(paths: Iterable[str], outcomes: Iterable[Union[Summary, Exception]]) -> pandas.DataFrame:
    """A row for each file: path, signals, samples, first, last, error ("" if there is none)."""
    return load_library("pandas", "a table of files").DataFrame(
        [_row(path, outcome) for path, outcome in zip(paths, outcomes)],
        columns=["path", "signals", "samples", "first", "last", "error"],
    )


def _summarize(path: str, options: dict[str, Any]) -> Summary:
    return summary_of(read_file(path, options))


def _row(path: str, outcome: Union[Summary, Exception]) -> tuple[Any, ...]:
    if isinstance(outcome, Exception):
        text = outcome.text if isinstance(outcome, Error) else str(outcome)
        return (path, 0, 0, None, None, text or type(outcome).__name__)
    return (path, outcome.signals, outcome.samples, outcome.first, outcome.last, "")
