"""Battery cyclers, chargers, potentiostats, battery management."""

from kit import signals
from kit.columns import counting, evenly, gaps, growing, held, late, same, significant, smooth, time, unevenly
from kit.layout import Axis, Column, elapsed, layout
from kit.numbers import comma, hexadecimal, scientific, words
from kit.times import DATED, DAY, HOUR, MINUTE, MS, SECOND, amount, days_since, moment, printed, span, stamp

STEP = 90
SHEET = days_since(1899, 12, 30)


def step_times(table):
    """The time since the step began; a step has a fixed number of rows."""
    return [time - table.times[row - row % STEP] for row, time in enumerate(table.times)]


def later(times):
    return [moment("2023-02-27 23:12:04") + time for time in times]


def nested_lines(table, body):
    yield from ("Cycle,Charge(mAh),Discharge(mAh),Efficiency(%)", ",Step,Name,Step time(H:M:S),Capacity(mAh)",
                "{names}")
    for place, row in enumerate(body):
        if place % (2 * STEP) == 0:
            yield f"{place // (2 * STEP) + 1},812.4,809.9,99.7"
        if place % STEP == 0:
            yield f",{place // STEP + 1},{('CC charge', 'CC discharge')[place // STEP % 2]},0:14:50,406.2"
        yield row


def small_currents(table):
    return signals.significant(table.random, table.rows, 0.00002, 3, 5)


def since_start(table):
    return [time - table.times[0] for time in table.times]


