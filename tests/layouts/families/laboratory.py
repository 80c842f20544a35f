"""Devices of the laboratory: balances, chromatographs, readers, analysers of heat and acid."""

from kit import signals
from kit.columns import counting, evenly, gaps, growing, held, same, significant, smooth, time
from kit.layout import Axis, Column, elapsed, layout
from kit.numbers import comma, fixed, scientific, words
from kit.times import CLOCK, DATED, DAY_FIRST, HOUR, MINUTE, MS, SECOND, amount, moment, printed, span, stamp, uneven

RULE = "+-------+-----------+------------------+-------------------+--------+"


def viscometer_lines(table, body):
    mean = sum(table.columns[4].values) / table.rows
    return ["Rotational test", "", RULE, "| Point | Time [s] | Shear Rate [1/s] | Viscosity [mPa·s] | Status |", RULE,
            *(row.removeprefix(" ") for row in body), RULE, f"| mean | | | {mean:.1f} | |"]


def slow_probe(table):
    return [value if row % 5 == 0 else None
            for row, value in enumerate(signals.smooth(table.random, table.rows, 0, 40))]


def out_of_order(random, rows):
    times = uneven(random, moment("2023-05-24 08:00:00"), MINUTE, 15, rows)
    for place in range(20, rows - 1, 60):
        times[place], times[place - 1] = times[place - 1], times[place]
    return times


