"""What is raised, and what it says."""

from __future__ import annotations

import io
import pickle
from pathlib import Path
from typing import Any, Dict, List, Tuple, Type

import pytest

import kelvarin

ROOT = Path(__file__).resolve().parents[2]
BENCH = ROOT / "examples/pruefstand.csv"

FORMAT = {"set": {"TimestampFormat": "hh-mm"}}
CASES: List[Tuple[str, Any, Dict[str, Any], Type[kelvarin.Error], str]] = [
    ("no file", "nowhere.csv", {}, kelvarin.FileError, "No such file"),
    ("a folder", str(ROOT), {}, kelvarin.FileError, "directory"),
    ("no file behind the object", io.StringIO("a;b"), {}, kelvarin.FileError, "no file with a name"),
    ("no table", ROOT / "LICENSE", {}, kelvarin.FormatError, "not one sample"),
    ("no times", BENCH, FORMAT, kelvarin.FormatError, "no row has a time"),
    ("unknown setting", BENCH, {"set": {"Separatr": 1}}, kelvarin.SettingError, "there is no setting 'Separatr'"),
    ("bad value", BENCH, {"set": {"FirstLine": "x"}}, kelvarin.SettingError, "FirstLine"),
    ("unknown type", BENCH, {"types": {3: "double"}}, kelvarin.SettingError, "'double' is no data type"),
    ("unknown column", BENCH, {"types": {"Druck": "float"}}, kelvarin.SettingError, "there is no column 'Druck'"),
    ("unknown signal", BENCH, {"signals": ["Druck"]}, kelvarin.SettingError, "there is no column 'Druck'"),
    ("unknown number", BENCH, {"signals": [99]}, kelvarin.SettingError, "there is no column '99'"),
]


@pytest.mark.parametrize("name, path, arguments, kind, text", CASES, ids=[case[0] for case in CASES])
def test_errors(name: str, path: Any, arguments: Dict[str, Any], kind: Type[kelvarin.Error], text: str) -> None:
    with pytest.raises(kelvarin.Error) as caught:
        kelvarin.read(path, **arguments)
    assert type(caught.value) is kind
    assert text in str(caught.value)


def test_an_error_names_file_line_and_remedy(tmp_path: Path) -> None:
    with pytest.raises(kelvarin.FormatError) as caught:
        kelvarin.read(BENCH, **FORMAT)
    assert caught.value.file == str(BENCH)
    assert caught.value.remedy is not None and "set={" in caught.value.remedy and "TimeColumn" in caught.value.remedy
    with pytest.raises(kelvarin.FormatError) as caught:
        kelvarin.read(BENCH, guess=False, set={"AutoFormat": 0, "FirstLine": 900})
    assert caught.value.line == 900


def test_a_setting_error_is_a_value_error() -> None:
    with pytest.raises(ValueError):
        kelvarin.read(BENCH, types={3: "double"})


@pytest.mark.parametrize("argument", ["skip", "signals"])
def test_one_column_in_place_of_a_list(argument: str) -> None:
    with pytest.raises(TypeError):
        kelvarin.read(BENCH, **{argument: "Drehzahl"})


def test_errors_are_pickled_whole() -> None:
    error = kelvarin.FormatError("no table", "a.csv", 3, "look")
    copy = pickle.loads(pickle.dumps(error))
    assert (type(copy), str(copy), copy.line, copy.remedy) == (kelvarin.FormatError, str(error), 3, "look")


def test_a_sidecar_that_cannot_be_read_is_an_error(tmp_path: Path) -> None:
    path = tmp_path / "data.csv"
    path.write_bytes(BENCH.read_bytes())
    (tmp_path / "data.csv.info").mkdir()
    with pytest.raises(kelvarin.FileError) as caught:
        kelvarin.read(path)
    assert caught.value.file == str(path) + ".info"
