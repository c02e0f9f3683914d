import json
import unittest

from program import TestCase, vantic

# Malformed documents, each with the line and column of the fault.
BROKEN = [
    ("", 1, 1),
    ("{", 1, 2),
    ('{"href":"x"} x', 1, 14),
    ('{\n  "href": tru\n}', 2, 11),
    ('{"href":"x"', 1, 12),
    ('{"href":\r\n\t"x\n}', 2, 2),
    ('{"title":"ä€😀", 7}', 1, 17),
    ("[1 2]", 1, 4),
    ("[" * 600, 1, 513),
    ('\n\n{"href" "x"}', 3, 9),
]


class BrokenDocuments(TestCase):
    def test_decode_reports_line_and_column_in_its_message(self):
        for document, line, column in BROKEN:
            with self.subTest(document[:20]):
                outcome = vantic("decode", "Link", stdin=document)
                self.assert_failed(outcome)
                self.assertTrue(json.loads(outcome.err)["error"]["message"].endswith(
                    f"It breaks at line {line}, column {column}."), outcome.err)

    def test_explain_reports_them_on_standard_error(self):
        for document, line, column in BROKEN:
            with self.subTest(document[:20]):
                outcome = vantic("explain", "Link", stdin=document)
                self.assertEqual(outcome.code, 0)
                self.assertEqual(outcome.err, f"vantic: the document is broken at line {line}, column {column}\n")
                self.assertEqual(outcome.json["faults"][0]["found"], "a broken document")

    def test_a_well_formed_document_that_does_not_decode_has_no_position(self):
        for document in ["{}", "[]", '{"href":1}', '{"href":"\\ud800"}', '{"href":[1,],}']:
            with self.subTest(document):
                self.assertNotIn("breaks at", vantic("decode", "Link", stdin=document).err)
                self.assertEqual(vantic("explain", "Link", stdin=document).err, "")


if __name__ == "__main__":
    unittest.main()