LAYOUTS = [
    layout("L68-balance-unit-cells.txt",
           "balance: signs parted from the number by blanks, unit in the cell, no header", "no header",
           evenly("2023-05-04 10:00:00", 2 * SECOND), "\t",
           [time("", stamp(DAY_FIRST)), time("", stamp(CLOCK)),
            smooth("", -3, 220, 4, "g", lambda value: f"{'-' if value < 0 else '+'} {abs(value):9.4f} g"),
            held("", ["S", "D"], "character")], ["{table}"], end="\r\n"),
    layout("L69-chromatogram-sections.txt",
           "chromatograph: sections with titles, minutes and a step column, n.a. in the first row, "
           "thousands with commas in tabs", "sections", evenly(0, 600 * MS), "\t",
           [time("Time (min)", amount(MINUTE, 3), "min"),
            Column("Step (s)", lambda table: [None] + [600] * (table.rows - 1), None, "s", lambda value: "0.60",
                   "n.a."),
            smooth("Value (mAU)", -20, 2400, 3, "mAU", fixed(3, ".", ","))],
           ["Injection Information:", "Data Vault\tLab3", "Injection\tstandard 5", "Injection Volume\t10.000", "",
            "Signal Parameter Information:", "Signal\tUV_VIS_1", "", "Chromatogram Data Information:",
            "Time Min. (min)\t0.000", "Data Points\t{rows}", "", "Chromatogram Data:", "{names}", "{table}"], [elapsed],
           encoding="utf-8-sig", end="\r\n"),
    layout("L70-plate-reader-results-below.txt",
           "plate reader: kinetics of 8 wells, then tables of results in the same file", "several tables",
           evenly(22 * SECOND, 4 * MINUTE), "\t",
           [time("Time", span("{hours}:{m:02}:{s:02}")), smooth("T° 600", 29.8, 30.2, 1, None),
            *(smooth(f"{row}{column}", 0.06, 1.4, 3) for row in "AB" for column in (1, 2, 3, 4))],
           ["Software Version\t3.11", "", "Plate Number\tPlate 1", "Reader Type:\tmicroplate", "", "Procedure Details",
            "\tRead\tAbsorbance Endpoint", "\t\tFull Plate", "\t\tWavelengths:  600", "", "600", "", "{names}",
            "{table}", "", "Results", "\t1\t2\t3\t4", "A\t1.203\t0.983\t0.871\t1.112\tMax V",
            "B\t1.193\t0.903\t0.802\t1.009\tMax V"], [elapsed], end="\r\n"),
    layout("L71-thermobalance-hash.txt",
           "thermobalance: #KEY: preamble, ## before the header, temperature first and minutes "
           "second, units after a slash", "comments", evenly(0, 6 * SECOND), ";",
           [growing("##Temp./°C", 25, 2, 3, "°C", comma(3), also="Temp."),
            time("Time/min", amount(MINUTE, 2, ","), "min"),
            smooth("DSC/(mW/mg)", -2, 3, 5, "mW/mg", comma(5), also="DSC"),
            smooth("Mass/%", 40, 100, 4, "%", comma(4), also="Mass")],
           ["#EXPORTTYPE:  DATA ALL", "#FORMAT:  TXT", "#SEPARATOR:  SEMICOLON", "#DECIMAL:  COMMA",
            "#SAMPLE:  polymer 6", "#MASS /mg:  12,41", "#RANGE:  25°C/10,0(K/min)/600°C", "", "{names}", "{table}"],
           [elapsed], encoding="cp1252", end="\r\n"),
    layout("L72-ph-meter-swedish.csv",
           "pH meter: Swedish month names, clock with points, minus as -, #N/A where not ready, units in cells",
           "month names", evenly("2023-04-28 13:00:00", 25 * MINUTE), ";",
           [time("Datum", stamp("{D} {month_sv} {Y}")), time("Tid", stamp("{h:02}.{m:02}.{s:02}")),
            gaps(smooth("pH", 3, 10, 2, show=comma(2)), "#N/A"),
            smooth("Potential", -200, 240, 1, "mV", fixed(1, ",", suffix=" mV")),
            smooth("Temp", 18, 30, 1, "°C", fixed(1, ",", suffix=" °C"))], expressible=False),
    layout("L73-viscometer-bars.txt",
           "viscometer: table drawn with bars and rules, cells padded, repeated rules, sums below", "separator bar",
           evenly(500 * MS, 500 * MS), " | ",
           [same(""), counting("Point"), time("Time [s]", amount(SECOND, 1, width=9), "s"),
            significant("Shear Rate [1/s]", 0.1, 90, 4, "1/s", scientific(4)),
            Column("Viscosity [mPa·s]", lambda table: table.shared, "float", "mPa·s", fixed(1, width=17)),
            same("Status", "M-", "text")], viscometer_lines, [elapsed], " |",
           shared=lambda table: signals.smooth(table.random, table.rows, 90, 4100, 1)),
    layout("L74-photometer-elapsed-colons.txt",
           "photometer: values parted by colons, decimal time in s, integers and truth values", "separator colon",
           evenly(0, 200 * MS), ":",
           [time("Time[s]", amount(SECOND, 1), "s"), smooth("Abs", 0, 2, 4), smooth("Dark", 8, 40, 0),
            held("Lamp", [True, False], "boolean", show=words("1", "0"))],
           ["Photometer 2", "Method:kinetics", "Wavelength:340:nm", "", "{names}", "{table}"], [elapsed]),
    layout("L75-bioreactor-long-names.csv",
           "bioreactor: long names with units in parentheses and a setpoint beside each, empty cells "
           "between slow probes, UTC and local time", "several time columns",
           evenly("2023-03-25 23:00:00", 2 * MINUTE), ";",
           [time("Timestamp (UTC)", stamp(DATED)), time("Timestamp (Local)", lambda at: stamp(DATED)(at + HOUR)),
            Column("Duration (h)", lambda table: [time - table.times[0] for time in table.times], unit="h",
                   show=amount(HOUR, 5)),
            smooth("Unit 1 - DO.PV (% sat)", 20, 100, 1, "% sat"),
            held("Unit 1 - DO.SP (% sat)", [30, 40, 50], "integer", 200, "% sat"),
            Column("Unit 1 - Offline Glucose (g/l)", lambda table: table.shared, "float", "g/l")],
           ["{quoted}", "{table}"],
           [Axis, lambda times: Axis([time + HOUR for time in times]),
            lambda times: elapsed(printed(times, HOUR, 5, times[0]))], shared=slow_probe),
    layout("L76-sample-changer-clusters.csv",
           "automatic titrator: several methods told apart by a column, rows of a method out of "
           "order, European short date", "rows out of order", out_of_order, ";",
           [Column("Sample", lambda table: [f"P{row:04}" for row in range(table.rows)], "text"),
            held("Method", ["acid", "base", "water"], "text", 4),
            time("Determined on", stamp("{D:02}-{M:02}-{y:02} {h:02}:{m:02}")),
            smooth("EP1 [mL]", 1, 19, 3, "mL"), gaps(smooth("Result [mg/L]", 2, 900, 2, "mg/L"), "-")],
           axes=[lambda times: Axis(times, may_miss=len(range(20, len(times) - 1, 60)))], end="\r\n"),
    layout("L98-sensor-calibration-rows.csv",
           "gas calibrator: rows of coefficients as wide as the table above the header, long dates "
           "with weekday, clock with PM", "AM/PM", evenly("2023-06-28 08:10:00", 7 * MINUTE), ",",
           [time("Day", stamp('"{weekday}, {D} {month_en} {Y}"')), time("Clock", stamp("{t}:{m:02} {AP}")),
            smooth("CO [ppm]", 0, 90, 1, "ppm"), smooth("NO2 [ppb]", 0, 200, 1, "ppb"),
            smooth("Flow [ml/min]", 480, 520, 0, "ml/min")],
           ["Coefficient,,C0,C1,C2", "Offset,,0.12,-0.7,3", "Slope,,1.002,0.981,1", "Limit,,50,100,600", "{names}",
            "{table}"], expressible=False, end="\r\n"),
]
