"""Libraries that are used where they are installed."""

from __future__ import annotations

import importlib
from typing import Any


def load_library(name: str, needed_by: str) -> Any:
    """The module `name`, such as "pandas". ImportError that names what needs it if it isn't installed."""
    try:
        return importlib.import_module(name)
    except ImportError as error:
        raise ImportError(f"{needed_by} needs {name}, which can't be imported: {error}", name=name) from error
