"""read(): every value and time as the program has it, to the bit."""

from __future__ import annotations

import os
import subprocess
import sys
from pathlib import Path
from typing import Any, Dict, List, Tuple

import numpy
import pytest

import kelvarin
from program import imported, is_equal, names_of, samples_in, samples_of

ROOT = Path(__file__).resolve().parents[2]
FILES = sorted([*ROOT.glob("examples/*.csv"), *ROOT.glob("examples/*.txt"), *ROOT.glob("tests/data/*.csv")])


@pytest.mark.parametrize("path", FILES, ids=lambda path: path.name)
def test_the_examples_are_read_as_by_the_program(path: Path) -> None:
    run, document = kelvarin.read(path), imported(path)
    assert run.lines == document["lines"]
    assert run.is_relative == document["relativeTime"]
    assert [message.text for message in run.messages] == [message["text"] for message in document["messages"]]
    assert run.settings == document["guess"]["settings"]
    assert [one.text for one in run.assumed] == [one["text"] for one in document["guess"]["assumed"]]
    assert names_of(run) == [signal["symbol"] for signal in document["signals"]]
    for signal, expected in zip(run, document["signals"]):
        assert (signal.unit, signal.column) == (expected["unit"], expected["column"]), signal
        assert is_equal(samples_of(signal), samples_in(expected)), signal


# Cells of a column, and what its signal is: type, dtype and values; a missing value is None.
NAN = float("nan")
CELLS: List[Tuple[str, List[str], str, str, List[Any]]] = [
    ("integers", ["1", "-2", "30"], "integer", "int64", [1, -2, 30]),
    ("beyond what a float holds", ["9007199254740993", "9223372036854775807", "-9223372036854775808"], "integer",
     "int64", [2**53 + 1, 2**63 - 1, -(2**63)]),
    ("hexadecimal with all bits", ["0x7FFFFFFFFFFFFFFF", "0x4000000000000000", "0x1F"], "integer", "int64",
     [2**63 - 1, 2**62, 31]),
    ("missing integers", ["1", "", "3"], "integer", "int64", [1, None, 3]),
    ("floats", ["1.5", "-0.1", "1e300"], "float", "float64", [1.5, -0.1, 1e300]),
    ("a negative zero", ["-0.0", "0.5", "5e-324"], "float", "float64", [-0.0, 0.5, 5e-324]),
    ("missing floats", ["1.5", "", "n/a"], "float", "float64", [1.5, NAN, NAN]),
    ("truth values", ["true", "false", "true"], "boolean", "bool", [True, False, True]),
    ("missing truth values", ["true", "", "false"], "boolean", "bool", [True, None, False]),
    ("texts", ["idle", "run, fast", "idle"], "text", "object", ["idle", "run, fast", "idle"]),
    ("empty texts", ["idle", "", "run"], "text", "object", ["idle", "", "run"]),
    ("wide texts", ["温度", "Ölstand", "😀 ok"], "text", "object", ["温度", "Ölstand", "😀 ok"]),
    ("one character each", ["N", "R", "€"], "text", "object", ["N", "R", "€"]),
]


def options_of(types: Dict[str, str]) -> List[str]:
    return [option for column, word in types.items() for option in ("--type", f"{column}={word}")]


def table(cells: List[str]) -> str:
    rows = [f"2024-05-01 12:00:0{row};{cell}" for row, cell in enumerate(cells)]
    return "\n".join(["Time;X", *rows, ""])


@pytest.mark.parametrize("name, cells, kind, dtype, values", CELLS, ids=[case[0] for case in CELLS])
def test_odd_cells(tmp_path: Path, name: str, cells: List[str], kind: str, dtype: str, values: List[Any]) -> None:
    path = tmp_path / "odd.csv"
    path.write_text(table(cells), encoding="utf-8")
    types = {"X": "integer"} if "float holds" in name else {}
    signal = kelvarin.read(path, types=types)["X"]
    assert (signal.type, signal.values.dtype) == (kind, numpy.dtype(dtype))
    missing = [False] * len(values) if signal.mask is None else signal.mask.tolist()
    found = [None if gap else value for gap, value in zip(missing, signal.values.tolist())]
    assert [repr(value) for value in found] == [repr(value) for value in values]
    assert is_equal(samples_of(signal), samples_in(imported(path, *options_of(types))["signals"][0]))


