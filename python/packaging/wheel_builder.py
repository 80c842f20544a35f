"""Builds the wheel of the package for pip: CMake makes the files, and what a wheel needs beside them is a zip and a few
lines of text. Nothing but the standard library is used, so that no tool has to be fetched."""

from __future__ import annotations

import base64
import hashlib
import os
import re
import shutil
import subprocess
import sys
import sysconfig
import tempfile
import zipfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
NAME = "kelvarin"


def build_wheel(wheel_directory, config_settings=None, metadata_directory=None):
    """The hook of PEP 517; returns the name of the wheel in `wheel_directory`."""
    version, tag = _version(), _tag()
    with tempfile.TemporaryDirectory() as folder:
        _install(Path(folder))
        info = Path(folder) / f"{NAME}-{version}.dist-info"
        _write_info(info, version, tag)
        name = f"{NAME}-{version}-{tag}.whl"
        _zip(Path(folder), Path(wheel_directory) / name)
    return name


def prepare_metadata_for_build_wheel(metadata_directory, config_settings=None):
    """The hook of PEP 517; returns the name of the folder that it makes."""
    info = Path(metadata_directory) / f"{NAME}-{_version()}.dist-info"
    _write_info(info, _version(), _tag())
    return info.name


def build_sdist(sdist_directory, config_settings=None):
    """The hook of PEP 517 that would make an archive of sources: the repository is that."""
    raise NotImplementedError("there is no archive of sources; build a wheel from the repository")


def _version():
    found = re.search(r"^project\(\S+ VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text(), re.MULTILINE)
    return found.group(1)


def _tag():
    """Interpreter, its binary interface, and the platform: an extension is for one of each."""
    interpreter = f"cp{sys.version_info.major}{sys.version_info.minor}"
    platform = re.sub(r"[^0-9a-zA-Z_]", "_", sysconfig.get_platform())
    return f"{interpreter}-{interpreter}{sys.abiflags}-{platform}"


def _install(folder):
    build = ROOT / "build" / f"wheel-{_tag()}"
    generator = ["-G", "Ninja"] if shutil.which("ninja") else []
    _run("cmake", "-S", ROOT, "-B", build, *generator, "-DCMAKE_BUILD_TYPE=Release", "-DCMAKE_UNITY_BUILD=ON",
         "-DKELVARIN_TESTS=OFF", "-DKELVARIN_PYTHON=ON", f"-DKELVARIN_PYTHON_PROGRAM={sys.executable}")
    jobs = os.environ.get("CMAKE_BUILD_PARALLEL_LEVEL", str(os.cpu_count()))
    _run("cmake", "--build", build, "--target", "kelvarin-python", "-j", jobs)
    _run("cmake", "--install", build, "--component", "wheel", "--prefix", folder, "--strip")


def _run(*command):
    # What the programs print is for people; the standard output is pip's.
    subprocess.run([str(word) for word in command], check=True, stdout=sys.stderr)


def _write_info(info, version, tag):
    info.mkdir()
    (info / "METADATA").write_text(
        f"Metadata-Version: 2.1\nName: {NAME}\nVersion: {version}\n"
        "Summary: Measurement text files as arrays of numpy\n"
        f"Requires-Python: ~={sys.version_info.major}.{sys.version_info.minor}.0\n"
    )
    (info / "WHEEL").write_text(
        f"Wheel-Version: 1.0\nGenerator: {NAME}\nRoot-Is-Purelib: false\nTag: {tag}\n"
    )
    shutil.copy(ROOT / "LICENSE", info / "LICENSE")


def _zip(folder, target):
    """All files of the folder, and the list of them with their sums."""
    files = sorted(path for path in folder.rglob("*") if path.is_file())
    record = next(path for path in files if path.name == "WHEEL").with_name("RECORD").relative_to(folder).as_posix()
    lines = []
    with zipfile.ZipFile(target, "w", zipfile.ZIP_DEFLATED) as wheel:
        for path in files:
            name = path.relative_to(folder).as_posix()
            wheel.write(path, name)
            digest = base64.urlsafe_b64encode(hashlib.sha256(path.read_bytes()).digest()).rstrip(b"=").decode()
            lines.append(f"{name},sha256={digest},{path.stat().st_size}\n")
        wheel.writestr(record, "".join(lines) + f"{record},,\n")
