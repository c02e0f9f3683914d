import pathlib
import re
import unittest

from program import TestCase, vantic

# The list of all decodable types.
LIST = pathlib.Path(__file__).resolve().parents[2] / "src/entities/DecodableTypes.h"


class Types(TestCase):
    def test_prints_each_decodable_type_on_a_line_and_no_lists(self):
        outcome = vantic("types")
        self.assertEqual(outcome.code, 0)
        names = outcome.out.splitlines()
        self.assertEqual(names, sorted(set(names)))
        listed = re.findall(r"visit\(std::type_identity<(\w+)>\(\), \"(\w+)\"\)", LIST.read_text(encoding="utf-8"))
        self.assertIn(("Video", "Video"), listed)
        self.assertEqual(sorted(name for _, name in listed), names)
        self.assertFalse([name for name in names if not name.isalnum()])

    def test_omits_enumerations_decoding_helpers_and_types_that_are_never_decoded(self):
        names = vantic("types").out.splitlines()
        for name in ["StatusTheme", "LumenoSubtype", "FailableCodable", "Empty", "CollectionItem", "ShowSummary", "Subprofile"]:
            self.assertNotIn(name, names)
            self.assert_usage_error(vantic("decode", name, stdin="{}"), name)

    def test_every_name_and_every_list_of_it_can_be_decoded_and_explained(self):
        for name in vantic("types").out.splitlines():
            with self.subTest(name):
                self.assertIn(vantic("decode", name, stdin="{}").code, (0, 1))
                self.assertEqual(vantic("decode", f"[{name}]", stdin="[]").out, "[]\n")
                self.assertEqual(vantic("explain", f"[{name}]", stdin="[]").json, {"faults": []})


if __name__ == "__main__":
    unittest.main()
