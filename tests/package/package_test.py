#!/usr/bin/env python3
"""Checks what is installed, and every way in which a host outside the project can build with the library.

package_test.py --build BUILD --tree TOP --compilers CXX[,CXX...] --disk-cache ON|OFF [--full] [TEST...]

BUILD is a release build. Without --full, each case is compiled in one mode, and the embedded library is configured but mostly not built. With --full, all compilers are used, with C++20 and C++23, with and without exceptions and RTTI.
"""

import argparse
import pathlib
import re
import shutil
import sys
import tempfile
import unittest

import consumers
from consumers import HERE, Failed, Mode, build, configure, run

ARGUMENTS = argparse.ArgumentParser()
ARGUMENTS.add_argument("--build", type=pathlib.Path, required=True)
ARGUMENTS.add_argument("--tree", type=pathlib.Path, required=True)
ARGUMENTS.add_argument("--compilers", type=lambda text: text.split(","), required=True)
ARGUMENTS.add_argument("--disk-cache", choices=["ON", "OFF"], required=True)
ARGUMENTS.add_argument("--full", action="store_true")
ARGUMENTS.add_argument("tests", nargs="*")
GIVEN = ARGUMENTS.parse_args()

CMAKE_FILES = """FindVrkBrotli.cmake FindVrkPsl.cmake FindVrkUtf8proc.cmake VanticRestKit-shared-release.cmake VanticRestKit-shared.cmake
VanticRestKit-static-release.cmake VanticRestKit-static.cmake VanticRestKitConfig.cmake
VanticRestKitConfigVersion.cmake""".split()
MANUAL_PAGES = """vantic vantic-types vantic-decode vantic-explain vantic-request vantic-load vantic-user vantic-help
vantic-manual""".split()
COMPLETIONS = {"share/bash-completion/completions/vantic", "share/zsh/site-functions/_vantic",
               "share/zsh/vendor-completions/_vantic",
               "share/fish/vendor_completions.d/vantic.fish"}  # fmt: skip


class Folder(unittest.TestCase):
    """Each test has a separate folder."""

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)

    def modes(self, quick):
        """Each mode to test, with a folder for it."""
        for mode in consumers.matrix(GIVEN.compilers) if GIVEN.full else [quick]:
            print(f"  {mode}", file=sys.stderr)
            yield mode, pathlib.Path(tempfile.mkdtemp(dir=self.folder))

    def assert_works(self, program):
        printed = run(program)
        self.assertIn(": yes\n", printed)
        self.assertNotIn(": no\n", printed)


