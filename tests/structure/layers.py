#!/usr/bin/env python3
"""Checks the includes between files.   layers.py SRC RULE"""

import pathlib
import re
import sys

from sources import Sources

SERVICES = {"lumeno", "kavro", "recs", "trelvo"}
UMBRELLA = pathlib.PurePath("VanticRestKit.h")
FOR_ALL = pathlib.PurePath("Visibility.h")


def layer(file):
    top = file.parts[0]
    if top == "platform":
        return 0
    if top == "Core":
        return 1
    if top in SERVICES:
        return 2
    if top == "Testing":
        return 3
    return None


def arrows(sources):
    """Every include between our files, except those of the umbrella header."""
    for file in sources.files:
        if file == UMBRELLA:
            continue
        for included in sources.our_includes(file):
            if included != FOR_ALL:
                yield file, included


def layers_point_down(sources):
    """platform does not include Core, Core does not include services, and services do not include each other."""
    for file in sources.files:
        if layer(file) is None and file not in (UMBRELLA, FOR_ALL):
            yield f"{file}: in no layer"
    for file, included in arrows(sources):
        above, below = layer(file), layer(included)
        if above is None or below is None:
            yield f"{file} includes {included}: only the umbrella header stands outside the layers"
        elif below > above:
            yield f"{file} includes {included}, which is in a layer above"
        elif above == below == 2 and file.parts[0] != included.parts[0]:
            yield f"{file} includes {included}, which is of another service"


def modules(sources):
    """The modules in the order of CMakeLists.txt, each with its DEPENDS."""
    found = {}
    for folder, arguments in re.findall(r"vrk_module\(([\w/]+)([^)]*)\)", sources.text("CMakeLists.txt")):
        depends = re.search(r"DEPENDS((?:\s+[\w/]+)*?)\s*(?:LIBRARIES|SUBFOLDERS|$)", arguments)
        found[folder] = depends.group(1).split() if depends else []
    return found


def module_of(file, listed):
    """The innermost folder that is a module; folders within it belong to it."""
    folders = ["/".join(file.parts[:depth]) for depth in range(len(file.parts) - 1, 0, -1)]
    return next((folder for folder in folders if folder in listed), None)


def names_entities_only(file):
    """Whether a file belongs to Endpoints, which is not a module: each function is defined in the module of its result."""
    return file.parts[:2] == ("lumeno", "Endpoints")


def every_file_is_in_a_module(sources):
    """Every source lies in a folder that CMakeLists.txt lists as a module."""
    listed = modules(sources)
    for file in sources.files:
        if len(file.parts) > 1 and not module_of(file, listed) and not names_entities_only(file):
            yield f"{file}: in no module"


def modules_depend_on_modules_listed_before_them(sources):
    """A module depends only on modules above it in CMakeLists.txt; Endpoints depends on none."""
    seen = set()
    for folder, depends in modules(sources).items():
        for below in depends:
            if below not in seen:
                yield f"{folder} depends on {below}, which is not listed before it"
        seen.add(folder)
    for file, included in arrows(sources):
        if names_entities_only(file) and included.parts[0] == "lumeno" and not names_entities_only(included):
            yield f"{file} includes {included}"


def modules_include_only_what_they_depend_on(sources):
    """A module includes only modules in its DEPENDS, or in those of its dependencies."""
    listed = modules(sources)
    reached = {}
    for folder, depends in listed.items():
        reached[folder] = set(depends).union(*(reached.get(below, set()) for below in depends))
    for file, included in arrows(sources):
        if names_entities_only(file) or names_entities_only(included):
            continue
        module, other = module_of(file, listed), module_of(included, listed)
        if module != other and other not in reached.get(module, set()):
            yield f"{file} includes {included}, but {module} does not depend on {other}"


def libcurl_stays_in_its_folder(sources):
    """libcurl is included only below platform/http/curl."""
    for file in sources.files:
        for _, name in sources.includes(file):
            if name.startswith("curl/") and file.parts[:3] != ("platform", "http", "curl"):
                yield f"{file} includes <{name}>"


def included_at_most_once(sources, header):
    files = [file for file in sources.files if any(name == header for _, name in sources.includes(file))]
    if len(files) > 1:
        yield "included by " + ", ".join(map(str, files))


def utf8proc_stays_in_one_file(sources):
    """At most one file includes utf8proc."""
    yield from included_at_most_once(sources, "utf8proc.h")


def libpsl_stays_in_one_file(sources):
    """At most one file includes libpsl."""
    yield from included_at_most_once(sources, "libpsl.h")


def includes_name_the_library(sources):
    """Our files are always included as <VanticRestKit/...>, so that names do not collide in a host."""
    for file in sources.files:
        for quote, name in sources.includes(file):
            if quote == '"':
                yield f'{file} includes "{name}"'
        for included in sources.our_includes(file):
            if not (sources.src / included).is_file():
                yield f"{file} includes {included}, which does not exist"


RULES = [
    layers_point_down,
    every_file_is_in_a_module,
    modules_depend_on_modules_listed_before_them,
    modules_include_only_what_they_depend_on,
    libcurl_stays_in_its_folder,
    utf8proc_stays_in_one_file,
    libpsl_stays_in_one_file,
    includes_name_the_library,
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
