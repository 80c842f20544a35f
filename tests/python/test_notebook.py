"""What a notebook shows of runs, analyses and checks."""

from __future__ import annotations

from html.parser import HTMLParser
from pathlib import Path
from types import SimpleNamespace
from typing import Any, Optional

import numpy
import pytest
from fakes import FakeRun, FakeSignal, signal

import kelvarin
from kelvarin.notebook import analysis_as_html, check_as_html, range_text, run_as_html, time_text


class Page(HTMLParser):
    """The cells of a page's tables by rows, the texts of its list, and the tags that are in it."""

    def __init__(self, text: str) -> None:
        super().__init__()
        self.rows: list[list[str]] = []
        self.items: list[str] = []
        self.tags: set[str] = set()
        self.open: list[str] = []
        self.feed(text)
        self.close()
        assert self.open == [], "every element is closed"

    def handle_starttag(self, tag: str, attrs: list[tuple[str, Optional[str]]]) -> None:
        self.tags.add(tag)
        if tag == "br":
            return
        self.open.append(tag)
        if tag == "tr":
            self.rows.append([])
        if tag in ("td", "th"):
            self.rows[-1].append("")
        if tag == "li":
            self.items.append("")

    def handle_endtag(self, tag: str) -> None:
        assert self.open.pop() == tag

    def handle_data(self, data: str) -> None:
        if self.open and self.open[-1] in ("td", "th"):
            self.rows[-1][-1] += data
        if self.open and self.open[-1] == "li":
            self.items[-1] += data


def test_run_is_a_table_of_its_signals() -> None:
    run = FakeRun(
        signal("Drehzahl", [800, 3002], [0, 10**9], "i8", unit="U/min", type="integer", course="▁█"),
        signal("Bemerkung", ["ok", None], [0, 10**9], "O", type="text"),
    )
    run.assumed = (SimpleNamespace(text="day before month", certainty="a guess", doubts=("both fit",)),)
    run.findings = (
        SimpleNamespace(text="2 rows dropped", is_fault=True),
        SimpleNamespace(text="3 blank lines", is_fault=False),
    )
    run.messages = (SimpleNamespace(text="a message"),) * 1234
    text = run_as_html(run)
    page = Page(text)
    assert page.rows == [
        ["signal", "unit", "type", "samples", "range", "course"],
        ["Drehzahl", "U/min", "integer", "2", "800 .. 3002", "▁█"],
        ["Bemerkung", "", "text", "2", "", ""],
    ]
    assert page.items == ["day before month (a guess)", "but: both fit", "lost: 2 rows dropped"]
    assert "bench.csv" in text and "2 signals from 7 lines, 1970-01-01 00:00:00 to 1970-01-01 00:00:01" in text
    assert "1,234 messages" in text


HOSTILE = [
    ("<script>alert(1)</script>", "<script>alert(1)</script>"),
    ("\"' onmouseover=x", "\"' onmouseover=x"),
    ("a&lt;b", "a&lt;b"),
    ("</td></table><img src=x>", "</td></table><img src=x>"),
    ("abc\u202edcba\u2066x", "abc\\u202Edcba\\u2066x"),
    ("a\x1b[31m\x00\n\x85", "a\\x1B[31m\\x00\\x0A\\u0085"),
    ("\ud83d", "\ufffd"),
    ("Öl 😀", "Öl 😀"),
]


@pytest.mark.parametrize("name, shown", HOSTILE)
def test_names_and_texts_are_shown_and_not_obeyed(name: str, shown: str) -> None:
    run = FakeRun(signal(name, [1.0], [0], unit=name), path=name)
    run.findings = (SimpleNamespace(text=name, is_fault=True),)
    column = SimpleNamespace(number=1, name=name, unit=name, type="float")
    finding = SimpleNamespace(kind="falls", text=name, count=1, lines=(3,), remedy=name)
    views = [
        run_as_html(run),
        analysis_as_html(SimpleNamespace(path=name, columns=(column,), assumed=())),
        check_as_html(SimpleNamespace(path=name, findings=(finding,))),
    ]
    for text in views:
        text.encode("utf-8")
        page = Page(text)
        assert page.tags <= {"p", "b", "br", "table", "thead", "tbody", "tr", "th", "td", "ul", "li"}, text
        assert shown in page.rows[1], text


RANGES: list[tuple[FakeSignal, str]] = [
    (signal("a", [0.1, None, 122.94], [0, 1, 2]), "0.1 .. 122.94"),
    (signal("a", [None, None], [0, 1]), ""),
    (signal("a", [], []), ""),
    (signal("a", [None, 5, 7], [0, 1, 2], "i8"), "5 .. 7"),  # 0 is below the mask
    (signal("a", [2**64 - 1], [0], "u8"), "18446744073709551615 .. 18446744073709551615"),
    (signal("a", [False, True], [0, 1], "?"), "false .. true"),
    (signal("a", ["x"], [0], "O"), ""),
    (signal("a", [-1e300, 1 / 3], [0, 1]), "-1e+300 .. 0.333333"),
]


@pytest.mark.parametrize("one, text", RANGES)
def test_range(one: FakeSignal, text: str) -> None:
    assert range_text(one) == text


TIMES = [
    (numpy.datetime64("2024-01-31T08:00:00.500", "ns"), "2024-01-31 08:00:00.5"),
    (numpy.datetime64("2024-01-31T08:00:00.000000001", "ns"), "2024-01-31 08:00:00.000000001"),
    (numpy.datetime64("2024-01-31T08:00:10", "ns"), "2024-01-31 08:00:10"),
    (numpy.timedelta64(2_500_000_000, "ns"), "2.5 s"),
    (numpy.timedelta64(100, "s"), "100 s"),
    (numpy.timedelta64(-500_000_000, "ns"), "-0.5 s"),
]


@pytest.mark.parametrize("time, text", TIMES)
def test_time(time: Any, text: str) -> None:
    assert time_text(time) == text


EXAMPLES = Path(__file__).resolve().parents[2] / "examples"


@pytest.mark.parametrize("name", ["pruefstand.csv", "road-test.csv", "discharge.txt"])
def test_what_is_found_of_a_file_shows_itself(name: str) -> None:
    run, analysis = kelvarin.read(EXAMPLES / name), kelvarin.analyze(EXAMPLES / name)
    rows = Page(run._repr_html_()).rows[1:]
    assert [row[:4] for row in rows] == [[one.name, one.unit, one.type, str(len(one))] for one in run]
    rows = Page(analysis._repr_html_()).rows[1:]
    assert [row[1] for row in rows] == [column.name for column in analysis.columns]
    check = kelvarin.check(EXAMPLES / name)
    assert [row[1] for row in Page(check._repr_html_()).rows[1:]] == [finding.text for finding in check.findings]


def test_check_without_findings_says_so() -> None:
    text = check_as_html(SimpleNamespace(path="a.csv", findings=()))
    assert "nothing found" in text and "<table" not in text
