#!/usr/bin/env python3
"""Judges who includes whom.   layers.py SRC RULE"""

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
    return None


def arrows(sources):
    """Every include of one of our files by another; the umbrella header, which includes all, aside."""
    for file in sources.files:
        if file == UMBRELLA:
            continue
        for included in sources.our_includes(file):
            if included != FOR_ALL:
                yield file, included


def layers_point_down(sources):
    """platform knows nothing of Core, Core nothing of the services, no service another one."""
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


def lumeno_rooms_keep_their_order(sources):
    """A room of lumeno includes only rooms above it in lumeno/CMakeLists.txt; Endpoints names entities only."""
    listed = re.findall(r"add_subdirectory\((\w+)\)", sources.text("lumeno/CMakeLists.txt"))
    order = {room: place for place, room in enumerate(["Endpoints"] + [room for room in listed if room != "Endpoints"])}
    for file, included in arrows(sources):
        if file.parts[0] != "lumeno" or included.parts[0] != "lumeno":
            continue
        above, below = file.parts[1], included.parts[1]
        for room in (above, below):
            if room not in order:
                yield f"{file}: {room} is not in the list of rooms"
        if order.get(below, 0) > order.get(above, 0):
            yield f"{file} includes {included}: {below} comes behind {above} in the list of rooms"


def rooms_include_only_what_they_depend_on(sources):
    """What a room includes is in its DEPENDS, or in theirs."""
    depends = {}
    for listing in sources.src.rglob("CMakeLists.txt"):
        for name, arguments in re.findall(r"vrk_room\((\w+)([^)]*)\)", listing.read_text(encoding="utf-8")):
            rooms = re.search(r"DEPENDS\s+((?:\w+\s*)*?)(?:LIBRARIES|$)", arguments.strip() + "\n", re.DOTALL)
            depends[name] = set(rooms.group(1).split()) if rooms else set()

    def reached(room, seen):
        for below in depends.get(room, ()):
            if below not in seen:
                seen.add(below)
                reached(below, seen)
        return seen

    for room, direct in depends.items():
        if room in reached(room, set()):
            yield f"{room} depends on itself"
        for below in direct - set(depends):
            yield f"{room} depends on {below}, which is no room"
    def room_of(file):
        """The innermost folder that is a room; the others belong to the room around them."""
        names = ["_".join(file.parts[:depth]) for depth in range(len(file.parts) - 1, 0, -1)]
        return next((name for name in names if name in depends), names[0] if names else "")

    for file, included in arrows(sources):
        # Endpoints is no room: each of its functions stands in the room of what it gives.
        if file.parts[:2] == ("lumeno", "Endpoints") or included.parts[:2] == ("lumeno", "Endpoints"):
            continue
        room, other = room_of(file), room_of(included)
        if room == other:
            continue
        if other not in reached(room, set()):
            yield f"{file} includes {included}, but {room} does not depend on {other}"


def libcurl_stays_in_its_folder(sources):
    """libcurl is included below platform/http/curl and nowhere else."""
    for file in sources.files:
        for _, name in sources.includes(file):
            if name.startswith("curl/") and file.parts[:3] != ("platform", "http", "curl"):
                yield f"{file} includes <{name}>"


def utf8proc_stays_in_one_file(sources):
    """At most one file knows utf8proc."""
    files = [file for file in sources.files if any(name == "utf8proc.h" for _, name in sources.includes(file))]
    if len(files) > 1:
        yield "included by " + ", ".join(map(str, files))


def includes_name_the_library(sources):
    """Our files are included as <VanticRestKit/...>, also by each other, so that nothing collides in a host."""
    for file in sources.files:
        for quote, name in sources.includes(file):
            if quote == '"':
                yield f'{file} includes "{name}"'
        for included in sources.our_includes(file):
            if not (sources.src / included).is_file():
                yield f"{file} includes {included}, which does not exist"


RULES = [
    layers_point_down,
    lumeno_rooms_keep_their_order,
    rooms_include_only_what_they_depend_on,
    libcurl_stays_in_its_folder,
    utf8proc_stays_in_one_file,
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
