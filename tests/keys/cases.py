"""What a user does by keyboard and mouse, and what must come of it. `run` lists the steps."""
from case import SIDECAR, Case

CASES = [
    # --- Enter and Escape ---
    Case(
        "Escape cancels",
        """
        ? focus 1022
        key space
        ? checked 1022 no
        key Escape
        ? result /result 2
        ? result /settings/AutoFormat 1
        """,
    ),
    Case(
        "Enter in an edit is OK",
        """
        replace 1015 1
        key Return
        ? result /result 1
        """,
    ),
    Case(
        "Enter on a button presses it and not OK",
        """
        key ctrl+Tab
        ? page 1
        box 0
        key Tab
        ? focus 1039
        key Return
        key Escape
        ? result /result 2
        """,
    ),
    # --- Tab, letters and arrows ---
    Case(
        "Tab goes through the page, the tabs and the buttons, Shift+Tab back",
        """
        ? focus 1022
        key Tab
        ? focus 1058
        key Tab
        ? focus 1061
        key Tab
        ? focus 1015
        key Tab
        ? focus 1050
        key Tab
        ? focus 1020
        key Tab
        ? focus 1052
        key Tab
        ? focus 1026
        key Tab
        ? focus 1009
        key Tab Tab
        ? focus 1066
        key Tab
        ? focus 12320
        key Tab
        ? focus 1
        key Tab
        ? focus 2
        key Tab
        ? focus 1022
        key shift+Tab
        ? focus 2
        key shift+Tab shift+Tab shift+Tab
        ? focus 1066
        ? checked 1058 yes
        ? checked 1061 yes
        """,
    ),
    Case(
        "Alt and a letter reach what bears the letter",
        """
        ? focus 1022
        key alt+a
        ? checked 1022 no
        key alt+o
        ? checked 1008 yes
        ? focus 1008
        key alt+l
        ? focus 1025
        key alt+n
        ? checked 1007 no
        key alt+s
        ? focus 1005
        key alt+f
        ? focus 1020
        key alt+t
        ? focus 1061
        key alt+d
        ? focus 1058
        ? checked 1058 yes
        key ctrl+Tab
        ? page 1
        box 0
        key alt+r Escape
        ? result /result 2
        """,
    ),
    Case(
        "arrows go round the radio buttons and check them",
        """
        key alt+a alt+s
        ? focus 1005
        key Right
        ? checked 1004 yes
        ? focus 1004
        key Down Down Down
        ? checked 1010 yes
        ? enabled 1051 yes
        key Right
        ? focus 1005
        ? checked 1005 yes
        key Left
        ? checked 1010 yes
        key Up
        ? checked 1006 yes
        ? enabled 1051 no
        """,
    ),
    Case(
        "arrows step the number of a spin within its bounds",
        """
        replace 1015 1
        key Down
        ? text 1015 1
        key Up Up
        ? text 1015 3
        key Down
        ? text 1015 2
        key Return
        ? result /settings/TimeColumn 2
        """,
    ),
    Case(
        "space flips a check box",
        """
        key alt+a alt+a
        ? focus 1022
        key space
        ? checked 1022 no
        key space space space
        ? checked 1022 yes
        """,
    ),
    Case(
        "Escape closes an open list, and only that",
        """
        click 1043
        ? list 2
        key Escape
        ? list none
        ? focus 1043
        key Escape
        ? result /result 2
        """,
        ["TimeSetting=1"],
    ),
    # --- Pages ---
    Case(
        "Ctrl+Tab and Ctrl+PageDown turn the pages, and the focus goes along",
        """
        ? focus 1022
        key ctrl+Tab
        ? page 1
        ? focus 1021
        key ctrl+Tab
        ? page 0
        ? focus 1022
        key ctrl+shift+Tab
        ? page 1
        key ctrl+Prior
        ? page 0
        key ctrl+Next
        ? page 1
        ? focus 1021
        """,
    ),
    Case(
        "after a click on a tab no key reaches the hidden page",
        """
        ? focus 1022
        tab 1
        ? page 1
        key space
        type a
        tab 0
        ? page 0
        ? checked 1022 yes
        replace 1015 1
        tab 1
        type 7
        tab 0
        ? text 1015 1
        key Right
        ? page 1
        key Left
        ? page 0
        """,
    ),
    Case(
        "OK shows the page that refuses",
        """
        key ctrl+Tab
        box 0
        box 1
        ? focus 1021
        key ctrl+Tab
        ? page 0
        key Return
        ? message Select at least one signal for the import.
        key Return
        ? message
        ? page 1
        ? focus 1021
        key space Return
        """,
    ),
    # --- The signals ---
    Case(
        "F2 edits the name of the focused row, Enter enters it, Escape gives up",
        """
        key ctrl+Tab Down F2
        ? focus 1021 Edit
        type speed
        key Return
        ? focus 1021
        key Down F2
        ? focus 1021 Edit
        type nothing
        key Escape
        ? focus 1021
        key Return
        ? result /columns/1/UserName "speed"
        ? result /columns/2/UserName ""
        """,
    ),
    Case(
        "space flips the check box of the focused row, a click that of its own",
        """
        key ctrl+Tab Down space
        box 1
        box 1
        key Return
        ? result /columns/1/ImportColumn false
        ? result /columns/2/ImportColumn true
        """,
    ),
    Case(
        "a type is chosen by keyboard alone",
        """
        key ctrl+Tab Down F4
        ? list 1
        key End
        ? list 7
        key Return
        ? list none
        ? focus 1021
        key Down alt+Down
        ? list 3
        key Home Escape
        ? list none
        key Return
        ? result /columns/1/UserType 8
        ? result /columns/2/UserType 0
        """,
    ),
    Case(
        "cells are edited in place by the mouse",
        """
        key ctrl+Tab
        doublecell 0 0
        ? focus 1021 Edit
        type speed
        cell 1 0
        ? focus 1021
        doublecell 1 1
        ? list 3
        entry 2
        ? list none
        click 1
        ? result /columns/1/UserName "speed"
        ? result /columns/2/UserType 3
        """,
    ),
    # --- The file dialog ---
    Case(
        "a sidecar is loaded while the dialog is disabled, or none",
        """
        click 1066
        ? question Open over CSV import settings disabled
        type {folder}\\saved.info
        key Return
        ? question none
        ? text 1051 |
        ? checked 1010 yes
        click 1066
        ? question Open over CSV import settings disabled
        key Escape
        ? question none
        ? text 1051 |
        """,
        files={"saved.info": SIDECAR},
    ),
]
