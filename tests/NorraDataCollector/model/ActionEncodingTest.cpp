#include <gtest/gtest.h>

#include "NorraDataCollector/model/ActionDecoding.h"
#include "NorraDataCollector/model/ActionEncoding.h"

namespace norra {
namespace {

// Every kind, every member and its order: docs/wire-format.md, which is a test of its own.
TEST(ActionEncoding, EscapesWhatMustBe) {
  const ChangeTextData text{
      .elementName = "n", .controlType = {}, .automationID = "", .newValue = "é\"\\/\b\f\n\r\t\x1f\x7f"};
  EXPECT_EQ(encode(text),
            R"({"action":"ChangeText","elementName":"n","automationID":"","newValue":"é\"\\\/\b\f\n\r\t\u001f)"
            "\x7f\"}");
  EXPECT_EQ(std::get<Action>(decodeAction(encode(text))), Action(text));
}

TEST(ActionEncoding, LeavesOutWhatIsAbsent) {
  auto click = ClickData{.elementName = "a", .controlType = "b", .automationID = "c", .toggleState = {}};
  EXPECT_EQ(encode(click),
            R"({"action":"Click","elementName":"a","controlType":"b","automationID":"c","button":"left"})");
  EXPECT_EQ(encode(ClickHyperlinkData{.elementName = "a", .automationID = "", .url = {}}),
            R"({"action":"ClickHyperLink","elementName":"a","automationID":""})");
}

TEST(ActionEncoding, ReadsNullMissingAndUnknownMembers) {
  const ClickData click{.elementName = "a", .controlType = "b", .automationID = "c", .toggleState = {}};
  EXPECT_EQ(
      std::get<Action>(decodeAction(
          R"( {"toggleState":null,"button":"left","automationID":"c","controlType":"b","elementName":"a","action":"Click","extra":[{}]} )")),
      Action(click));
  EXPECT_EQ(std::get<Action>(decodeAction(R"({"action":"Undefined","elementName":1})")), Action(UndefinedData()));
}

TEST(ActionEncoding, ReadsEveryAddressThatItWrites) {
  for (const auto* text : {"https://www.example.org/ä?q=ö#é", "mailto:a@b.org", "relative/path", "file:///a%20b"}) {
    const ClickHyperlinkData link{.elementName = "", .automationID = "", .url = URL{text}};
    EXPECT_EQ(std::get<Action>(decodeAction(encode(link))), Action(link)) << text;
  }
}

struct Fault {
  std::string text;
  std::optional<std::string> member;
};

TEST(ActionDecoding, NamesTheMemberAtFault) {
  const std::vector<Fault> faults{
      {"", {}},
      {"{\"action\":\"Undefined\"} x", {}},
      {"\"Undefined\"", {}},
      {"{\"action\":\"Und\xffned\"}", {}},
      {R"({"action":null})", "action"},
      {R"({"action":3})", "action"},
      {R"({"action":"Collector","operation":"Start"})", "operation"},
      {R"({"action":"Collector","operation":1})", "operation"},
      {R"({"action":"External","message":null})", "message"},
      {R"({"action":"ChangeApplication","processID":1.5,"applicationName":"","fileDescription":"","windowTitle":""})",
       "processID"},
      {R"({"action":"ChangeApplication","processID":2147483648,"applicationName":"","fileDescription":"","windowTitle":""})",
       "processID"},
      {R"({"action":"ChangeApplication","processID":-2147483649,"applicationName":"","fileDescription":"","windowTitle":""})",
       "processID"},
      {R"({"action":"ChangeApplication","processID":18446744073709551615,"applicationName":"","fileDescription":"","windowTitle":""})",
       "processID"},
      {R"({"action":"Click","elementName":"","controlType":"","automationID":"","button":1})", "button"},
      {R"({"action":"Click","elementName":"","controlType":"","automationID":"","button":"left","toggleState":"1"})",
       "toggleState"},
      {R"({"action":"Toggle","elementName":"","controlType":5,"automationID":"","newValue":""})", "controlType"},
      {R"({"action":"ClickHyperLink","elementName":"","automationID":"","url":""})", "url"},
      {R"({"action":"ClickHyperLink","elementName":"","automationID":"","url":"http://a b"})", "url"},
      {R"({"action":"ClickHyperLink","elementName":"","automationID":"","url":7})", "url"},
      {R"({"action":"Console","command":"","prompt":"","shell":[]})", "shell"},
  };
  for (const auto& fault : faults) {
    const auto decoded = decodeAction(fault.text);
    ASSERT_TRUE(std::holds_alternative<DecodingError>(decoded)) << fault.text;
    EXPECT_EQ(std::get<DecodingError>(decoded).member, fault.member) << fault.text;
  }
}

TEST(ActionDecoding, ReadsARecordOfItsOwnKindOnly) {
  const auto text = encodeRecord(ExternalData{.message = "m"});
  EXPECT_EQ(std::get<ExternalData>(decodeRecord<ExternalData>(text)), ExternalData{.message = "m"});
  EXPECT_EQ(std::get<DecodingError>(decodeRecord<ConsoleData>(text)).member, "action");
}

TEST(ToggleState, IsReadFromTexts) {
  for (const auto* text : {"0", "off", "OFF", "Off"}) EXPECT_EQ(toggleStateFromString(text), ToggleState::off) << text;
  for (const auto* text : {"1", "on", "ON", "oN"}) EXPECT_EQ(toggleStateFromString(text), ToggleState::on) << text;
  for (const auto* text : {"", "2", " 1", "true", " off", "of", "offf"}) {
    EXPECT_EQ(toggleStateFromString(text), ToggleState::indeterminate) << text;
  }
}

}  // namespace
}  // namespace norra
