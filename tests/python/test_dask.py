"""Many files, read by the workers of a Dask cluster on this machine."""

from __future__ import annotations

import os
from collections.abc import Iterator
from pathlib import Path
from typing import Any

import pytest
from calls import Deadly
from fakes import column
from logger_files import ROWS, counts, write_files

import kelvarin

dask = pytest.importorskip("dask")
distributed = pytest.importorskip("distributed")

import kelvarin.dask  # noqa: E402

FILES = 60


@pytest.fixture(scope="module")
def client() -> Iterator[Any]:
    with distributed.LocalCluster(
        n_workers=2, threads_per_worker=1, processes=True, dashboard_address=None
    ) as cluster, distributed.Client(cluster) as client:
        yield client


@pytest.fixture(scope="module")
def folder(tmp_path_factory: pytest.TempPathFactory) -> Path:
    folder = tmp_path_factory.mktemp("logger")
    write_files(folder, FILES)
    return folder


def with_a_deadly_one(folder: Path, marker: str = "") -> list[str]:
    paths = [str(path) for path in sorted(folder.glob("log_*.csv"))]
    paths[FILES // 2] = Deadly(paths[FILES // 2], marker)
    return paths


def test_every_sample_arrives_once_though_workers_are_killed(client: Any, folder: Path, tmp_path: Path) -> None:
    marker, empty = tmp_path / "marker", tmp_path / "empty.csv"
    empty.touch()
    result = kelvarin.dask.read_many([empty, *with_a_deadly_one(folder, str(marker))], client)
    assert marker.exists(), "a worker was killed"
    assert [(failure.path, type(failure.error)) for failure in result.failures] == [(str(empty), kelvarin.FileError)]
    assert result.units == {"Count": "", "Pressure [bar]": "bar", "Valve": ""}
    assert result.summary["samples"].tolist() == [0] + [3 * ROWS] * FILES

    assert result.frame.npartitions == FILES
    marker.unlink()
    frame = result.frame.compute()
    assert marker.exists(), "another worker was killed"
    assert frame["Count"].tolist() == counts(FILES)
    assert frame.groupby("file").size().tolist() == [ROWS] * FILES


def test_file_that_kills_every_worker_is_listed(
    client: Any, folder: Path, monkeypatch: pytest.MonkeyPatch
) -> None:
    # One death is enough for the files of a worker to be tried alone.
    monkeypatch.setattr(client.cluster.scheduler, "allowed_failures", 0)
    result = kelvarin.dask.read_many(with_a_deadly_one(folder), client)
    assert [Path(failure.path).name for failure in result.failures] == [f"log_{FILES // 2:04}.csv"]
    assert isinstance(result.failures[0].error, kelvarin.ProcessEnded)
    assert result.summary["samples"].sum() == 3 * ROWS * (FILES - 1)


def test_workers_write_whole_hdf5_files(client: Any, folder: Path, tmp_path: Path) -> None:
    h5py = pytest.importorskip("h5py")
    out, empty = tmp_path / "out", tmp_path / "empty.csv"
    empty.touch()
    paths = with_a_deadly_one(folder, str(tmp_path / "marker"))
    result = kelvarin.dask.read_many([*paths, empty], client, out=out)
    assert [failure.path for failure in result.failures] == [str(empty)]
    assert list(result.outputs) == paths
    counted = []
    for path, output in result.outputs.items():
        with h5py.File(output) as file:
            counted.extend(file[os.path.basename(path)]["Count"]["value"][:].tolist())
    assert counted == counts(FILES)
    assert sorted(path.name for path in out.rglob("*") if path.is_file()) == sorted(
        os.path.basename(path) for path in result.outputs.values()
    )


# The rows of a file below its names, and what they are in the table of all.
DIFFERENT: list[tuple[str, list[str], list[tuple[Any, ...]]]] = [
    ("Count;Level", ["1;7 m", "2;8 m"], [(1, 7.0, None), (2, 8.0, None)]),
    ("Count;Level", ["3;0.5 m", "4;1.5 m"], [(3, 0.5, None), (4, 1.5, None)]),
    ("Count;Note", ["5;ok", "6;all dry"], [(5, None, "ok"), (6, None, "all dry")]),
    ("Count;Level", ["7;7.5 ft", "8;8.5 ft"], []),
]


def test_files_with_other_columns_and_units(client: Any, tmp_path: Path) -> None:
    for number, (names, rows, _) in enumerate(DIFFERENT):
        lines = [f"2024-03-01 00:0{number}:0{second};{row}" for second, row in enumerate(rows)]
        (tmp_path / f"{number}.csv").write_text("\n".join([f"Time;{names}", *lines]) + "\n")
    result = kelvarin.dask.read_many(tmp_path, client, types={"Count": "integer"})
    frame = result.frame.compute()
    found = zip(*(column(frame, name) for name in ("Count", "Level", "Note")))
    assert list(found) == [row for _, _, rows in DIFFERENT for row in rows]
    assert str(frame.dtypes["Count"]) == "int64" and result.units["Level"] == "m"
    assert [str(failure.error) for failure in result.failures] == [
        f'{tmp_path / "3.csv"}: "Level" is in ft, in most files in m'
    ]


def test_no_file_can_be_read(client: Any, tmp_path: Path) -> None:
    result = kelvarin.dask.read_many(tmp_path / "none*.csv", client)
    assert len(result.failures) == 1
    assert result.frame.compute().columns.tolist() == ["file"]
