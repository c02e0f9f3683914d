#!/usr/bin/env python3
"""Checks the names of the test files of the services.   names.py SRC TESTS RULE"""

import pathlib
import sys

from sources import Sources

SERVICES = {"lumeno", "trelvo", "kavro", "recs"}


def tests_are_named_after_what_they_test(sources, tests):
    """Each test FooTest.cpp lies in the folder of the source it tests, whose name it starts with."""
    for service in sorted(SERVICES):
        for path in sorted((tests / service).rglob("*.cpp")):
            file = path.relative_to(tests)
            if not file.stem.endswith("Test"):
                continue
            tested = [known.stem for known in sources.files if folder_of(known) == file.parent]
            if not any(file.stem.startswith(name) for name in tested):
                yield f"{file}: no source of that name in {file.parent}"


def folder_of(file):
    """The folder of a source. Private files belong to the folder of their module."""
    return file.parent.parent if file.parent.name == "detail" else file.parent


RULES = [tests_are_named_after_what_they_test]


def main():
    sources = Sources(sys.argv[1])
    rule = {rule.__name__: rule for rule in RULES}[sys.argv[3]]
    faults = list(rule(sources, pathlib.Path(sys.argv[2])))
    print(rule.__doc__)
    print("\n".join(faults) if faults else f"{len(sources.files)} files, no fault")
    return 1 if faults or not sources.files else 0


if __name__ == "__main__":
    sys.exit(main())
