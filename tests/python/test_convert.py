"""HDF5 files of measurement files."""

from __future__ import annotations

import os
from pathlib import Path

import pytest
from logger_files import ROWS, counts, write_files

import kelvarin

h5py = pytest.importorskip("h5py")


def test_file_has_the_samples_of_a_run(tmp_path: Path) -> None:
    (path,) = write_files(tmp_path, 1)
    out = tmp_path / "out.h5"
    converted = kelvarin.convert(path, out, names={"Count": "Number"}, units={"Count": "1"}, skip=("Valve",))
    assert converted == kelvarin.Converted(path, str(out), 2, 2 * ROWS)
    run = kelvarin.read(path)
    with h5py.File(out) as file:
        signal = file["log_0000.csv/Number"]
        assert signal["value"][:].tolist() == counts(1) and signal.attrs["unit"] == "1"
        assert signal["time"][:].tolist() == run["Count"].utc.view("i8").tolist()
        assert "Valve" not in file["log_0000.csv"]


# What is converted into what, and what fails. "old.h5" is there before.
Refusal = tuple[str, str, type[kelvarin.Error]]
REFUSED: list[Refusal] = [
    ("missing.csv", "old.h5", kelvarin.FileError),
    ("prose.csv", "old.h5", kelvarin.FormatError),
    ("log_0000.csv", "log_0000.csv", kelvarin.CopyError),
    ("log_0000.csv", "link.csv", kelvarin.CopyError),
    ("log_0000.csv", "no/folder.h5", kelvarin.CopyError),
]


@pytest.mark.parametrize("source, out, error", REFUSED)
def test_failure_leaves_what_was_there(source: str, out: str, error: type[kelvarin.Error], tmp_path: Path) -> None:
    write_files(tmp_path, 1)
    (tmp_path / "prose.csv").write_text("Nothing\nbut words\nhere\n")
    (tmp_path / "old.h5").write_text("old")
    (tmp_path / "link.csv").symlink_to("log_0000.csv")
    before = contents(tmp_path)
    with pytest.raises(error):
        kelvarin.convert(tmp_path / source, tmp_path / out)
    assert contents(tmp_path) == before


def test_interrupt_leaves_what_was_there(tmp_path: Path) -> None:
    (path,) = write_files(tmp_path, 1, rows=20_000)
    (tmp_path / "out.h5").write_text("old")
    before = contents(tmp_path)
    with pytest.raises(KeyboardInterrupt):
        kelvarin.convert(path, tmp_path / "out.h5", progress=interrupt)
    assert contents(tmp_path) == before


def interrupt(_: float) -> None:
    raise KeyboardInterrupt


def contents(folder: Path) -> dict[str, bytes]:
    return {name: (folder / name).read_bytes() for name in sorted(os.listdir(folder)) if (folder / name).is_file()}
