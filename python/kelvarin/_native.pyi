# The extension; what it returns in tuples and dicts becomes classes in run.py and reports.py.
from typing import Any, Callable, List, Optional, Tuple, TypedDict, Union

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
    messages: List[MessageTuple]
    messages_left_out: int
    findings: Tuple[FindingTuple, ...]
    settings: dict[str, str]
    assumed: Tuple[AssumptionTuple, ...]

def read(request: Request, progress: Progress) -> RunDict: ...
def local_times(moments: NDArray[Any]) -> NDArray[Any]: ...
def begin_forked_child() -> None: ...
