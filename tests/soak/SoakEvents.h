// What happens on the desktop, drawn at random.
#pragma once

#include <random>

#include "Platform/Simulated/Desktop.h"

namespace norra::soak {

/// The same seed draws the same events.
class SoakEvents {
 public:
  SoakEvents(simulated::Desktop& desktop, std::uint64_t seed) : desktop_(desktop), random_(seed) {}

  /// A client of this name must be collecting.
  static constexpr auto client = "client";

  void playOne();

  /// Brings everything that an event can change back to where it was at the first, with nothing held back.
  void settle();

 private:
  void click();
  void pressKey();
  void changeValue();
  void moveFocus();
  void changeSelection();
  void switchApplication();
  void disturb();
  void pauseAndResume();
  void rebuildElement();
  void bringASecondClient();
  void call(simulated::ServiceOperation operation);

  void focus(const std::string& name);
  std::size_t below(std::size_t count);
  std::string randomText();

  simulated::Desktop& desktop_;
  std::mt19937_64 random_;
  ProcessIdentifier front_ = 0;
  std::string focused_;
};

}  // namespace norra::soak
