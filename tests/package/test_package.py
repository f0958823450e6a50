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


def problems(archive_path, build, source):
    # Archive name -> the file it must be a copy of.
    wanted = {"Klickwerk.exe": build / "Klickwerk.exe", "Scripts/FirstRun.kwf": source / "Scripts" / "FirstRun.kwf"}
    for name in ("InHook.dll", "Klickwerk.chm", "DYK.dat"):
        # The build tree's file wins over the source tree's.
        wanted.update({name: folder / name for folder in (source, build) if (folder / name).is_file()})
    with zipfile.ZipFile(archive_path) as archive:
        damaged = archive.testzip()
        listed = sorted(entry.filename for entry in archive.infolist() if not entry.is_dir())
        print("\n".join(listed))
        found = [f"damaged entry {damaged}"] if damaged else []
        found += [f"entries {listed}, expected {sorted(wanted)}"] if listed != sorted(wanted) else []
        found += [f"{name} differs from {origin}" for name, origin in wanted.items()
                  if name in listed and archive.read(name) != origin.read_bytes()]
        if "Klickwerk.exe" in listed and archive.read("Klickwerk.exe")[:2] != b"MZ":
            found.append("Klickwerk.exe is no Windows program")
    return found


def main():
    if len(sys.argv) != 4:
        print(__doc__)
        return 2
    archive, build, source = (Path(argument) for argument in sys.argv[1:])
    found = problems(archive, build, source) if archive.is_file() else [f"{archive} is missing"]
    for problem in found:
        print(f"FAILED: {problem}")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
