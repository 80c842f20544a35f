"""Devices of the laboratory: balances, chromatographs, readers, analysers of heat and acid."""

from kit.layout import Axis, Column, File, elapsed, header, layout, table
from kit.numbers import fixed, quoted, scientific, words
from kit.signals import counting, growing, held, significant, smooth, with_gaps
from kit.times import HOUR, MINUTE, MS, SECOND, amount, every, moment, printed, span, stamp, uneven


@layout("L68-balance-unit-cells.txt", "balance: signs parted from the number by blanks, unit in the cell, no header")
def balance(random, rows):
    times = every(moment("2023-05-04 10:00:00"), 2 * SECOND, rows)
    columns = [Column("", times, show=stamp("{D:02}.{M:02}.{Y}")),
               Column("", times, show=stamp("{h:02}:{m:02}:{s:02}")),
               Column("", smooth(random, rows, -3, 220, 4), "float", "g",
                      lambda value: f"{'-' if value < 0 else '+'} {abs(value):9.4f} g"),
               Column("", held(random, rows, ["S", "D"]), "character")]
    return File(table(columns, "\t"), columns, [Axis(times)], "no header", end="\r\n")


@layout("L69-chromatogram-sections.txt",
        "chromatograph: sections with titles, minutes and a step column, n.a. in the first row, "
        "thousands with commas in tabs")
def chromatogram(random, rows):
    times = every(0, 600 * MS, rows)
    columns = [Column("Time (min)", times, unit="min", show=amount(MINUTE, 3)),
               Column("Step (s)", [None] + [600] * (rows - 1), None, "s", lambda value: "0.60", "n.a."),
               Column("Value (mAU)", smooth(random, rows, -20, 2400, 3), "float", "mAU", fixed(3, ".", ","))]
    lines = ["Injection Information:", "Data Vault\tLab3", "Injection\tstandard 5", "Injection Volume\t10.000", "",
             "Signal Parameter Information:", "Signal\tUV_VIS_1", "", "Chromatogram Data Information:",
             "Time Min. (min)\t0.000", f"Data Points\t{rows}", "", "Chromatogram Data:", header(columns, "\t"),
             *table(columns, "\t")]
    return File(lines, columns, [elapsed(times)], "sections", encoding="utf-8-sig", end="\r\n")


@layout("L70-plate-reader-results-below.txt",
        "plate reader: kinetics of 8 wells, then tables of results in the same file")
def plate_reader(random, rows):
    times = every(22 * SECOND, 4 * MINUTE, rows)
    wells = [f"{row}{column}" for row in "AB" for column in (1, 2, 3, 4)]
    columns = [Column("Time", times, show=span("{hours}:{m:02}:{s:02}")),
               Column("T° 600", smooth(random, rows, 29.8, 30.2, 1), "float", None),
               *(Column(well, smooth(random, rows, 0.06, 1.4, 3), "float") for well in wells)]
    lines = ["Software Version\t3.11", "", "Plate Number\tPlate 1", "Reader Type:\tmicroplate", "", "Procedure Details",
             "\tRead\tAbsorbance Endpoint", "\t\tFull Plate", "\t\tWavelengths:  600", "", "600", "",
             header(columns, "\t"), *table(columns, "\t"), "", "Results", "\t1\t2\t3\t4",
             "A\t1.203\t0.983\t0.871\t1.112\tMax V", "B\t1.193\t0.903\t0.802\t1.009\tMax V"]
    return File(lines, columns, [elapsed(times)], "several tables", end="\r\n")


@layout("L71-thermobalance-hash.txt",
        "thermobalance: #KEY: preamble, ## before the header, temperature first and minutes "
        "second, units after a slash")
def thermobalance(random, rows):
    times = every(0, 6 * SECOND, rows)
    columns = [Column("##Temp./°C", growing(random, rows, 25, 2, 3), "float", "°C", fixed(3, ","), also="Temp."),
               Column("Time/min", times, unit="min", show=amount(MINUTE, 2, ",")),
               Column("DSC/(mW/mg)", smooth(random, rows, -2, 3, 5), "float", "mW/mg", fixed(5, ","), also="DSC"),
               Column("Mass/%", smooth(random, rows, 40, 100, 4), "float", "%", fixed(4, ","), also="Mass")]
    lines = ["#EXPORTTYPE:  DATA ALL", "#FORMAT:  TXT", "#SEPARATOR:  SEMICOLON", "#DECIMAL:  COMMA",
             "#SAMPLE:  polymer 6", "#MASS /mg:  12,41", "#RANGE:  25°C/10,0(K/min)/600°C", "", header(columns, ";"),
             *table(columns, ";")]
    return File(lines, columns, [elapsed(times)], "comments", encoding="cp1252", end="\r\n")


@layout("L72-ph-meter-swedish.csv",
        "pH meter: Swedish month names, clock with points, minus as -, #N/A where not ready, units in cells")
def ph_meter(random, rows):
    times = every(moment("2023-04-28 13:00:00"), 25 * MINUTE, rows)
    columns = [Column("Datum", times, show=stamp("{D} {month_sv} {Y}")),
               Column("Tid", times, show=stamp("{h:02}.{m:02}.{s:02}")),
               Column("pH", with_gaps(random, smooth(random, rows, 3, 10)), "float", "", fixed(2, ","), "#N/A"),
               Column("Potential", smooth(random, rows, -200, 240, 1), "float", "mV", fixed(1, ",", suffix=" mV")),
               Column("Temp", smooth(random, rows, 18, 30, 1), "float", "°C", fixed(1, ",", suffix=" °C"))]
    return File([header(columns, ";"), *table(columns, ";")], columns, [Axis(times)], "month names", expressible=False,
                encoding="utf-8")


