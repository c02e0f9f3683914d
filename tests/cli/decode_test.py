import json
import unittest

from program import TestCase, vantic


class DecodeAValue(TestCase):
    def test_is_printed_indented_with_every_field_in_declared_order(self):
        outcome = vantic("decode", "Link", stdin='{"tags":["a"],"href":"h","id":"1"}')
        self.assertEqual(outcome.code, 0)
        self.assertEqual(
            outcome.out,
            '{\n  "id": "1",\n  "title": null,\n  "href": "h",\n  "tags": [\n    "a"\n  ]\n}\n',
        )
        self.assertEqual(outcome.err, "")

    def test_prints_declared_field_names_not_document_keys(self):
        self.assertEqual(
            list(vantic("decode", "Banner", stdin='{"large":"l","small":"s","link":"x"}').json.items()),
            [("largeImageHref", "l"), ("smallImageHref", "s"), ("altText", None), ("linkHref", "x")],
        )

    def test_prints_an_empty_field_as_null_and_an_empty_list_as_a_list(self):
        value = vantic("decode", "Image", stdin="{}").json
        self.assertEqual(value.pop("tags"), [])
        self.assertEqual(set(value.values()), {None})

    def test_prints_an_enumeration_as_the_name_of_its_case(self):
        self.assertEqual(
            vantic("decode", "Status", stdin='{"title":"t","theme":"whatever"}').json, {"title": "t", "theme": "default"}
        )

    def test_prints_derived_fields_but_not_computed_members(self):
        document = {
            "houseNumber": "ZW1",
            "_links": {"self": {"href": "video/1"}, "deeplink": {"href": "/show/slug/x"},
                       "highlightVideo": {"playTitle": "Play"}},
        }
        value = vantic("decode", "Video", stdin=json.dumps(document)).json
        self.assertEqual(len(value), 53)
        self.assertEqual(value["playableVideo"]["playTitle"], "Play")
        self.assertNotIn("derivedShowSlug", value)

    def test_prints_the_summaries_of_a_group_which_have_no_key(self):
        show = {"id": 9184, "thumbnail": "t", "updated": "2020-01-02 03:04:05", "_links": {"self": {"href": "/show/x"}}}
        group = vantic("decode", "ShowsGrouped", stdin=json.dumps({"name": "A", "items": [{}, show]}), TZ="UTC").json
        self.assertEqual(list(group), ["groupingName", "shows", "showSummaries"])
        self.assertEqual([len(show) for show in group["shows"]], [45, 45])
        self.assertEqual(group["showSummaries"], [
            {"id": "0", "title": "_", "displayTitle": "_", "updated": "2020-01-02T03:04:05Z", "href": "/show/x",
             "thumbnail": "t", "portraitThumbnailHref": None, "characterThumbnaiHref": None, "derivedShowSlug": "x"}])

    def test_prints_whole_numbers_without_a_fraction(self):
        image = vantic("decode", "Image", stdin='{"width":1e2,"height":3.0}').out
        self.assertIn('"width": 100,', image)
        self.assertIn('"height": 3,', image)

    def test_prints_a_double_in_the_shortest_form_that_round_trips(self):
        for document, text in [("1732.5", "1732.5"), ("17e2", "1700"), ("5.0", "5"), ("-0.1", "-0.1"),
                               ("0.30000000000000004", "0.30000000000000004"), ("0.1000000000", "0.1"), ("0", "0")]:
            with self.subTest(document):
                self.assertEqual(vantic("decode", "Time", stdin=document).out, text + "\n")

    def test_prints_a_date_in_utc(self):
        document = '{"pubDate":"2020-07-02 03:04:05","_links":{}}'
        for zone, text in [("UTC", "2020-07-02T03:04:05Z"), ("Australia/Sydney", "2020-07-01T17:04:05Z")]:
            with self.subTest(zone):
                self.assertEqual(vantic("decode", "Video", stdin=document, TZ=zone).json["pubDate"], text)

    def test_prints_fractions_of_seconds_and_dates_beyond_the_calendar(self):
        for expiry, text in [("1600000000", '"2020-09-13T12:26:40Z"'), ("1600000000.25", '"2020-09-13T12:26:40.25Z"'),
                             ("0.123456", '"1970-01-01T00:00:00.123456Z"'), ("-62135596800", '"0001-01-01T00:00:00Z"'),
                             ("-62135596801", "-62135596801"), ("253402300799", '"9999-12-31T23:59:59Z"'),
                             ("253402300800", "253402300800"), ("1e300", "1e+300")]:
            with self.subTest(expiry):
                document = '{"access_token":"a","refresh_token":"r","token_type":"t","expiry":%s}' % expiry
                self.assertIn(f'"expiry": {text},', vantic("decode", "Auth", stdin=document).out)

    def test_names_the_type_of_each_element_of_a_mixed_list(self):
        document = {
            "title": "t", "_links": {"self": {"href": "h"}}, "_embedded": {"highlightItem": {"_entity": "show"}},
            "items": [{"_entity": "video", "_links": {}}, {"_entity": "show"}, 7,
                      {"_entity": "promo", "id": "1", "_links": {}}],
        }
        value = vantic("decode", "MixedCollection", stdin=json.dumps(document)).json
        self.assertEqual([list(item) for item in value["mixedItems"]], [["Video"], ["Show"], ["Series"]])
        self.assertEqual(list(value["highlightItem"]), ["Show"])
        self.assertEqual(value["mixedItems"][2]["Series"]["seriesId"], "1")

    def test_prints_a_free_form_dictionary_with_its_keys_sorted(self):
        document = {"dataset": {"b": 1, "a": "x", "c": True}, "namespace": "n", "uid": "u"}
        outcome = vantic("decode", "DatasetContainer", stdin=json.dumps(document))
        self.assertEqual(list(outcome.json["dataset"].items()), [("a", "x"), ("b", 1), ("c", True)])

    def test_prints_strings_of_any_script_with_json_escapes(self):
        text = 'Café "日本" \\ \n \u0001 \U0001f3a5'
        outcome = vantic("decode", "Link", stdin=json.dumps({"href": text}))
        self.assertEqual(outcome.json["href"], text)
        self.assertEqual(outcome.out.count("\n"), 6)

    def test_reads_a_list_of_a_type_in_brackets(self):
        self.assertEqual(vantic("decode", "[Time]", stdin="[1,2.5]").json, [1, 2.5])
        self.assertEqual([link["href"] for link in vantic("decode", "[Link]", stdin='[{"href":"a"},{"href":"b"}]').json],
                         ["a", "b"])

    def test_reads_a_file_if_one_is_given(self):
        name = self.file_of(b"12")
        self.assertEqual(vantic("decode", "Time", name, stdin="not read").out, "12\n")

    def test_reads_documents_larger_than_one_block(self):
        count = 30_000
        outcome = vantic("decode", "[Link]", stdin="[" + ",".join(['{"href":"a long enough text"}'] * count) + "]")
        self.assertEqual(len(outcome.json), count)

    def test_accepts_white_space_around_the_document(self):
        self.assertEqual(vantic("decode", "Time", stdin=" \n\t1\r\n ").out, "1\n")