class Installed(Folder):
    """The installed tree is moved before the tests, since it must not contain its original path."""

    @classmethod
    def setUpClass(cls):
        cls.work = pathlib.Path(tempfile.mkdtemp())
        cls.addClassCleanup(shutil.rmtree, cls.work)
        run("cmake", "--install", GIVEN.build, "--prefix", cls.work / "first")
        cls.prefix = (cls.work / "first").rename(cls.work / "moved")

    def pkg_config(self, *arguments, prefix=None):
        path = (prefix or self.prefix) / "lib/pkgconfig"
        shared = run("pkg-config", "--variable", "pc_path", "pkg-config").strip()
        return run("pkg-config", *arguments, env={"PKG_CONFIG_LIBDIR": f"{path}:{shared}", "PATH": "/usr/bin:/bin"}).split()

    def test_exactly_the_public_files_are_installed(self):
        src = GIVEN.tree / "src"
        headers = (src / "VanticRestKit").rglob("*.h")
        expected = {f"include/{file.relative_to(src)}" for file in headers if "detail" not in file.parts}
        expected |= {f"lib/cmake/VanticRestKit/{file}" for file in CMAKE_FILES}
        expected |= {"lib/libVanticRestKit.a", "lib/libVanticRestKit.so", "lib/libVanticRestKit.so.VERSION"}
        expected |= {"lib/libVanticRestKitTesting.a", "lib/libVanticRestKitSampleService.a"}
        expected |= {"lib/pkgconfig/VanticRestKit.pc", "lib/pkgconfig/VanticRestKit-static.pc"}
        expected |= {"bin/vantic", "bin/sample-service", "share/doc/VanticRestKit/README.md"}
        expected |= {f"share/man/man1/{page}.1" for page in MANUAL_PAGES} | COMPLETIONS
        docs = GIVEN.tree / "docs"
        expected |= {f"share/doc/VanticRestKit/docs/{file.relative_to(docs)}" for file in docs.rglob("*.md")}
        files = {str(f.relative_to(self.prefix)) for f in self.prefix.rglob("*") if f.is_file() or f.is_symlink()}
        self.assertEqual(expected, {re.sub(r"\.so\.[0-9.]+$", ".so.VERSION", file) for file in files})

    def test_no_file_contains_a_path_of_this_machine(self):
        for folder in ("lib/cmake", "lib/pkgconfig"):
            for file in filter(pathlib.Path.is_file, (self.prefix / folder).rglob("*")):
                text = file.read_text(encoding="utf-8")
                for path in (self.work, GIVEN.tree, GIVEN.build):
                    self.assertNotIn(str(path), text, file.name)

    def test_the_installed_tools_run(self):
        self.assertIn("Video\n", run(self.prefix / "bin/vantic", "types"))
        self.assertIn("sample-service", run(self.prefix / "bin/sample-service", "--help"))

    def test_find_package_works_for_both_libraries(self):
        for mode, folder in self.modes(Mode(GIVEN.compilers[0])):
            # Without this option CMake uses -isystem, which suppresses warnings in the headers.
            configure(HERE / "consumer", folder, mode, f"-DCMAKE_PREFIX_PATH={self.prefix}",
                      "-DCMAKE_NO_SYSTEM_FROM_IMPORTED=ON")  # fmt: skip
            build(folder)
            self.assert_works(folder / "with_VanticRestKit")
            self.assert_works(folder / "with_VanticRestKit_static")
            self.assert_works(folder / "coroutines_with_VanticRestKit")
            self.assert_works(folder / "coroutines_with_VanticRestKit_static")
            self.assertTrue(consumers.needs_the_shared_library(folder / "with_VanticRestKit"))
            self.assertFalse(consumers.needs_the_shared_library(folder / "with_VanticRestKit_static"))

    def test_the_testing_kit_works_with_both_libraries(self):
        for mode, folder in self.modes(Mode(GIVEN.compilers[0], plain=True)):
            configure(HERE / "testing", folder, mode, f"-DCMAKE_PREFIX_PATH={self.prefix}",
                      "-DCMAKE_NO_SYSTEM_FROM_IMPORTED=ON")  # fmt: skip
            build(folder)
            for kind in ("", "_static"):
                self.assert_works(folder / f"tests_with_VanticRestKit{kind}")

    def test_find_package_reports_why_there_is_no_testing_kit(self):
        without = self.folder / "without"
        shutil.copytree(self.prefix, without, symlinks=True)
        (without / "lib/libVanticRestKitTesting.a").unlink()
        found = self.reasons(prefix=without)
        self.assertEqual("not found: VanticRestKit was installed without its testing kit.", found["COMPONENTS;Testing"])
        self.assertTrue(found["COMPONENTS;shared;OPTIONAL_COMPONENTS;Testing"].startswith("found"))
        shutil.rmtree(self.folder / "reasons")
        found = self.reasons("-DCMAKE_DISABLE_FIND_PACKAGE_OpenSSL=ON")
        self.assertIn("needs cpp-httplib and OpenSSL 3", found["COMPONENTS;SampleService"])
        self.assertTrue(found["COMPONENTS;Testing"].startswith("found"))

    def reasons(self, *definitions, prefix=None):
        printed = configure(HERE / "reasons", self.folder / "reasons", Mode(GIVEN.compilers[0]),
                            f"-DCMAKE_PREFIX_PATH={prefix or self.prefix}", *definitions)  # fmt: skip
        return dict(line[3:].split(" -> ") for line in printed.splitlines() if " -> " in line)

    def test_find_package_accepts_a_request_or_reports_the_reason(self):
        found = self.reasons()
        for accepted in ("1.0", "1.0...<2", "1...<2;COMPONENTS;shared", "COMPONENTS;static",
                         "1.0;COMPONENTS;shared;OPTIONAL_COMPONENTS;python", "COMPONENTS;trelvo",
                         "COMPONENTS;shared;lumeno"):  # fmt: skip
            self.assertTrue(found[accepted].startswith("found 1."), (accepted, found[accepted]))
        for refused in ("2", "2...<3", "0.5...<1"):
            self.assertTrue(found[refused].startswith("not found"), (refused, found[refused]))
        self.assertEqual(
            "not found: VanticRestKit has no component python; its components are shared, static, Testing and SampleService, "
            "and the services lumeno, trelvo, recs and kavro.",
            found["1.0;COMPONENTS;python"],
        )

    def test_find_package_names_the_missing_dependencies_of_the_static_library(self):
        optional = ["SQLite3"] if GIVEN.disk_cache == "ON" else []
        for library in ("CURL", "ZLIB", "VrkBrotli", "VrkUtf8proc", "VrkPsl", *optional):
            with self.subTest(library):
                found = self.reasons(f"-DCMAKE_DISABLE_FIND_PACKAGE_{library}=ON")
                self.assertIn(f"because dependency {library} could not be found", found["COMPONENTS;static"])
                self.assertTrue(found["COMPONENTS;shared;OPTIONAL_COMPONENTS;static"].startswith("found"))
                self.assertTrue(found["1.0"].startswith("found"))
            shutil.rmtree(self.folder / "reasons")

    def test_pkg_config_works_for_both_libraries(self):
        run("pkg-config", "--validate", self.prefix / "lib/pkgconfig/VanticRestKit.pc")
        include = [f"-I{self.prefix}/lib/pkgconfig/../../include"]
        for package in ("VanticRestKit", "VanticRestKit-static"):
            self.assertEqual(include, self.pkg_config("--cflags", package))
        # -lVanticRestKit selects the archive if the folder has no shared library.
        only_static = self.folder / "only-static"
        shutil.copytree(self.prefix, only_static, symlinks=True)
        for file in only_static.glob("lib/*.so*"):
            file.unlink()
        links = {
            "shared": [*self.pkg_config("--libs", "VanticRestKit"), f"-Wl,-rpath,{self.prefix}/lib"],
            "static": self.pkg_config("--static", "--libs", "VanticRestKit", prefix=only_static),
            "static by name": self.pkg_config("--libs", "VanticRestKit-static"),
        }
        for mode, folder in self.modes(Mode(GIVEN.compilers[0], 23, plain=True)):
            run(*mode.command(), *include, "-c", HERE / "consumer/main.cpp", "-o", folder / "main.o")
            for name, link in links.items():
                run(mode.compiler, folder / "main.o", *link, "-o", folder / name)
                self.assert_works(folder / name)
                self.assertEqual(name == "shared", consumers.needs_the_shared_library(folder / name), name)

    def test_sqlite_is_a_dependency_only_if_it_was_built_with(self):
        needed = run("readelf", "-d", self.prefix / "lib/libVanticRestKit.so")
        self.assertEqual(GIVEN.disk_cache == "ON", "libsqlite3" in needed)
        for package in ("VanticRestKit", "VanticRestKit-static"):
            links = self.pkg_config("--static", "--libs", package)
            self.assertEqual(GIVEN.disk_cache == "ON", "-lsqlite3" in links, links)

    def test_a_warning_in_a_header_is_detected(self):
        include = self.folder / "include"
        shutil.copytree(self.prefix / "include", include)
        source = self.folder / "main.cpp"
        source.write_text("#include <VanticRestKit/platform/url/URL.h>\n", encoding="utf-8")
        header = include / "VanticRestKit/platform/url/URL.h"
        for mode, _ in self.modes(Mode(GIVEN.compilers[0])):
            command = [*mode.command(), f"-I{include}", "-fsyntax-only", source]
            sound = header.read_text(encoding="utf-8")
            run(*command)
            header.write_text(sound + "inline int narrowed(long value) { return value; }\n", encoding="utf-8")
            self.assertRaisesRegex(Failed, "-Werror", run, *command)
            header.write_text(sound, encoding="utf-8")


