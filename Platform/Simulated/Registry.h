#pragma once

#include <algorithm>
#include <vector>

namespace norra::simulated {

/// Objects that are told of something, in the order in which they came. They are not owned and leave before they end;
/// they may come and go while the others are being told.
template <typename Member>
class Registry {
 public:
  void add(Member* member) { members_.push_back(member); }
  void remove(Member* member) { std::erase(members_, member); }

  template <typename Telling>
  void tellAll(Telling tell) const {
    for (auto* member : std::vector<Member*>(members_)) {
      if (std::ranges::find(members_, member) != members_.end()) tell(*member);
    }
  }

 private:
  std::vector<Member*> members_;
};

}  // namespace norra::simulated
