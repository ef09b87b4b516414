// Any text as an address.
#include "NorraDataCollector/ApplicationData.h"
#include "NorraDataCollector/interpretation/WebContext.h"
#include "NorraDataCollector/model/Action.h"
#include "Platform/Simulated/Desktop.h"
#include "tests/fuzz/FuzzInput.h"

namespace norra::fuzz {
namespace {

using simulated::ElementReference;

void checkModel(std::string_view text) {
  const auto url = urlFrom(text);
  require(!url || url->absoluteString == text, "an address is its own text");
  require(!text.empty() || !url, "an empty text is no address");
  const auto absolute = absoluteURL(text);
  require(!absolute || urlFrom(absolute->absoluteString), "what is made valid can be read");
  require(!absolute || absoluteURL(absolute->absoluteString) == absolute, "what is valid stays");
}

void checkPage(const NSURL& url) {
  simulated::Desktop desktop;
  desktop.add("page", {.attributes = {{"AXRole", "AXWebArea"}, {"AXURL", url}}});
  const auto text = desktop.add("text", {.attributes = {{"AXParent", ElementReference{"page"}}}});
  require(parentWebAreaURL(text) == absoluteURL(url.absoluteString), "a page gives its address");
}

void checkHost(std::string_view text) {
  if (!canTrackTextArea(absoluteURL(text))) return;
  const bool hasHost = text.find("//www.google.com") != text.npos || text.find("//www.bing.com") != text.npos ||
                       text.find("@www.") != text.npos;
  require(hasHost, "only the pages of two hosts are followed");
}

void checkLastPathComponent(const NSURL& url) {
  const auto component = lastPathComponent(url);
  require(component.size() <= url.absoluteString.size(), "a part is no longer than the whole");
}

}  // namespace
}  // namespace norra::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace norra;
  const auto text = fuzz::textOf(data, size);
  const NSURL url{std::string(text)};
  fuzz::checkModel(text);
  fuzz::checkPage(url);
  fuzz::checkHost(text);
  fuzz::checkLastPathComponent(url);
  return 0;
}
