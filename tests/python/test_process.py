"""Threads, signals, forks, pickles: what a call does to the process around it."""

from __future__ import annotations

import locale
import multiprocessing
import os
import pickle
import shutil
import signal
import subprocess
import sys
import threading
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path
from typing import Iterator, List

import numpy
import pytest

import kelvarin
from program import samples_of

ROOT = Path(__file__).resolve().parents[2]
BENCH = ROOT / "examples/pruefstand.csv"
ROAD = ROOT / "examples/road-test.csv"


def _write_file(path: Path, blocks: int) -> Path:
    """A file of 3.5 MB for each block."""
    rows = "".join(f"@{row:05}.5;{row * 3.25:.4f};{row};idle text\n" for row in range(100_000))
    with open(path, "w") as file:
        file.write("Elapsed [s];a;b;c\n")
        for number in range(1, blocks + 1):
            file.write(rows.replace("@", str(number)))
    return path


@pytest.fixture(scope="module")
def large(tmp_path_factory: pytest.TempPathFactory) -> Iterator[Path]:
    """About 200 MB, which take a second or more to read."""
    path = _write_file(tmp_path_factory.mktemp("large") / "large.csv", 60)
    yield path
    path.unlink()


@pytest.fixture(scope="module")
def small(tmp_path_factory: pytest.TempPathFactory) -> Path:
    """A tenth of a second or more."""
    return _write_file(tmp_path_factory.mktemp("small") / "small.csv", 3)


def test_threads_reading_at_once() -> None:
    expected = {path: samples_of(kelvarin.read(path)[1]) for path in (BENCH, ROAD)}
    with ThreadPoolExecutor(8) as pool:
        for path, run in [(path, pool.submit(kelvarin.read, path)) for path in (BENCH, ROAD) * 12]:
            assert samples_of(run.result()[1]) == expected[path]


def test_settings_of_one_call_are_not_those_of_another() -> None:
    with ThreadPoolExecutor(4) as pool:
        jobs = [(row, pool.submit(kelvarin.read, BENCH, types={3: "float"} if row % 2 else {})) for row in range(12)]
        for row, job in jobs:
            assert job.result()["Drehzahl"].type == ("float" if row % 2 else "integer")


def test_the_locale_stays() -> None:
    before = locale.setlocale(locale.LC_ALL)
    kelvarin.read(BENCH)
    assert locale.setlocale(locale.LC_ALL) == before


INTERRUPTED = """
import sys, threading, time, kelvarin
began = threading.Event()
started = []
def tell(part):
    if part > 0 and not started:
        started.append(time.monotonic()); print("running", flush=True)
try:
    kelvarin.{call}(sys.argv[1], progress=tell)
except KeyboardInterrupt:
    print(time.monotonic(), flush=True)
"""


@pytest.mark.parametrize("call", ["read", "check"])
def test_ctrl_c(large: Path, call: str) -> None:
    process = subprocess.Popen(
        [sys.executable, "-c", INTERRUPTED.format(call=call), str(large)], stdout=subprocess.PIPE, text=True
    )
    assert process.stdout is not None and process.stdout.readline() == "running\n"
    process.send_signal(signal.SIGINT)
    rest = process.stdout.read()
    assert process.wait() == 0
    assert rest.strip(), "the call went on to its end"


def test_other_threads_run_meanwhile(small: Path) -> None:
    ticks: List[float] = []
    done = threading.Event()

    def tick() -> None:
        while not done.is_set():
            ticks.append(time.monotonic())
            time.sleep(0.01)

    clock = threading.Thread(target=tick)
    clock.start()
    kelvarin.check(small)
    done.set()
    clock.join()
    assert len(ticks) > 3


def test_progress_rises_to_one(small: Path) -> None:
    parts: List[float] = []
    kelvarin.check(small, progress=parts.append)
    assert parts == sorted(set(parts)) and parts[-1] == 1


def test_an_exception_of_the_progress_function_ends_the_call(large: Path) -> None:
    def tell(part: float) -> None:
        raise ZeroDivisionError

    with pytest.raises(ZeroDivisionError):
        kelvarin.read(large, progress=tell)
    assert len(kelvarin.read(BENCH)) == 6


def test_progress_as_a_line(capsys: pytest.CaptureFixture[str], monkeypatch: pytest.MonkeyPatch) -> None:
    monkeypatch.setitem(sys.modules, "tqdm.auto", None)
    kelvarin.read(BENCH, progress=True)
    assert capsys.readouterr().err.endswith("pruefstand.csv: 100%\n")


def test_pickles_hold_the_arrays() -> None:
    run = kelvarin.read(BENCH)
    code = "import pickle, sys; r = pickle.load(sys.stdin.buffer); print(len(r), r['Drehmoment'].values.sum(), r[0].times[1])"
    done = subprocess.run([sys.executable, "-c", code], input=pickle.dumps(run), capture_output=True, check=True)
    expected = f"6 {run['Drehmoment'].values.sum()} {run[0].times[1]}\n"
    assert done.stdout.decode() == expected
    copy = pickle.loads(pickle.dumps(run))
    assert copy[0].times is copy[1].times
    assert (copy.findings, copy.settings, copy.path) == (run.findings, run.settings, run.path)
    assert all(samples_of(one) == samples_of(other) for one, other in zip(run, copy))


def _drehzahl(path: str) -> numpy.ndarray:  # type: ignore[type-arg]
    return kelvarin.read(path)["Drehzahl"].values


def test_forked_processes(tmp_path: Path) -> None:
    expected = _drehzahl(str(BENCH))
    copies = [shutil.copy(BENCH, tmp_path / f"{number}.csv") for number in range(6)]
    with multiprocessing.get_context("fork").Pool(2) as pool:
        for values in pool.map(_drehzahl, map(str, copies)):
            assert numpy.array_equal(values, expected)


def test_a_fork_while_another_thread_reads(large: Path) -> None:
    reading = threading.Event()
    goes_on = True

    def tell(part: float) -> None:
        reading.set()
        if not goes_on:
            raise InterruptedError

    def read() -> None:
        with pytest.raises(InterruptedError):
            kelvarin.read(large, types={"a": "float"}, progress=tell)

    thread = threading.Thread(target=read)
    thread.start()
    assert reading.wait(60)
    child = os.fork()
    if child == 0:
        os._exit(0 if len(kelvarin.read(BENCH)) == 6 else 1)
    status = os.waitpid(child, 0)[1]
    goes_on = False
    thread.join()
    assert status == 0
