"""Test benches: engines, hydraulics, tensile and endurance tests, climate chambers."""

from kit.layout import Axis, Column, File, elapsed, header, layout, table
from kit.numbers import fixed, scientific, words
from kit.signals import counting, held, late, significant, smooth, with_gaps
from kit.times import DAY, HOUR, MINUTE, MS, SECOND, amount, every, moment, span, stamp, uneven


@layout("L14-engine-bench-cr.txt", "engine bench: names over units, tabs, lines that end with CR alone")
def engine_bench(random, rows):
    times = every(0, 100 * MS, rows)
    columns = [Column("TIME", times, unit="s", show=amount(SECOND, 1)),
               Column("SPEED", smooth(random, rows, 800, 6200, 0), "integer", "1/min"),
               Column("TORQUE", smooth(random, rows, -20, 310, 1), "float", "Nm"),
               Column("T_OIL", smooth(random, rows, 40, 130, 1), "float", "°C"),
               Column("P_BOOST", smooth(random, rows, 980, 2400, 0), "integer", "mbar"),
               Column("LAMBDA", smooth(random, rows, 0.7, 1.4, 3), "float", "-")]
    columns[-1].unit = None
    lines = ["Engine bench 4", "Cycle: WARMUP_3", header(columns, "\t"), "s\t1/min\tNm\t°C\tmbar\t-",
             *table(columns, "\t")]
    return File(lines, columns, [elapsed(times)], "unit row", end="\r")


@layout("L15-hydraulic-sections.txt", "hydraulic bench: section marks, // comments, units after 'in', decimal comma")
def hydraulic_sections(random, rows):
    times = every(0, 20 * MS, rows)
    columns = [Column("Zeit in s", times, unit="s", show=amount(SECOND, 2, ",")),
               Column("Druck in bar", smooth(random, rows, 0, 350), "float", "bar", fixed(2, ","), also="Druck"),
               Column("Volumenstrom in l/min", smooth(random, rows, 0, 120, 1), "float", "l/min", fixed(1, ","),
                      also="Volumenstrom"),
               Column("Ventil", held(random, rows, [False, True]), show=words("ein", "aus"))]
    lines = ["[Kopf]", "Prüfling=Pumpe A7", "Prüfer=Meyer", "Datum=04.05.2023", "", "[Kanäle]", "// Anzahl der Kanäle",
             "Anzahl=4", "", "[Daten]", header(columns, ";"), *table(columns, ";"), "[Ende]"]
    return File(lines, columns, [elapsed(times)], "sections", encoding="cp1252", end="\r\n")


@layout("L16-tensile-specimens.csv",
        "tensile machine: one block a specimen, each with date, header, unit row; elapsed time starts anew")
