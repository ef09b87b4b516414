#include "Platform/Linux/wayland/CompositorState.h"

#include <algorithm>
#include <functional>
#include <nlohmann/json.hpp>

namespace norra::linux_desktop {
namespace {

using Json = nlohmann::json;

ScreenRectangle rectangleIn(const Json& box) {
  return {box.at(0).get<double>(), box.at(1).get<double>(), box.at(2).get<double>(), box.at(3).get<double>()};
}

// The buffer holds what the client draws: less than the frame that the compositor draws, or more than its window.
ShadowExtents shadowOf(const ScreenRectangle& frame, const ScreenRectangle& buffer) {
  return {.left = std::max(0.0, frame.x - buffer.x),
          .right = std::max(0.0, buffer.x + buffer.width - frame.x - frame.width),
          .top = std::max(0.0, frame.y - buffer.y),
          .bottom = std::max(0.0, buffer.y + buffer.height - frame.y - frame.height)};
}

CompositorWindow windowIn(const Json& json) {
  CompositorWindow window;
  auto& onScreen = window.onScreen;
  onScreen.window = static_cast<std::uint32_t>(std::hash<std::string>()(json.at("id").get<std::string>()));
  onScreen.process = json.at("process").get<ProcessIdentifier>();
  onScreen.title = json.at("title").get<std::string>();
  onScreen.frame = rectangleIn(json.at("frame"));
  onScreen.client = rectangleIn(json.at("buffer"));
  onScreen.shadow = shadowOf(onScreen.frame, onScreen.client);
  onScreen.overrideRedirect = json.at("isPopUp").get<bool>();
  window.applicationIdentifier = json.at("application").get<std::string>();
  window.isOfX11 = json.at("isOfX11").get<bool>();
  return window;
}

std::optional<CompositorWindow> windowIn(const Json& state, const char* member) {
  const auto found = state.find(member);
  if (found == state.end() || found->is_null()) return std::nullopt;
  return windowIn(*found);
}

}  // namespace

std::optional<CompositorState> readCompositorState(std::string_view json) {
  try {
    const auto state = Json::parse(json);
    if (!state.is_object()) return std::nullopt;
    CompositorState read{windowIn(state, "active"), std::nullopt, {}};
    if (const auto place = state.find("pointer"); place != state.end()) {
      read.pointed = {{place->at(0).get<double>(), place->at(1).get<double>()}, windowIn(state, "pointed")};
    }
    if (const auto buttons = state.find("buttons"); buttons != state.end()) buttons->get_to(read.buttons);
    return read;
  } catch (const Json::exception&) {
    return std::nullopt;
  }
}

}  // namespace norra::linux_desktop
