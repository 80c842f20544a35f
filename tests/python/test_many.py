"""Many files, read by several processes."""

from __future__ import annotations

from pathlib import Path

import pandas
import pytest
from calls import Deadly
from logger_files import ROWS, counts, write_files

import kelvarin
from kelvarin.many import Runs


@pytest.fixture(scope="module")
def folder(tmp_path_factory: pytest.TempPathFactory) -> Path:
    """Six files, and among them one that is missing, one that is empty and one without times."""
    folder = tmp_path_factory.mktemp("logger")
    write_files(folder, 6)
    (folder / "log_0001_empty.csv").write_text("")
    (folder / "log_0003_prose.csv").write_text("Nothing\nbut words\nhere\n")
    return folder


BAD = ["log_0001_empty.csv", "log_0003_prose.csv", "missing.csv"]


@pytest.mark.parametrize("jobs", [1, 3])
def test_runs_come_in_order_and_failures_are_listed(folder: Path, jobs: int) -> None:
    runs = kelvarin.read_many([folder, folder / "missing.csv"], jobs=jobs)
    assert len(runs) == 9 and runs.failures == ()
    read = list(runs)
    assert [count for run in read for count in run["Count"].values.tolist()] == counts(6)
    assert [Path(run.path).name for run in read] == [f"log_{number:04}.csv" for number in range(6)]
    assert [Path(failure.path).name for failure in runs.failures] == BAD
    for failure in runs.failures:
        assert isinstance(failure.error, kelvarin.Error) and failure.error.file == failure.path


def test_killed_process_loses_its_own_file_alone(folder: Path) -> None:
    paths = [str(folder / f"log_{number:04}.csv") for number in range(6)]
    paths[2] = Deadly("deadly.csv")
    runs = Runs(paths, jobs=2, options={"threads": 1})
    assert [Path(run.path).name for run in runs] == [Path(path).name for path in paths if path != "deadly.csv"]
    assert [failure.path for failure in runs.failures] == ["deadly.csv"]
    assert isinstance(runs.failures[0].error, kelvarin.ProcessEnded)
    assert "was killed" in str(runs.failures[0].error)


def test_table_has_a_row_for_each_file(folder: Path) -> None:
    runs = kelvarin.read_many([folder, folder / "missing.csv"], jobs=2)
    table = runs.to_pandas()
    assert [Path(path).name for path in table["path"][table["error"] != ""]] == BAD
    good = table[table["error"] == ""].reset_index(drop=True)
    assert good["signals"].tolist() == [3] * 6 and good["samples"].tolist() == [3 * ROWS] * 6
    begin = pandas.Timestamp("2024-03-01")
    assert good["first"].tolist() == [begin + pandas.Timedelta(number * ROWS, "s") for number in range(6)]
    assert (good["last"] - good["first"] == pandas.Timedelta(ROWS - 1, "s")).all()
    assert [Path(failure.path).name for failure in runs.failures] == BAD


def test_single_files_and_parts(folder: Path) -> None:
    runs = kelvarin.read_many(folder / "log_000?.csv", signals=["Count"])
    assert runs[4]["Count"].values.tolist() == counts(6)[4 * ROWS : 5 * ROWS]
    assert [len(run) for run in runs[1:3]] == [1, 1]
    with pytest.raises(kelvarin.FileError):
        kelvarin.read_many("missing.csv")[0]
    with pytest.raises(IndexError):
        runs[6]


def test_wrong_arguments(folder: Path) -> None:
    with pytest.raises(ValueError, match="jobs must be at least 1"):
        kelvarin.read_many(folder, jobs=0)
    with pytest.raises(TypeError, match="tqdm"):
        kelvarin.read_many(folder, progress=True)
