// One element while one primitive of it is answered: what is read of it, and where it stands.
//
// A view is where reading ahead is decided. Whoever asks it for a fact gets the fact; with it, in the same wave, goes
// what experience says will be asked next: of an element on the path what the core reads of every element that matters,
// of its ancestors the same, of a control what it is called. Views are made for a few lines and hold nothing of their
// own.
#pragma once

#include <memory>
#include <optional>

#include "Platform/Linux/reading/AtspiReader.h"

namespace norra::linux_desktop {

class ElementView {
 public:
  ElementView(AtspiReader& reader, AtspiReference reference)
      : reader_(reader), reference_(std::move(reference)), application_(reader.application(reference_)) {}

  AtspiReader& reader() const { return reader_; }
  const AtspiReference& reference() const { return reference_; }
  AtspiApplication& application() const { return *application_; }
  const Toolkit& toolkit() const { return application_->toolkit(); }
  ElementView other(const AtspiReference& reference) const { return {reader_, reference}; }
  /// Of the null element, if there is none.
  ElementView parent() const { return other(need(Ask::parent).parent); }

  /// The facts, with these among them; what is sure to be needed soon is asked for in the same wave.
  const AtspiFacts& need(Asks asks) const;
  /// The facts, with these among them, and nothing asked ahead: for elements that nobody will come back to.
  const AtspiFacts& needOnly(Asks asks) const { return reader_.read(reference_, asks); }

  /// Success where the role was answered; else why it was not.
  AXError roleError() const { return need(Ask::role).error(Ask::role); }
  AtspiRole role() const { return static_cast<AtspiRole>(need(Ask::role).role); }
  bool hasState(AtspiState state) const { return linux_desktop::hasState(need(Ask::states).states, state); }
  bool has(AtspiInterface interface) const { return need(Ask::interfaces).has(interface); }

  /// What is read of every element that matters.
  Asks generalAsks() const;

 private:
  Asks passingAsks(const AtspiFacts& known) const;
  Asks asksOnPath(std::optional<AtspiRole> role) const;
  Asks detailAsks(const AtspiFacts& facts) const;
  void expectAncestors() const;

  AtspiReader& reader_;
  const AtspiReference reference_;
  const std::shared_ptr<AtspiApplication> application_;
};

/// What a search does after it has looked at an element.
enum class Search : std::uint8_t { goesOn, found, ends };

/// The first of an element and those above it, so many in all, that `look` finds; null: none.
template <typename Look>
AtspiReference searchUp(const ElementView& from, int maxElements, Look look) {
  auto at = from.reference();
  for (int i = 0; i < maxElements && !at.isNull(); ++i) {
    const auto view = from.other(at);
    const Search search = look(view);
    if (search == Search::found) return at;
    if (search == Search::ends) return {};
    at = view.need(Ask::parent).parent;
  }
  return {};
}

inline Search foundIf(bool isFound) { return isFound ? Search::found : Search::goesOn; }

}  // namespace norra::linux_desktop
