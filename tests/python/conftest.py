"""Finds the package and the program of a build: the folder in KELVARIN_BUILD, else the first one that has both."""

from __future__ import annotations

import os
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]


def _find_build() -> Path:
    wanted = os.environ.get("KELVARIN_BUILD")
    folders = [Path(wanted)] if wanted else sorted((ROOT / "build").glob("*"))
    for folder in folders:
        if list((folder / "python" / "kelvarin").glob("_native*.so")):
            return folder.resolve()
    raise RuntimeError("no build has the package: cmake with -DKELVARIN_PYTHON=ON, or set KELVARIN_BUILD")


BUILD = _find_build()
PACKAGE = BUILD / "python"
sys.path.insert(0, str(PACKAGE))
sys.path.insert(0, str(Path(__file__).parent))
# Those of the tests that start an interpreter, and the program.
os.environ["PYTHONPATH"] = str(PACKAGE)
os.environ["KELVARIN_IMPORT"] = str(BUILD / "bin" / "kelvarin-import")
os.environ.setdefault("LC_ALL", "C.UTF-8")
