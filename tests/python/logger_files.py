"""Files of a logger, each sample of which can be told from all others."""

from __future__ import annotations

from pathlib import Path

HEADER = "Time;Count;Pressure [bar];Valve"
ROWS = 20


def write_files(folder: Path, count: int, rows: int = ROWS) -> list[str]:
    """Writes log_0000.csv and so on; "Count" runs on from file to file, a row each second."""
    folder.mkdir(parents=True, exist_ok=True)
    paths = []
    for number in range(count):
        lines = [HEADER]
        for row in range(number * rows, (number + 1) * rows):
            day, second = divmod(row, 86400)
            clock = f"{second // 3600:02}:{second // 60 % 60:02}:{second % 60:02}"
            lines.append(f"2024-03-{day + 1:02} {clock};{row + 1000};{row % 977 + 0.5};{row // 7 % 2}")
        path = folder / f"log_{number:04}.csv"
        path.write_text("\n".join(lines) + "\n")
        paths.append(str(path))
    return paths


def counts(files: int, rows: int = ROWS) -> list[int]:
    """What "Count" is in all of the files."""
    return list(range(1000, 1000 + files * rows))
