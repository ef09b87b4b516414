// Small trees to click on, each six levels deep, of the kinds that ordinary applications have.
#pragma once

#include <string>
#include <vector>

#include "benchmarks/ConstantElement.h"

namespace norra::benchmarks {

struct ClickScene {
  std::string name;
  /// Builds the tree and gives the element under the pointer.
  AXUIElement (*build)(ConstantTree& tree);
};

const std::vector<ClickScene>& clickScenes();

/// Adds groups one above the other, the first of them above `bottom`, and gives the last.
ConstantElement& addGroupsAbove(ConstantTree& tree, ConstantElement& bottom, int count);

}  // namespace norra::benchmarks
