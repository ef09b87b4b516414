#include <gtest/gtest.h>

#include <array>

#include "Report/Instant.h"

namespace norra::report {
namespace {

struct InstantCase {
  std::string_view text;
  std::optional<std::int64_t> microseconds;
};

constexpr std::array instantCases{
    InstantCase{"1970-01-01T00:00:00Z", 0},
    InstantCase{"2025-03-04T10:15:30.123456Z", 1741083330123456},
    InstantCase{"2025-03-04T10:15:30.5Z", 1741083330500000},
    InstantCase{"2024-02-29T23:59:59.999999Z", 1709251199999999},
    InstantCase{"1969-12-31T23:59:59.999999Z", -1},
    InstantCase{"2025-02-29T00:00:00Z", std::nullopt},
    InstantCase{"2025-13-01T00:00:00Z", std::nullopt},
    InstantCase{"2025-03-04T24:00:00Z", std::nullopt},
    InstantCase{"2025-03-04T10:60:00Z", std::nullopt},
    InstantCase{"2025-03-04T10:15:60Z", std::nullopt},
    InstantCase{"2025-03-04T10:15:30.Z", std::nullopt},
    InstantCase{"2025-03-04T10:15:30.1234567Z", std::nullopt},
    InstantCase{"2025-03-04T10:15:30", std::nullopt},
    InstantCase{"2025-03-04T10:15:30+00:00", std::nullopt},
    InstantCase{"2025-03-04T10:15:30Z ", std::nullopt},
    InstantCase{"2025-03-04 10:15:30Z", std::nullopt},
    InstantCase{"+025-03-04T10:15:30Z", std::nullopt},
    InstantCase{"2025-03-04", std::nullopt},
    InstantCase{"", std::nullopt},
};

TEST(Instant, IsReadExactlyOrNotAtAll) {
  for (const auto& [text, microseconds] : instantCases) {
    const auto instant = instantFrom(text);
    const auto read = instant ? std::optional<std::int64_t>(instant->time_since_epoch().count()) : std::nullopt;
    EXPECT_EQ(read, microseconds) << text;
  }
}

}  // namespace
}  // namespace norra::report
