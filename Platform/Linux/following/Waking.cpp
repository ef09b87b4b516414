#include "Platform/Linux/following/Waking.h"

#include "Platform/Linux/atspi/AtspiCalls.h"
#include "Platform/Linux/elements/Structure.h"
#include "Platform/Linux/reading/AtspiSession.h"
#include "Platform/Linux/reading/ElementView.h"

namespace norra::linux_desktop {
namespace {

AtspiCall hitTestInTheMiddle(const AtspiReference& element, const AtspiRectangle& place) {
  return hitTestCall(element, place.x + place.width / 2, place.y + place.height / 2, Coordinates::ofScreen);
}

}  // namespace

void wake(AtspiSession& session, ProcessIdentifier process) {
  auto& reader = session.reader();
  const auto root = session.processes.rootOf(process, reader);
  if (root.isNull()) return;
  const ElementView view(reader, root);
  if (!view.toolkit().showsWebPages) return;
  const auto windows = fewChildren(view);
  std::vector<AtspiQuestion> questions;
  for (const auto& window : windows) questions.push_back({window, Asks{Ask::attributes, Ask::extents}});
  reader.read(questions);
  // What is found in the middle, which may be the page as a whole, would be the answer for whatever lies in it.
  if (view.toolkit().guessesAtFirst) return;
  std::vector<AtspiCall> hitTests;
  for (const auto& window : windows) hitTests.push_back(hitTestInTheMiddle(window, reader.known(window).extents));
  std::vector<AtspiQuestion> shown;
  for (const auto& reply : reader.exchange(hitTests)) {
    auto found = readReference(reply.message.get());
    if (found && !found->isNull()) shown.push_back({std::move(*found), view.generalAsks()});
  }
  reader.read(shown);
}

}  // namespace norra::linux_desktop