def tensile_specimens(random, rows):
    block = rows // 3
    spans = every(0, 50 * MS, block) * 3
    count = len(spans)
    columns = [Column("Prüfzeit", spans, unit="s", show=amount(SECOND, 2, ",")),
               Column("Weg", smooth(random, count, 0, 40, 4), "float", "mm", fixed(4, ",")),
               Column("Standardkraft", smooth(random, count, -2, 21000, 2), "float", "N", fixed(2, ","))]
    body, lines = table(columns, ";"), []
    for place in range(3):
        lines += [f'"Probe {place + 1}"', f'"Beginn";"04.05.2023 1{place}:20:00"', '"Vorkraft";5;"N"',
                  '"Prüfzeit";"Weg";"Standardkraft"', '"s";"mm";"N"', *body[place * block : (place + 1) * block], ""]
    begins = [moment(f"2023-05-04 1{place}:20:00") for place in range(3)]
    dated = [begins[row // block] + time for row, time in enumerate(spans)]
    joined = [row // block * (block * 50 * MS) + time for row, time in enumerate(spans)]
    axes = [Axis(dated), elapsed(dated), elapsed(joined), Axis(spans, True, count - block)]
    return File(lines, columns, axes, "restart in blocks", expressible=False, encoding="cp1252", end="\r\n",
                note="by each block's begin, one block after the other, or the first block alone")


@layout("L17-fatigue-minutes.csv",
        "fatigue test: mm:ss.f beyond the hour, separators at the ends of rows but not of the header")
def fatigue_minutes(random, rows):
    times = every(55 * MINUTE, 700 * MS, rows)
    columns = [Column("Run time [mm:ss.f]", times, unit=None, show=span("{minutes:02}:{s:02}.{f1}")),
               Column("Cycles", counting(rows, 10_000, 7), "integer"),
               Column("Stress max [MPa]", late(random, rows, [180, 181, 182], [183, 184]), "float", "MPa",
                      lambda value: f"{value}.5" if value > 182 else f"{value}"),
               Column("Crack [mm]", significant(random, rows, 0.0002, 0.004, 4), "float", "mm", scientific(4))]
    lines = ["Specimen;F-118", "R ratio;0.1", "Frequency;10 Hz", header(columns, ";"), *table(columns, ";", ";;")]
    columns[2].values = [value + 0.5 if value > 182 else value for value in columns[2].values]
    return File(lines, columns, [elapsed(times)], "mm:ss")


@layout("L18-endurance-days.csv", "endurance bench: elapsed as 3d 18:47:23, ON and OFF, OVER for an overload")
def endurance_days(random, rows):
    times = uneven(random, 2 * DAY + 23 * HOUR, SECOND, 600, rows)
    columns = [Column("Elapsed", times, show=span("{d}d {h:02}:{m:02}:{s:02}")),
               Column("Strokes", counting(rows, 1_000_000, 113), "integer"),
               Column("Friction (N)", with_gaps(random, smooth(random, rows, 2, 19)), "float", "N", missing="OVER"),
               Column("Heater", held(random, rows, [False, True]), None, show=words("ON", "OFF")),
               Column("Chamber (°C)", smooth(random, rows, 20, 85, 1), "float", "°C")]
    return File([header(columns, ","), *table(columns, ",")], columns, [elapsed(times)], "days and clock",
                expressible=False)


@layout("L19-leak-test-long-hours.txt",
        "leak tester: hours beyond 24, header repeated every page, blank lines between pages")
def leak_test(random, rows):
    times = every(20 * HOUR, 2 * MINUTE, rows)
    columns = [Column("Time [hh:mm:ss]", times, unit=None, show=span("{hours}:{m:02}:{s:02}")),
               Column("p1 [mbar]", significant(random, rows, 0.0001, 0.09, 4), "float", "mbar", scientific(4)),
               Column("p2 [mbar]", significant(random, rows, 0.0001, 0.09, 4), "float", "mbar", scientific(4)),
               Column("Leak rate [mbar*l/s]", significant(random, rows, 1e-9, 1e-7, 3), "float", "mbar*l/s",
                      scientific(3))]
    lines, body = [], table(columns, "\t")
    for page in range(0, rows, 50):
        lines += [f"Leak test protocol    page {page // 50 + 1}", "", header(columns, "\t"), *body[page : page + 50],
                  ""]
    return File(lines, columns, [elapsed(times)], "repeated header", end="\r\n")


@layout("L20-torque-slash-units.txt", "torque bench: % comments, columns parted by runs of blanks, units after a slash")
def torque_slash_units(random, rows):
    times = every(0, 2 * MS, rows)
    columns = [Column("t/ms", times, unit="ms", show=amount(MS, 1, width=10)),
               Column("Torque/Nm", significant(random, rows, -50, 300, 6), "float", "Nm",
                      lambda value: f"{scientific(6)(value):>14}", also="Torque"),
               Column("Speed/rpm", smooth(random, rows, 0, 3000, 1), "float", "rpm", fixed(1, width=10), also="Speed"),
               Column("Angle/deg", smooth(random, rows, -180, 180, 1), "float", "deg", fixed(1, width=9), also="Angle")]
    lines = ["% torque transducer 7, 500 Hz", "% shaft: 35 mm", "%", "      t/ms     Torque/Nm  Speed/rpm  Angle/deg",
             *table(columns, " ")]
    return File(lines, columns, [elapsed(times)], "runs of blanks")


@layout("L21-chamber-german-months.csv",
        "climate chamber: German month names, footers with minimum, maximum, mean, 'End of data'")
def chamber_german_months(random, rows):
    times = every(moment("2023-02-26 09:05:00"), 13 * MINUTE, rows)
    warm, damp = smooth(random, rows, -40, 85, 1), smooth(random, rows, 10, 98, 1)
    columns = [Column("Zeitpunkt", times, show=stamp("{D:02}. {month_de} {Y} {h:02}:{m:02}")),
               Column("Temperatur Ist (°C)", warm, "float", "°C", fixed(1, ",")),
               Column("Feuchte Ist (% r.F.)", damp, "float", "% r.F.", fixed(1, ",")),
               Column("Programm", held(random, rows, [3, 4, 12], 90), "integer"),
               Column("Tür", held(random, rows, [False, True]), None, show=words("Ja", "Nein"))]
    lines = ["Klimaprüfschrank", "Programm: Wechsel 12", "", header(columns, ";"), *table(columns, ";"), ""]
    for word, pick in (("Minimum", min), ("Maximum", max), ("Mittelwert", lambda values: sum(values) / len(values))):
        lines.append(";".join([word, *(fixed(1, ",")(pick(values)) for values in (warm, damp)), "", ""]))
    return File([*lines, "Ende der Daten"], columns, [Axis(times)], "month names", expressible=False,
                encoding="utf-8-sig", end="\r\n")


@layout("L22-brake-bench-units-ids.csv", "brake bench: header above rows of unit, channel id, scale and type")
def brake_bench(random, rows):
    times = every(0, 10 * MS, rows)
    columns = [Column("Time", times, unit="s", show=amount(SECOND, 3)),
               Column("BrakePressure", smooth(random, rows, 0, 180, 1), "float", "bar"),
               Column("DiscTemp", smooth(random, rows, 40, 620, 1), "float", "°C"),
               Column("Decel", smooth(random, rows, -11, 1, 3), "float", "m/s^2"),
               Column("Status", late(random, rows, [0, 1], [4, 9]), "integer", "")]
    lines = [header(columns, ","), "s,bar,°C,m/s^2,", "0,101,102,117,240", "1.0,0.1,0.5,0.001,1",
             "REAL64,REAL32,REAL32,REAL32,INT16", "", *table(columns, ",")]
    return File(lines, columns, [elapsed(times)], "unit row")


@layout("L23-injector-two-tables.csv",
        "injector bench: a short table of settings above the table of measurements, both with headers")
def injector_two_tables(random, rows):
    times = uneven(random, moment("2023-05-04 13:02:11"), SECOND, 9, rows)
    columns = [Column("Date", times, show=stamp("{D:02}.{M:02}.{y:02}")),
               Column("Clock", times, show=stamp("{h:02}:{m:02}:{s:02}")),
               Column("Rail <bar>", smooth(random, rows, 300, 2000, 0), "integer", "bar"),
               Column("Qty <mg/stroke>", smooth(random, rows, 0, 80), "float", "mg/stroke"),
               Column("Result", held(random, rows, ["ok", "retry", "fail"]), "text")]
    lines = ["Setting;Low;High;Unit", "Rail;300;2000;bar", "Quantity;0;80;mg/stroke", "Temperature;20;60;°C", "",
             header(columns, ";"), *table(columns, ";"), "", f"Total shots;{rows}"]
    return File(lines, columns, [Axis(times)], "several tables")
