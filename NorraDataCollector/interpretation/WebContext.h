// Decisions that depend on whether an element belongs to a web page, and to which.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "NorraDataCollector/model/URL.h"
#include "Platform/Accessibility.h"

namespace norra {

/// Whether the element belongs to web content. Any thread.
bool isWeb(const AXUIElement& element);

/// The address of the page that contains the element, which is looked for among its 19 nearest ancestors. Any thread.
std::optional<URL> parentWebAreaURL(const AXUIElement& element);

/// Whether the text of a text area on this page may be followed: only on the pages of two web search engines.
bool canTrackTextArea(const std::optional<URL>& url);

bool isApplicationChromiumBased(const std::optional<std::string>& bundleIdentifier);

}  // namespace norra
