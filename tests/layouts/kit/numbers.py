"""How devices print a value: each function returns one that turns a value into the text of a cell."""


def plain(value):
    return str(value)


def fixed(places, mark=".", group="", plus=False, width=0, suffix=""):
    """A decimal number; `group` separates thousands, `width` pads with blanks ahead."""
    def show(value):
        text = f"{value:+,.{places}f}" if plus else f"{value:,.{places}f}"
        text = text.replace(",", "\0").replace(".", mark).replace("\0", group)
        return f"{text + suffix:>{width}}"
    return show


def comma(places, group=""):
    return fixed(places, ",", group)


def scientific(digits, mark=".", exponent=2, plus=False, letter="E"):
    """A number with an exponent of at least `exponent` digits."""
    def show(value):
        mantissa, power = f"{value:{'+' if plus else ''}.{digits - 1}e}".split("e")
        return f"{mantissa.replace('.', mark)}{letter}{power[0]}{power[1:].lstrip('0').rjust(exponent, '0')}"
    return show


def whole(group="", width=0, zeros=0, suffix=""):
    def show(value):
        return f"{f'{value:,}'.replace(',', group).rjust(zeros, '0') + suffix:>{width}}"
    return show


def hexadecimal(digits, prefix="", lower=False):
    return lambda value: f"{prefix}{value:0{digits}{'x' if lower else 'X'}}"


def words(yes, no):
    """Truth values."""
    return lambda value: yes if value else no


def quoted(show=plain):
    return lambda value: f'"{show(value)}"'


def left(width, show=plain):
    """Padded with blanks behind."""
    return lambda value: f"{show(value):<{width}}"
