"""Oscilloscopes, logic analysers, multimeters and other instruments of the bench."""

from kit.layout import Axis, Column, File, elapsed, header, layout, table
from kit.numbers import fixed, scientific, words
from kit.signals import counting, held, significant, smooth, with_gaps
from kit.times import MS, SECOND, US, amount, every, moment, stamp, uneven


def seconds(digits, letter="E", exponent=2, plus=False):
    """Seconds with an exponent, of times in ns."""
    return lambda time: scientific(digits, letter=letter, exponent=exponent, plus=plus)(time / SECOND)


@layout("L52-scope-settings-beside.csv",
        "oscilloscope: settings in the first three columns beside the first rows, data in the "
        "fourth and fifth, no header")
def scope_settings_beside(random, rows):
    times = every(-40 * US, 80, rows)
    settings = ["Record Length,2.500000e+03,", "Sample Interval,8.000000e-08,", "Trigger Point,5.000000e+02,", ",,",
                ",,", ",,", "Source,CH1,", "Vertical Units,V,", "Vertical Scale,1.000000e+00,",
                "Vertical Offset,0.000000e+00,", "Horizontal Units,s,", "Pt Fmt,Y,"]
    columns = [Column("", times, column=4, show=lambda time: f"{time / SECOND:015.12f}"),
               Column("", smooth(random, rows, -2.5, 2.5, 5), "float", None, fixed(5, width=9), column=5)]
    lines = [(settings[row] if row < len(settings) else ",,") + "," + cells for row,
             cells in enumerate(table(columns, ",", ","))]
    return File(lines, columns, [elapsed(times)], "preamble beside the table", expressible=False, end="\r\n")


@layout("L53-scope-braces-exponents.csv",
        "oscilloscope: key,value preamble with numbers that look like data, units in braces, "
        "exponents with three digits")
def scope_braces(random, rows):
    times = every(0, 4, rows)
    columns = [Column("Time {s}", times, unit="s", show=seconds(7, exponent=3, plus=True)),
               Column("CH1 {V}", significant(random, rows, -4, 4, 5), "float", "V",
                      scientific(5, exponent=3, plus=True), also="CH1"),
               Column("CH2 {V}", significant(random, rows, -0.02, 0.03, 5), "float", "V",
                      scientific(5, exponent=3, plus=True), also="CH2")]
    lines = ["Model,SCOPE 200 MHz", "Points," + str(rows), "Average,16", "Probe,10,10", "Offset,0.0,-1.5", "",
             header(columns, ","), *table(columns, ",")]
    return File(lines, columns, [elapsed(times)], "nanoseconds", end="\r\n")


@layout("L54-usb-scope-units-below.csv",
        "USB oscilloscope: names, row of units in parentheses, blank line, OVER where the range was left")
def usb_scope(random, rows):
    times = every(-20 * US * 100, 20 * US, rows)
    columns = [Column("Time", times, unit="ms", show=amount(MS, 8)),
               Column("Channel A", with_gaps(random, smooth(random, rows, -9, 9, 8)), "float", "V", missing="OVER"),
               Column("Channel B", smooth(random, rows, -900, 900, 6), "float", "mV")]
    lines = [header(columns, ","), "(ms),(V),(mV)", "", *table(columns, ",")]
    return File(lines, columns, [elapsed(times)], "unit row", expressible=False, encoding="utf-8-sig", end="\r\n")


@layout("L55-logic-analyser-changes.csv",
        "logic analyser: uneven times to the nanosecond, levels 0 and 1, blanks after the commas")
def logic_analyser(random, rows):
    times = uneven(random, 0, 20, 90_000, rows)
    columns = [Column("Time [s]", times, unit="s", show=amount(SECOND, 9)),
               *(Column(f"Channel {place}", held(random, rows, [0, 1], 3), "boolean") for place in range(4))]
    return File([header(columns, ", "), *table(columns, ", ")], columns, [elapsed(times)], "nanoseconds")


@layout("L56-multimeter-scan-utf16.csv",
        "scanning multimeter: scan number, ms after a colon, channels with units and alarm columns, UTF-16")
def multimeter_scan(random, rows):
    times = every(moment("2023-05-14 09:59:58") + 250 * MS, 750 * MS, rows)
    alarms = held(random, rows, [0, 1])
    columns = [Column("Scan", counting(rows), "integer", None),
               Column("Time", times, show=stamp("{M:02}/{D:02}/{Y} {h:02}:{m:02}:{s:02}:{f3}")),
               Column("101 <inlet> (C)", smooth(random, rows, 18, 80, 3), "float", "C"),
               Column("Alarm 101", alarms, "boolean"),
               Column("102 <supply> (VDC)", significant(random, rows, 3, 6, 8), "float", "VDC",
                      scientific(8, plus=True)), Column("Alarm 102", alarms, "boolean")]
    lines = ["Name:,scan_14", "Owner:,lab", "Acquisition Date:,5/14/2023 9:59:58 AM", "", "Channel,Name,Function,Range",
             "101,inlet,Temp (Type K),C", "102,supply,DC voltage,10 V", "", header(columns, ","), *table(columns, ",")]
    return File(lines, columns, [Axis(times)], "two tables", encoding="utf-16-le", end="\r\n")


