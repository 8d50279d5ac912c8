#!/usr/bin/env python3
"""Checks that nothing is depended on which is not listed: packages of npm, what CMake looks for, modules of Python,
libraries that the programs load. Each is named once, and has its notice where it is part of a program.

    tools/checks/dependencies.py PROGRAM...
"""

import json
import pathlib
import re
import subprocess
import sys

import tree

TABLE = "tools/checks/dependencies.txt"
LOOKS = re.compile(r"\b(find_package|find_dependency|find_library|find_program|pkg_check_modules|pkg_search_module|"
                   r"FetchContent_Declare|ExternalProject_Add)\(([^)]*)\)")
NOISE = {"REQUIRED", "IMPORTED_TARGET", "QUIET", "GLOBAL"}


def table():
    rows = [line.split() for line in tree.text_of(TABLE).splitlines() if line and not line.startswith("#")]
    return {(kind, name): (package, notice) for kind, name, package, notice in rows}


def npm_faults():
    notices = set(re.findall(r"`([^`]+)`", tree.text_of("THIRD_PARTY_NOTICES.md")))
    for manifest in tree.tracked("*package.json"):
        for name, version in json.loads(tree.text_of(manifest)).get("dependencies", {}).items():
            if not re.fullmatch(r"\d+\.\d+\.\d+", version):
                yield f"{manifest}: {name} has no exact version"
    for lock in tree.tracked("*package-lock.json"):
        for path in json.loads(tree.text_of(lock))["packages"]:
            name = path.rpartition("node_modules/")[2]
            if name and name not in notices:
                yield f"{lock}: {name} is not in THIRD_PARTY_NOTICES.md"


def cmake_names():
    for path in tree.tracked("*CMakeLists.txt", "*.cmake", "*.cmake.in"):
        for command, arguments in LOOKS.findall(tree.text_of(path)):
            words = [word for word in arguments.split() if word not in NOISE]
            # What comes before the name is ours: the variable that takes the place.
            wanted = words[:1] if command.startswith(("find_package", "find_dependency")) else words[1:]
            wanted = [word for word in wanted if word != "NAMES" and word != "Tessarine"]
            yield from ((path, "cmake", name) for name in wanted)


def python_names():
    scripts = tree.tracked("*.py")
    own = {pathlib.PurePosixPath(script).stem for script in scripts}
    for path in scripts:
        for module in re.findall(r"^(?:import|from) (\w+)", tree.text_of(path), re.MULTILINE):
            if module not in own and module not in sys.stdlib_module_names:
                yield path, "python", module


def loaded_names(programs):
    for program in programs:
        listing = subprocess.run(["objdump", "-p", program], check=True, capture_output=True, text=True).stdout
        for library in re.findall(r"NEEDED +(\S+)", listing):
            yield pathlib.Path(program).name, "elf", re.sub(r"\.so\..*", ".so", library)


def main():
    programs = sys.argv[1:]
    if not programs:
        sys.exit("usage: dependencies.py PROGRAM...")
    listed = table()
    found = [*cmake_names(), *python_names(), *loaded_names(programs)]
    faults = [*npm_faults()]
    faults += [f"{path}: {name} is not in {TABLE}" for path, kind, name in found if (kind, name) not in listed]
    seen = {(kind, name) for _, kind, name in found}
    faults += [f"{TABLE}: nothing depends on {name} ({kind})" for kind, name in listed if (kind, name) not in seen]
    packages = tree.text_of("tools/debian-packages.txt").split()
    notices = tree.text_of("THIRD_PARTY_NOTICES.md")
    for (kind, name), (package, notice) in listed.items():
        if package not in packages:
            faults.append(f"{TABLE}: {package} is not in tools/debian-packages.txt")
        if notice != "-" and notice not in notices:
            faults.append(f"{TABLE}: {notice} is not in THIRD_PARTY_NOTICES.md")
    tree.end("dependencies", len(seen), faults)


main()
