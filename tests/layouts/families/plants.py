"""Control of plants: SCADA exports, historians, PLC traces, panels."""

from kit import signals
from kit.columns import counting, evenly, gaps, growing, held, late, same, smooth, time
from kit.layout import Axis, Column, elapsed, layout, repeated
from kit.numbers import comma, quoted, whole, words
from kit.times import (
    CLOCK, DAY, DAY_FIRST, HOUR, MINUTE, MS, SECOND, SHORT_CLOCK, amount, days_since, every, moment, stamp)

TAGS = ["TI101.PV", "FI204.PV", "LI310.PV", "PI007.PV"]
OFF = 10 * SECOND
PARTS = (("Year", "{Y}"), ("Month", "{M}"), ("Day", "{D}"), ("Hour", "{h}"), ("Minute", "{m}"), ("Second", "{s}"),
         ("Millisecond", "{ms}"))


def each_minute_of_tags(random, rows):
    return [time for time in every(moment("2023-05-04 10:00:00"), MINUTE, rows // 4) for _ in TAGS]


def panel_lines(table, body):
    off = table.times[-1] + OFF
    return ["{quoted}", *body, f'"$RT_OFF$";{table.columns[1].show(off)};0;2;{table.columns[4].show(off)}',
            '"$RT_COUNT$";{rows};;;']


def levels(table):
    """Whole numbers, and at the end decimals."""
    return [value + 0.5 if value == 14 else value
            for value in signals.late(table.random, table.rows, [11, 12, 13], [14])]


LAYOUTS = [
    layout("L77-scada-tags-in-rows.csv",
           "SCADA export: one value a row, tags told apart by a column, quality texts, times repeat", "several devices",
           each_minute_of_tags, ";",
           [Column("TagName", lambda table: TAGS * (table.rows // 4)), time("TimeStamp", stamp(f"{DAY_FIRST} {CLOCK}")),
            smooth("Value", 0, 400, 3, None, comma(3), judged=False), held("Quality", ["Good", "Uncertain"], None, 40)],
           axes=[repeated], encoding="utf-8-sig", end="\r\n",
           note="four tags a minute: all but one may be lost, or each becomes a signal"),
    layout("L78-panel-log-day-numbers.csv",
           "operator panel: quoted cells, local time text and a day number in millionths, start and "
           "stop marks as last rows", "footer", evenly("2023-05-04 10:00:00", 10 * SECOND), ";",
           [same("VarName", "Level_1", "text", show=quoted()), time("TimeString", stamp(f'"{DAY_FIRST} {CLOCK}"')),
            smooth("VarValue", 0, 900, 2, show=comma(2)), same("Validity", 1),
            time("Time_ms", amount(DAY // 10**6, 4, ",", days_since(1899, 12, 30)), None)], panel_lines,
           [Axis, lambda times: Axis([*times, times[-1] + OFF])], encoding="cp1252", end="\r\n",
           note="the stop mark may count as a row"),
    layout("L79-historian-time-before-date.csv",
           "historian: the time column stands before the date column, day before month, --- in places",
           "time before date", evenly("2023-05-03 18:00:00", 5 * MINUTE), ";",
           [time("Time", stamp(CLOCK)), time("Date", stamp("{D:02}/{M:02}/{Y}")),
            smooth("Boiler steam (t/h)", 2, 48, 1, "t/h"), gaps(smooth("O2 (%)", 2, 9, 2, "%"), "---"),
            held("Burner", [1, 0], "boolean")], ["Report;Boiler house", "Period;May", "{names}", "{table}"],
           end="\r\n"),
    layout("L80-plc-trace-index.txt", "PLC trace: ; comments, sample index, cycle time in µs in the preamble, no times",
           "sampling rate", evenly(0, 250_000), ";",
           [counting("Index", 0, unit=None), smooth("nActPos [°]", 0, 360, 3, "°"),
            smooth("nTorque [%]", -120, 120, 1, "%"), held("bEnable", [1, 0], "boolean"),
            late("eState", [0, 1], [6, 15])],
           ["; Trace export", "; Task: MotionTask", "; Sample time: 250 us", "; Samples: {rows}", "", "{names}",
            "{table}"], [elapsed]),
    layout("L81-batch-report-spanish.txt",
           "batch report: events above, measurements below, Spanish month names, decimal comma", "several tables",
           evenly("2023-12-30 20:00:00", 4 * MINUTE), "\t",
           [time("Fecha y hora", stamp("{D:02}-{short_es}-{Y} " + CLOCK)),
            smooth("Temperatura [°C]", 18, 96, 1, "°C", comma(1)), smooth("Presión [bar]", 0.9, 3, 2, "bar", comma(2)),
            late("Agitador [rpm]", [0, 1], [55, 120], "rpm")],
           ["INFORME DE LOTE", "Lote:\t0412", "", "Evento\tHora", "Carga\t20:00", "Calentamiento\t20:14",
            "Vaciado\t23:50", "", "{names}", "{table}", "", "FIN DEL INFORME"], expressible=False, encoding="cp1252",
           end="\r\n"),
    layout("L82-pump-station-name-spells-format.csv",
           "pump station: the name of the time column spells its format, MMDDYY HHMMSS; the header ends with a comma",
           "name spells format", evenly("2023-02-26 23:30:00", 17 * MINUTE + 20 * SECOND), ",",
           [time("MMDDYY HHMMSS", stamp("{M:02}{D:02}{y:02} {h:02}{m:02}{s:02}")),
            smooth("Flow (m3/h)", 0, 240, 1, "m3/h"), smooth("Level (m)", 0.4, 6, 2, "m"),
            held("Pump 1", [0, 1], "boolean"), growing("Starts", 1200, 0.4, 0)], ["{names},", "{table}"], end="\r\n"),
    layout("L83-water-works-polish.csv",
           "water works: Polish month names, decimal comma, decimals that come late, bar of dashes for no reading",
           "month names", evenly("2023-09-28 00:00:00", HOUR), ";",
           [time("Data i godzina", stamp("{D} {month_pl} {Y}, " + SHORT_CLOCK)),
            gaps(smooth("Przepływ (m³/h)", 20, 190, 1, "m³/h", comma(1)), "-", first=True),
            Column("Poziom (cm)", lambda table: table.shared, "float", "cm",
                   lambda value: str(value).replace(".", ","))],
           shared=levels, expressible=False),
    layout("L84-drive-trace-year-to-ms.csv",
           "drive: year, month, day, hour, minute, second, millisecond each in a column, UTF-16 big endian",
           "spread over columns", evenly(moment("2023-05-31 23:59:30") + 40 * MS, 125 * MS), "\t",
           [*(time(name, stamp(form), None) for name, form in PARTS), smooth("Speed [rpm]", -1500, 1500, 1, "rpm"),
            smooth("DC link [V]", 540, 620, 0, "V")], expressible=False, encoding="utf-16-be", end="\r\n"),
    layout("L85-alarm-historian-am-pm.csv",
           "historian query: US clock with AM/PM and milliseconds, several tags side by side, Bad "
           "Input instead of a number", "AM/PM", evenly(moment("2023-04-13 11:58:00") + 500 * MS, 30 * SECOND), ",",
           [time("Timestamp", stamp("{M}/{D}/{Y} {t}:{m:02}:{s:02}.{f3} {AP}")),
            gaps(smooth("21-TI-1041 degF", 300, 690, 2, None, also="21-TI-1041"), "Bad Input"),
            smooth("21-FI-2200 BPD", 1200, 9900, 0, None, quoted(whole(",")), also="21-FI-2200"),
            held("21-XV-7 open", [False, True], show=words("Open", "Closed"))], expressible=False, end="\r\n"),
    layout("L97-controller-log-no-year.txt",
           "building controller: month name and day without a year, host and tag as in system logs, "
           "year in the preamble", "no year", evenly("2023-04-29 06:00:00", 4 * MINUTE), ", ",
           [time("", stamp("{short_en} {D:2} " + CLOCK)), same("", "ctrl-2"), smooth("", 15, 28),
            smooth("", 300, 1400, 0), held("", ["auto", "manual", "night"], "text")],
           ["# log of 2023", "# date, host, room temperature, CO2, mode", "{table}"], [Axis, elapsed],
           expressible=False, end="\r\n"),
]
