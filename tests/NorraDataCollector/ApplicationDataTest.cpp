#include <gtest/gtest.h>

#include <vector>

#include "NorraDataCollector/ApplicationData.h"

namespace norra {
namespace {

struct Row {
  std::string url;
  std::string component;
};

TEST(ApplicationData, TakesTheFileNameOfTheExecutable) {
  const std::vector<Row> rows{
      {"file:///usr/bin/notes", "notes"},
      {"file:///opt/My%20Notes/my%20notes", "my notes"},
      {"/usr/bin/notes", "notes"},
      {"file:///Applications/Notes.app/", "Notes.app"},
      {"notes", "notes"},
      {"file:///", "/"},
      {"file://host", ""},
      {"", ""},
      {"file:///usr/bin/notes?x=/y#z/", "notes"},
      {"file:///usr/bin/caf%C3%A9", "caf\u00E9"},
      {"file:///usr/bin/caf%E9", "caf%E9"},
  };
  for (const auto& row : rows) EXPECT_EQ(lastPathComponent({row.url}), row.component) << row.url;
}

}  // namespace
}  // namespace norra