class Embedded(Folder):
    """The host embeds the tree. Its CMakeLists.txt fails if it sees more than the library."""

    def embed(self, folder, how, mode, *definitions, flags=()):
        printed = configure(HERE / "embedding", folder, mode, f"-DHOW={how}", f"-DTREE={GIVEN.tree}", *definitions,
                            flags=flags)  # fmt: skip
        self.assertIn("none leaks", printed)

    def test_nothing_leaks_into_a_host(self):
        for how in ("add_subdirectory", "FetchContent"):
            for standard in (17, 20, 23):
                with self.subTest(f"{how} C++{standard}"):
                    self.embed(self.folder / f"{how}{standard}", how, Mode(GIVEN.compilers[0], standard))
        # Builds one source of the library, and one of the host, which requires less than C++20.
        build(self.folder / "add_subdirectory17", "vrk_module_platform_url", "CMakeFiles/host.dir/main.cpp.o")

    def test_the_testing_kit_is_embedded_on_request(self):
        folder = self.folder / "kit"
        with self.assertRaisesRegex(Failed, "package nlohmann_json is looked for") as failure:
            self.embed(folder, "add_subdirectory", Mode(GIVEN.compilers[0]), "-DVRK_TESTING=ON")
        leaks = re.findall(r"^ +((?:variable|directory|target|test|package|imported) .*)$", str(failure.exception), re.M)
        # Variables that CMake caches for the packages of the kit: nlohmann-json, and cpp-httplib from pkg-config.
        own = re.compile(r"variable (__pkg_config|httplib_|pkgcfg_|PKG_CONFIG_|PkgConfig_|nlohmann_json_)")
        self.assertEqual(["package nlohmann_json is looked for"], [leak for leak in leaks if not own.match(leak)])

    def test_a_leak_is_detected(self):
        with self.assertRaisesRegex(Failed, "leaks into its host"):
            self.embed(self.folder / "host", "add_subdirectory", Mode(GIVEN.compilers[0]), "-DVRK_TESTS=ON")

    @unittest.skipUnless(GIVEN.full, "builds the whole library several times; with --full")
    def test_hosts_build_and_run(self):
        """The library is compiled with its host's options, or without RTTI, which the host then loses too."""
        for number, mode in enumerate(consumers.pairs(GIVEN.compilers)):
            how = ("add_subdirectory", "FetchContent")[number % 2]
            shared = number >= 2
            by_option = mode.plain and mode.compiler == GIVEN.compilers[0]
            with self.subTest(f"{how} {mode} {'shared' if shared else 'static'}"):
                print(f"  {how} {mode} {'shared' if shared else 'static'}", file=sys.stderr)
                folder = self.folder / str(number)
                self.embed(folder, how, mode, f"-DBUILD_SHARED_LIBS={'ON' if shared else 'OFF'}",
                           f"-DVRK_NO_EXCEPTIONS={'ON' if by_option else 'OFF'}",
                           flags=consumers.PLAIN if mode.plain and not by_option else ())  # fmt: skip
                build(folder, "host")
                self.assert_works(folder / "host")
                self.assertEqual(shared, consumers.needs_the_shared_library(folder / "host"))
                shutil.rmtree(folder)


