#!/usr/bin/env python3
"""Checks that the compiler rejects each mistake in docs/mistakes.md with the message of GCC 12 that its row quotes.

usage: mistakes.py DOCUMENT SOURCE INCLUDE_ROOT COMPILER
"""
import re
import subprocess
import sys

ROW = re.compile(r"^\| (\d+) \| (.*?) \| `(.*)` \| (.*) \|$", re.MULTILINE)


# Clang only warns about labels out of order.
CLANG_FLAGS = ["-Werror=reorder-init-list"]


def first_error(compiler, flags, source, include_root, case):
    """The compiler's first error for a case, without the position, or None if it compiles."""
    command = [compiler, "-std=c++20", "-fsyntax-only", f"-DCASE={case}", f"-I{include_root}", *flags, source]
    done = subprocess.run(command, capture_output=True, text=True, check=False,
                          env={"PATH": "/usr/bin:/bin", "LC_ALL": "C.UTF-8"})
    found = re.search(r"error: (.*)", done.stderr)
    if (done.returncode != 0) != bool(found):
        sys.exit(f"case {case}: status {done.returncode}\n{done.stderr}")
    return found.group(1) if found else None


def main():
    document, source, include_root, compiler = sys.argv[1:]
    version = subprocess.run([compiler, "--version"], capture_output=True, text=True, check=True).stdout
    flags = CLANG_FLAGS if "clang" in version else []
    quotes = "clang" not in version and re.search(r"\) 12\.", version)
    with open(document, encoding="utf-8") as file:
        rows = ROW.findall(file.read())
    faults = []
    if len(rows) < 10:
        faults.append(f"only {len(rows)} rows were found")
    if (error := first_error(compiler, flags, source, include_root, 0)) is not None:
        faults.append(f"the case without a mistake is refused: {error}")
    for number, _, message, _ in rows:
        error = first_error(compiler, flags, source, include_root, number)
        if error is None:
            faults.append(f"case {number} compiles")
        elif quotes and error != message:
            faults.append(f"case {number}: the document quotes\n  {message}\nand the compiler says\n  {error}")
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
