"""Numbers that the general page refuses, whatever the user does next: one message, and the focus back on the edit."""
from case import Case

NUMBER = "Enter a whole number between 1 and 999."

REFUSALS = [
    Case(
        "Enter refuses a number out of range once",
        f"""
        replace 1015 1000
        key Return
        ? message {NUMBER}
        key Return
        ? message
        ? focus 1015
        key Escape
        ? result /result 2
        """,
    ),
    Case(
        "Enter refuses a column that the table lacks once",
        """
        replace 1015 9
        key Return
        ? message Enter a valid column number between 1 and 3.
        key Return
        ? message
        ? focus 1015
        key Escape
        ? result /result 2
        """,
    ),
    Case(
        "Tab refuses a number out of range once",
        f"""
        replace 1015 0
        key Tab
        ? message {NUMBER}
        key Return
        ? message
        ? focus 1015
        """,
    ),
    Case(
        "a click elsewhere refuses a number out of range once, and the next click counts",
        f"""
        replace 1015 1000
        click 1065
        ? message {NUMBER}
        key Return
        ? message
        ? focus 1015
        ? checked 1065 no
        replace 1015 1
        click 1065
        ? checked 1065 yes
        """,
    ),
    Case(
        "a click on OK refuses a number out of range once, and the next click counts",
        f"""
        replace 1015 1000
        click 1
        ? message {NUMBER}
        key Return
        ? message
        ? focus 1015
        replace 1015 1
        click 1
        ? result /result 1
        """,
    ),
    Case(
        "a click on a tab refuses a number out of range once",
        f"""
        replace 1015 1000
        tab 1
        ? message {NUMBER}
        key Return
        ? message
        ? focus 1015
        ? page 0
        """,
    ),
    Case(
        "Ctrl+Tab refuses a number out of range once",
        f"""
        replace 1015 1000
        key ctrl+Tab
        ? message {NUMBER}
        key Return
        ? message
        ? focus 1015
        ? page 0
        """,
    ),
    Case(
        "another program in front refuses a number out of range once, over the dialog",
        f"""
        replace 1015 1000
        start notepad
        ? message {NUMBER}
        ? question CSV import over CSV import settings disabled
        key Return
        ? message
        ? focus 1015
        """,
    ),
]
