#include "NorraDataCollector/ApplicationData.h"

#include <uriparser/Uri.h>

#include "NorraBase/Text.h"
#include "NorraDataCollector/elements/ElementAccess.h"

namespace norra {
namespace {

std::string applicationName(const NSRunningApplication& application) {
  if (application.bundleIdentifier && !application.bundleIdentifier->empty()) return *application.bundleIdentifier;
  return application.executableURL ? lastPathComponent(*application.executableURL) : std::string();
}

std::string windowTitle(const std::optional<AXUIElement>& window) {
  if (!window) return {};
  if (const auto titleElement = ax::titleElement(*window)) {
    if (auto title = ax::title(*titleElement)) return *std::move(title);
  }
  return ax::title(*window).value_or("");
}

}  // namespace

ChangeApplicationData changeApplicationData(Accessibility& accessibility, const NSRunningApplication& application) {
  const auto element = accessibility.createApplication(application.processIdentifier);
  return {.processID = application.processIdentifier,
          .applicationName = applicationName(application),
          .fileDescription = application.localizedName.value_or(""),
          .windowTitle = windowTitle(ax::focusedWindow(element))};
}

std::string lastPathComponent(const NSURL& url) {
  std::string_view path = url.absoluteString;
  path = path.substr(0, path.find_first_of("?#"));
  if (const auto scheme = path.find("://"); scheme != std::string_view::npos) {
    const auto pathStart = path.find('/', scheme + 3);
    path = pathStart == std::string_view::npos ? std::string_view() : path.substr(pathStart);
  }
  while (path.size() > 1 && path.ends_with('/')) path.remove_suffix(1);
  if (path.size() > 1) path.remove_prefix(path.rfind('/') + 1);
  std::string component(path);
  component.resize(static_cast<std::size_t>(uriUnescapeInPlaceA(component.data()) - component.data()));
  return isValidUTF8(component) ? component : std::string(path);
}

}  // namespace norra
