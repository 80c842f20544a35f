"""Calls in other processes, of which any may fail or be killed."""

from __future__ import annotations

import os
import signal
import subprocess
import sys
import time
from pathlib import Path

import pytest
from calls import behave, process_id

from kelvarin.processes import call_in_processes

CALLS = [
    ("return", 7, "7"),
    ("value error", "wrong", "ValueError: wrong"),
    ("killed", None, "ProcessEnded: the process that read it was killed, perhaps for want of memory"),
    ("return", "x" * 10**7, "x" * 10**7),
    ("odd error", None, "RuntimeError: Odd: nowhere"),
    ("crash", None, "ProcessEnded: the process that read it was ended by signal 11"),
    ("print", 8, "8"),
    ("exit", None, "ProcessEnded: the process that read it ended with status 3"),
    ("no result", None, "ProcessEnded: the process that read it ended with status 1"),
    ("sleep", 0.3, "0.3"),
    ("return", 9, "9"),
]


@pytest.mark.parametrize("jobs", [1, 3])
def test_each_outcome_comes_in_order(jobs: int) -> None:
    outcomes = list(call_in_processes(behave, [(way, value) for way, value, _ in CALLS], jobs))
    texts = [f"{type(one).__name__}: {one}" if isinstance(one, Exception) else str(one) for one in outcomes]
    assert texts == [text for _, _, text in CALLS]


def test_few_calls_are_ahead_of_the_caller() -> None:
    taken: list[int] = []
    outcomes = call_in_processes(behave, (("return", taken.append(n)) for n in range(100)), 2)
    for _ in range(3):
        next(outcomes)
    assert len(taken) <= 3 + 2 * 2
    outcomes.close()  # type: ignore[attr-defined]


def test_closing_ends_the_processes() -> None:
    outcomes = call_in_processes(process_id, ((n,) for n in range(10)), 2)
    process = next(outcomes)
    outcomes.close()  # type: ignore[attr-defined]
    with pytest.raises(ProcessLookupError):
        os.kill(process, 0)


SCRIPT = """
import sys
sys.path[:0] = {path!r}
from calls import behave, process_id
from kelvarin.processes import call_in_processes
print(*call_in_processes(process_id, [(0,)], 1), flush=True)
for outcome in call_in_processes(behave, [("sleep", 60)] * 4, 2):
    print(outcome)
"""


def test_script_needs_no_guard_and_an_interrupt_ends_all(tmp_path: Path) -> None:
    script = tmp_path / "script.py"
    script.write_text(SCRIPT.format(path=sys.path))
    with subprocess.Popen(
        [sys.executable, str(script)], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, start_new_session=True
    ) as run:
        assert run.stdout and run.stdout.readline().strip().isdigit()
        time.sleep(0.5)
        os.killpg(run.pid, signal.SIGINT)
        _, errors = run.communicate(timeout=20)
    assert errors.splitlines()[-1] == "KeyboardInterrupt"
    with pytest.raises(ProcessLookupError):
        os.killpg(run.pid, 0)
