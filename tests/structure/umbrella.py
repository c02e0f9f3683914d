"""Generates the text of the umbrella header from the tree."""

import pathlib

from sources import LAYERS

# Headers that a host includes explicitly.
BY_NAME = {"platform/async/StdFuture.h", "platform/async/Task.h"}

HEAD = """#pragma once

/// \\file
/// All of the library in one include. A host that counts its compile time includes the headers that it uses.

"""


def umbrella_text(sources):
    umbrella = pathlib.PurePath("VanticRestKit.h")
    headers = [header for header in sources.public_headers() if header != umbrella and str(header) not in BY_NAME]
    groups = []
    for layer in ["", *LAYERS]:
        if layer == "Testing":
            continue
        group = [h for h in headers if (h.parts[0] if len(h.parts) > 1 else "") == layer]
        if group:
            # Case-insensitive, like clang-format.
            group.sort(key=lambda header: str(header).lower())
            groups.append("".join(f"#include <VanticRestKit/{header}>\n" for header in group))
    return HEAD + "\n".join(groups)