LAYOUTS = [
    layout("L61-cycler-steps-cycles.txt",
           "battery cycler: record, cycle, step, total and step time, status letter, US clock with "
           "AM/PM, no line end at the end", "days and clock", unevenly(0, SECOND, 60), "\t",
           [counting("Rec#"),
            Column("Cyc#", lambda table: [row // (3 * STEP) for row in range(table.rows)], None),
            Column("Step", lambda table: [row // STEP + 1 for row in range(table.rows)], "integer"),
            time("TestTime", span("{d:3}d {h:02}:{m:02}:{s:02}.00")),
            Column("StepTime", step_times, show=span("{d:3}d {h:02}:{m:02}:{s:02}.00")),
            growing("Amp-hr", 0, 0.01, 6, None), smooth("Amps", 0.2, 2.5, 6, None),
            smooth("Volts", 2.8, 4.2, 6, None), held("State", ["R", "C", "D", "S"], "character"),
            Column("DPt Time", lambda table: later(table.times),
                   show=stamp("{M:02}/{D:02}/{Y} {t}:{m:02}:{s:02} {AP}"))],
           ["Today's Date\t03/14/2023 09:40:11 AM", "", "Date of Test:\t02/27/2023 11:12:04 PM", "",
            "{names}", "{table}"], [elapsed,
            lambda times: Axis(later(times))], "\t", expressible=False, end="\r\n",
           last_end=False),
    layout("L62-cycler-nested-records.csv",
           "battery cycler: lines of cycle, step and record in one file, each indented by empty cells "
           "with a header of its own", "several record types", evenly("2023-05-04 21:00:00", 10 * SECOND),
           ",", [same(""), same(""), counting("Record"),
            Column("Time(H:M:S.ms)", step_times, unit=None, show=span("{hours:02}:{m:02}:{s:02}.{f3}")),
            smooth("Voltage(V)", 2.8, 4.2, 4, "V"), smooth("Current(mA)", -900, 900, 1, "mA"),
            growing("Capacity(mAh)", 0, 3, 3, "mAh"), time("Realtime", stamp(DATED))], nested_lines),
    layout("L63-potentiostat-slash-units.txt",
           "potentiostat: count of header lines in line 2, names like time/s and <I>/mA, exponents "
           "with three digits, decimal comma, tab at the end", "exponents", evenly(0, 250 * MS), "\t",
           [held("mode", [1, 2, 3], "integer"), held("ox/red", [0, 1], "boolean"),
            time("time/s", lambda time: scientific(16, ",", 3)(time / SECOND), "s"),
            significant("control/V", 2.5, 4.3, 8, "V", scientific(8, ",", 3), also="control"),
            significant("Ewe/V", 2.5, 4.3, 8, "V", scientific(8, ",", 3), also="Ewe"),
            significant("<I>/mA", -9, 9, 8, "mA", scientific(8, ",", 3), also="<I>"),
            Column("cycle number", lambda table: [float(row // 200 + 1) for row in range(table.rows)], "float",
                   show=scientific(8, ",", 3))],
           ["Potentiostat ASCII file", "Nb header lines : 9", "", "Cyclic voltammetry", "",
            "Run on channel : 3", "Ei (V)   0,000", "Mass : 1,200 mg", "{names}\t",
            "{table}"], [elapsed], "\t", encoding="cp1252",
           end="\r\n"),
    layout("L64-cycler-spreadsheet-days.csv",
           "battery cycler: data point, test time in s, clock as a day number, empty columns, "
           "exponents like 1e-05 among plain numbers", "day numbers",
           evenly("2023-05-04 10:00:00", 27 * SECOND), ",",
           [counting("Data_Point"), Column("Test_Time(s)", since_start, unit="s", show=amount(SECOND, 4)),
            time("Date_Time", amount(DAY, 9, origin=SHEET)), held("Step_Index", [1, 2, 5], "integer"),
            Column("Current(A)", lambda table: table.shared, "float", "A",
                   lambda value: f"{float(value):g}" if value > 1 else f"{float(value):.4e}"),
            smooth("Voltage(V)", 2.8, 4.2, 5, "V"), same("Aux_Temperature(C)_1"),
            smooth("Internal Resistance(Ohm)", 0.01, 0.09, 5, "Ohm")],
           axes=[elapsed, Axis, lambda times: Axis(printed(times, DAY, 9, SHEET))], shared=small_currents),
    layout("L65-charger-quoted-lines.csv",
           "charger: every line in quotes as one cell, elapsed minutes named in the header", "quoted lines",
           evenly(0, 30 * SECOND), ",",
           [time("Time (min)", lambda time: '"' + amount(MINUTE, 1)(time), "min"),
            smooth("Current (mA)", 20, 1500, 0, "mA"), smooth("Voltage (mV)", 3000, 4200, 0, "mV"),
            smooth("Temp (°C)", 20, 41, 1, "°C"), held("Phase", ["CC", "CV", "Trickle"], "text")],
           ['"Slot: 2"', '"Program: refresh"', '"{names}"', "{table}"], [elapsed], '"', end="\r\n"),
    layout("L66-bms-cells-wide.csv",
           "battery management: sixteen cell voltages in mV, s since boot, truth values, a fault word "
           "in hex, 'null' where asleep", "wide", evenly(73 * HOUR, 5 * SECOND), ",",
           [time("uptime[s]", amount(SECOND), "s"),
            *(smooth(f"cell{place:02}[mV]", 3100, 3600, 0, "mV") for place in range(1, 17)),
            gaps(smooth("pack[A]", -40, 60, 1, "A"), "null"),
            held("balancing", [False, True], "boolean", show=words("true", "false")),
            held("faults", [0x0000, 0x00C0, 0x80FE], "hex", show=hexadecimal(4, "0x"))],
           ["-- BMS log --", "{names}", "{table}", "-- end --"], [elapsed]),
    layout("L67-formation-rack-italian.csv",
           "formation rack: Italian month names, decimal comma, elapsed hours as decimals beside the "
           "clock, charge 0 for long", "month names", evenly("2023-01-28 22:30:00", 9 * MINUTE), ";",
           [time("Data e ora", stamp("{D:02} {month_it} {Y} {h:02}.{m:02}.{s:02}")),
            Column("Durata (h)", since_start, unit="h", show=amount(HOUR, 2, ",")),
            smooth("Corrente (A)", -8, 8, 3, "A", comma(3)),
            smooth("Tensione (V)", 2.9, 4.2, 3, "V", comma(3)), late("Carica (Ah)", [0, 1], [2, 3], "Ah")],
           ["Cella;F-0093", "", "{names}", "{table}"], [Axis, elapsed], encoding="cp1252", end="\r\n"),
]