def test_lone_surrogates_and_nul_are_kept(tmp_path: Path) -> None:
    cells = ["one", "\ud800two", "three\udfff", "four"]
    path = tmp_path / "odd.csv"
    path.write_bytes(b"\xff\xfe" + table(cells).encode("utf-16-le", "surrogatepass"))
    assert kelvarin.read(path)["X"].values.tolist() == cells


def test_long_signals_span_blocks(tmp_path: Path) -> None:
    """More samples than a block of the store has, with gaps, of all types."""
    path = tmp_path / "long.csv"
    count = 30_000
    rows = ["t;i;f;b;s"]
    for row in range(count):
        gap = row % 97 == 0
        cells = ["", "", "", ""] if gap else [str(row * 10**12), f"{row / 8}", "true", f"text {row % 5000}"]
        rows.append(";".join([f"{row / 1000:.3f}", *cells]))
    path.write_text("\n".join(rows))
    run, document = kelvarin.read(path, types={"b": "boolean"}), imported(path, "--type", "b=boolean")
    assert names_of(run) == ["i", "f", "b", "s"]
    for signal, expected in zip(run, document["signals"]):
        assert len(signal) == count
        assert is_equal(samples_of(signal), samples_in(expected)), signal


def test_truth_values_are_ones_and_zeros(tmp_path: Path) -> None:
    path = tmp_path / "truth.csv"
    path.write_text(table(["true", "false", "true"]))
    values = kelvarin.read(path)["X"].values
    assert values.view("uint8").tolist() == [1, 0, 1]
    assert values.sum() == 2


def test_equal_texts_are_one_object(tmp_path: Path) -> None:
    path = tmp_path / "texts.csv"
    path.write_text(table(["idle", "run", "idle"]))
    values = kelvarin.read(path)["X"].values
    assert values[0] is values[2]


def test_arrays_are_made_once_and_shared() -> None:
    run = kelvarin.read(ROOT / "examples/pruefstand.csv")
    first, second = run[0], run[1]
    assert first.values is first.values
    assert first.times is first.times
    assert first.times is second.times


def test_arrays_outlive_the_run() -> None:
    values = kelvarin.read(ROOT / "examples/pruefstand.csv")["Drehmoment"].values
    before = values.copy()
    kelvarin.read(ROOT / "examples/road-test.csv")
    assert numpy.array_equal(values, before)
    values[0] = 7  # they are the caller's
    assert values[0] == 7


# Over the hour that clocks skip, in the night in which they are set back, and at the end of the shorter day. In UTC
# a time of day is counted from the midnight of its date.
CLOCKS: Dict[str, Tuple[List[str], List[str]]] = {
    "forward": (["2024-03-31 01:59:59", "2024-03-31 03:00:00", "2024-03-31 03:00:01"],
                ["2024-03-31T00:59:59", "2024-03-31T02:00:00", "2024-03-31T02:00:01"]),
    "late": (["2024-03-31 22:50:00", "2024-03-31 23:10:00", "2024-03-31 23:50:00", "2024-04-01 01:00:00"],
             ["2024-03-31T21:50:00", "2024-03-31T22:10:00", "2024-03-31T22:50:00", "2024-03-31T23:00:00"]),
    "back": (["2024-10-27 01:59:59", "2024-10-27 02:30:00", "2024-10-27 03:00:00"],
             ["2024-10-26T23:59:59", "2024-10-27T00:30:00", "2024-10-27T01:00:00"]),
}


@pytest.mark.parametrize("change", CLOCKS)
def test_times_are_those_of_the_file_over_a_change_of_the_clock(tmp_path: Path, change: str) -> None:
    local, utc = CLOCKS[change]
    path = tmp_path / "clock.csv"
    path.write_text("Time;X\n" + "".join(f"{time};{row}\n" for row, time in enumerate(local)))
    code = "import kelvarin, sys; s = kelvarin.read(sys.argv[1])[0]; print(*s.times.astype('M8[s]'), *s.utc.astype('M8[s]'))"
    done = subprocess.run([sys.executable, "-c", code, str(path)], capture_output=True, text=True, check=True,
                          env={**os.environ, "TZ": "Europe/Berlin"})
    assert done.stdout.split() == [time.replace(" ", "T") for time in local] + utc