@layout("L73-viscometer-bars.txt",
        "viscometer: table drawn with bars and rules, cells padded, repeated rules, sums below")
def viscometer(random, rows):
    times = every(500 * MS, 500 * MS, rows)
    view = smooth(random, rows, 90, 4100, 1)
    columns = [Column("Point", counting(rows), "integer"),
               Column("Time [s]", times, unit="s", show=amount(SECOND, 1, width=9)),
               Column("Shear Rate [1/s]", significant(random, rows, 0.1, 90, 4), "float", "1/s", scientific(4)),
               Column("Viscosity [mPa·s]", view, "float", "mPa·s", fixed(1, width=17)),
               Column("Status", ["M-"] * rows, "text")]
    rule = "+-------+-----------+------------------+-------------------+--------+"
    body = [f"| {cells} |" for cells in table(columns, " | ")]
    return File(["Rotational test", "", rule, f"| {header(columns, ' | ')} |", rule, *body, rule,
                 f"| mean | | | {sum(view) / rows:.1f} | |"], [Column("", [None] * rows), *columns], [elapsed(times)],
                "separator bar")


@layout("L74-photometer-elapsed-colons.txt",
        "photometer: values parted by colons, decimal time in s, integers and truth values")
def photometer(random, rows):
    times = every(0, 200 * MS, rows)
    columns = [Column("Time[s]", times, unit="s", show=amount(SECOND, 1)),
               Column("Abs", smooth(random, rows, 0, 2, 4), "float"),
               Column("Dark", smooth(random, rows, 8, 40, 0), "integer"),
               Column("Lamp", held(random, rows, [True, False]), "boolean", show=words("1", "0"))]
    return File(["Photometer 2", "Method:kinetics", "Wavelength:340:nm", "", header(columns, ":"),
                 *table(columns, ":")], columns, [elapsed(times)], "separator colon")


@layout("L75-bioreactor-long-names.csv",
        "bioreactor: long names with units in parentheses and a setpoint beside each, empty cells "
        "between slow probes, UTC and local time")
def bioreactor(random, rows):
    times = every(moment("2023-03-25 23:00:00"), 2 * MINUTE, rows)
    local = [time + HOUR for time in times]
    probe = [value if row % 5 == 0 else None for row, value in enumerate(smooth(random, rows, 0, 40))]
    columns = [Column("Timestamp (UTC)", times, show=stamp("{Y}-{M:02}-{D:02} {h:02}:{m:02}:{s:02}")),
               Column("Timestamp (Local)", local, show=stamp("{Y}-{M:02}-{D:02} {h:02}:{m:02}:{s:02}")),
               Column("Duration (h)", [time - times[0] for time in times], unit="h", show=amount(HOUR, 5)),
               Column("Unit 1 - DO.PV (% sat)", smooth(random, rows, 20, 100, 1), "float", "% sat"),
               Column("Unit 1 - DO.SP (% sat)", held(random, rows, [30, 40, 50], 200), "integer", "% sat"),
               Column("Unit 1 - Offline Glucose (g/l)", probe, "float", "g/l")]
    return File([header(columns, ";", quoted()), *table(columns, ";")], columns,
                [Axis(times), Axis(local), elapsed(printed(times, HOUR, 5, times[0]))], "several time columns")


@layout("L76-sample-changer-clusters.csv",
        "automatic titrator: several methods told apart by a column, rows of a method out of "
        "order, European short date")
def titrator(random, rows):
    times = uneven(random, moment("2023-05-24 08:00:00"), MINUTE, 15, rows)
    late = range(20, rows - 1, 60)
    for place in late:
        times[place], times[place - 1] = times[place - 1], times[place]
    columns = [Column("Sample", [f"P{row:04}" for row in range(rows)], "text"),
               Column("Method", held(random, rows, ["acid", "base", "water"], 4), "text"),
               Column("Determined on", times, show=stamp("{D:02}-{M:02}-{y:02} {h:02}:{m:02}")),
               Column("EP1 [mL]", smooth(random, rows, 1, 19, 3), "float", "mL"),
               Column("Result [mg/L]", with_gaps(random, smooth(random, rows, 2, 900)), "float", "mg/L", missing="-")]
    return File([header(columns, ";"), *table(columns, ";")], columns, [Axis(times, may_miss=len(late))],
                "rows out of order", end="\r\n")


@layout("L98-sensor-calibration-rows.csv",
        "gas calibrator: rows of coefficients as wide as the table above the header, long dates "
        "with weekday, clock with PM")
def calibration_rows(random, rows):
    times = every(moment("2023-06-28 08:10:00"), 7 * MINUTE, rows)
    columns = [Column("Day", times, show=stamp('"{weekday}, {D} {month_en} {Y}"')),
               Column("Clock", times, show=stamp("{t}:{m:02} {AP}")),
               Column("CO [ppm]", smooth(random, rows, 0, 90, 1), "float", "ppm"),
               Column("NO2 [ppb]", smooth(random, rows, 0, 200, 1), "float", "ppb"),
               Column("Flow [ml/min]", smooth(random, rows, 480, 520, 0), "integer", "ml/min")]
    lines = ["Coefficient,,C0,C1,C2", "Offset,,0.12,-0.7,3", "Slope,,1.002,0.981,1", "Limit,,50,100,600",
             header(columns, ","), *table(columns, ",")]
    return File(lines, columns, [Axis(times)], "AM/PM", expressible=False, end="\r\n")
