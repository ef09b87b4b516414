#include "Platform/Linux/reading/OwnPixels.h"

#include <cmath>

namespace norra::linux_desktop {

AtspiRectangle OwnPixels::onScreen(const AtspiRectangle& own) const {
  if (areOfScreen()) return own;
  const auto rounded = [](double value) { return static_cast<std::int32_t>(std::lround(value)); };
  return {rounded((own.x - origin.x) * scale), rounded((own.y - origin.y) * scale), rounded(own.width * scale),
          rounded(own.height * scale)};
}

}  // namespace norra::linux_desktop
