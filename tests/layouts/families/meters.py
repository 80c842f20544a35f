"""Meters and energy: smart meters, load profiles, inverters, heat meters, power analysers."""

from kit import signals
from kit.columns import counting, evenly, gaps, growing, held, same, smooth, time
from kit.layout import Axis, Column, layout
from kit.numbers import comma, fixed, quoted, whole, words
from kit.times import (
    CLOCK, DATED, DAY, DAY_FIRST, HOUR, MINUTE, MS, SECOND, SHORT_CLOCK, YEAR_FIRST, amount, every, moment, stamp)

ZONED = stamp(f"{YEAR_FIRST}T{CLOCK}+01:00")
SUMMER = moment("2023-03-26 01:00:00")


def until_the_last_four(name):
    """A counter whose last values are not known yet."""
    return Column(name, lambda table: table.shared[name], "float", "kWh", comma(3))


def used_and_fed(table):
    return {name: signals.smooth(table.random, table.rows, 0, high, 3)[:-4] + [None] * 4
            for name, high in (("Bezug (kWh)", 2), ("Einspeisung (kWh)", 1.5))}


def states(table):
    return ["wahrer Wert" if value else "fehlt" for value in table.shared["Bezug (kWh)"]]


def later(amount):
    return lambda times: [time + amount for time in times]


def utility_clock(time):
    return "24:00" if time % DAY == 0 else stamp(SHORT_CLOCK)(time)


def utility_lines(table, body):
    return ["Zählpunkt;DE000562668020O6G56M11SN51G21M24S", "OBIS;1-1:1.29.0", "", "{names}", *body,
            f"Summe;;{comma(2, '.')(sum(table.columns[2].values))};"]


def dark_until_morning(table):
    dark = table.rows // 6
    return [None] * dark + signals.smooth(table.random, table.rows - dark, 0, 8, 3)


def report_lines(table, body):
    first, *_, last = table.columns[1].values
    return ["Account Number,0417-22-9", "Service Address,redacted", "", "{names},,", *body,
            f'Total,"{last - first:,}",CCF,,,,']


def blocks_of_days(table, body):
    yield "# heat pump controller log"
    last = None
    for time, row in zip(table.times, body):
        if time // DAY != last:
            yield from ("", f"# {stamp(YEAR_FIRST)(time)}", "{names}")
            last = time // DAY
        yield row


def local(time):
    return time + (1 if time < SUMMER else 2) * HOUR


def show_local(time):
    return stamp(DATED + ",{f3}")(local(time)) + f"+0{1 if time < SUMMER else 2}00"


