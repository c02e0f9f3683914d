#!/usr/bin/env python3
"""Compiles what a host includes, with a folder that contains only the public headers.

headers.py SRC COMPILER RULE
"""

import concurrent.futures
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

from sources import Sources
from texts import FOR_FUTURES

WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Wshadow", "-Wconversion", "-Wnon-virtual-dtor", "-Werror"]
STANDARD = """algorithm any array atomic barrier bit bitset cctype cerrno cfloat charconv chrono climits cmath compare
complex concepts condition_variable coroutine cstdarg cstddef cstdint cstdio cstdlib cstring ctime cwchar deque
exception execution filesystem forward_list fstream functional initializer_list iomanip ios istream iterator latch
limits list locale map memory memory_resource mutex new numbers numeric optional ostream queue random ranges ratio
scoped_allocator semaphore set shared_mutex source_location span sstream stack stdexcept stop_token streambuf string
string_view system_error tuple type_traits typeindex typeinfo unordered_map unordered_set utility valarray variant
vector version""".split()


def run(compiler, options, text):
    return subprocess.run(
        [compiler, "-std=c++20", "-x", "c++", *options, "-"], input=text, capture_output=True, text=True, check=False
    )


def stage(sources, folder):
    for header in sources.public_headers():
        target = folder / "VanticRestKit" / header
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(sources.src / header, target)


def each_public_header_compiles_alone(sources, compiler, folder):
    """Every public header compiles as the only include of a host, without the private headers."""

    def compile_alone(header):
        text = f"#include <VanticRestKit/{header}>\n"
        result = run(compiler, ["-fsyntax-only", *WARNINGS, f"-I{folder}"], text)
        return f"{header}:\n{result.stderr}" if result.returncode else None

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        yield from filter(None, pool.map(compile_alone, sources.public_headers()))


def public_headers_bring_only_the_standard_library(sources, compiler, folder):
    """No public header includes third-party headers, even indirectly, and our macros begin with VRK_."""
    standard = run(compiler, ["-E"], "".join(f"#include <{name}>\n" for name in STANDARD))
    ours = run(compiler, ["-E", "-dD", f"-I{folder}"], everything(sources))
    if standard.returncode or ours.returncode:
        yield standard.stderr + ours.stderr
        return
    marker = re.compile(r'^# \d+ "([^"]+)"')
    known = {os.path.realpath(file) for file in map_files(standard.stdout, marker)}
    file = None
    reported = set()
    for line in ours.stdout.split("\n"):
        found = marker.match(line)
        if found:
            file = found.group(1)
            continue
        if not file or file.startswith("<"):
            continue
        is_ours = file.startswith(str(folder))
        if not is_ours and os.path.realpath(file) not in known and file not in reported:
            reported.add(file)
            yield f"{file} is no file of the standard library"
        define = re.match(r"#define (\w+)", line)
        if is_ours and define and not define.group(1).startswith("VRK_"):
            yield f"{file} defines {define.group(1)}"


def everything(sources):
    headers = [header for header in sources.public_headers() if str(header) != FOR_FUTURES]
    return "".join(f"#include <VanticRestKit/{header}>\n" for header in headers)


def map_files(text, marker):
    return {found.group(1) for found in map(marker.match, text.split("\n")) if found and found.group(1)[0] == "/"}


RULES = [each_public_header_compiles_alone, public_headers_bring_only_the_standard_library]


def judge(src, compiler, rule):
    sources = Sources(src)
    with tempfile.TemporaryDirectory() as folder:
        stage(sources, pathlib.Path(folder))
        return sources, list(rule(sources, compiler, pathlib.Path(folder)))


def main():
    rule = {rule.__name__: rule for rule in RULES}[sys.argv[3]]
    sources, faults = judge(sys.argv[1], sys.argv[2], rule)
    print(rule.__doc__)
    print("\n".join(faults) if faults else f"{len(sources.public_headers())} public headers, no fault")
    return 1 if faults or not sources.public_headers() else 0


if __name__ == "__main__":
    sys.exit(main())
