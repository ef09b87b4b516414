// What is clicked: found once before anything is measured, with the means of the product.
#pragma once

#include <string>
#include <vector>

#include "Platform/Linux/atspi/AtspiReference.h"

namespace norra::benchmarks {

/// How an application has to be asked, and how much of it.
struct WayToAsk {
  enum class HitTest {
    levelByLevel,  // GTK 3
    inWindow,      // GTK 4: coordinates of the window
    atOnce,        // Qt
    twice,         // Chromium: the first answer may be of an earlier place
  };
  HitTest hitTest = HitTest::atOnce;
  bool isWeb = false;
  /// Whether the name of a role has to be asked for each time.
  bool hasRoleNames = false;
  /// How far above the element that is hit the control is that is reported, and how many further ones are looked at.
  int levelsToControl = 0;
  int levelsBeyond = 0;

  static WayToAsk named(const std::string& toolkit);
};

struct Place {
  std::int32_t x = 0;
  std::int32_t y = 0;
};

struct Target {
  Place onScreen;
  /// In the coordinates that the toolkit understands.
  Place asked;
  linux_desktop::AtspiReference window;
  /// The element that is hit, then its ancestors.
  std::vector<linux_desktop::AtspiReference> chain;
};

/// Throws where nothing that can be read is at the place.
Target findTarget(Place onScreen, const WayToAsk& way);

}  // namespace norra::benchmarks
