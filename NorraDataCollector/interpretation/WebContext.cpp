#include "NorraDataCollector/interpretation/WebContext.h"

#include <uriparser/Uri.h>

#include <array>
#include <utility>

#include "NorraBase/OneOf.h"
#include "NorraDataCollector/elements/AccessibilityConstants.h"
#include "NorraDataCollector/elements/AttributeValueText.h"
#include "NorraDataCollector/elements/ElementAccess.h"
#include "NorraDataCollector/logging/NorraDataCollectorLogging.h"

namespace norra {
namespace {

using namespace std::string_view_literals;

constexpr std::array chromiumBasedBrowsers{"com.google.Chrome"sv, "com.microsoft.edgemac"sv, "com.brave.Browser"sv,
                                           "com.vivaldi.Vivaldi"sv, "com.operasoftware.Opera"sv};

constexpr std::array webSearchHosts{"www.google.com"sv, "www.bing.com"sv};

constexpr int webAreaClimbLimit = 20;

/// The parent; another type than an element is logged by its name.
std::optional<AXUIElement> parentForClimb(const AXUIElement& element) {
  auto value = ax::value(element, attribute::parent);
  if (auto* parent = std::get_if<AXUIElement>(&value)) return std::move(*parent);
  if (!std::holds_alternative<std::monostate>(value)) {
    NorraDataCollectorLogging::defaultLogger().debug("Error: Wrong CFTypeID of attribute '" +
                                                     std::string(attribute::parent) + "'. Expected AXUIElement, got '" +
                                                     std::string(typeName(value)) + "'");
  }
  return std::nullopt;
}

std::string hostOf(const URL& url) {
  UriUriA uri;
  const auto text = std::string_view(url.absoluteString);
  const char* errorPosition = nullptr;
  if (uriParseSingleUriExA(&uri, text.data(), text.data() + text.size(), &errorPosition) != URI_SUCCESS) return {};
  std::string host;
  if (uri.hostText.first != nullptr) host.assign(uri.hostText.first, uri.hostText.afterLast);
  uriFreeUriMembersA(&uri);
  return host;
}

}  // namespace

bool isWeb(const AXUIElement& element) { return ax::domIdentifier(element).has_value(); }

std::optional<URL> parentWebAreaURL(const AXUIElement& element) {
  std::optional<AXUIElement> current = element;
  for (int remaining = webAreaClimbLimit; current && remaining > 0; --remaining) {
    if (ax::role(*current) == role::webArea) return ax::url(*current);
    current = parentForClimb(*current);
  }
  return std::nullopt;
}

bool canTrackTextArea(const std::optional<URL>& url) { return url && isOneOf(webSearchHosts, hostOf(*url)); }

bool isApplicationChromiumBased(const std::optional<std::string>& bundleIdentifier) {
  return bundleIdentifier && isOneOf(chromiumBasedBrowsers, *bundleIdentifier);
}

}  // namespace norra