class WithoutDiskCache(Folder):
    @unittest.skipUnless(GIVEN.full, "builds the whole library; with --full")
    def test_the_library_is_built_installed_and_linked_without_sqlite(self):
        folder, prefix = self.folder / "build", self.folder / "prefix"
        mode = Mode(GIVEN.compilers[0])
        configure(GIVEN.tree, folder, mode, "-DVRK_DISK_CACHE=OFF", "-DVRK_APPS=OFF", "-DVRK_TESTS=OFF",
                  "-DCMAKE_DISABLE_FIND_PACKAGE_SQLite3=ON", flags=())  # fmt: skip
        build(folder)
        run("cmake", "--install", folder, "--prefix", prefix)
        self.assertNotIn("sqlite", run("readelf", "-d", prefix / "lib/libVanticRestKit.so"))
        for file in filter(pathlib.Path.is_file, (prefix / "lib").rglob("*")):
            if file.suffix in (".cmake", ".pc") and file.name != "VanticRestKitConfig.cmake":
                self.assertNotIn("sqlite", file.read_text(encoding="utf-8").lower(), file.name)
        host = self.folder / "host"
        configure(HERE / "consumer", host, mode, f"-DCMAKE_PREFIX_PATH={prefix}",
                  "-DCMAKE_DISABLE_FIND_PACKAGE_SQLite3=ON")  # fmt: skip
        build(host)
        for kind in ("VanticRestKit", "VanticRestKit_static"):
            self.assert_works(host / f"with_{kind}")


