"""Battery cyclers, chargers, potentiostats, battery management."""

from kit.layout import Axis, Column, File, elapsed, header, layout, table
from kit.numbers import fixed, scientific, words
from kit.signals import counting, growing, held, late, significant, smooth, with_gaps
from kit.times import DAY, HOUR, MINUTE, MS, SECOND, amount, days_since, every, moment, printed, span, stamp, uneven

STEP = 90


def step_times(times, step=STEP):
    """The time since the step began; a step has a fixed number of rows."""
    return [time - times[row - row % step] for row, time in enumerate(times)]


@layout("L61-cycler-steps-cycles.txt",
        "battery cycler: record, cycle, step, total and step time, status letter, US clock with "
        "AM/PM, no line end at the end")
def cycler_steps(random, rows):
    times = uneven(random, 0, SECOND, 60, rows)
    begin = moment("2023-02-27 23:12:04")
    clock = [begin + time for time in times]
    columns = [Column("Rec#", counting(rows), "integer"),
               Column("Cyc#", [row // (3 * STEP) for row in range(rows)], None),
               Column("Step", [row // STEP + 1 for row in range(rows)], "integer"),
               Column("TestTime", times, show=span("{d:3}d {h:02}:{m:02}:{s:02}.00")),
               Column("StepTime", step_times(times), show=span("{d:3}d {h:02}:{m:02}:{s:02}.00")),
               Column("Amp-hr", growing(random, rows, 0, 0.01, 6), "float", None),
               Column("Amps", smooth(random, rows, 0.2, 2.5, 6), "float", None),
               Column("Volts", smooth(random, rows, 2.8, 4.2, 6), "float", None),
               Column("State", held(random, rows, ["R", "C", "D", "S"]), "character"),
               Column("DPt Time", clock, show=stamp("{M:02}/{D:02}/{Y} {t}:{m:02}:{s:02} {AP}"))]
    return File(["Today's Date\t03/14/2023 09:40:11 AM", "", "Date of Test:\t02/27/2023 11:12:04 PM", "",
                 header(columns, "\t"), *table(columns, "\t", "\t")], columns, [elapsed(times), Axis(clock)],
                "days and clock", expressible=False, end="\r\n", last_end=False)


@layout("L62-cycler-nested-records.csv",
        "battery cycler: lines of cycle, step and record in one file, each indented by empty cells "
        "with a header of its own")
def cycler_nested(random, rows):
    clock = every(moment("2023-05-04 21:00:00"), 10 * SECOND, rows)
    columns = [Column("", [None] * rows), Column("", [None] * rows), Column("Record", counting(rows), "integer"),
               Column("Time(H:M:S.ms)", step_times(clock), unit=None, show=span("{hours:02}:{m:02}:{s:02}.{f3}")),
               Column("Voltage(V)", smooth(random, rows, 2.8, 4.2, 4), "float", "V"),
               Column("Current(mA)", smooth(random, rows, -900, 900, 1), "float", "mA"),
               Column("Capacity(mAh)", growing(random, rows, 0, 3, 3), "float", "mAh"),
               Column("Realtime", clock, show=stamp("{Y}-{M:02}-{D:02} {h:02}:{m:02}:{s:02}"))]
    lines = ["Cycle,Charge(mAh),Discharge(mAh),Efficiency(%)", ",Step,Name,Step time(H:M:S),Capacity(mAh)",
             header(columns, ",")]
    for place, row in enumerate(table(columns, ",")):
        if place % (2 * STEP) == 0:
            lines.append(f"{place // (2 * STEP) + 1},812.4,809.9,99.7")
        if place % STEP == 0:
            lines.append(f",{place // STEP + 1},{('CC charge', 'CC discharge')[place // STEP % 2]},0:14:50,406.2")
        lines.append(row)
    return File(lines, columns, [Axis(clock)], "several record types")


@layout("L63-potentiostat-slash-units.txt",
        "potentiostat: count of header lines in line 2, names like time/s and <I>/mA, exponents "
        "with three digits, decimal comma, tab at the end")
def potentiostat(random, rows):
    times = every(0, 250 * MS, rows)
    comma = scientific(8, ",", 3)
    columns = [Column("mode", held(random, rows, [1, 2, 3]), "integer"),
               Column("ox/red", held(random, rows, [0, 1]), "boolean"),
               Column("time/s", [time / SECOND for time in times], unit="s", show=scientific(16, ",", 3)),
               Column("control/V", significant(random, rows, 2.5, 4.3, 8), "float", "V", comma, also="control"),
               Column("Ewe/V", significant(random, rows, 2.5, 4.3, 8), "float", "V", comma, also="Ewe"),
               Column("<I>/mA", significant(random, rows, -9, 9, 8), "float", "mA", comma, also="<I>"),
               Column("cycle number", [float(row // 200 + 1) for row in range(rows)], "float", show=comma)]
    ahead = ["Potentiostat ASCII file", "Nb header lines : 9", "", "Cyclic voltammetry", "", "Run on channel : 3",
             "Ei (V)   0,000", "Mass : 1,200 mg", header(columns, "\t") + "\t"]
    return File([*ahead, *table(columns, "\t", "\t")], columns, [elapsed(times)], "exponents", encoding="cp1252",
                end="\r\n")


@layout("L64-cycler-spreadsheet-days.csv",
        "battery cycler: data point, test time in s, clock as a day number, empty columns, "
        "exponents like 1e-05 among plain numbers")
def cycler_days(random, rows):
    times = every(moment("2023-05-04 10:00:00"), 27 * SECOND, rows)
    spans = [time - times[0] for time in times]
    small = significant(random, rows, 0.00002, 3, 5)
    columns = [Column("Data_Point", counting(rows), "integer"),
               Column("Test_Time(s)", spans, unit="s", show=amount(SECOND, 4)),
               Column("Date_Time", times, show=amount(DAY, 9, origin=days_since(1899, 12, 30))),
               Column("Step_Index", held(random, rows, [1, 2, 5]), "integer"),
               Column("Current(A)", small, "float", "A",
                      lambda value: f"{float(value):g}" if value > 1 else f"{float(value):.4e}"),
               Column("Voltage(V)", smooth(random, rows, 2.8, 4.2, 5), "float", "V"),
               Column("Aux_Temperature(C)_1", [None] * rows),
               Column("Internal Resistance(Ohm)", smooth(random, rows, 0.01, 0.09, 5), "float", "Ohm")]
    return File([header(columns, ","), *table(columns, ",")], columns,
                [elapsed(spans), Axis(times), Axis(printed(times, DAY, 9, days_since(1899, 12, 30)))], "day numbers")


@layout("L65-charger-quoted-lines.csv",
        "charger: every line in quotes as one cell, elapsed minutes named in the header")
def charger_quoted(random, rows):
    times = every(0, 30 * SECOND, rows)
    columns = [Column("Time (min)", times, unit="min", show=amount(MINUTE, 1)),
               Column("Current (mA)", smooth(random, rows, 20, 1500, 0), "integer", "mA"),
               Column("Voltage (mV)", smooth(random, rows, 3000, 4200, 0), "integer", "mV"),
               Column("Temp (°C)", smooth(random, rows, 20, 41, 1), "float", "°C"),
               Column("Phase", held(random, rows, ["CC", "CV", "Trickle"]), "text")]
    return File([f'"{line}"' for line in ["Slot: 2", "Program: refresh", header(columns, ","), *table(columns, ",")]],
                columns, [elapsed(times)], "quoted lines", end="\r\n")


@layout("L66-bms-cells-wide.csv",
        "battery management: sixteen cell voltages in mV, s since boot, truth values, a fault word "
        "in hex, 'null' where asleep")
def bms_wide(random, rows):
    times = every(73 * HOUR, 5 * SECOND, rows)
    columns = [Column("uptime[s]", times, unit="s", show=amount(SECOND)),
               *(Column(f"cell{place:02}[mV]", smooth(random, rows, 3100, 3600, 0), "integer",
                        "mV") for place in range(1, 17)),
               Column("pack[A]", with_gaps(random, smooth(random, rows, -40, 60, 1)), "float", "A", missing="null"),
               Column("balancing", held(random, rows, [False, True]), "boolean", show=words("true", "false")),
               Column("faults", held(random, rows, [0x0000, 0x00C0, 0x80FE]), "hex",
                      show=lambda value: f"0x{value:04X}")]
    return File(["-- BMS log --", header(columns, ","), *table(columns, ","), "-- end --"], columns, [elapsed(times)],
                "wide")


@layout("L67-formation-rack-italian.csv",
        "formation rack: Italian month names, decimal comma, elapsed hours as decimals beside the "
        "clock, charge 0 for long")
def formation_italian(random, rows):
    times = every(moment("2023-01-28 22:30:00"), 9 * MINUTE, rows)
    spans = [time - times[0] for time in times]
    columns = [Column("Data e ora", times, show=stamp("{D:02} {month_it} {Y} {h:02}.{m:02}.{s:02}")),
               Column("Durata (h)", spans, unit="h", show=amount(HOUR, 2, ",")),
               Column("Corrente (A)", smooth(random, rows, -8, 8, 3), "float", "A", fixed(3, ",")),
               Column("Tensione (V)", smooth(random, rows, 2.9, 4.2, 3), "float", "V", fixed(3, ",")),
               Column("Carica (Ah)", late(random, rows, [0, 1], [2, 3]), "integer", "Ah")]
    return File(["Cella;F-0093", "", header(columns, ";"), *table(columns, ";")], columns,
                [Axis(times), elapsed(spans)], "month names", encoding="cp1252", end="\r\n")
