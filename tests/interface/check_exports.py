#!/usr/bin/env python3
"""Compares what the public headers declare with what the shared library exports.

usage: check_exports.py HEADERS LIBRARY LIST [--update]

HEADERS is the folder of public headers, LIBRARY the shared library, LIST the file with the names that
it is to export, which --update writes anew. It fails when a program that keeps to the headers could not
be linked, when something is exported that no header declares or whose arguments are internal types,
and when the exports are not those of LIST.
"""

import pathlib
import re
import subprocess
import sys

try:
    from clang import cindex
except ImportError:
    sys.exit("python3-clang is missing for this python3; the system's one is /usr/bin/python3")

FUNCTIONS = {
    cindex.CursorKind.FUNCTION_DECL,
    cindex.CursorKind.CXX_METHOD,
    cindex.CursorKind.CONSTRUCTOR,
    cindex.CursorKind.DESTRUCTOR,
    cindex.CursorKind.CONVERSION_FUNCTION,
}


def declared_without_body(headers):
    """The mangled names of all functions and static variables that need the library."""
    program = "".join(f'#include "{header}"\n' for header in sorted(headers.rglob("*.h")))
    unit = cindex.Index.create().parse("all.cpp", args=["-std=c++20"], unsaved_files=[("all.cpp", program)])
    if unit.diagnostics:
        sys.exit("\n".join(str(finding) for finding in unit.diagnostics))

    def needs_library(function):
        return (function.get_definition() is None and not function.is_pure_virtual_method()
                and not function.is_default_method()
                and function.availability != cindex.AvailabilityKind.NOT_AVAILABLE)  # deleted

    def walk(parent):
        for cursor in parent.get_children():
            file = cursor.location.file
            if file is None or headers not in pathlib.Path(file.name).parents:
                continue
            if cursor.kind in FUNCTIONS:
                if needs_library(cursor):
                    yield cursor.mangled_name
            elif cursor.kind == cindex.CursorKind.VAR_DECL:
                if not cursor.is_definition():
                    yield cursor.mangled_name
            else:
                yield from walk(cursor)

    return set(walk(unit.cursor))


def demangled(names):
    """By c++filt: the two constructors that compilers make of one become one name."""
    text = subprocess.run(["c++filt"], input="\n".join(names), capture_output=True, text=True, check=True)
    return set(text.stdout.splitlines())


def exported(library):
    lines = subprocess.run(["nm", "-D", "--defined-only", library], capture_output=True, text=True, check=True)
    return demangled(line.split()[-1] for line in lines.stdout.splitlines())


def complaints(declared, exports, listed):
    made_for_classes = re.compile(r"(vtable|typeinfo|typeinfo name|non-virtual thunk) (for|to) ")
    for name in sorted(declared - exports):
        yield f"declared in a public header and not exported: {name}"
    for name in sorted(exports - declared):
        if not made_for_classes.match(name):
            yield f"exported and not declared in a public header: {name}"
    for name in sorted(exports):
        if re.search(r"\bkv::", name):
            yield f"exported with an internal name: {name}"
    for name in sorted(listed - exports):
        yield f"in the list and no longer exported: {name}"
    for name in sorted(exports - listed):
        yield f"exported and not in the list: {name}"


def main(headers, library, list_file, update=None):
    exports = exported(library)
    listing = pathlib.Path(list_file)
    if update == "--update":
        listing.write_text("".join(f"{name}\n" for name in sorted(exports)))
    found = list(complaints(demangled(declared_without_body(pathlib.Path(headers).resolve())), exports,
                            set(listing.read_text().splitlines())))
    print("\n".join(found) or f"{len(exports)} exported names, all of them declared")
    return 1 if found else 0


if __name__ == "__main__":
    if len(sys.argv) not in (4, 5):
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
