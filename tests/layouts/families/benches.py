"""Test benches: engines, hydraulics, tensile and endurance tests, climate chambers."""

from kit.columns import Column, counting, evenly, gaps, held, late, significant, smooth, time, unevenly
from kit.layout import Axis, elapsed, layout
from kit.numbers import comma, fixed, scientific, words
from kit.signals import late as late_values
from kit.times import CLOCK, DAY, HOUR, MINUTE, MS, SECOND, amount, every, moment, span, stamp


def specimen_times(random, rows):
    return every(0, 50 * MS, rows // 3) * 3


def specimen_lines(table, body):
    block = table.rows // 3
    for place in range(3):
        yield from (f'"Probe {place + 1}"', f'"Beginn";"04.05.2023 1{place}:20:00"', '"Vorkraft";5;"N"',
                    '"Prüfzeit";"Weg";"Standardkraft"', '"s";"mm";"N"',
                    *body[place * block : (place + 1) * block], "")


def dated(times):
    """By the begin of each block."""
    block = len(times) // 3
    begins = [moment(f"2023-05-04 1{place}:20:00") for place in range(3)]
    return [begins[row // block] + time for row, time in enumerate(times)]


def one_after_the_other(times):
    block = len(times) // 3
    return elapsed([row // block * (block * 50 * MS) + time for row, time in enumerate(times)])


def stresses(table):
    """Whole numbers, and at the end decimals."""
    values = late_values(table.random, table.rows, [180, 181, 182], [183, 184])
    return [value + 0.5 if value > 182 else value for value in values]


def pages(table, body):
    for page in range(0, table.rows, 50):
        yield from (f"Leak test protocol    page {page // 50 + 1}", "", "{names}", *body[page : page + 50], "")


def chamber_lines(table, body):
    yield from ("Klimaprüfschrank", "Programm: Wechsel 12", "", "{names}", *body, "")
    for word, pick in (("Minimum", min), ("Maximum", max), ("Mittelwert", lambda values: sum(values) / len(values))):
        yield ";".join([word, *(comma(1)(pick(column.values)) for column in table.columns[1:3]), "", ""])
    yield "Ende der Daten"


LAYOUTS = [
    layout("L14-engine-bench-cr.txt", "engine bench: names over units, tabs, lines that end with CR alone", "unit row",
           evenly(0, 100 * MS), "\t",
           [time("TIME", amount(SECOND, 1), "s"), smooth("SPEED", 800, 6200, 0, "1/min"),
            smooth("TORQUE", -20, 310, 1, "Nm"), smooth("T_OIL", 40, 130, 1, "°C"),
            smooth("P_BOOST", 980, 2400, 0, "mbar"), smooth("LAMBDA", 0.7, 1.4, 3, None)],
           ["Engine bench 4", "Cycle: WARMUP_3", "{names}", "s\t1/min\tNm\t°C\tmbar\t-",
            "{table}"], [elapsed],
           end="\r"),
    layout("L15-hydraulic-sections.txt",
           "hydraulic bench: section marks, // comments, units after 'in', decimal comma", "sections",
           evenly(0, 20 * MS), ";",
           [time("Zeit in s", amount(SECOND, 2, ","), "s"),
            smooth("Druck in bar", 0, 350, 2, "bar", comma(2), also="Druck"),
            smooth("Volumenstrom in l/min", 0, 120, 1, "l/min", comma(1), also="Volumenstrom"),
            held("Ventil", [False, True], show=words("ein", "aus"))],
           ["[Kopf]", "Prüfling=Pumpe A7", "Prüfer=Meyer", "Datum=04.05.2023", "", "[Kanäle]",
            "// Anzahl der Kanäle", "Anzahl=4", "", "[Daten]", "{names}", "{table}",
            "[Ende]"], [elapsed], encoding="cp1252", end="\r\n"),
    layout("L16-tensile-specimens.csv",
           "tensile machine: one block a specimen, each with date, header, unit row; elapsed time starts anew",
           "restart in blocks", specimen_times, ";",
           [time("Prüfzeit", amount(SECOND, 2, ","), "s"), smooth("Weg", 0, 40, 4, "mm", comma(4)),
            smooth("Standardkraft", -2, 21000, 2, "N", comma(2))], specimen_lines,
           [lambda times: Axis(dated(times)), lambda times: elapsed(dated(times)), one_after_the_other,
            lambda times: Axis(times, True, len(times) // 3 * 2)], expressible=False, encoding="cp1252", end="\r\n",
           note="by each block's begin, one block after the other, or the first block alone"),
    layout("L17-fatigue-minutes.csv",
           "fatigue test: mm:ss.f beyond the hour, separators at the ends of rows but not of the header",
           "mm:ss", evenly(55 * MINUTE, 700 * MS), ";",
           [time("Run time [mm:ss.f]", span("{minutes:02}:{s:02}.{f1}"), None), counting("Cycles", 10_000, 7),
            Column("Stress max [MPa]", stresses, "float", "MPa"),
            significant("Crack [mm]", 0.0002, 0.004, 4, "mm", scientific(4))],
           ["Specimen;F-118", "R ratio;0.1", "Frequency;10 Hz", "{names}", "{table}"], [elapsed], ";;"),
    layout("L18-endurance-days.csv", "endurance bench: elapsed as 3d 18:47:23, ON and OFF, OVER for an overload",
           "days and clock", unevenly(2 * DAY + 23 * HOUR, SECOND, 600), ",",
           [time("Elapsed", span("{d}d {h:02}:{m:02}:{s:02}")), counting("Strokes", 1_000_000, 113),
            gaps(smooth("Friction (N)", 2, 19, 2, "N"), "OVER"),
            held("Heater", [False, True], show=words("ON", "OFF")), smooth("Chamber (°C)", 20, 85, 1, "°C")],
           axes=[elapsed], expressible=False),
    layout("L19-leak-test-long-hours.txt",
           "leak tester: hours beyond 24, header repeated every page, blank lines between pages",
           "repeated header", evenly(20 * HOUR, 2 * MINUTE), "\t",
           [time("Time [hh:mm:ss]", span("{hours}:{m:02}:{s:02}"), None),
            significant("p1 [mbar]", 0.0001, 0.09, 4, "mbar", scientific(4)),
            significant("p2 [mbar]", 0.0001, 0.09, 4, "mbar", scientific(4)),
            significant("Leak rate [mbar*l/s]", 1e-9, 1e-7, 3, "mbar*l/s", scientific(3))], pages, [elapsed],
           end="\r\n"),
    layout("L20-torque-slash-units.txt",
           "torque bench: % comments, columns parted by runs of blanks, units after a slash",
           "runs of blanks", evenly(0, 2 * MS), " ",
           [time("t/ms", amount(MS, 1, width=10), "ms"),
            significant("Torque/Nm", -50, 300, 6, "Nm", lambda value: f"{scientific(6)(value):>14}", also="Torque"),
            smooth("Speed/rpm", 0, 3000, 1, "rpm", fixed(1, width=10), also="Speed"),
            smooth("Angle/deg", -180, 180, 1, "deg", fixed(1, width=9), also="Angle")],
           ["% torque transducer 7, 500 Hz", "% shaft: 35 mm", "%",
            "      t/ms     Torque/Nm  Speed/rpm  Angle/deg", "{table}"], [elapsed]),
    layout("L21-chamber-german-months.csv",
           "climate chamber: German month names, footers with minimum, maximum, mean, 'End of data'",
           "month names", evenly("2023-02-26 09:05:00", 13 * MINUTE), ";",
           [time("Zeitpunkt", stamp("{D:02}. {month_de} {Y} {h:02}:{m:02}")),
            smooth("Temperatur Ist (°C)", -40, 85, 1, "°C", comma(1)),
            smooth("Feuchte Ist (% r.F.)", 10, 98, 1, "% r.F.", comma(1)),
            held("Programm", [3, 4, 12], "integer", 90),
            held("Tür", [False, True], show=words("Ja", "Nein"))], chamber_lines, expressible=False,
           encoding="utf-8-sig", end="\r\n"),
    layout("L22-brake-bench-units-ids.csv", "brake bench: header above rows of unit, channel id, scale and type",
           "unit row", evenly(0, 10 * MS), ",",
           [time("Time", amount(SECOND, 3), "s"), smooth("BrakePressure", 0, 180, 1, "bar"),
            smooth("DiscTemp", 40, 620, 1, "°C"), smooth("Decel", -11, 1, 3, "m/s^2"),
            late("Status", [0, 1], [4, 9])],
           ["{names}", "s,bar,°C,m/s^2,", "0,101,102,117,240", "1.0,0.1,0.5,0.001,1",
            "REAL64,REAL32,REAL32,REAL32,INT16", "", "{table}"], [elapsed]),
    layout("L23-injector-two-tables.csv",
           "injector bench: a short table of settings above the table of measurements, both with headers",
           "several tables", unevenly("2023-05-04 13:02:11", SECOND, 9), ";",
           [time("Date", stamp("{D:02}.{M:02}.{y:02}")), time("Clock", stamp(CLOCK)),
            smooth("Rail <bar>", 300, 2000, 0, "bar"), smooth("Qty <mg/stroke>", 0, 80, 2, "mg/stroke"),
            held("Result", ["ok", "retry", "fail"], "text")],
           ["Setting;Low;High;Unit", "Rail;300;2000;bar", "Quantity;0;80;mg/stroke", "Temperature;20;60;°C",
            "", "{names}", "{table}", "", "Total shots;{rows}"]),
]