class DecodeAFailure(TestCase):
    def error(self, name, document):
        outcome = vantic("decode", name, stdin=document)
        self.assert_failed(outcome)
        answer = json.loads(outcome.err)
        self.assertEqual(list(answer), ["error"])
        self.assertEqual(list(answer["error"]), ["kind", "path", "message"])
        self.assertTrue(answer["error"]["message"])
        return answer["error"]["kind"], answer["error"]["path"]

    def test_of_a_missing_key_has_its_path(self):
        self.assertEqual(self.error("Link", "{}"), ("keyNotFound", ["href"]))

    def test_of_a_null_is_value_not_found(self):
        self.assertEqual(self.error("Link", '{"href":null}'), ("valueNotFound", ["href"]))

    def test_of_another_json_type_is_a_type_mismatch(self):
        self.assertEqual(self.error("Link", '{"href":1}'), ("typeMismatch", ["href"]))
        self.assertEqual(self.error("Link", "[]"), ("typeMismatch", []))
        self.assertEqual(self.error("Time", '"1"'), ("typeMismatch", []))

    def test_of_a_value_that_does_not_fit_is_corrupted_data(self):
        self.assertEqual(self.error("Link", '{"href":"\\ud800"}'), ("dataCorrupted", ["href"]))

    def test_has_list_indexes_as_numbers_in_its_path(self):
        self.assertEqual(self.error("[Link]", '[{"href":"a"},{"title":"b"}]'), ("keyNotFound", [1, "href"]))
        self.assertEqual(self.error("[Link]", "[null]"), ("typeMismatch", [0]))

    def test_of_the_structure_has_an_empty_path(self):
        for document in ["", "{", '{"href":"x"} x', b"\xff", '{"href":tru}']:
            with self.subTest(document):
                self.assertEqual(self.error("Link", document), ("dataCorrupted", []))

    def test_of_another_entity_has_the_path_of_the_entity(self):
        self.assertEqual(self.error("Video", '{"_entity":"show","_links":{}}'), ("entityMismatch", []))
        self.assertEqual(self.error("[Video]", '[{"_links":{}},{"_entity":"Show","_links":{}}]'),
                         ("entityMismatch", [1]))
        self.assertEqual(self.error("Show", '{"_entity":"video"}'), ("entityMismatch", []))
        self.assertEqual(self.error("ShowsIndex", '{"items":[{"name":"A","items":[{},{"_entity":"video"}]}]}'),
                         ("entityMismatch", ["items", 0, "items", 1]))

    def test_of_another_entity_reports_the_unchanged_name(self):
        outcome = vantic("decode", "Video", stdin='{"_entity":"A \\"Sh\\u0000\\u00f6w\\"\\n"}')
        self.assert_failed(outcome)
        self.assertEqual(json.loads(outcome.err)["error"]["message"],
                         'Video expects a "video" entity type, but found "A "Sh\0öw"\n"')

    def test_of_a_file_that_cannot_be_read_is_one_line(self):
        self.assert_failed(vantic("decode", "Time", "/nowhere/at/all"), "/nowhere/at/all")
        self.assert_failed(vantic("decode", "Time", "/"), "/")

    def test_of_a_very_deep_document_does_not_crash(self):
        self.assertEqual(self.error("Link", "[" * 200_000), ("dataCorrupted", []))


if __name__ == "__main__":
    unittest.main()
