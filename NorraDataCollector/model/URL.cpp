#include "NorraDataCollector/model/URL.h"

#include <uriparser/Uri.h>

#include <algorithm>
#include <utility>

namespace norra {
namespace {

using namespace std::string_view_literals;

// What may stand in each part beside letters, digits and allowedEverywhere.
constexpr auto allowedEverywhere = "-._~!$&'()*+,;="sv;
constexpr auto allowedInUser = ":"sv;
constexpr auto allowedInHost = ""sv;
constexpr auto allowedInPath = ":@/"sv;
constexpr auto allowedInQueryAndFragment = ":@/?"sv;

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isHexDigit(char c) { return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }
bool isOneOf(std::string_view characters, char c) { return characters.find(c) != characters.npos; }
bool isInScheme(char c) { return isLetter(c) || isDigit(c) || isOneOf("+-.", c); }

bool isEscape(std::string_view text) {
  return text.size() >= 3 && text[0] == '%' && isHexDigit(text[1]) && isHexDigit(text[2]);
}

std::string escape(char byte) {
  constexpr auto digits = "0123456789ABCDEF"sv;
  const auto value = static_cast<unsigned char>(byte);
  return {'%', digits[value >> 4], digits[value & 15]};
}

std::string escapedBeyondASCII(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size());
  for (const char byte : text) escaped += static_cast<unsigned char>(byte) < 0x80 ? std::string(1, byte) : escape(byte);
  return escaped;
}

std::string escapedBut(std::string_view part, std::string_view allowed) {
  std::string escaped;
  for (; !part.empty(); part.remove_prefix(1)) {
    const char byte = part.front();
    const bool stays =
        isLetter(byte) || isDigit(byte) || isOneOf(allowedEverywhere, byte) || isOneOf(allowed, byte) || isEscape(part);
    escaped += stays ? std::string(1, byte) : escape(byte);
  }
  return escaped;
}

bool isValid(const std::string& escaped) {
  UriUriA uri;
  const char* errorPosition = nullptr;
  if (uriParseSingleUriExA(&uri, escaped.data(), escaped.data() + escaped.size(), &errorPosition) != URI_SUCCESS) {
    return false;
  }
  uriFreeUriMembersA(&uri);
  return true;
}

/// Takes off the text what stands before the first of these characters.
std::string_view takeUntil(std::string_view ends, std::string_view& text) {
  const auto taken = text.substr(0, text.find_first_of(ends));
  text.remove_prefix(taken.size());
  return taken;
}

/// With its colon; empty where the text does not begin with one.
std::string_view takeScheme(std::string_view& text) {
  const auto end = std::ranges::find_if_not(text, isInScheme) - text.begin();
  const auto size = static_cast<std::size_t>(end) + 1;
  if (size > text.size() || text[size - 1] != ':' || !isLetter(text[0])) return {};
  const auto scheme = text.substr(0, size);
  text.remove_prefix(size);
  return scheme;
}

/// The colon and the digits behind a host; empty where there are none.
std::string_view portOf(std::string_view hostAndPort) {
  const auto colon = hostAndPort.rfind(':');
  if (colon == hostAndPort.npos) return {};
  const auto port = hostAndPort.substr(colon);
  return std::ranges::all_of(port.substr(1), isDigit) ? port : std::string_view();
}

/// An Internet address in brackets stays; brackets around anything else are part of a name.
std::string validHost(std::string_view host) {
  const auto isLiteral = host.starts_with('[') && host.ends_with(']') && isValid("a://" + std::string(host));
  return isLiteral ? std::string(host) : escapedBut(host, allowedInHost);
}

std::string validAuthority(std::string_view authority) {
  std::string valid;
  if (const auto at = authority.rfind('@'); at != authority.npos) {
    valid = escapedBut(authority.substr(0, at), allowedInUser) + '@';
    authority.remove_prefix(at + 1);
  }
  const auto port = portOf(authority);
  authority.remove_suffix(port.size());
  return valid.append(validHost(authority)).append(port);
}

}  // namespace

std::optional<URL> urlFrom(std::string_view text) {
  if (text.empty() || !isValid(escapedBeyondASCII(text))) return std::nullopt;
  return URL{std::string(text)};
}

std::optional<URL> absoluteURL(std::string_view bytes) {
  std::string url(takeScheme(bytes));
  if (url.empty()) return std::nullopt;
  if (bytes.starts_with("//")) {
    bytes.remove_prefix(2);
    url += "//" + validAuthority(takeUntil("/?#", bytes));
  }
  url += escapedBut(takeUntil("?#", bytes), allowedInPath);
  if (bytes.starts_with('?')) {
    bytes.remove_prefix(1);
    url += '?' + escapedBut(takeUntil("#", bytes), allowedInQueryAndFragment);
  }
  if (bytes.starts_with('#')) url += '#' + escapedBut(bytes.substr(1), allowedInQueryAndFragment);
  return URL{std::move(url)};
}

}  // namespace norra
