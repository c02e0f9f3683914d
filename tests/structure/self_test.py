#!/usr/bin/env python3
"""Tests the rules with small trees: each rule must accept a valid tree and find a violation."""

import pathlib
import shutil
import sys
import tempfile
import unittest

import formatting
import headers
import host
import layers
import limits
import names
import reference
import shape
import texts
from library import OURS
from sources import Sources, code_only

COMPILER = sys.argv.pop(1)

MODULES = """
vrk_module(platform/url)
vrk_module(platform/http
    SUBFOLDERS curl
    DEPENDS platform/url
    LIBRARIES CURL::libcurl)
vrk_module(Core DEPENDS platform/http)
vrk_module(lumeno/Link DEPENDS Core)
vrk_module(lumeno/Video DEPENDS lumeno/Link)
vrk_module(kavro DEPENDS Core)
"""

SOUND = {
    "CMakeLists.txt": MODULES,
    "Visibility.h": "#pragma once\n",
    "platform/url/URL.h": "#pragma once\n#include <VanticRestKit/Visibility.h>\n#include <string>\n",
    "platform/http/curl/Easy.cpp": "#include <curl/curl.h>\n#include <VanticRestKit/platform/url/URL.h>\n",
    "platform/http/detail/Inner.h": "#pragma once\n",
    "Core/Context.h": "#pragma once\n#include <VanticRestKit/platform/url/URL.h>\n",
    "lumeno/Endpoints/Endpoint.h": "#pragma once\n",
    "lumeno/Link/Link.h": "#pragma once\n#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>\n",
    "lumeno/Video/Video.h": "#pragma once\n#include <VanticRestKit/lumeno/Link/Link.h>\n",
    "kavro/Segments.h": "#pragma once\n",
}


