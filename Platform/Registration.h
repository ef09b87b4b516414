#pragma once

namespace norra {

/// Something that goes on until this is let go.
class Registration {
 public:
  virtual ~Registration() = default;
};

}  // namespace norra
