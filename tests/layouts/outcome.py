"""What the program makes of a file: signals with their samples, and what it says it assumed."""

import json
import os
import re
import subprocess
from dataclasses import dataclass, field

TYPES = {0: "boolean", 13: "float", 15: "integer", 19: "character", 22: "text"}
MOST_SECONDS = 60


@dataclass
class Signal:
    """times in nanoseconds; values without those that are NaN or empty."""
    column: int
    name: str
    unit: str
    type: str
    times: list
    values: list

    def range(self):
        numbers = [value for value in self.values if not isinstance(value, (str, bool))]
        return (min(numbers), max(numbers)) if numbers else None


@dataclass
class Outcome:
    failure: str = ""
    signals: list = field(default_factory=list)
    guess: dict = field(default_factory=dict)

    def times(self):
        return max((signal.times for signal in self.signals), key=len, default=[])

    def assumed(self, kind):
        return [one["text"] for one in self.guess.get("assumed", []) if one["kind"] == kind]


def import_file(program, path, home):
    """Imports as a user does who gives no option and has an empty profile in the folder `home`."""
    profile = home / "profile.ini"
    profile.touch()
    command = [program, "import", "--json", "--samples", "all", "--profile", profile, path]
    try:
        done = subprocess.run(command, capture_output=True, timeout=MOST_SECONDS, env={**os.environ, "TZ": "UTC"})
    except subprocess.TimeoutExpired:
        return Outcome(f"takes more than {MOST_SECONDS} s")
    if done.returncode < 0:
        return Outcome(f"ends by signal {-done.returncode}")
    try:
        document = json.loads(done.stdout)
    except ValueError:
        return Outcome(f"no JSON: {done.stderr.decode('utf-8', 'replace').strip()}")
    return Outcome("", list(map(signal_of, document["signals"])), document.get("guess") or {})


def signal_of(given):
    values = [value for _, value in given["samples"] if value not in (None, "", "NaN", "Infinity", "-Infinity")]
    return Signal(int(re.search(r"\d+$", given["name"])[0]), given["symbol"], given["unit"],
                  TYPES.get(given["type"], "unknown"), [time for time, _ in given["samples"]], values)
