#include "Platform/Linux/display/TapBook.h"

#include <utility>

namespace norra::linux_desktop {

struct TapBook::Entry {
  CGEventMask eventsOfInterest = 0;
  CGEventTapCallback callback;
  bool isEnabled = false;
  bool isOnRunLoop = false;

  CGEventMask wanted() const { return isEnabled && isOnRunLoop ? eventsOfInterest : 0; }
};

class TapBook::Tap final : public EventTap {
 public:
  Tap(TapBook& book, std::shared_ptr<Entry> entry) : book_(book), entry_(std::move(entry)) {}

  ~Tap() override {
    setOnRunLoop(false);
    std::erase(book_.entries_, entry_);
  }

  void addSourceToMainRunLoop() override { setOnRunLoop(true); }
  void removeSourceFromMainRunLoop() override { setOnRunLoop(false); }

  void enable() override {
    entry_->isEnabled = true;
    book_.changed_();
  }

 private:
  void setOnRunLoop(bool isOnRunLoop) {
    entry_->isOnRunLoop = isOnRunLoop;
    book_.changed_();
  }

  TapBook& book_;
  const std::shared_ptr<Entry> entry_;
};

std::unique_ptr<EventTap> TapBook::createTap(CGEventMask eventsOfInterest, CGEventTapCallback callback) {
  auto entry = std::make_shared<Entry>(Entry{eventsOfInterest, std::move(callback)});
  entries_.push_back(entry);
  return std::make_unique<Tap>(*this, std::move(entry));
}

CGEventMask TapBook::wantedEvents() const {
  CGEventMask wanted = 0;
  for (const auto& entry : entries_) wanted |= entry->wanted();
  return wanted;
}

void TapBook::deliver(const CGEvent& event) const {
  const auto entries = entries_;
  for (const auto& entry : entries) {
    if ((entry->wanted() & maskOf(event.type)) != 0) entry->callback(event);
  }
}

}  // namespace norra::linux_desktop
