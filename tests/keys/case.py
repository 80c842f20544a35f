"""A case of the tests by keys and clicks, and the file that it opens."""
import dataclasses

TABLE = "t;v;x\n10:00:00;1;a\n10:00:01;2;b\n"
TIMES = ["DateSetting=2", "TimestampFormat=hh:mm:ss"]  # the time in column 1, no date


@dataclasses.dataclass
class Case:
    name: str
    script: str
    settings: list = dataclasses.field(default_factory=list)
    files: dict = dataclasses.field(default_factory=dict)  # beside data.csv, by name

    @property
    def options(self):
        return [word for setting in TIMES + self.settings for word in ("--set", setting)]


SIDECAR = (
    "<CSV-INFO format-rev='2'><START-LINE>1</START-LINE><SEPARATOR>|</SEPARATOR>"
    "<DELIMITER-DECIMAL-POINT>.</DELIMITER-DECIMAL-POINT><DELIMITER-MIL>_</DELIMITER-MIL></CSV-INFO>"
)
