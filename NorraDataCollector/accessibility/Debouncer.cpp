#include "NorraDataCollector/accessibility/Debouncer.h"

#include <utility>

namespace norra {

Debouncer::Debouncer(MainRunLoop& mainRunLoop, std::chrono::nanoseconds delay, std::function<void()> action)
    : mainRunLoop_(mainRunLoop), delay_(delay), action_(std::move(action)) {}

Debouncer::~Debouncer() { cancel(); }

void Debouncer::debounce() {
  cancel();
  workItem_ = mainRunLoop_.postAfter(delay_, action_);
}

void Debouncer::cancel() {
  if (workItem_) workItem_->cancel();
}

}  // namespace norra
