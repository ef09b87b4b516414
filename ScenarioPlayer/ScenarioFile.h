// What a scenario file says, as plain values: a desktop and what happens on it.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "Platform/Simulated/Desktop.h"
#include "ScenarioPlayer/JsonCursor.h"

namespace norra::scenario {

struct Connect {
  std::string client;
  /// Whether what the client exports serves as a ClientProtocol.
  bool conforms = true;
};

/// A client that is not connected connects first.
struct CallService {
  std::string client;
  simulated::ServiceOperation operation = simulated::ServiceOperation::start;
};

struct Disconnect {
  std::string client;
};

struct Interrupt {
  std::string client;
};

struct Click {
  CGPoint at;
  simulated::PointerButton button = simulated::PointerButton::left;
};

struct PressKey {
  /// Nothing: no key event can be made of the press.
  std::optional<NSEvent> key;
};

struct DisableTaps {
  CGEventType reason = CGEventType::tapDisabledByTimeout;
};

struct Activate {
  std::optional<ProcessIdentifier> process;
};

struct SetFrontmost {
  std::optional<ProcessIdentifier> process;
};

struct Terminate {
  ProcessIdentifier process = 0;
};

struct SetElement {
  std::string element;
  simulated::Attributes attributes;
  /// Nothing: the actions stay as they are.
  std::optional<std::vector<std::string>> actions;
};

struct Destroy {
  std::string element;
};

struct SetScreen {
  simulated::Screen screen;
};

struct Notify {
  std::string element;
  std::string notification;
  /// Whether observers that did not register the notification get it too.
  bool isForced = false;
};

struct Advance {
  std::chrono::nanoseconds by{0};
};

using Step = std::variant<Connect, CallService, Disconnect, Interrupt, Click, PressKey, DisableTaps, Activate,
                          SetFrontmost, Terminate, SetElement, Destroy, SetScreen, Notify, Advance>;

struct ScenarioFile {
  simulated::DesktopDescription desktop;
  std::vector<Step> steps;
};

/// Reads the whole text of a scenario file, or gives the first fault that it came upon.
std::variant<ScenarioFile, ScenarioFault> readScenario(std::string_view text);

}  // namespace norra::scenario
