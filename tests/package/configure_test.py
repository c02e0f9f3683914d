#!/usr/bin/env python3
"""Checks that configuring fails with the reason if the library cannot be built with the standard library or libcurl.

configure_test.py --tree TOP --compiler CXX --curl-headers FOLDER

Standard headers and libcurl are replaced by stubs that lack one thing each.
"""

import argparse
import pathlib
import re
import shutil
import sys
import tempfile
import unittest

from consumers import Failed, run

ARGUMENTS = argparse.ArgumentParser()
for name in ("tree", "compiler", "curl-headers"):
    ARGUMENTS.add_argument(f"--{name}", type=pathlib.Path, required=True)
GIVEN = ARGUMENTS.parse_args()


class Configure(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        self.include = self.folder / "include"
        self.include.mkdir()

    def configure(self, *definitions):
        return run(
            "cmake", "-G", "Ninja", "-S", GIVEN.tree, "-B", self.folder / "build", "-Wno-dev",
            f"-DCMAKE_CXX_COMPILER={GIVEN.compiler}", f"-DCMAKE_CXX_FLAGS=-I{self.include}",
            "-DVRK_APPS=OFF", "-DVRK_TESTS=OFF", "-DVRK_TESTING=OFF", "-DVRK_INSTALL=OFF", *definitions,
        )  # fmt: skip

    def refusal(self, *definitions):
        """The output as one line, since CMake wraps long lines."""
        with self.assertRaises(Failed) as failure:
            self.configure(*definitions)
        return re.sub(r"\s+", " ", str(failure.exception))

    def test_accepts_the_libraries_of_this_machine(self):
        self.assertIn("Configuring done", self.configure())

    def test_rejects_a_standard_library_without_stop_tokens(self):
        (self.include / "stop_token").touch()
        self.assertIn("lacks std::stop_token or std::from_chars for double", self.refusal())

    def test_rejects_a_standard_library_that_cannot_parse_doubles(self):
        stub = """namespace std { struct read { const char* ptr; };
            read from_chars(const char*, const char*, int&); }\n"""
        (self.include / "charconv").write_text(stub, encoding="utf-8")
        self.assertIn("lacks std::stop_token or std::from_chars for double", self.refusal())

    def test_rejects_a_time_t_that_cannot_have_64_bits(self):
        (self.include / "ctime").write_text("namespace std { using time_t = int; }\n", encoding="utf-8")
        self.assertIn("no 64-bit time_t, so dates would end in 2038", self.refusal())

    def test_requests_a_64_bit_time_t_if_it_is_not_the_default(self):
        stub = """namespace std {
        #if _TIME_BITS == 64
        using time_t = long long;
        #else
        using time_t = int;
        #endif
        }\n"""
        (self.include / "ctime").write_text(stub, encoding="utf-8")
        self.configure("-DCMAKE_EXPORT_COMPILE_COMMANDS=ON")
        commands = (self.folder / "build/compile_commands.json").read_text(encoding="utf-8")
        self.assertIn("-D_TIME_BITS=64", commands)

    def test_rejects_a_libcurl_with_another_tls_library(self):
        source, library = self.folder / "curl.cpp", self.folder / "libcurl.so"
        source.write_text(
            """#include <curl/curl.h>
            curl_version_info_data* curl_version_info(CURLversion) {
                static curl_version_info_data data{};
                data.ssl_version = "GnuTLS/3.7.9";
                return &data;
            }\n""",
            encoding="utf-8",
        )
        run(GIVEN.compiler, "-shared", "-fPIC", f"-I{GIVEN.curl_headers}", source, "-o", library)
        reason = self.refusal("-DCURL_NO_CURL_CMAKE=ON", f"-DCURL_LIBRARY={library}")
        self.assertIn("needs a libcurl built with OpenSSL", reason)
        self.assertIn("'GnuTLS/3.7.9'", reason)

    def test_rejects_a_libcurl_that_is_too_old(self):
        headers = self.folder / "old"
        shutil.copytree(GIVEN.curl_headers / "curl", headers / "curl")
        version = headers / "curl/curlver.h"
        text = version.read_text(encoding="utf-8")
        version.write_text(re.sub(r'(LIBCURL_VERSION ")[^"]+', r"\g<1>7.87.0", text), encoding="utf-8")
        reason = self.refusal("-DCURL_NO_CURL_CMAKE=ON", f"-DCURL_INCLUDE_DIR={headers}")
        self.assertRegex(reason, r'Could NOT find CURL: Found unsuitable version "7.87.0", but required is at least "7.88"')

    def test_a_service_that_does_not_exist_is_refused(self):
        reason = self.refusal("-DVRK_SERVICES=lumeno;weather")
        self.assertIn("VRK_SERVICES lists 'weather', which is no service. The services are lumeno, trelvo", reason)

    def test_options_that_need_every_service_are_refused_if_one_is_left_out(self):
        for user in ("VRK_TESTS", "VRK_APPS", "VRK_TESTING", "VRK_BENCH"):
            with self.subTest(user):
                reason = self.refusal("-DVRK_SERVICES=lumeno;trelvo", f"-D{user}=ON")
                self.assertIn(f"{user} needs every service, but VRK_SERVICES leaves out recs, kavro.", reason)

    def syntax_of(self, *includes):
        """Compiles a source that includes these headers as a host of the reduced library would."""
        source = self.folder / "host.cpp"
        source.write_text("".join(f"#include <VanticRestKit/{name}>\n" for name in includes), encoding="utf-8")
        run(GIVEN.compiler, "-std=c++20", "-fsyntax-only", f"-I{self.folder}/build/reduced", f"-I{GIVEN.tree}/src", source)

    def test_a_header_of_an_excluded_service_fails_to_compile_with_the_reason(self):
        self.configure("-DVRK_SERVICES=recs")
        self.syntax_of("VanticRestKit.h", "recs/RecsContext.h")
        for header in ("lumeno/Video/Video.h", "trelvo/Trelvo.h", "kavro/KAVRORoutes.h"):
            with self.assertRaises(Failed) as failure:
                self.syntax_of(header)
            reason = f"VanticRestKit was built without the service {header.split('/')[0]}; add"
            self.assertIn(reason, str(failure.exception))

    def test_a_service_that_is_added_later_has_its_headers(self):
        self.configure("-DVRK_SERVICES=")
        self.configure("-DVRK_SERVICES=trelvo")
        self.syntax_of("VanticRestKit.h", "trelvo/Trelvo.h")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
