#!/usr/bin/env python3
"""Checks that the library builds with each supported toolchain, installs, and works for a host built in the same way.

toolchains.py --tree TOP [NAME...]      without names: every toolchain on this machine

Prints a row of the table in docs/platforms.md for each: the size of the stripped shared library, and the number of steps
that the host did with the shared and with the static library.
"""

import argparse
import pathlib
import shutil
import sys
import tempfile

from consumers import HERE, Failed, run

ARGUMENTS = argparse.ArgumentParser()
ARGUMENTS.add_argument("--tree", type=pathlib.Path, required=True)
ARGUMENTS.add_argument("names", nargs="*")
GIVEN = ARGUMENTS.parse_args()

# Name, compiler, language standard, options of CMake for the library and for the host.
LTO = ["-DCMAKE_INTERPROCEDURAL_OPTIMIZATION=ON", "-DCMAKE_POLICY_DEFAULT_CMP0069=NEW"]
TOOLCHAINS = [
    ("gcc-20", "g++-12", 20, []),
    ("gcc-23", "g++-12", 23, []),
    ("gcc-os", "g++-12", 20, ["-DCMAKE_BUILD_TYPE=MinSizeRel"]),
    ("gcc-lto", "g++-12", 20, LTO),
    ("clang14-20", "clang++-14", 20, []),
    ("clang14-23", "clang++-14", 23, []),
    ("clang19-20", "clang++-19", 20, []),
    ("clang19-23", "clang++-19", 23, []),
    ("clang19-os", "clang++-19", 20, ["-DCMAKE_BUILD_TYPE=MinSizeRel"]),
    ("clang19-lto", "clang++-19", 20, [*LTO, "-DVRK_LINKER=lld-19"]),
]


def configure(source, folder, compiler, standard, options):
    launcher = ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"] if shutil.which("ccache") else []
    if "lld" in " ".join(options) and source != GIVEN.tree:
        options = [*options, "-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld-19"]
    # A compiler without a path, such as clang-14, is found by the system.
    run("cmake", "-G", "Ninja", "-S", source, "-B", folder, "-Wno-dev", *launcher, f"-DCMAKE_CXX_COMPILER={compiler}",
        f"-DCMAKE_CXX_STANDARD={standard}", *options)  # fmt: skip


def build(folder):
    # Uses ninja's default number of jobs.
    run("cmake", "--build", folder)


def steps_of(printed):
    """The number of steps of a host, all of which must have succeeded."""
    done = printed.count(": yes\n")
    if not done or ": no\n" in printed:
        raise Failed(f"the host printed\n{printed}")
    return done


def row(work, compiler, standard, options):
    library, prefix, host = work / "library", work / "prefix", work / "host"
    configure(GIVEN.tree, library, compiler, standard,
              ["-DVRK_APPS=OFF", "-DVRK_TESTS=OFF", "-DVRK_TESTING=OFF", *options])  # fmt: skip
    build(library)
    run("cmake", "--install", library, "--prefix", prefix)
    configure(HERE / "consumer", host, compiler, standard, [f"-DCMAKE_PREFIX_PATH={prefix}", *options])
    build(host)
    steps = {steps_of(run(host / f"with_{kind}")) for kind in ("VanticRestKit", "VanticRestKit_static")}
    run("strip", "-o", work / "stripped", prefix / "lib/libVanticRestKit.so")
    size = (work / "stripped").stat().st_size
    if len(steps) != 1:
        raise Failed(f"the hosts did different steps: {steps}")
    return f"{size / 1e6:.2f} MB, shared and static host: all {steps.pop()} steps"


def main():
    failures = 0
    tried = 0
    for name, compiler, standard, options in TOOLCHAINS:
        if GIVEN.names and name not in GIVEN.names:
            continue
        if not shutil.which(compiler):
            print(f"{name}: {compiler} is not installed", flush=True)
            continue
        tried += 1
        work = pathlib.Path(tempfile.mkdtemp())
        try:
            print(f"{name}: {row(work, compiler, standard, options)}", flush=True)
        except Failed as failure:
            failures += 1
            print(f"{name}: failed\n{str(failure)[-4000:]}", flush=True)
        finally:
            shutil.rmtree(work)
    print(f"{tried - failures} passed, {failures} failed")
    return 1 if failures or not tried else 0


if __name__ == "__main__":
    sys.exit(main())
