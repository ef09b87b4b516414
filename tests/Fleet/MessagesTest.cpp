#include <gtest/gtest.h>

#include "Fleet/Messages.h"

namespace norra::fleet {
namespace {

TEST(Topics, ANameIsOneLevelWhateverItHolds) {
  struct Row {
    std::string name, level;
  };
  for (const auto& [name, level] : {Row{"desk-1.example.org", "desk-1.example.org"},
                                    {"a/b", "a%2Fb"},
                                    {"+", "%2B"},
                                    {"#", "%23"},
                                    {"100%", "100%25"},
                                    {"EXAMPLE\\zoë", "EXAMPLE\\zoë"},
                                    {"a b\n", "a%20b%0A"},
                                    {"", "%"}}) {
    EXPECT_EQ(topicOf({.host = name, .user = "ada"}, "state"), "desktops/" + level + "/ada/state");
    EXPECT_EQ(topicOf({.host = "desk", .user = name}, "state"), "desktops/desk/" + level + "/state");
  }
}

}  // namespace
}  // namespace norra::fleet
