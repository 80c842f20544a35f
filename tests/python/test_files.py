"""Which files folders, patterns and names stand for."""

from __future__ import annotations

from pathlib import Path

import pytest

from kelvarin.files import list_files

FILES = ["a.csv", "b.TXT", "c.dat", "Z.csv", "in/a.csv", "in/deep/b.csv", "in/note.md", "odd[1].csv"]

CASES: list[tuple[list[str], bool, list[str]]] = [
    (["."], False, ["./Z.csv", "./a.csv", "./b.TXT", "./odd[1].csv"]),
    (["in"], False, ["in/a.csv"]),
    (["in"], True, ["in/a.csv", "in/deep/b.csv"]),
    (["*.csv"], False, ["Z.csv", "a.csv", "odd[1].csv"]),
    (["?.*"], False, ["Z.csv", "a.csv", "b.TXT", "c.dat"]),
    (["**/b.csv"], False, ["in/deep/b.csv"]),
    (["in/*"], False, ["in/a.csv", "in/note.md"]),
    (["odd[1].csv"], False, ["odd[1].csv"]),
    (["c.dat", "a.csv"], False, ["c.dat", "a.csv"]),
    (["a.csv", "*.csv"], False, ["a.csv", "Z.csv", "odd[1].csv"]),
    (["missing.csv", "none*.csv", "a.csv"], False, ["missing.csv", "none*.csv", "a.csv"]),
    (["empty"], False, ["empty"]),
    ([], False, []),
]


@pytest.mark.parametrize("patterns, recursive, files", CASES)
def test_patterns(
    patterns: list[str], recursive: bool, files: list[str], tmp_path: Path, monkeypatch: pytest.MonkeyPatch
) -> None:
    for name in FILES:
        (tmp_path / name).parent.mkdir(parents=True, exist_ok=True)
        (tmp_path / name).touch()
    (tmp_path / "empty").mkdir()
    monkeypatch.chdir(tmp_path)
    assert list_files(patterns, recursive) == files


def test_one_path_is_no_list(tmp_path: Path) -> None:
    assert list_files(tmp_path / "a.csv") == list_files(str(tmp_path / "a.csv")) == [str(tmp_path / "a.csv")]
