"""Consumers outside the project: their compiler options, and how to run one."""

import itertools
import os
import pathlib
import shutil
import subprocess

HERE = pathlib.Path(__file__).resolve().parent

WARNINGS = """-Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast -Wnon-virtual-dtor
-Woverloaded-virtual -Wnull-dereference -Wdouble-promotion -Wcast-align -Wcast-qual -Wformat=2 -Wunused -Wundef
-Wimplicit-fallthrough -Wextra-semi -Wredundant-decls -Wfloat-equal -Wdeprecated -Wsuggest-override
-Wzero-as-null-pointer-constant -Werror""".split()
GCC_WARNINGS = """-Wduplicated-cond -Wduplicated-branches -Wlogical-op -Wuseless-cast -Wctor-dtor-privacy
-Wstrict-null-sentinel -Wredundant-tags -Wmismatched-tags -Wcomma-subscript""".split()
CLANG_WARNINGS = """-Wshadow-all -Wrange-loop-analysis -Wthread-safety -Wunreachable-code-aggressive
-Wheader-hygiene -Wmissing-noreturn -Winconsistent-missing-destructor-override""".split()
PLAIN = ["-fno-exceptions", "-fno-rtti"]


class Failed(AssertionError):
    """A command exited with a code other than 0. Contains its whole output."""


def run(*command, **options):
    """Runs a command and returns its output, including errors."""
    command = [str(part) for part in command]
    result = subprocess.run(
        command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False, **options
    )
    if result.returncode:
        raise Failed(f"{' '.join(command)}\nended with {result.returncode}\n{result.stdout}")
    return result.stdout


def is_clang(compiler):
    return "clang" in run(compiler, "--version")


class Mode:
    """How a host is compiled: compiler, language standard, and whether with exceptions and RTTI."""

    def __init__(self, compiler, standard=20, plain=False):
        self.compiler, self.standard, self.plain = compiler, standard, plain

    def __str__(self):
        return f"{pathlib.Path(self.compiler).name} C++{self.standard}{' ' + ' '.join(PLAIN) if self.plain else ''}"

    def options(self):
        """Optimised, since some warnings come from the optimiser."""
        own = CLANG_WARNINGS if is_clang(self.compiler) else GCC_WARNINGS
        return ["-O2", *WARNINGS, *own, *(PLAIN if self.plain else [])]

    def command(self):
        return [self.compiler, f"-std=c++{'2b' if self.standard == 23 else self.standard}", *self.options()]


def matrix(compilers):
    return [Mode(*each) for each in itertools.product(compilers, (20, 23), (False, True))]


def pairs(compilers):
    """Fewer modes: every compiler with each standard, and each standard with and without exceptions."""
    return [mode for mode in matrix(compilers) if mode.plain == ((mode.standard == 23) == (mode.compiler == compilers[0]))]


def configure(source, folder, mode, *definitions, flags=None):
    launcher = ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"] if shutil.which("ccache") else []
    return run(
        "cmake", "-G", "Ninja", "-S", source, "-B", folder, *launcher,
        f"-DCMAKE_CXX_COMPILER={mode.compiler}",
        f"-DCMAKE_CXX_STANDARD={mode.standard}",
        f"-DCMAKE_CXX_FLAGS={' '.join(mode.options() if flags is None else flags)}",
        *definitions,
    )  # fmt: skip


def build(folder, *targets):
    return run("cmake", "--build", folder, "--parallel", str(os.cpu_count()), *(["--target", *targets] if targets else []))


def needs_the_shared_library(program):
    return "libVanticRestKit" in run("readelf", "-d", program)
