"""analyze(), explain(), check() and prepare(), against the program."""

from __future__ import annotations

import json
import os
import subprocess
from pathlib import Path
from typing import Any, Dict

import numpy
import pytest

import kelvarin

ROOT = Path(__file__).resolve().parents[2]
BENCH = ROOT / "examples/pruefstand.csv"


def report(command: str, path: Path) -> Dict[str, Any]:
    done = subprocess.run([os.environ["KELVARIN_IMPORT"], command, "--json", str(path)], capture_output=True, text=True)
    document: Dict[str, Any] = json.loads(done.stdout)
    return document


def test_analyze() -> None:
    found = kelvarin.analyze(BENCH)
    assert (found.header_line, found.first_line, found.needs_copy) == (4, 5, False)
    columns = [(column.number, column.name, column.unit, column.is_time, column.is_signal) for column in found.columns]
    assert columns[1:4] == [
        (2, "Uhrzeit", "", True, False),
        (3, "Drehzahl", "U/min", False, True),
        (4, "Drehmoment", "Nm", False, True),
    ]
    assert found.settings == report("analyze", BENCH)["guess"]["settings"]


def test_explain() -> None:
    found, expected = kelvarin.explain(BENCH), report("explain", BENCH)
    assert found.format == expected["taken"]
    assert [column.why for column in found.columns] == [column["why"] for column in expected["columns"]]


def test_explain_without_a_plan() -> None:
    found = kelvarin.explain(BENCH, guess=False)
    assert found.why and found.settings == {}
    assert "TimestampFormat" in found.advised


def test_check() -> None:
    path = ROOT / "examples/road-test.csv"
    found, expected = kelvarin.check(path), report("check", path)
    assert (found.is_clean, found.lines, found.rows) == (expected["clean"], expected["lines"], expected["time"]["rows"])
    assert [(one.kind, one.text) for one in found.findings] == [
        (one["kind"], one["text"]) for one in expected["findings"]
    ]
    assert found.times is not None and found.times.median == numpy.timedelta64(250, "ms")
    assert "set={'TimestampFormat'" in found.findings[0].remedy


def test_prepare(tmp_path: Path) -> None:
    copy = tmp_path / "clean.csv"
    made = kelvarin.prepare(BENCH, copy)
    assert [(one.path, one.rows) for one in made.copies] == [(str(copy), 600)]
    assert made.times == "local"
    before, after = kelvarin.read(BENCH), kelvarin.read(copy)
    assert numpy.array_equal(before["Drehzahl"].values, after["Drehzahl [U/min]"].values)
    assert numpy.array_equal(before[0].times, after[0].times)


def test_prepare_leaves_what_is_there(tmp_path: Path) -> None:
    copy = tmp_path / "clean.csv"
    copy.write_text("mine")
    with pytest.raises(kelvarin.CopyError):
        kelvarin.prepare(BENCH, copy)
    assert copy.read_text() == "mine"
    assert kelvarin.prepare(BENCH, copy, force=True).copies[0].rows == 600
    with pytest.raises(kelvarin.CopyError):
        kelvarin.prepare(copy, copy, force=True)


def test_prepare_makes_a_copy_for_each_device(tmp_path: Path) -> None:
    path = tmp_path / "devices.csv"
    rows = [f"2024-05-01 12:{row // 60:02}:{row % 60:02};{device};{row}.5" for row in range(100) for device in "AB"]
    path.write_text("\n".join(["Time;Device;X", *rows, ""]))
    made = kelvarin.prepare(path)
    assert [(one.device, one.rows) for one in made.copies] == [("A", 100), ("B", 100)]
    assert [Path(one.path).name for one in made.copies] == ["devices.csv.A.prepared.csv", "devices.csv.B.prepared.csv"]
