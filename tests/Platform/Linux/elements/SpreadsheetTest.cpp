// What the cells of a spreadsheet, which has no headers, lie in.
#include <gmock/gmock.h>

#include "tests/Platform/Linux/FakeApplication.h"
#include "tests/Platform/Linux/PrivateBus.h"
#include "tests/Platform/Linux/TestElements.h"

namespace norra::linux_desktop {
namespace {

constexpr auto number(AtspiRole role) { return static_cast<std::uint32_t>(role); }

int answerNumber(sd_bus_message* call, std::int32_t value) { return sd_bus_reply_method_return(call, "i", value); }

int answerNumberOfColumns(sd_bus_message* call) { return sd_bus_reply_method_return(call, "v", "i", 16384); }

class Spreadsheet : public testing::Test {
 protected:
  Spreadsheet() {
    application_.set("document", {.role = number(AtspiRole::documentSpreadsheet), .children = {"table"}});
    application_.set("table", {.role = number(AtspiRole::table),
                               .interfaces = {"Table", "Selection"},
                               .parent = "document",
                               .children = {"cell"}});
    application_.set("cell", {.role = number(AtspiRole::tableCell),
                              .name = "AB3",
                              .states = std::uint64_t{1} << static_cast<unsigned>(AtspiState::focused),
                              .parent = "table"});
    application_.answer("NColumns", answerNumberOfColumns);
    application_.answer("GetIndexInParent", [](sd_bus_message* call) { return answerNumber(call, 27); });
    application_.answer("GetRowAtIndex", [](sd_bus_message* call) { return answerNumber(call, 2); });
    application_.answer("GetColumnAtIndex", [](sd_bus_message* call) { return answerNumber(call, 27); });
  }

  AXUIElement element(const std::string& key) { return elements_.handles.element(application_.reference(key)); }
  static AXAttributeValue read(const AXUIElement& element, const char* attribute) {
    return element.primitives().copyAttributeValue(attribute).value;
  }
  static AXUIElement other(const AXUIElement& element, const char* attribute) {
    return std::get<AXUIElement>(read(element, attribute));
  }

  PrivateAccessibilityBus bus_;
  NoWindowsOnScreen windows_;
  TestElements elements_{windows_};
  FakeApplication application_;
};

TEST_F(Spreadsheet, NamesRowsAndColumnsAsTheyAreNumberedAndReadsNoOtherCells) {
  const auto row = other(element("cell"), "AXParent");
  EXPECT_EQ(read(row, "AXTitle"), AXAttributeValue(std::string("3")));
  EXPECT_EQ(read(row, "AXChildren"), AXAttributeValue());
  EXPECT_EQ(application_.calls("GetAccessibleAt"), 0);
  const auto columns = std::get<std::vector<AXUIElement>>(read(element("table"), "AXColumns"));
  for (const auto& [column, name] : {std::pair{0, "A"}, {25, "Z"}, {26, "AA"}, {27, "AB"}}) {
    const auto header = other(columns[static_cast<std::size_t>(column)], "AXHeader");
    EXPECT_EQ(read(header, "AXTitle"), AXAttributeValue(std::string(name))) << column;
  }
}

TEST_F(Spreadsheet, HasTheCellSelectedThatIsTheCurrentOne) {
  EXPECT_EQ(read(element("cell"), "AXSelected"), AXAttributeValue(NSNumber{true}));
}

}  // namespace
}  // namespace norra::linux_desktop