LAYOUTS = [
    layout("L33-smart-meter-from-to.csv",
           "smart meter: from and to with offset +01:00, decimal comma, status texts, nothing in the last rows",
           "ISO with zone", evenly("2023-01-10 00:00:00", 15 * MINUTE), ";",
           [time("Von", ZONED), time("Bis", lambda time: ZONED(time + 15 * MINUTE)), until_the_last_four("Bezug (kWh)"),
            until_the_last_four("Einspeisung (kWh)"), Column("Status", states, "text")],
           axes=[lambda times: Axis(times, zone="+01:00"),
                 lambda times: Axis(later(15 * MINUTE)(times), zone="+01:00")], shared=used_and_fed,
           encoding="utf-8-sig", end="\r\n", note="begin or end of the quarter hour"),
    layout("L34-load-profile-hours-1-24.csv", "load profile: date without separators and hours 1 to 24 in a column",
           "hours 1 to 24", evenly("2022-12-20 00:00:00", HOUR), ",",
           [same("METER", 550317, "integer"), time("YYYYMMDD", stamp("{Y}{M:02}{D:02}")),
            time("HH", lambda time: str(time // HOUR % 24 + 1)), smooth("kW", 10, 95, 1, None),
            smooth("kvar", -9, 30, 1, None)],
           ["# load profile, hour 1 is 00:00 to 01:00", "", "# {names}", "", "{table}"],
           [lambda times: Axis(later(HOUR)(times)), Axis], note="hours end or begin"),
    layout("L35-utility-2400.csv",
           "utility portal: quarter hours that end a day at 24:00, date with points, thousands with points", "24:00",
           evenly("2023-03-30 00:15:00", 15 * MINUTE), ";",
           [time("Datum", lambda time: stamp(DAY_FIRST)(time - 1)), time("Zeit", utility_clock),
            smooth("Leistung [kW]", 600, 4200, 2, "kW", comma(2, ".")),
            growing("Arbeit [kWh]", 118_000, 900, 2, "kWh", comma(2, "."))], utility_lines, encoding="cp1252",
           end="\r\n", note="24:00 of a day is 00:00 of the next; the last line is a sum"),
    layout("L36-power-analyser.csv",
           "power analyser: names with brackets, fractions of one digit, truth values, exponents where small",
           "date and time columns", evenly("2023-05-04 10:59:59", 200 * MS), ",",
           [counting("Store No.", 0), time("Date", stamp("{Y}/{M:02}/{D:02}")), time("Time", stamp(CLOCK + ".{f1}")),
            smooth("Urms-1[V]", 226, 234, 2, "V"), smooth("Irms-1[A]", 0.1, 15, 4, "A"),
            smooth("P-1[W]", -300, 3400, 1, "W"), gaps(smooth("PF-1[]", -1, 1, 4, None), "---O-F---"),
            held("Range ok", [True, False], "boolean", show=words("TRUE", "FALSE"))],
           ["Power analyser", "Wiring: 1P2W", "Update: 200 ms", "", "{names}", "{table}"], end="\r\n"),
    layout("L37-inverter-day-file.csv",
           "inverter: sep= line, serial and type above, format text and units in the row under the names, "
           "empty at night",
           "unit row", evenly("2023-06-21 00:00:00", MINUTE), ";",
           [time("TimeStamp", stamp("{D:02}/{M:02}/{Y} " + CLOCK), None),
            growing("E-Total", 41_000, 0.1, 3, "kWh", comma(3)),
            Column("Pac", lambda table: table.shared, "float", "kW", comma(3)), smooth("Temp", 20, 60, 0, "°C")],
           ["sep=;", "Version CSV1|Tool portal|Linebreaks CR/LF|Delimiter semicolon|Decimalpoint comma|Precision 3", "",
            ";SN: 2110488;SN: 2110488;SN: 2110488", ";Inverter 8.0;Inverter 8.0;Inverter 8.0", "{names}",
            "dd/MM/yyyy HH:mm:ss;kWh;kW;°C", "{table}"], shared=dark_until_morning, encoding="utf-8-sig", end="\r\n"),
    layout("L38-heat-meter-french.csv",
           "heat meter: French month names, blanks and no-break spaces as thousands separators, units in <>",
           "month names", evenly("2022-11-25 01:00:00", 3 * HOUR), ";",
           [time("Horodatage", stamp("{D} {month_fr} {Y} {h:02}h{m:02}")),
            growing("Énergie <kWh>", 987_000, 60, 1, "kWh", comma(1, "\u00a0")),
            smooth("Débit <m³/h>", 0, 4, 3, "m³/h", comma(3)), smooth("T départ <°C>", 35, 80, 1, "°C", comma(1)),
            held("Défaut", [False, True], show=words("oui", "non"))],
           ["Relevé du compteur;CH-0041", "Nombre de lignes;{rows}", "", "{names}", "{table}"], expressible=False,
           encoding="cp1252", end="\r\n"),
    layout("L39-tariff-hhmm.txt", "balancing area: YYYYMMDD and hhmm without leading zeros, bars as separators", "hhmm",
           evenly("2023-02-27 21:45:00", 15 * MINUTE), "|",
           [time("DATE", stamp("{Y}{M:02}{D:02}")), time("TIME", lambda time: str(int(stamp("{h}{m:02}")(time)))),
            smooth("GEN_MW", 100, 900, 1, "MW", also="GEN"), smooth("LOAD_MW", 100, 900, 1, "MW", also="LOAD"),
            held("QUAL", ["A", "E"], "character")], end="\r\n"),
    layout("L40-smart-plug-unit-cells.csv", "smart plug: epoch in seconds, units inside the cells, n/a while offline",
           "units in cells", evenly("2023-05-04 10:00:07", 10 * SECOND), ",",
           [time("unix", amount(SECOND)), smooth("voltage", 225, 236, 1, "V", fixed(1, suffix=" V")),
            smooth("current", 0, 9, 3, "A", fixed(3, suffix=" A")),
            gaps(smooth("power", 0, 2100, 1, "W", fixed(1, suffix=" W")), "n/a"),
            held("relay", [True, False], show=words("on", "off"))]),
    layout("L41-gas-meter-report.csv",
           "meter reading report: two-digit years, month before day, whole lines end with empty "
           "cells, total line, unit in a column", "thousands separators", evenly("2021-01-05 00:00:00", DAY), ",",
           [time("Read Date", stamp("{M}/{D}/{y:02}")),
            growing("Reading", 8_000, 12, 0, None, quoted(whole(","))), same("Unit", "CCF", "text"),
            held("Type", ["actual", "estimated"], "text", 9), smooth("Avg Temp (F)", 15, 88, 0, "F")], report_lines,
           trailing=",,", end="\r\n"),
    layout("L42-heat-pump-lines-of-pairs.txt",
           "heat pump: date in a line above each block, rows hold the clock alone, comments with #", "over midnight",
           evenly("2023-12-30 22:00:00", 5 * MINUTE), "\t",
           [time("Time", stamp(SHORT_CLOCK)), smooth("Flow(C)", 25, 55, 1, "C"), smooth("Return(C)", 22, 48, 1, "C"),
            smooth("COP", 2, 6), held("Mode", ["heat", "defrost", "hot water"], "text")], blocks_of_days,
           [Axis, lambda times: Axis([time - times[0] for time in times], True)],
           note="the date stands in a comment above each block"),
    layout("L96-portal-summer-time.csv",
           "energy portal: local times with +0100 that become +0200 in the night of the change, comma before fractions",
           "zone changes", lambda random, rows: every(SUMMER - rows // 2 * MINUTE, MINUTE, rows), ";",
           [time("measured_at", show_local), smooth("power (kW)", 0, 11, 3, "kW"),
            growing("meter reading (kWh)", 5_100, 0.2, 3, "kWh")],
           axes=[Axis, lambda times: Axis(list(map(local, times)))], expressible=False,
           note="UTC, or local times with an hour left out"),
]
