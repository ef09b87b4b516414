// What the cells of a spreadsheet, which has no headers, lie in.
#include "tests/Platform/Linux/TestElements.h"

namespace norra::linux_desktop {
namespace {

class Spreadsheet : public FakeApplicationTest {
 protected:
  Spreadsheet() {
    application_.set("document", {.role = AtspiRole::documentSpreadsheet, .children = {"table"}});
    application_.set(
        "table",
        {.role = AtspiRole::table, .interfaces = {"Table", "Selection"}, .parent = "document", .children = {"cell"}});
    application_.set(
        "cell", {.role = AtspiRole::tableCell, .name = "AB3", .states = bit(AtspiState::focused), .parent = "table"});
    application_.answerWith("NColumns", "v", "i", 16384);
    application_.answerWith("GetIndexInParent", "i", 27);
    application_.answerWith("GetRowAtIndex", "i", 2);
    application_.answerWith("GetColumnAtIndex", "i", 27);
  }
};

TEST_F(Spreadsheet, NamesRowsAndColumnsAsTheyAreNumberedAndReadsNoOtherCells) {
  const auto row = read<AXUIElement>("cell", "AXParent").value();
  EXPECT_EQ(textOf(row, "AXTitle"), "3");
  EXPECT_EQ(conformance::read(row, "AXChildren").value, AXAttributeValue());
  EXPECT_EQ(application_.calls("GetAccessibleAt"), 0);
  const auto columns = read<std::vector<AXUIElement>>("table", "AXColumns").value();
  for (const auto& [column, name] : {std::pair{0U, "A"}, {25U, "Z"}, {26U, "AA"}, {27U, "AB"}}) {
    EXPECT_EQ(textOf(valueOf<AXUIElement>(columns[column], "AXHeader").value(), "AXTitle"), name) << column;
  }
}

TEST_F(Spreadsheet, HasTheCellSelectedThatIsTheCurrentOne) {
  EXPECT_EQ(read<NSNumber>("cell", "AXSelected"), NSNumber{true});
}

}  // namespace
}  // namespace norra::linux_desktop
