#!/usr/bin/env python3
"""Checks the contents of the library's files.   texts.py SRC RULE"""

import re
import sys

from sources import Sources, code_only

# Standard headers that slow down a host's compilation too much, or add static initialisation.
HEAVY = {"thread", "future", "iostream", "regex"}
UNUSED_BY_THE_LIBRARY = re.compile(r"\b(throw|try|catch|dynamic_cast|typeid)\b")
STARTS_A_THREAD = re.compile(r"\b(pthread_create|std::j?thread\b(?!::)|std::async)\b")
LONGEST_FILE = 400
# Data tables, which are not read from top to bottom.
LONG_FOR_A_REASON = {"platform/text/detail/UnicodeTables.inc"}


# The only header whose purpose is <future>.
FOR_FUTURES = "platform/async/StdFuture.h"


def public_headers_include_no_heavy_header(sources):
    """Public headers do not include <thread>, <future>, <iostream> or <regex>."""
    for header in sources.public_headers():
        for _, name in sources.includes(header):
            if name in HEAVY and not (name == "future" and str(header) == FOR_FUTURES):
                yield f"{header} includes <{name}>"


def public_headers_include_nothing_private(sources):
    """Public headers include no header in a detail/ folder, since those are not installed."""
    for header in sources.public_headers():
        for included in sources.our_includes(header):
            if "detail" in included.parts:
                yield f"{header} includes {included}"


def the_library_neither_throws_nor_asks_for_types(sources):
    """No throw, try, catch, dynamic_cast or typeid in the library."""
    for file in sources.files:
        for number, line in enumerate(code_only(sources.text(file)).split("\n"), 1):
            found = UNUSED_BY_THE_LIBRARY.search(line)
            if found:
                yield f"{file}:{number}: {found.group()}"


def threads_are_started_in_one_file(sources):
    """Only Thread.cpp starts threads, which gives each the stack size that the host sets."""
    for file in sources.files:
        found = STARTS_A_THREAD.search(code_only(sources.text(file)))
        if found and file.name != "Thread.cpp":
            yield f"{file}: {found.group()}"


def files_are_short_enough_to_read(sources):
    """No file of the library has more than 400 lines."""
    for file in sources.files:
        lines = sources.text(file).count("\n")
        if lines > LONGEST_FILE and str(file) not in LONG_FOR_A_REASON:
            yield f"{file}: {lines} lines"


def the_umbrella_header_is_complete(sources):
    """VanticRestKit.h includes every public header, in order; scripts/umbrella-header writes it."""
    from umbrella import umbrella_text

    if sources.text("VanticRestKit.h") != umbrella_text(sources):
        yield "VanticRestKit.h is not what scripts/umbrella-header writes; run it"


RULES = [
    public_headers_include_no_heavy_header,
    public_headers_include_nothing_private,
    the_library_neither_throws_nor_asks_for_types,
    threads_are_started_in_one_file,
    files_are_short_enough_to_read,
    the_umbrella_header_is_complete,
]


def main():
    sources = Sources(sys.argv[1])
    rule = {rule.__name__: rule for rule in RULES}[sys.argv[2]]
    faults = list(rule(sources))
    print(rule.__doc__)
    print("\n".join(faults) if faults else f"{len(sources.files)} files, no fault")
    return 1 if faults or not sources.files else 0


if __name__ == "__main__":
    sys.exit(main())
