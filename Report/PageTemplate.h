// The page without a session, put together at build time from the files in page/.
#pragma once

#include <string_view>

namespace norra::report {

/// Holds each marker once, the title's first.
extern const std::string_view pageTemplate;

inline constexpr std::string_view titleMarker = "{{title}}";
inline constexpr std::string_view dataMarker = "{{data}}";

}  // namespace norra::report