class Reduced(Folder):
    @unittest.skipUnless(GIVEN.full, "builds a part of the library; with --full")
    def test_the_library_is_built_installed_and_used_with_one_service(self):
        folder, prefix = self.folder / "build", self.folder / "prefix"
        mode = Mode(GIVEN.compilers[0])
        configure(GIVEN.tree, folder, mode, "-DVRK_SERVICES=lumeno", flags=())
        build(folder)
        run("cmake", "--install", folder, "--prefix", prefix)
        symbols = run("nm", "-DC", prefix / "lib/libVanticRestKit.so")
        self.assertIn("VanticRestKit::Endpoint::Video", symbols)
        for name in ("Trelvo", "UserClient", "KAVRO", "Recommendation"):
            self.assertNotIn(f"VanticRestKit::{name}", symbols)
        # This host uses the catalogue, and includes VanticRestKit.h.
        host = self.folder / "host"
        configure(HERE / "consumer", host, mode, f"-DCMAKE_PREFIX_PATH={prefix}")
        build(host)
        for kind in ("VanticRestKit", "VanticRestKit_static"):
            self.assert_works(host / f"with_{kind}")
        self.assert_refuses_trelvo(prefix, mode)

    def assert_refuses_trelvo(self, prefix, mode):
        printed = configure(HERE / "reasons", self.folder / "reasons", mode, f"-DCMAKE_PREFIX_PATH={prefix}")
        self.assertRegex(printed, "COMPONENTS;shared;lumeno -> found")
        self.assertRegex(
            printed, "COMPONENTS;trelvo -> not found: VanticRestKit was built without the service trelvo; "
            "its VRK_SERVICES is 'lumeno'")  # fmt: skip
        source = self.folder / "host.cpp"
        source.write_text("#include <VanticRestKit/trelvo/Trelvo.h>\n", encoding="utf-8")
        reason = "VanticRestKit was built without the service trelvo"
        self.assertRaisesRegex(Failed, reason, run, mode.compiler, "-std=c++20", f"-I{prefix}/include", "-fsyntax-only", source)
        self.assertIn("services=lumeno\n", (prefix / "lib/pkgconfig/VanticRestKit.pc").read_text(encoding="utf-8"))


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *GIVEN.tests], verbosity=2)