class Tree(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        for file, text in SOUND.items():
            self.write(file, text)

    def write(self, file, text):
        path = self.folder / file
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def faults(self, rule):
        if rule in names.RULES:
            return list(rule(Sources(self.folder), self.folder / "tests"))
        if rule in headers.RULES:
            return headers.judge(self.folder, COMPILER, rule)[1]
        return list(rule(Sources(self.folder)))

    def assert_breaks(self, rule, file, text):
        self.assertEqual([], self.faults(rule))
        self.write(file, text)
        self.assertNotEqual([], self.faults(rule))

    def test_a_valid_tree_breaks_no_rule(self):
        for rule in layers.RULES:
            self.assertEqual([], self.faults(rule), rule.__name__)

    def test_the_platform_must_not_include_core(self):
        self.assert_breaks(layers.layers_point_down, "platform/url/URL.cpp", "#include <VanticRestKit/Core/Context.h>\n")

    def test_core_must_not_include_a_service(self):
        self.assert_breaks(layers.layers_point_down, "Core/X.cpp", "#include <VanticRestKit/lumeno/Link/Link.h>\n")

    def test_a_service_must_not_include_another(self):
        self.assert_breaks(layers.layers_point_down, "lumeno/Link/L.cpp", "#include <VanticRestKit/kavro/Segments.h>\n")

    def test_a_file_must_not_be_outside_the_modules(self):
        self.assert_breaks(layers.every_file_is_in_a_module, "lumeno/Other/O.h", "#pragma once\n")

    def test_endpoints_must_not_include_an_entity(self):
        self.assert_breaks(
            layers.modules_depend_on_modules_listed_before_them,
            "lumeno/Endpoints/Endpoint.h",
            "#include <VanticRestKit/lumeno/Link/Link.h>\n",
        )

    def test_a_module_must_not_include_what_it_does_not_depend_on(self):
        self.assert_breaks(
            layers.modules_include_only_what_they_depend_on,
            "platform/url/URL.cpp",
            "#include <VanticRestKit/platform/http/Session.h>\n",
        )

    def test_a_module_must_not_depend_on_one_listed_after_it(self):
        self.assert_breaks(
            layers.modules_depend_on_modules_listed_before_them,
            "CMakeLists.txt",
            MODULES.replace("vrk_module(platform/url)", "vrk_module(platform/url DEPENDS platform/http)"),
        )

    def test_libcurl_must_not_be_included_elsewhere(self):
        self.assert_breaks(layers.libcurl_stays_in_its_folder, "Core/X.cpp", "#  include <curl/curl.h>\n")

    def test_utf8proc_must_not_be_included_twice(self):
        self.write("Core/A.cpp", "#include <utf8proc.h>\n")
        self.assert_breaks(layers.utf8proc_stays_in_one_file, "Core/B.cpp", "#include <utf8proc.h>\n")

    def test_libpsl_must_not_be_included_twice(self):
        self.write("Core/A.cpp", "#include <libpsl.h>\n")
        self.assert_breaks(layers.libpsl_stays_in_one_file, "Core/B.cpp", "#include <libpsl.h>\n")

    def test_relative_includes_are_rejected(self):
        self.assert_breaks(layers.includes_name_the_library, "Core/X.cpp", '#include "Context.h"\n')

    def test_a_test_file_without_a_source_of_its_name_is_rejected(self):
        self.write("tests/lumeno/Link/LinkFieldsTest.cpp", "")
        self.write("tests/lumeno/Link/Rules.cpp", "")
        self.assert_breaks(names.tests_are_named_after_what_they_test, "tests/lumeno/Link/VideoTest.cpp", "")

    def test_heavy_standard_headers_are_rejected_in_public_headers(self):
        self.assert_breaks(texts.public_headers_include_no_heavy_header, "Core/X.h", "#include <thread>\n")

    def test_private_headers_are_rejected_in_public_headers(self):
        self.assert_breaks(
            texts.public_headers_include_nothing_private,
            "platform/http/X.h",
            "#include <VanticRestKit/platform/http/detail/Inner.h>\n",
        )

    def test_a_throw_is_found_unless_it_is_in_a_comment(self):
        self.write("Core/A.cpp", '// never throw\n/* try */ auto text = "catch \\" throw";\n')
        self.assert_breaks(texts.the_library_neither_throws_nor_asks_for_types, "Core/B.cpp", "void f() { throw 1; }\n")

    def test_a_thread_that_is_started_elsewhere_is_found(self):
        self.write("Core/A.cpp", "auto count = std::thread::hardware_concurrency();\n")
        self.write("platform/dispatch/detail/Thread.cpp", "pthread_create(&thread, &attributes, &run, start);\n")
        self.assert_breaks(texts.threads_are_started_in_one_file, "Core/B.cpp", "std::thread thread(run);\n")

    def test_a_long_file_is_found(self):
        self.assert_breaks(texts.files_are_short_enough_to_read, "Core/X.cpp", "\n" * 401)

    def test_a_header_missing_in_the_umbrella_header_is_found(self):
        from umbrella import umbrella_text

        self.write("VanticRestKit.h", "#pragma once\n")
        self.write("VanticRestKit.h", umbrella_text(Sources(self.folder)))
        self.assert_breaks(texts.the_umbrella_header_is_complete, "Core/New.h", "#pragma once\n")

    def test_a_limit_missing_in_the_page_or_without_a_test_is_found(self):
        header = "struct Limits {\n    std::uint64_t maxParts = 3;\n};\n"
        tests = ["TEST(Parts, AreCounted) {\n}\n"]
        page = "# Limits\n\n| Limit | Test |\n|---|---|\n| `maxParts` | `Parts.AreCounted` |\n\n| Other |\n|---|\n| no test |\n"
        self.assertEqual([], list(limits.faults(page, header, tests)))
        self.assertIn("maxParts", "".join(limits.faults(page.replace("maxParts", "parts"), header, tests)))
        self.assertIn("Parts.AreCounted", "".join(limits.faults(page, header, ["TEST(Parts, AreFew) {"])))
        self.assertIn("without a test", "".join(limits.faults(page.replace("`Parts.AreCounted`", "none"), header, tests)))

    def test_a_header_missing_in_the_reference_is_found(self):
        src = self.folder / "told"
        self.write("told/Core/A.h", "#pragma once\n\n/// \\file\n/// What A is,\n/// in two lines.\n")
        before = reference.printed(src).stdout
        self.assertIn("| [A.h](../src/VanticRestKit/Core/A.h) | What A is, in two lines. |", before)
        self.assertEqual([], list(reference.faults(src, before)))
        self.write("told/Core/detail/Inner.h", "#pragma once\n")
        self.assertEqual([], list(reference.faults(src, before)))
        self.write("told/Core/B.h", "#pragma once\n\n/// \\file\n/// What B is.\n")
        self.assertNotEqual([], list(reference.faults(src, before)))

    def test_a_public_header_without_a_description_is_found(self):
        self.write("told/Core/A.h", "#pragma once\n")
        self.assertIn("Core/A.h", "".join(reference.faults(self.folder / "told", "")))

    def test_a_header_that_needs_another_include_first_is_found(self):
        self.assert_breaks(headers.each_public_header_compiles_alone, "Core/X.h", "inline std::string text() { return {}; }\n")

    def test_a_third_party_header_is_found(self):
        rule = headers.public_headers_bring_only_the_standard_library
        self.assert_breaks(rule, "Core/X.h", "#include <zlib.h>\n")

    def test_a_macro_with_another_prefix_is_found(self):
        rule = headers.public_headers_bring_only_the_standard_library
        self.assert_breaks(rule, "Core/X.h", "#define EXPORTED 1\n")

    def test_a_badly_formatted_file_is_found(self):
        self.write("top/.clang-format", "BasedOnStyle: Google\n")
        self.write("top/src/X.h", "int x;\n")
        self.assertEqual([], formatting.badly_formatted(self.folder / "top", "clang-format-14"))
        self.write("top/src/X.h", "int  x ;\n")
        self.assertNotEqual([], formatting.badly_formatted(self.folder / "top", "clang-format-14"))

    def test_a_source_without_a_header_is_found(self):
        self.write("Core/ContextFrames.cpp", "")
        self.write("lumeno/Link/LinkEndpoints.cpp", "")
        self.write("lumeno/Video/AllEndpoints.cpp", "")
        self.write("platform/http/curl/Easy.h", "#pragma once\n")
        self.assert_breaks(shape.sources_lie_beside_their_headers, "Core/Contextual.cpp", "")

    def test_a_header_in_another_folder_is_not_beside_its_source(self):
        self.write("platform/http/curl/Easy.h", "#pragma once\n")
        self.assert_breaks(shape.sources_lie_beside_their_headers, "platform/http/detail/Easy.cpp", "")

    def test_a_member_of_a_class_of_another_header_is_found(self):
        self.write("Core/Context.h", "#pragma once\nclass VRK_EXPORT Context {\n    struct Part { Part(); };\n};\nclass Other;\n")
        self.write(
            "Core/Context.cpp",
            "namespace other::inner {\nstruct Mine { ~Mine(); };\nMine::~Mine() {}\n}\n"
            "int Context::size() { return Other::size(); }\nContext::Part::Part() {}\nbool inner::isOdd(int n) { return n % 2; }\n",
        )
        self.write("lumeno/Link/LinkEndpoints.cpp", "std::optional<Resource<Link>>\nEndpoint::Link(Arguments) {}\n")
        self.assert_breaks(shape.members_are_defined_beside_their_class, "Core/ContextMore.cpp", "Other::~Other() = default;\n")

    def test_an_endpoint_is_defined_in_a_source_of_endpoints(self):
        self.assert_breaks(shape.members_are_defined_beside_their_class, "lumeno/Link/Link.cpp", "Link Endpoint::Link(int) {}\n")

    def test_a_fragment_is_found(self):
        for file in Sources(self.folder).files:
            self.write(str(file), "\n" * 15)
        self.write("lumeno/Link/LinkEndpoints.cpp", "\n")
        self.write("Visibility.h", "\n")
        self.assert_breaks(shape.no_file_is_a_fragment, "Core/Context.h", "\n" * 14)

    def test_a_reason_that_is_no_longer_needed_is_found(self):
        for file in Sources(self.folder).files:
            self.write(str(file), "\n" * 15)
        self.write("Visibility.h", "\n")
        self.assert_breaks(shape.no_file_is_a_fragment, "Visibility.h", "\n" * 15)

    def test_a_test_file_not_named_as_one_is_found(self):
        sound = {
            "ATest.cpp": "TEST(A, IsFound) {}\n",
            "Support.cpp": "// TEST(\n",
            "a_test.py": "unittest.main()\n",
            "program.py": "import unittest\n",
        }
        broken = {
            "A.cpp": "TEST_F(A, IsFound) {}\n",
            "BTest.cpp": "int b;\n",
            "b.py": "if x:\n    unittest.main()\n",
            "c_test.py": "pass\n",
        }
        for file, text in sound.items():
            self.write("tests/" + file, text)
        for file, text in broken.items():
            self.assertEqual([], list(shape.tests_are_named_as_tests(self.folder / "tests")))
            self.write("tests/" + file, text)
            self.assertNotEqual([], list(shape.tests_are_named_as_tests(self.folder / "tests")))
            (self.folder / "tests" / file).unlink()

    def test_the_host_has_a_limit_of_lines(self):
        small = "// A comment\n\nint i;\n" * host.MAX_LINES
        self.write("host/pages/Page.cpp", small)
        self.assertEqual([], list(host.faults(self.folder / "host")))
        self.write("host/pages/Page.h", "int i;\n")
        self.assertNotEqual([], list(host.faults(self.folder / "host")))
        self.assertNotEqual([], list(host.faults(self.folder / "no-such-folder")))

    def test_our_symbols_are_recognised(self):
        for name in ("_ZN13VanticRestKit3URL4makeE", "_ZNK13VanticRestKit3URL4pathEv", "_ZTVN13VanticRestKit7ContextE"):
            self.assertRegex(name, OURS)
        for name in ("_ZNSt6vectorIN13VanticRestKit5ImageEE", "_ZTSSt10unique_ptrIN13VanticRestKit3URLE", "main"):
            self.assertNotRegex(name, OURS)

    def test_removing_comments_keeps_the_lines(self):
        self.assertEqual(code_only("a; // b\n/* c\nd */ e;\n").count("\n"), 3)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=0)