def test_relative_times() -> None:
    run = kelvarin.read(ROOT / "examples/discharge.txt")
    assert run.is_relative
    assert run[0].times.dtype == numpy.dtype("timedelta64[ns]")
    assert run[0].times[:2].tolist() == [0, 2_500_000_000]
    moved = kelvarin.read(ROOT / "examples/discharge.txt", base_time=10**18)
    assert moved[0].times[:2].tolist() == [0, 2_500_000_000]
    assert moved[0].utc.astype("int64")[0] == 10**18


def test_a_run_is_a_sequence_and_a_mapping() -> None:
    run = kelvarin.read(ROOT / "examples/pruefstand.csv")
    assert (len(run), run[0].name, run["Drehzahl"].column, run[-1].name) == (6, "Drehzahl", 3, "Bemerkung")
    assert "Drehzahl" in run and run[0] in run and "Druck" not in run
    with pytest.raises(KeyError):
        run["Druck"]
    assert run[3].metadata == {"Hex": "1"}
    assert run[0].course.startswith("▁") and run[5].course == ""


OPTIONS: List[Tuple[str, Dict[str, Any], Tuple[str, ...]]] = [
    ("types", {"types": {"Drehzahl": "float", 6: "text"}}, ("--type", "Drehzahl=float", "--type", "6=text")),
    ("names and units", {"names": {3: "n"}, "units": {3: "1/min"}}, ("--name", "3=n", "--unit", "3=1/min")),
    ("skip", {"skip": [3, "Bemerkung"]}, ("--skip", "3", "--skip", "Bemerkung")),
    ("no guess", {"guess": False, "set": {"TimeColumn": 2, "TimestampFormat": "TT.MM.JJJJ; hh:mm:ss,000"}},
     ("--no-guess", "--set", "TimeColumn=2", "--set", "TimestampFormat=TT.MM.JJJJ; hh:mm:ss,000")),
    ("one thread", {"threads": 1}, ("--threads", "1")),
]


@pytest.mark.parametrize("name, arguments, options", OPTIONS, ids=[case[0] for case in OPTIONS])
def test_arguments_are_the_options_of_the_program(
    name: str, arguments: Dict[str, Any], options: Tuple[str, ...]
) -> None:
    path = ROOT / "examples/pruefstand.csv"
    run, document = kelvarin.read(path, **arguments), imported(path, *options)
    assert names_of(run) == [signal["symbol"] for signal in document["signals"]]
    for signal, expected in zip(run, document["signals"]):
        assert signal.unit == expected["unit"]
        assert is_equal(samples_of(signal), samples_in(expected)), signal


def test_only_the_signals_that_are_wanted() -> None:
    path = ROOT / "examples/pruefstand.csv"
    whole = kelvarin.read(path)
    some = kelvarin.read(path, signals=["Drehmoment", 8])
    assert names_of(some) == ["Drehmoment", "Bemerkung"]
    assert samples_of(some[0]) == samples_of(whole["Drehmoment"])


def test_settings_of_a_run_read_the_file_again() -> None:
    path = ROOT / "examples/road-test.csv"
    run = kelvarin.read(path)
    again = kelvarin.read(path, set=run.settings, guess=False)
    assert samples_of(again[1]) == samples_of(run[1])


def test_findings_are_those_of_check(tmp_path: Path) -> None:
    path = tmp_path / "faults.csv"
    lines = [f"2024-05-01 12:00:{second:02};{second}.5" for second in range(40)]
    lines[10] = lines[9]
    lines[20] = "2024-05-01 12:00:20;broken"
    path.write_text("\n".join(["Time;X", *lines, ""]))
    run, check = kelvarin.read(path, types={"X": "float"}), kelvarin.check(path, types={"X": "float"})
    assert run.findings == check.findings
    kinds = {finding.kind: finding for finding in run.findings}
    assert (kinds["repeats"].count, kinds["repeats"].lines) == (1, (12,))
    assert (kinds["refusedCells"].count, kinds["refusedCells"].lines, kinds["refusedCells"].column) == (1, (22,), 2)
    assert [message.line for message in run.messages] == [12, 22]
    assert numpy.isnan(run["X"].values).sum() == 1


def test_open_files_and_paths() -> None:
    path = ROOT / "examples/road-test.csv"
    with open(path) as text, open(path, "rb") as binary:
        for source in (str(path), bytes(path), path, text, binary):
            assert len(kelvarin.read(source)) == 6
