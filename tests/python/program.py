"""What the program reports of a file, to compare with."""

from __future__ import annotations

import json
import os
import subprocess
from pathlib import Path
from typing import Any, Dict, Iterable, List, Optional, Tuple

Samples = List[Tuple[int, Any]]


def imported(path: Path, *options: str, zone: Optional[str] = None) -> Dict[str, Any]:
    """The JSON document of an import, every sample in it."""
    environment = dict(os.environ, **({"TZ": zone} if zone else {}))
    command = [os.environ["KELVARIN_IMPORT"], "import", "--json", "--samples", "all", *options, str(path)]
    done = subprocess.run(command, capture_output=True, text=True, env=environment)
    assert done.returncode in (0, 3), done.stderr
    document: Dict[str, Any] = json.loads(done.stdout)
    return document


def samples_of(signal: Any) -> Samples:
    """The samples of a signal of the package as the program's JSON lists them, floats by their bits."""
    mask = signal.mask
    times = signal.utc.astype("int64").tolist()
    samples: Samples = []
    for row, value in enumerate(signal.values.tolist()):
        missing = mask is not None and bool(mask[row])
        samples.append((times[row], None if missing else _comparable(signal, value)))
    return samples


def samples_in(signal: Dict[str, Any]) -> Samples:
    """The same of a signal in the program's JSON."""
    return [(time, _in_json(signal, value)) for time, value in signal["samples"]]


def is_equal(ours: Samples, theirs: Samples) -> bool:
    """Where the program has no number for a float, NaN is right for both "NaN" and a missing value."""
    return ours == [(time, "nan" if value == "missing float" else value) for time, value in theirs]


def _comparable(signal: Any, value: Any) -> Any:
    if signal.type == "float":
        return float(value).hex()
    if signal.type == "integer":
        return value if value < 2**63 else value - 2**64
    return value


def _in_json(signal: Dict[str, Any], value: Any) -> Any:
    if signal["type"] == 13:
        if value is None:
            return "missing float"
        number = {"NaN": "nan", "Infinity": "inf", "-Infinity": "-inf"}.get(value, value) if isinstance(value, str) else value
        return float(number).hex()
    if signal["type"] == 19 and value is not None:
        return chr(value)
    return value


def names_of(signals: Iterable[Any]) -> List[str]:
    return [signal.name for signal in signals]
