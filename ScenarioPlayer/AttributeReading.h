// What the elements of a file hold.
//
// A value may name another element, so whoever reads values is handed the names that the file defines. A name that it
// does not define is a fault where it stands, and not one of the click that comes upon it.
#pragma once

#include <set>

#include "Platform/Simulated/DesktopDescription.h"
#include "ScenarioPlayer/JsonCursor.h"

namespace norra::scenario {

/// The elements and applications that a file defines, for reading those values that name one.
struct References {
  std::set<std::string> elements;
  std::set<ProcessIdentifier> applications;

  /// Faults on an identifier that names no element.
  simulated::ElementReference element(const JsonCursor& cursor) const;
  /// Faults on a process identifier that no application has.
  ProcessIdentifier application(const JsonCursor& cursor) const;
  /// The same, or nothing for null.
  std::optional<ProcessIdentifier> applicationOrNone(const JsonCursor& cursor) const;
};

simulated::Attributes readAttributes(const JsonCursor& cursor, const References& references);

}  // namespace norra::scenario
