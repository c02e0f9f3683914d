#!/usr/bin/env python3
"""Checks the built library.   library.py LIBRARY RULE"""

import os
import re
import subprocess
import sys
import tempfile

STRIPPED_AT_MOST = 1_600_000  # bytes

# A name in namespace VanticRestKit, or a symbol generated for one of its classes: virtual tables, type information, thunks, guards and static variables of inline functions.
OURS = re.compile(r"^_Z(T[VIST]|GV|Th\w+_|Tv\w+_|TC)?Z*N?[VKRO]*13VanticRestKit")


def symbols(library):
    listing = subprocess.run(["nm", "-D", "--defined-only", library], capture_output=True, text=True, check=True)
    return [line.split()[-1].split("@")[0] for line in listing.stdout.splitlines()]


def only_our_namespace_is_exported(library):
    """The shared library exports only names of namespace VanticRestKit."""
    exported = symbols(library)
    if not exported:
        yield "no symbol is exported"
    for name in exported:
        if not OURS.match(name):
            yield subprocess.run(["c++filt", name], capture_output=True, text=True, check=True).stdout.strip()


def the_stripped_library_is_small(library):
    """The stripped shared library has at most 1.6 MB."""
    with tempfile.TemporaryDirectory() as folder:
        stripped = os.path.join(folder, "library.so")
        subprocess.run(["strip", "-o", stripped, library], check=True)
        size = os.path.getsize(stripped)
    print(f"{size} bytes")
    if size > STRIPPED_AT_MOST:
        yield f"more than {STRIPPED_AT_MOST}"


RULES = [only_our_namespace_is_exported, the_stripped_library_is_small]


def main():
    rule = {rule.__name__: rule for rule in RULES}[sys.argv[2]]
    faults = list(rule(sys.argv[1]))
    print(rule.__doc__)
    print("\n".join(faults) if faults else "no fault")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
