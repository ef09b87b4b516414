#include <gmock/gmock.h>

#include "Platform/Linux/elements/Value.h"

namespace norra::linux_desktop {
namespace {

TEST(ActionMapping, KnowsActionsWithoutRegardToCase) {
  const std::pair<const char*, const char*> rows[] = {{"click", "AXPress"},
                                                      {"Press", "AXPress"},
                                                      {"activate", "AXPress"},
                                                      {"jump", "AXPress"},
                                                      {"Toggle", "AXPress"},
                                                      {"uncheck", "AXPress"},
                                                      {"Increase", "AXIncrement"},
                                                      {"decrement", "AXDecrement"},
                                                      {"select", "AXPick"},
                                                      {"cancel", "AXCancel"},
                                                      {"doDefault", ""},
                                                      {"clickAncestor", ""},
                                                      {"showContextMenu", ""},
                                                      {"SetFocus", ""},
                                                      {"ShowMenu", ""},
                                                      {"expand or contract", ""},
                                                      {"", ""},
                                                      {"clipboard.copy", ""}};
  for (const auto& [action, expected] : rows) EXPECT_EQ(mappedAction(action), expected) << action;
}

}  // namespace
}  // namespace norra::linux_desktop