@layout("L57-acquisition-end-of-header.txt",
        "acquisition program: two header sections with end marks, time axis as start and step, names under them")
def acquisition_sections(random, rows):
    times = every(moment("2023-05-04 10:00:00"), 100 * US, rows)
    columns = [Column("X_Value", times, show=lambda time: f"{(time - times[0]) / SECOND:.6f}"),
               Column("Acceleration", smooth(random, rows, -20, 20, 6), "float", "m/s^2"),
               Column("Microphone", smooth(random, rows, -3, 3, 6), "float", "Pa"),
               Column("Comment", [None] * rows, None, unit=None)]
    lines = ["Measurement file\t", "Writer_Version\t2", "Separator\tTab", "Decimal_Separator\t.", "Time_Pref\tAbsolute",
             "Date\t2023/05/04", "Time\t10:00:00.0000000", "***End_of_Header***\t", "\t", "Channels\t2\t\t",
             f"Samples\t{rows}\t{rows}\t", "Date\t2023/05/04\t2023/05/04\t", "Time\t10:00:00\t10:00:00\t",
             "Y_Unit_Label\tm/s^2\tPa\t", "X_Dimension\tTime\tTime\t", "X0\t0.0E+0\t0.0E+0\t",
             "Delta_X\t1.000000E-4\t1.000000E-4\t", "***End_of_Header***\t\t\t", header(columns, "\t"),
             *table(columns, "\t")]
    return File(lines, columns, [elapsed(times), Axis(times)], "sections", end="\r\n")


@layout("L58-phasor-unit-nine-digits.csv",
        "phasor unit: ISO times with nine digits and Z, status words in hex, exponents without sign")
def phasor_unit(random, rows):
    times = [time + random.randrange(-400, 400) for time in every(moment("2023-05-04 10:00:00") + 20 * MS, 20 * MS,
                                                                  rows)]
    columns = [Column("soc", times, show=stamp("{Y}-{M:02}-{D:02}T{h:02}:{m:02}:{s:02}.{f9}Z")),
               Column("stat", [random.choice([0x0010, 0x200A, 0xF00D]) for _ in range(rows)], "hex",
                      show=lambda value: f"{value:04X}"),
               Column("VA mag (V)", smooth(random, rows, 63_000, 66_000, 3), "float", "V"),
               Column("VA ang (rad)", smooth(random, rows, -3, 3, 6), "float", "rad"),
               Column("freq (Hz)", smooth(random, rows, 49.9, 50.1, 4), "float", "Hz"),
               Column("locked", held(random, rows, [True, False]), "boolean", show=words("true", "false"))]
    return File([header(columns, ","), *table(columns, ",")], columns, [Axis(times, zone="+00:00")], "nanoseconds",
                expressible=False)


@layout("L59-laser-meter-sampling-comment.txt",
        "laser power meter: ; comments, elapsed time in µs without a named unit, rate in the preamble")
def laser_meter(random, rows):
    times = every(0, 1000 * US, rows)
    columns = [Column("Timestamp", times, show=amount(US)),
               Column("Watts", significant(random, rows, 0.001, 0.09, 4), "float", None, scientific(4, exponent=2)),
               Column("Overrange", held(random, rows, [0, 1]), "boolean")]
    columns[1].name, columns[1].also = "Power", ""
    lines = [";Laser power meter", ";First Pulse Arrived : 04/05/2023 at 10:00:00",
             ";Rate 1000 Hz, time stamps in microseconds", ";Units: W", "", header(columns, "\t"),
             *table(columns, "\t")]
    return File(lines, columns, [elapsed(times)], "unit in the preamble")


@layout("L60-source-meter-two-blocks.csv",
        "source meter: two buffers one after the other with blank lines between, header repeated, times run on")
def source_meter(random, rows):
    times = uneven(random, 1000 * US, US, 90_000, rows)
    columns = [Column("Reading", significant(random, rows, 1e-9, 8e-6, 6), "float", "Amp DC",
                      lambda value: scientific(6, plus=True)(value)),
               Column("Relative time, s", times, unit="s", show=amount(SECOND, 6)),
               Column("Source V", smooth(random, rows, -1, 1, 3), "float", None)]
    columns[0].unit = None
    body, turn = table(columns, ","), rows // 2
    lines = ["Buffer: A", header(columns, ",", lambda column: f'"{column}"'), *body[:turn], "", "", "Buffer: B",
             header(columns, ",", lambda column: f'"{column}"'), *body[turn:]]
    return File(lines, columns, [elapsed(times)], "repeated header")
