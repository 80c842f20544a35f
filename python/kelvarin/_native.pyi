# The extension; what it returns in tuples and dicts becomes classes in run.py and reports.py.
from typing import Any, Callable, List, Optional, Tuple, TypedDict

from numpy.typing import NDArray

RELATIVE_TIME_EPOCH: int
VERSION: str

# kind, text, certainty, doubts
AssumptionTuple = Tuple[str, str, str, Tuple[str, ...]]
# kind, is fault, text, count, lines, column, remedy
FindingTuple = Tuple[str, bool, str, int, Tuple[int, ...], Optional[int], str]
# text, line or 0, is failure
MessageTuple = Tuple[str, int, bool]
Progress = Optional[Callable[[float], object]]

class Wish:
    column: str
    type: Optional[str]
    name: Optional[str]
    unit: Optional[str]
    skip: bool

class Request:
    path: bytes
    settings: List[Tuple[str, str]]
    wishes: List[Wish]
    signals: Optional[List[str]]
    guess: bool
    threads: int
    base_time: Optional[int]

class SignalSamples:
    @property
    def name(self) -> str: ...
    @property
    def unit(self) -> str: ...
    @property
    def type(self) -> str: ...
    @property
    def column(self) -> int: ...
    @property
    def metadata(self) -> Tuple[str, ...]: ...
    @property
    def count(self) -> int: ...
    @property
    def times_id(self) -> int: ...
    def course(self, width: int) -> str: ...
    def values(self) -> NDArray[Any]: ...
    def mask(self) -> Optional[NDArray[Any]]: ...
    def times(self) -> NDArray[Any]: ...

class RunDict(TypedDict):
    signals: List[SignalSamples]
    lines: int
    is_relative: bool
    has_dates: bool
    messages: List[MessageTuple]
    messages_left_out: int
    findings: Tuple[FindingTuple, ...]
    settings: dict[str, str]
    assumed: Tuple[AssumptionTuple, ...]

# number, name, unit, type, is time, is signal
AnalyzedTuple = Tuple[int, str, str, str, bool, bool]
# number, name, type, is time, why
ExplainedTuple = Tuple[int, str, str, bool, str]
# number, name, type, samples, empty, refused
CheckedTuple = Tuple[int, str, str, int, int, int]
# first, last, shortest, median and longest interval in nanoseconds, is steady
TimesTuple = Tuple[int, int, int, int, int, bool]
# path, device, rows, is sorted, left out, rewritten, emptied
CopyTuple = Tuple[str, str, int, bool, dict[str, int], int, int]

class AnalysisDict(TypedDict):
    columns: Tuple[AnalyzedTuple, ...]
    format: str
    header_line: int
    first_line: int
    timestamp_format: str
    needs_copy: bool
    settings: dict[str, str]
    assumed: Tuple[AssumptionTuple, ...]

class ExplanationDict(TypedDict):
    columns: Tuple[ExplainedTuple, ...]
    format: str
    why: Tuple[str, ...]
    runner_up: str
    warnings: Tuple[Tuple[str, str, str], ...]
    advised: dict[str, str]
    needs_copy: bool
    settings: dict[str, str]
    assumed: Tuple[AssumptionTuple, ...]

class CheckDict(TypedDict):
    is_clean: bool
    findings: Tuple[FindingTuple, ...]
    lines: int
    rows: int
    columns: Tuple[CheckedTuple, ...]
    dropped: dict[str, int]
    times: Optional[TimesTuple]
    is_relative: bool
    has_dates: bool
    settings: dict[str, str]
    assumed: Tuple[AssumptionTuple, ...]

class PreparedDict(TypedDict):
    copies: Tuple[CopyTuple, ...]
    columns: List[Tuple[int, str, str, str]]
    times: str
    assumed: Tuple[AssumptionTuple, ...]

def analyze(request: Request) -> AnalysisDict: ...
def explain(request: Request) -> ExplanationDict: ...
def check(request: Request, progress: Progress) -> CheckDict: ...
def prepare(path: bytes, copy: bytes, force: bool, progress: Progress) -> PreparedDict: ...
def read(request: Request, progress: Progress) -> RunDict: ...
def store(request: Request, out: bytes, progress: Progress) -> Tuple[int, int]: ...
def local_times(moments: NDArray[Any], are_of_file: bool) -> NDArray[Any]: ...
def begin_forked_child() -> None: ...
