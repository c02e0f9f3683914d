import json
import unittest

from program import TestCase, vantic


class Explain(TestCase):
    def faults(self, name, document, is_broken=False):
        outcome = vantic("explain", name, stdin=document)
        self.assertEqual((outcome.code, outcome.err != ""), (0, is_broken))
        return outcome.json["faults"]

    def test_tells_all_of_a_fault_that_was_swallowed(self):
        self.assertEqual(
            vantic("explain", "Link", stdin='{"href":"h","title":7}').out,
            '{"faults":[{"path":["title"],"presence":"lenient","expected":"String","found":"number",'
            '"became":"empty"}]}\n',
        )

    def test_finds_nothing_in_a_document_without_a_fault(self):
        self.assertEqual(vantic("explain", "Link", stdin='{"href":"h"}').out, '{"faults":[]}\n')

    def test_does_not_count_unknown_keys_nor_absent_and_null_lenient_ones(self):
        self.assertEqual(self.faults("Link", '{"href":"h","id":null,"other":[1]}'), [])

    def test_goes_in_decode_order_and_not_in_that_of_the_document(self):
        faults = self.faults("Video", '{"tags":1,"title":2,"type":3,"_links":{"self":4}}')
        self.assertEqual([fault["path"] for fault in faults], [["type"], ["title"], ["tags"], ["_links", "self"]])

    def test_tells_what_a_field_became(self):
        faults = self.faults("Video", '{"tags":1,"title":2,"captions":3,"_links":{}}')
        self.assertEqual([fault["became"] for fault in faults], ["empty", "false", "[]"])

    def test_ends_well_with_the_failure_where_decoding_fails(self):
        faults = self.faults("Video", '{"title":2,"_links":[]}')
        self.assertEqual([(fault["path"], fault["became"]) for fault in faults],
                         [(["title"], "empty"), (["_links"], "failure")])
        self.assertEqual(faults[-1]["presence"], "required")

    def test_tells_of_another_entity(self):
        [fault] = self.faults("Video", json.dumps({"_entity": 'sh"öw\n', "_links": {}}))
        self.assertEqual((fault["presence"], fault["became"], fault["found"]), ("required", "failure", 'sh"öw\n'))

    def test_tells_of_a_broken_structure(self):
        for document in ["", "{", b"\xff"]:
            with self.subTest(document):
                self.assertEqual([(fault["path"], fault["became"]) for fault in self.faults("Link", document, True)],
                                 [([], "failure")])

    def test_reads_lists_and_files(self):
        outcome = vantic("explain", "[Link]", self.file_of(b'[{"href":"a"},{"href":"b","tags":[1]}]'))
        [fault] = outcome.json["faults"]
        self.assertEqual(fault["path"][0], 1)
        self.assertEqual(fault["became"], "[]")

    def test_fails_for_a_file_that_cannot_be_read(self):
        self.assert_failed(vantic("explain", "Link", "/nowhere/at/all"))


if __name__ == "__main__":
    unittest.main()
