"""Describes the binary interface of the shared library as text: what a host relies on that was compiled with one version and runs with another.

Three lists, each generated from compiler output rather than from the sources:
  symbols   the exported functions and objects, from the shared library. Copies of inline functions are left out.
  layouts   every class and enumeration of the public headers: size, bases, fields with their offsets and types,
            enumerators with their values. From the debug information of one file that includes all headers, read by
            abidw.
  tables    the virtual functions of each class in their order, from the compiler's own listing.
"""

import pathlib
import re
import subprocess
import xml.etree.ElementTree

LIBRARY = "VanticRestKit::"
# One exported function, because abidw describes no file without one. Only its types matter.
SOURCE = """#include <VanticRestKit/VanticRestKit.h>
__attribute__((visibility("default"))) void anchor() {}
"""
COMPILE = ["-std=c++20", "-O0", "-g", "-gdwarf-4", "-fPIC", "-shared", "-fvisibility=hidden",
           "-fno-eliminate-unused-debug-types", "-femit-class-debug-always", "-fdump-lang-class", "-Wl,--unresolved-symbols=ignore-all"]
SHORTER = ((re.compile(r"std::(__cxx11::)?basic_string<char, std::char_traits<char>, std::allocator<char> ?>"), "std::string"),
           (re.compile(r"std::(__cxx11::)?basic_string_view<char, std::char_traits<char> ?>"), "std::string_view"),
           (re.compile(r"std::vector<(.*), std::allocator<\1 ?> ?>"), r"std::vector<\1>"),
           (re.compile(r"std::chrono::time_point<std::chrono::_V2::system_clock, std::chrono::duration<double, std::ratio<1, 1> ?> ?>"),
            "VanticRestKit::Date"),
           (re.compile(r" >"), ">"))


def run(*command, **options):
    done = subprocess.run(command, capture_output=True, text=True, **options)
    if done.returncode != 0:
        raise RuntimeError(f"{command[0]} failed: {done.stderr}")
    return done.stdout


def shortened(name):
    before = None
    while before != name:
        before = name
        for pattern, word in SHORTER:
            name = pattern.sub(word, name)
    return name


def is_public(name):
    """Whether hosts can name the type: it belongs to the library, not to a detail namespace, and is not a template instance."""
    return name.startswith(LIBRARY) and "detail::" not in name and "<" not in name and "anonymous" not in name


def symbols(library):
    """The demangled exported symbols. Symbols with the same name, such as the two forms of a constructor, count as one."""
    lines = run("nm", "-D", "--defined-only", library).splitlines()
    names = [line.split()[-1].split("@")[0] for line in lines if line.split()[-2] != "W"]
    return sorted({shortened(name) for name in run("c++filt", input="\n".join(names)).splitlines()})


class Types:
    """The types in a description by abidw, by id."""

    def __init__(self, root):
        self.elements, self.scopes = {}, {}
        self.collect(root, "")

    def collect(self, element, scope):
        for child in element:
            inner = scope
            if child.tag in ("namespace-decl", "class-decl", "union-decl", "enum-decl"):
                inner = scope + child.get("name", "") + "::"
            if child.get("id"):
                self.elements[child.get("id")] = child
                self.scopes[child.get("id")] = scope
            self.collect(child, inner)

    def name(self, identity):
        element = self.elements.get(identity)
        if element is None:
            return "void"
        of = element.get("type-id")
        if element.tag == "pointer-type-def":
            return self.name(of) + "*"
        if element.tag == "reference-type-def":
            return self.name(of) + ("&" if element.get("kind") == "lvalue" else "&&")
        if element.tag == "qualified-type-def":
            words = [word for word in ("const", "volatile") if element.get(word) == "yes"]
            return " ".join(words + [self.name(of)])
        if element.tag == "array-type-def":
            return self.name(of) + "[" + element.get("dimensions", "") + "]"
        if element.tag == "function-type":
            parameters = [self.name(part.get("type-id")) for part in element.findall("parameter")]
            return self.name(element.find("return").get("type-id")) + "(" + ", ".join(parameters) + ")"
        return shortened(self.scopes[identity] + element.get("name", "?"))


def layout_of_class(types, identity, element):
    yield f"{types.name(identity)}: {int(element.get('size-in-bits', 0)) // 8} bytes"
    for base in element.findall("base-class"):
        virtual = "virtual base" if base.get("is-virtual") == "yes" else "base"
        yield f"    {virtual} {types.name(base.get('type-id'))} at {int(base.get('layout-offset-in-bits', 0)) // 8}"
    for member in element.findall("data-member"):
        if member.get("static") != "yes":
            field = member.find("var-decl")
            offset = int(member.get("layout-offset-in-bits", 0)) // 8
            yield f"    {offset} {types.name(field.get('type-id'))} {field.get('name')}"


def layout_of_enumeration(types, identity, element):
    underlying = types.elements[element.find("underlying-type").get("type-id")]
    yield f"{types.name(identity)}: {int(underlying.get('size-in-bits')) // 8} bytes"
    for enumerator in element.findall("enumerator"):
        yield f"    {enumerator.get('name')} = {enumerator.get('value')}"


def layouts(description):
    types = Types(xml.etree.ElementTree.fromstring(description))
    found = {}
    for identity, element in types.elements.items():
        if element.get("is-declaration-only") == "yes" or not is_public(types.name(identity)):
            continue
        if element.tag == "class-decl":
            found[types.name(identity)] = list(layout_of_class(types, identity, element))
        elif element.tag == "enum-decl":
            found[types.name(identity)] = list(layout_of_enumeration(types, identity, element))
    return [line for name in sorted(found) for line in found[name]]


def tables(listing):
    """The virtual functions of each class from the compiler's listing, without offsets and type information."""
    lines, wanted = [], False
    for line in listing.splitlines():
        if line.startswith("Vtable for "):
            name = line.removeprefix("Vtable for ")
            wanted = is_public(name)
            if wanted:
                lines.append(f"{name}: virtual functions")
        elif not line.strip():
            wanted = False
        elif wanted and (slot := re.match(r"\d+ +\(int \(\*\)\(\.\.\.\)\)([\w:~]*[A-Za-z_~]\w*)$", line)):
            lines.append("    " + ("pure" if slot[1] == "__cxa_pure_virtual" else slot[1]))
    return lines


def describe_headers(include_root, compiler, folder):
    """The layouts and the tables of the public headers, compiled in `folder`."""
    folder, include_root = pathlib.Path(folder), pathlib.Path(include_root).resolve()
    (folder / "interface.cpp").write_text(SOURCE)
    run(compiler, *COMPILE, "-I", str(include_root), "interface.cpp", "-o", "interface.so", cwd=folder)
    description = run("abidw", "--load-all-types", "--headers-dir", str(include_root / "VanticRestKit"),
                      "--drop-private-types", "--no-corpus-path", "--no-comp-dir-path", "--no-show-locs", "interface.so",
                      cwd=folder)
    listing = next(folder.glob("*.class")).read_text()
    return layouts(description) + tables(listing)
