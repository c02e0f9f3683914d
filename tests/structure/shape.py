#!/usr/bin/env python3
"""Checks where definitions are, and the names and sizes of files.   shape.py SRC TESTS RULE"""

import pathlib
import re
import sys

from sources import Sources, code_only

SHORTEST_FILE = 15
# Files with fewer lines, each with the reason why it is a separate file.
SHORT_FOR_A_REASON = {
    "Core/Version.cpp": "the one source that shows the version of the project",
    "Core/ObservableContext.cpp": "holds the destructor of an interface, and so the one copy of its table of functions",
    "Visibility.h": "every public header includes it",
    "Core/URLError.cpp": "the address of an error's tag is its identity, so it is defined in one source",
    "platform/json/EncodingError.cpp": "the address of an error's tag is its identity, so it is defined in one source",
    "platform/http/curl/detail/WakePair.h": "declares the one function of a source of 70 lines",
    "trelvo/Common/TrelvoContext.cpp": "the class has its table of virtual functions in one source",
    "kavro/KAVROSegmentsContext.cpp": "the class has its table of virtual functions in one source",
}

# Every module has these sources, however short, so that all modules have the same layout.
SAME_IN_EVERY_MODULE = ("Endpoints", "Routes")

NAMESPACE = re.compile(r"\bnamespace\s+([\w:]+)\s*\{")
# A member defined outside its class. Declarations in a namespace start in the first column, calls never do.
MEMBER = re.compile(r"^(?!\s|#|using\b|return\b)(?:[^\n(){};=]*[\s&*>])?((?:\w+(?:<[^<>()]*>)?::)+)(?:~?\w+|operator[^\s(]+)\(", re.MULTILINE)
CPP_TEST = re.compile(r"^(?:TYPED_)?TEST(?:_F|_P)?\(", re.MULTILINE)
PYTHON_TEST = re.compile(r"^\s*unittest\.main\(", re.MULTILINE)


def header_of(sources, source):
    """The header of a source: the one with its name, or with the longest prefix of its name. None if there is none."""
    names = {file.stem for file in sources.files if file.suffix == ".h" and file.parent == source.parent}
    stem = source.stem
    for length in range(len(stem), 0, -1):
        is_word = length == len(stem) or stem[length].isupper()
        if is_word and stem[:length] in names:
            return source.with_name(stem[:length] + ".h")
    return None


def defines_endpoints(source):
    """Whether a source may define functions of lumeno/Endpoints/Endpoint.h, like every module of lumeno."""
    return source.parts[0] == "lumeno" and source.stem.endswith("Endpoints")


def declares_class(text, name):
    return re.search(rf"\b(?:class|struct|union)\s+(?:\w+(?:\([^)]*\))?\s+)*(?:\w+::)*{name}\b[^;(){{}}]*\{{", text) is not None


def sources_lie_beside_their_headers(sources):
    """Each source is in the folder of the header with its name or a prefix of it: FooFrames.cpp with Foo.h."""
    for file in sources.files:
        if file.suffix == ".cpp" and not defines_endpoints(file) and header_of(sources, file) is None:
            yield f"{file}: there is no {file.stem}.h in {file.parent}, nor a header whose name it begins with"


def members_are_defined_beside_their_class(sources):
    """A member is defined in the source of the header that declares its class, or of the class itself."""
    spaces = {part for file in sources.files for name in NAMESPACE.findall(sources.text(file)) for part in name.split("::")}
    for file in sources.files:
        if file.suffix != ".cpp":
            continue
        own = code_only(sources.text(file))
        header = header_of(sources, file)
        declared = own + (code_only(sources.text(header)) if header else "")
        for qualifier in MEMBER.findall(own):
            name = re.sub(r"<.*?>", "", qualifier).rstrip(":").split("::")[-1]
            if name in spaces or name == "std" or (name == "Endpoint" and defines_endpoints(file)):
                continue
            if not declares_class(declared, name):
                yield f"{file}: defines a member of {name}, which {header or 'its header'} does not declare"


def no_file_is_a_fragment(sources):
    """A file with fewer than 15 lines has a reason, which this rule lists."""
    for file in sources.files:
        lines = sources.text(file).count("\n")
        has_reason = str(file) in SHORT_FOR_A_REASON or file.stem.endswith(SAME_IN_EVERY_MODULE)
        if lines < SHORTEST_FILE and not has_reason:
            yield f"{file}: {lines} lines, and no reason why it is a file of its own"
    for name in SHORT_FOR_A_REASON:
        path = sources.src / name
        if path.exists() and path.read_text(encoding="utf-8").count("\n") >= SHORTEST_FILE:
            yield f"{name}: has a reason to be short, and is not"


def tests_are_named_as_tests(tests):
    """C++ tests are named FooTest.cpp and Python tests foo_test.py, and only tests have such names."""
    for file in sorted(tests.rglob("*.cpp")):
        if file.stem.endswith("Test") != bool(CPP_TEST.search(file.read_text(encoding="utf-8"))):
            yield f"{file.relative_to(tests)}: only files named ...Test.cpp hold tests, and each holds one"
    for file in sorted(tests.rglob("*.py")):
        if file.stem.endswith("_test") != bool(PYTHON_TEST.search(file.read_text(encoding="utf-8"))):
            yield f"{file.relative_to(tests)}: only files named ..._test.py are test programs"


RULES = [sources_lie_beside_their_headers, members_are_defined_beside_their_class, no_file_is_a_fragment]
RULES_OF_TESTS = [tests_are_named_as_tests]


def main():
    sources, tests = Sources(sys.argv[1]), pathlib.Path(sys.argv[2])
    rule = {rule.__name__: rule for rule in RULES + RULES_OF_TESTS}[sys.argv[3]]
    faults = list(rule(tests if rule in RULES_OF_TESTS else sources))
    print(rule.__doc__)
    print("\n".join(faults) if faults else f"{len(sources.files)} files, no fault")
    return 1 if faults or not sources.files else 0


if __name__ == "__main__":
    sys.exit(main())
