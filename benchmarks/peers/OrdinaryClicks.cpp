#include "benchmarks/peers/OrdinaryClicks.h"

#include <atspi/atspi.h>

#include <memory>
#include <stdexcept>
#include <thread>

namespace norra::benchmarks {
namespace {

using linux_desktop::AtspiReference;

constexpr std::chrono::milliseconds pauseBetweenClicks{60};
constexpr int ancestorsOfAll = 5;

struct Unref {
  void operator()(void* object) const noexcept { g_object_unref(object); }
};
using Accessible = std::unique_ptr<AtspiAccessible, Unref>;

void release(void* object) {
  if (object != nullptr) g_object_unref(object);
}

bool isAt(AtspiAccessible* element, const AtspiReference& reference) {
  return element != nullptr && element->parent.app != nullptr && reference.busName == element->parent.app->bus_name &&
         reference.path == element->parent.path;
}

Accessible findWindow(const AtspiReference& reference) {
  const Accessible desktop(atspi_get_desktop(0));
  for (int i = 0; i < atspi_accessible_get_child_count(desktop.get(), nullptr); ++i) {
    const Accessible application(atspi_accessible_get_child_at_index(desktop.get(), i, nullptr));
    if (!application) continue;
    for (int j = 0; j < atspi_accessible_get_child_count(application.get(), nullptr); ++j) {
      Accessible window(atspi_accessible_get_child_at_index(application.get(), j, nullptr));
      if (isAt(window.get(), reference)) return window;
    }
  }
  throw std::runtime_error("libatspi does not find the window");
}

Accessible childAt(AtspiAccessible* element, Place place, AtspiCoordType coordinates) {
  auto* component = atspi_accessible_get_component_iface(element);
  if (component == nullptr) return nullptr;
  Accessible hit(atspi_component_get_accessible_at_point(component, place.x, place.y, coordinates, nullptr));
  g_object_unref(component);
  return hit;
}

Accessible hitTest(AtspiAccessible* window, Place place, WayToAsk::HitTest kind) {
  const auto coordinates = kind == WayToAsk::HitTest::inWindow ? ATSPI_COORD_TYPE_WINDOW : ATSPI_COORD_TYPE_SCREEN;
  auto hit = childAt(window, place, coordinates);
  if (kind == WayToAsk::HitTest::twice) hit = childAt(window, place, coordinates);
  while (kind == WayToAsk::HitTest::levelByLevel && hit) {
    auto below = childAt(hit.get(), place, coordinates);
    if (!below || below == hit) break;
    hit = std::move(below);
  }
  if (!hit) throw std::runtime_error("libatspi finds nothing at the place");
  return hit;
}

void readRelations(AtspiAccessible* element) {
  auto* relations = atspi_accessible_get_relation_set(element, nullptr);
  if (relations == nullptr) return;
  for (guint i = 0; i < relations->len; ++i) release(g_array_index(relations, void*, i));
  g_array_free(relations, TRUE);
}

void readAll(AtspiAccessible* element, const WayToAsk& way) {
  release(atspi_accessible_get_state_set(element));
  if (auto* interfaces = atspi_accessible_get_interfaces(element)) {
    g_array_free(interfaces, TRUE);
  }
  g_free(atspi_accessible_get_name(element, nullptr));
  g_free(atspi_accessible_get_description(element, nullptr));
  readRelations(element);
  g_free(atspi_accessible_get_accessible_id(element, nullptr));
  if (!way.isWeb) return;
  if (auto* attributes = atspi_accessible_get_attributes(element, nullptr)) g_hash_table_unref(attributes);
}

void readActions(AtspiAccessible* element) {
  auto* action = atspi_accessible_get_action_iface(element);
  if (action == nullptr) return;
  if (atspi_action_get_n_actions(action, nullptr) > 0) g_free(atspi_action_get_action_name(action, 0, nullptr));
  g_object_unref(action);
}

void readAddress(AtspiAccessible* element) {
  auto* link = atspi_accessible_get_hyperlink(element);
  if (link == nullptr) return;
  g_free(atspi_hyperlink_get_uri(link, 0, nullptr));
  g_object_unref(link);
}

void readControl(AtspiAccessible* element, const WayToAsk& way) {
  if (way.hasRoleNames) g_free(atspi_accessible_get_localized_role_name(element, nullptr));
  if (way.isWeb) readAddress(element);
}

void readFacts(AtspiAccessible* hit, const WayToAsk& way) {
  if (way.levelsToControl > 0) readActions(hit);
  Accessible element(static_cast<AtspiAccessible*>(g_object_ref(hit)));
  for (int level = 0; element && level <= way.levelsToControl + way.levelsBeyond; ++level) {
    atspi_accessible_get_role(element.get(), nullptr);
    if (level <= way.levelsToControl) readAll(element.get(), way);
    if (level == way.levelsToControl) readControl(element.get(), way);
    element.reset(atspi_accessible_get_parent(element.get(), nullptr));
  }
}

/// What is due on the main loop of the library: the events that keep its cache true.
void serveLibrary() {
  while (g_main_context_iteration(nullptr, FALSE)) {
  }
}

}  // namespace

Samples clickWithLibrary(Hands& hands, int clicks, const Target& target, const WayToAsk& way) {
  atspi_init();
  const auto window = findWindow(target.window);
  Samples samples;
  for (int i = 0; i < clicks; ++i) {
    serveLibrary();
    atspi_accessible_clear_cache(window.get());
    const auto released = hands.click();
    readFacts(hitTest(window.get(), target.asked, way.hitTest).get(), way);
    samples["total"].push_back(microsecondsSince(released));
    std::this_thread::sleep_for(pauseBetweenClicks);
  }
  return samples;
}

Samples clickWithLibraryAskingAll(Hands& hands, int clicks, const Target& target, WayToAsk way) {
  way.levelsToControl = ancestorsOfAll;
  way.levelsBeyond = 0;
  return clickWithLibrary(hands, clicks, target, way);
}

}  // namespace norra::benchmarks
