// Decisions that depend on whether an element belongs to a web page, and to which.
//
// A page is an application within an application. Its texts are not followed, whatever the browser says of them, but
// for the search fields of two search engines, which are text areas. The browsers made of Chromium get more time before
// a click is looked at a second time: what a page does with a click is told by another process of theirs.
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
