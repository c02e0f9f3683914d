"""The source tree for the rules: the includes and the module of each file."""

import pathlib
import re

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)
OURS = "VanticRestKit/"
# From the lowest to the highest. The services are on the same level. The testing kit is a separate archive above them.
LAYERS = ["platform", "Core", "lumeno", "trelvo", "kavro", "recs", "Testing"]


class Sources:
    def __init__(self, src):
        self.src = pathlib.Path(src)
        self.files = sorted(
            path.relative_to(self.src)
            for path in self.src.rglob("*")
            if path.suffix in (".h", ".cpp", ".inc")
        )

    def text(self, file):
        return (self.src / file).read_text(encoding="utf-8")

    def includes(self, file):
        """(quote, name) of each include, as written."""
        return INCLUDE.findall(self.text(file))

    def our_includes(self, file):
        """Paths below src/ of the project's own headers that a file includes."""
        return [pathlib.PurePath(name[len(OURS):]) for _, name in self.includes(file) if name.startswith(OURS)]

    def public_headers(self):
        return [file for file in self.files if file.suffix == ".h" and "detail" not in file.parts]


def code_only(text):
    """The text without comments and without the contents of string and character literals."""
    pattern = re.compile(r'//[^\n]*|/\*.*?\*/|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\'', re.DOTALL)

    def blank(found):
        return "\n" * found.group().count("\n") if found.group().startswith("/") else '""'

    return pattern.sub(blank, text)

