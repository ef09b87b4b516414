#include <gtest/gtest.h>

#include "NorraDataCollector/model/ActionDecoding.h"
#include "NorraDataCollector/model/ActionEncoding.h"

namespace norra {
namespace {

struct Row {
  Action action;
  std::string text;
};

/// One of each kind, by its index.
const std::vector<Row> everyKind{
    {undefinedAction, R"({"action":"Undefined"})"},
    {CollectorData{.operation = CollectorOperation::start}, R"({"action":"Collector","operation":"start"})"},
    {ChangeApplicationData{
         .processID = -812, .applicationName = "a", .fileDescription = "Notes", .windowTitle = "Shopping list"},
     R"({"action":"ChangeApplication","processID":-812,"applicationName":"a","fileDescription":"Notes","windowTitle":"Shopping list"})"},
    {OpenMenuData{.elementName = "File", .automationID = "m"},
     R"({"action":"OpenMenu","elementName":"File","automationID":"m"})"},
    {ClickData{.elementName = "Save", .controlType = "button", .automationID = "s", .button = MouseButton::doubleRight},
     R"({"action":"Click","elementName":"Save","controlType":"button","automationID":"s","button":"doubleRight","toggleState":2})"},
    {ClickHyperlinkData{.elementName = "Report", .automationID = "", .url = URL{"file:///tmp/a.pdf"}},
     R"({"action":"ClickHyperLink","elementName":"Report","automationID":"","url":"file:\/\/\/tmp\/a.pdf"})"},
    {ClickListItemData{.elementName = "Inbox",
                       .controlType = "row",
                       .automationID = "",
                       .button = MouseButton::right,
                       .columnName = "Subject",
                       .columnValue = "Lunch"},
     R"({"action":"ClickListItem","elementName":"Inbox","controlType":"row","automationID":"","button":"right","columnName":"Subject","columnValue":"Lunch"})"},
    {ClickRadioButtonData{.elementName = "A", .controlType = "", .automationID = "", .groupName = "G"},
     R"({"action":"ClickRadioButton","elementName":"A","controlType":"","automationID":"","groupName":"G"})"},
    {ToggleData{.elementName = "n", .controlType = "t", .automationID = "i", .newValue = "1"},
     R"({"action":"Toggle","elementName":"n","controlType":"t","automationID":"i","newValue":"1"})"},
    {ChangeTextData{.elementName = "n", .controlType = {}, .automationID = "", .newValue = "é\"\\/\b\f\n\r\t\x1f\x7f"},
     R"({"action":"ChangeText","elementName":"n","automationID":"","newValue":"é\"\\\/\b\f\n\r\t\u001f)"
     "\x7f\"}"},
    {ChangePasswordData{.elementName = "n", .controlType = "t", .automationID = "", .newValue = ""},
     R"({"action":"ChangePassword","elementName":"n","controlType":"t","automationID":"","newValue":""})"},
    {ChangeSliderData{.elementName = "n", .controlType = "t", .automationID = "", .newValue = "50"},
     R"({"action":"ChangeSlider","elementName":"n","controlType":"t","automationID":"","newValue":"50"})"},
    {ChangeSpinnerData{.elementName = "n", .controlType = "t", .automationID = "", .newValue = "5"},
     R"({"action":"ChangeSpinner","elementName":"n","controlType":"t","automationID":"","newValue":"5"})"},
    {ChangeSelectedRowsData{.elementName = "n", .controlType = "t", .automationID = "", .newValue = "[]"},
     R"({"action":"ChangeSelectedRows","elementName":"n","controlType":"t","automationID":"","newValue":"[]"})"},
    {ChangeSelectedCellsData{.elementName = "n", .controlType = "t", .automationID = "", .newValue = "[]"},
     R"({"action":"ChangeSelectedCells","elementName":"n","controlType":"t","automationID":"","newValue":"[]"})"},
    {ChangeSelectedChildrenData{.elementName = "n", .controlType = "t", .automationID = "", .newValue = "[]"},
     R"({"action":"ChangeSelectedChildren","elementName":"n","controlType":"t","automationID":"","newValue":"[]"})"},
    {KeyCombinationData{.elementName = "n", .controlType = "t", .automationID = "", .key = "Command + c"},
     R"({"action":"PressKeyCombination","elementName":"n","controlType":"t","automationID":"","key":"Command + c"})"},
    {SpecialKeyData{.elementName = "n", .controlType = "t", .automationID = "", .key = "tab"},
     R"({"action":"PressSpecialKey","elementName":"n","controlType":"t","automationID":"","key":"tab"})"},
    {ExternalData{.message = "m"}, R"({"action":"External","message":"m"})"},
    {ConsoleData{.command = "ls", .prompt = "$", .shell = "sh"},
     R"({"action":"Console","command":"ls","prompt":"$","shell":"sh"})"},
    {ClickComboBoxData{.elementName = "Font",
                       .controlType = "combo box",
                       .automationID = "",
                       .comboBoxValue = "Serif",
                       .button = MouseButton::other},
     R"({"action":"ClickComboBox","elementName":"Font","controlType":"combo box","automationID":"","comboBoxValue":"Serif","button":"other"})"},
};

TEST(ActionEncoding, WritesEveryKindAndReadsItBack) {
  ASSERT_EQ(everyKind.size(), std::variant_size_v<Action>);
  for (const auto& [action, text] : everyKind) {
    EXPECT_EQ(encode(action), text);
    const auto decoded = decodeAction(text);
    ASSERT_TRUE(std::holds_alternative<Action>(decoded)) << std::get<DecodingError>(decoded).message;
    EXPECT_EQ(std::get<Action>(decoded), action) << text;
  }
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
  EXPECT_EQ(std::get<Action>(decodeAction(R"({"action":"Undefined","elementName":1})")), undefinedAction);
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
      {"[]", {}},
      {"\"Undefined\"", {}},
      {"{\"action\":\"Und\xffned\"}", {}},
      {R"({"operation":"start"})", "action"},
      {R"({"action":null})", "action"},
      {R"({"action":3})", "action"},
      {R"({"action":"ClickHyperlink"})", "action"},
      {R"({"action":"Collector"})", "operation"},
      {R"({"action":"Collector","operation":"begin"})", "operation"},
      {R"({"action":"Collector","operation":"Start"})", "operation"},
      {R"({"action":"Collector","operation":1})", "operation"},
      {R"({"action":"External","message":null})", "message"},
      {R"({"action":"ChangeApplication","processID":"1","applicationName":"","fileDescription":"","windowTitle":""})",
       "processID"},
      {R"({"action":"ChangeApplication","processID":1.5,"applicationName":"","fileDescription":"","windowTitle":""})",
       "processID"},
      {R"({"action":"ChangeApplication","processID":2147483648,"applicationName":"","fileDescription":"","windowTitle":""})",
       "processID"},
      {R"({"action":"ChangeApplication","processID":-2147483649,"applicationName":"","fileDescription":"","windowTitle":""})",
       "processID"},
      {R"({"action":"ChangeApplication","processID":18446744073709551615,"applicationName":"","fileDescription":"","windowTitle":""})",
       "processID"},
      {R"({"action":"Click","elementName":"","controlType":"","automationID":"","button":"Left"})", "button"},
      {R"({"action":"Click","elementName":"","controlType":"","automationID":"","button":1})", "button"},
      {R"({"action":"Click","elementName":"","controlType":"","automationID":"","button":"left","toggleState":3})",
       "toggleState"},
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
