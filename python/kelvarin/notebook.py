"""What a notebook shows of a run, an analysis and a check: tables in HTML."""

from __future__ import annotations

import html
from collections.abc import Iterable, Sequence
from typing import TYPE_CHECKING, Any

import numpy

if TYPE_CHECKING:
    from .reports import Analysis, Check
    from .run import Assumption, Run, Signal

# Control characters, separators of lines and paragraphs, marks that set the direction of a text.
_OBEYED = [*range(0x20), *range(0x7F, 0xA0), 0x061C, 0x200E, 0x200F, *range(0x2028, 0x202F), *range(0x2066, 0x206A)]
_VISIBLE = {point: f"\\x{point:02X}" if point < 0x80 else f"\\u{point:04X}" for point in _OBEYED}
# Half of a surrogate pair has no bytes in UTF-8.
_VISIBLE.update({point: "\ufffd" for point in range(0xD800, 0xE000)})


def run_as_html(run: Run) -> str:
    """A table with a row for each signal, and what was assumed and lost below it."""
    rows = [
        (signal.name, signal.unit, signal.type, f"{len(signal):,}", range_text(signal), signal.course)
        for signal in run
    ]
    parts = [
        _heading(run.path, f"{len(run)} signals from {run.lines:,} lines{_span_text(run)}"),
        _table(("signal", "unit", "type", "samples", "range", "course"), rows, numbers={3}),
        _assumptions(run.assumed),
        _list([f"lost: {finding.text}" for finding in run.findings if finding.is_fault]),
        f"<p>{len(run.messages):,} messages</p>" if run.messages else "",
    ]
    return "".join(parts)


def analysis_as_html(analysis: Analysis) -> str:
    """A table with a row for each column of the file, and what was assumed below it."""
    rows = [(str(column.number), column.name, column.unit, column.type) for column in analysis.columns]
    return "".join([
        _heading(analysis.path, f"{len(rows)} columns"),
        _table(("column", "name", "unit", "type"), rows, numbers={0}),
        _assumptions(analysis.assumed),
    ])


def check_as_html(check: Check) -> str:
    """A table with a row for each finding of a check."""
    rows = [
        (finding.kind, finding.text, f"{finding.count:,}", _lines_text(finding.lines), finding.remedy)
        for finding in check.findings
    ]
    return "".join([
        _heading(check.path, f"{len(rows)} findings" if rows else "nothing found"),
        _table(("kind", "finding", "count", "lines", "remedy"), rows, numbers={2}) if rows else "",
    ])


def escaped(text: str) -> str:
    """The text for HTML, with characters that a browser obeys instead of showing them as \\x1B or \\u202E."""
    return html.escape(text.translate(_VISIBLE), quote=True)


def range_text(signal: Signal) -> str:
    """The least and the greatest value, such as "0.1 .. 122.94"; empty for texts and where there is no value."""
    values = signal.values
    if values.dtype.kind not in "biuf":
        return ""
    if signal.mask is not None:
        values = values[~signal.mask]
    if values.dtype.kind == "f":
        values = values[~numpy.isnan(values)]
    if len(values) == 0:
        return ""
    return f"{_value_text(values.min())} .. {_value_text(values.max())}"


def _value_text(value: Any) -> str:
    if isinstance(value, numpy.bool_):
        return "true" if value else "false"
    return f"{value:.6g}" if isinstance(value, numpy.floating) else str(value)


def _span_text(run: Run) -> str:
    """The first and the last time of all signals."""
    times = [signal.times for signal in run if len(signal) > 0]
    if not times:
        return ""
    first, last = min(axis.min() for axis in times), max(axis.max() for axis in times)
    return f", {time_text(first)} to {time_text(last)}"


def time_text(time: Any) -> str:
    """A time or a span of numpy for people: "2024-01-31 08:00:00.5", "2.5 s"."""
    if isinstance(time, numpy.timedelta64):
        nanoseconds = int(time.astype("m8[ns]").astype(numpy.int64))
        seconds, rest = divmod(abs(nanoseconds), 10**9)
        sign = "-" if nanoseconds < 0 else ""
        return f"{sign}{seconds}.{rest:09}".rstrip("0").rstrip(".") + " s"
    return str(time.astype("M8[ns]")).replace("T", " ").rstrip("0").rstrip(".")


def _lines_text(lines: Sequence[int]) -> str:
    shown = ", ".join(map(str, lines[:5]))
    return f"{shown} ..." if len(lines) > 5 else shown


def _heading(path: str, text: str) -> str:
    return f"<p><b>{escaped(path)}</b><br>{escaped(text)}</p>"


def _table(titles: Sequence[str], rows: Iterable[Sequence[str]], numbers: set[int]) -> str:
    """Cells of the columns in `numbers` are at the right."""
    sides = ["right" if column in numbers else "left" for column in range(len(titles))]
    head = "".join(f'<th style="text-align:{side}">{title}</th>' for side, title in zip(sides, titles))
    body = "".join(
        "<tr>"
        + "".join(f'<td style="text-align:{side}">{escaped(cell)}</td>' for side, cell in zip(sides, row))
        + "</tr>"
        for row in rows
    )
    return f"<table><thead><tr>{head}</tr></thead><tbody>{body}</tbody></table>"


def _assumptions(assumed: Sequence[Assumption]) -> str:
    texts = []
    for assumption in assumed:
        texts.append(f"{assumption.text} ({assumption.certainty})")
        texts.extend(f"but: {doubt}" for doubt in assumption.doubts)
    return _list(texts)


def _list(texts: Sequence[str]) -> str:
    if not texts:
        return ""
    return "<ul>" + "".join(f"<li>{escaped(text)}</li>" for text in texts) + "</ul>"
