#include "Platform/Linux/wayland/KWinScript.h"

#include <nlohmann/json.hpp>

#include "Platform/Linux/wayland/ToldCompositor.h"

namespace norra::linux_desktop {
namespace {

using Json = nlohmann::json;

// For KWin 5 and 6, which call some things differently. A popup is on no desktop. Pointers tell of each pixel.
constexpr std::string_view script = R"(
const millisecondsOfMoves = 10;
let told = "";
function box(area) { return [area.x, area.y, area.width, area.height]; }
function described(window) {
  return window ? {id: "" + window.internalId, process: window.pid, title: "" + window.caption,
    application: "" + window.desktopFileName, isOfX11: ("" + window).indexOf("X11") >= 0,
    isPopUp: window.popupWindow === true, frame: box(window.frameGeometry), buffer: box(window.bufferGeometry)} : null;
}
function isOnDesktop(window) {
  if (window.onAllDesktops || window.popupWindow || window.desktops === undefined) return true;
  return typeof window.desktop === "number" ? window.desktop === workspace.currentDesktop
                                            : window.desktops.indexOf(workspace.currentDesktop) >= 0;
}
function isAt(window, place) {
  const area = window.frameGeometry;
  return !window.minimized && !window.hidden && !window.deleted && isOnDesktop(window) && place.x >= area.x &&
    place.y >= area.y && place.x < area.x + area.width && place.y < area.y + area.height;
}
function windowAt(place) {
  const windows = workspace.windowList ? workspace.windowList() : workspace.clientList();
  let found = null;
  for (let i = 0; i < windows.length; ++i) {
    if (isAt(windows[i], place) && (!found || windows[i].stackingOrder > found.stackingOrder)) found = windows[i];
  }
  return found;
}
function tell() {
  const state = {active: described(workspace.activeWindow || workspace.activeClient)};
  if (tellsPointer) {
    const place = workspace.cursorPos;
    state.pointer = [place.x, place.y];
    state.pointed = described(windowAt(place));
  }
  const text = JSON.stringify(state);
  if (text === told) return;
  told = text;
  callDBus(listener, path, listenerInterface, "Tell", text);
}
let isDue = false;
const timer = new QTimer();
timer.singleShot = true;
function tellSoon() {
  isDue = timer.active;
  if (isDue) return;
  tell();
  timer.start(millisecondsOfMoves);
}
timer.timeout.connect(function() { if (isDue) tellSoon(); });
const followed = {};
function activated(window) {
  tell();
  if (!window || followed[window.internalId]) return;
  followed[window.internalId] = true;
  window.captionChanged.connect(tellSoon);
}
(workspace.windowActivated || workspace.clientActivated).connect(activated);
(workspace.windowAdded || workspace.clientAdded).connect(tellSoon);
(workspace.windowRemoved || workspace.clientRemoved).connect(tellSoon);
if (tellsPointer) workspace.cursorPosChanged.connect(tellSoon);
activated(workspace.activeWindow || workspace.activeClient);
)";

std::string constant(std::string_view name, const Json& value) {
  return "const " + std::string(name) + " = " + value.dump() + ";\n";
}

}  // namespace

std::string kwinScriptFor(std::string_view listener, bool tellsPointer) {
  return constant("listener", listener) + constant("path", compositorListenerPath) +
         constant("listenerInterface", compositorListenerInterface) + constant("tellsPointer", tellsPointer) +
         std::string(script);
}

}  // namespace norra::linux_desktop
