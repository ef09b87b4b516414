// Addresses: what applications call one, and what may stand in a report as one.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace norra {

/// An address as its text.
struct URL {
  std::string absoluteString;
  bool operator==(const URL&) const = default;
};

/// The text as an address; nothing when it is none. Characters beyond ASCII may stand unescaped.
std::optional<URL> urlFrom(std::string_view text);

/// The absolute address (RFC 3986) that these bytes mean: whatever may not stand where it stands is percent-encoded,
/// and an address that is valid stays as it is. Nothing where they do not begin with a scheme.
std::optional<URL> absoluteURL(std::string_view bytes);

}  // namespace norra
