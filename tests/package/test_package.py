#!/usr/bin/env python3
"""Checks klickwerk.zip, the archive the Windows build packs.

Usage: python3 tests/package/test_package.py <klickwerk.zip> <build dir> <source dir>

The archive must hold exactly Klickwerk.exe, Scripts/FirstRun.kwf and those of
InHook.dll, Klickwerk.chm and DYK.dat that exist (build tree first, then the
source tree), each byte for byte the file it was packed from, at the places
the program folder expects them.
"""
import sys
import zipfile
from pathlib import Path

OPTIONAL = ["InHook.dll", "Klickwerk.chm", "DYK.dat"]


def expected_sources(build, source):
    """Archive name -> the file it must be a copy of."""
    files = {"Klickwerk.exe": build / "Klickwerk.exe", "Scripts/FirstRun.kwf": source / "Scripts" / "FirstRun.kwf"}
    for name in OPTIONAL:
        found = next((folder / name for folder in (build, source) if (folder / name).is_file()), None)
        if found:
            files[name] = found
    return files


def problems(archive_path, build, source):
    with zipfile.ZipFile(archive_path) as archive:
        if archive.testzip() is not None:
            return [f"damaged entry {archive.testzip()}"]
        listed = [entry.filename for entry in archive.infolist() if not entry.is_dir()]
        print("\n".join(listed))
        wanted = expected_sources(build, source)
        found = []
        if sorted(listed) != sorted(wanted):
            found.append(f"entries {sorted(listed)}, expected {sorted(wanted)}")
        for name, origin in wanted.items():
            if name in listed and archive.read(name) != origin.read_bytes():
                found.append(f"{name} differs from {origin}")
        if "Klickwerk.exe" in listed and archive.read("Klickwerk.exe")[:2] != b"MZ":
            found.append("Klickwerk.exe is no Windows program")
    return found


def main():
    if len(sys.argv) != 4:
        print(__doc__)
        return 2
    archive, build, source = (Path(argument) for argument in sys.argv[1:])
    if not archive.is_file():
        print(f"FAILED: {archive} is missing")
        return 1
    found = problems(archive, build, source)
    for problem in found:
        print(f"FAILED: {problem}")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
