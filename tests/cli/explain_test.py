import json
import unittest

from program import TestCase, vantic


class Explain(TestCase):
    def faults(self, name, document, is_broken=False):
        outcome = vantic("explain", name, stdin=document)
        self.assertEqual((outcome.code, outcome.err != ""), (0, is_broken))
        return outcome.json["faults"]

    def test_reports_every_detail_of_a_tolerated_fault(self):
        self.assertEqual(
            vantic("explain", "Link", stdin='{"href":"h","title":7}').out,
            '{"faults":[{"path":["title"],"presence":"lenient","expected":"String","found":"number",'
            '"became":"empty"}]}\n',
        )

    def test_reports_nothing_for_a_valid_document(self):
        self.assertEqual(vantic("explain", "Link", stdin='{"href":"h"}').out, '{"faults":[]}\n')

    def test_does_not_report_unknown_keys_and_absent_or_null_lenient_ones(self):
        self.assertEqual(self.faults("Link", '{"href":"h","id":null,"other":[1]}'), [])

    def test_reports_faults_in_decode_order(self):
        faults = self.faults("Video", '{"tags":1,"title":2,"type":3,"_links":{"self":4}}')
        self.assertEqual([fault["path"] for fault in faults], [["type"], ["title"], ["tags"], ["_links", "self"]])

    def test_reports_the_resulting_value_of_a_field(self):
        faults = self.faults("Video", '{"tags":1,"title":2,"captions":3,"_links":{}}')
        self.assertEqual([fault["became"] for fault in faults], ["empty", "false", "[]"])

    def test_succeeds_and_reports_the_failure_if_decoding_fails(self):
        faults = self.faults("Video", '{"title":2,"_links":[]}')
        self.assertEqual([(fault["path"], fault["became"]) for fault in faults],
                         [(["title"], "empty"), (["_links"], "failure")])
        self.assertEqual(faults[-1]["presence"], "required")

    def test_reports_another_entity(self):
        [fault] = self.faults("Video", json.dumps({"_entity": 'sh"öw\n', "_links": {}}))
        self.assertEqual((fault["presence"], fault["became"], fault["found"]), ("required", "failure", 'sh"öw\n'))

    def test_reports_a_malformed_document(self):
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
