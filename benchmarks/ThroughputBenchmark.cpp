// The whole service, from the event to the client, on a simulated desktop on one core; the simulation's own work
// counts.
#include <benchmark/benchmark.h>

#include "Platform/Simulated/Desktop.h"
#include "UserInteractionsCollectorService/ServiceEntry.h"
#include "benchmarks/Allocations.h"
#include "benchmarks/Benchmarks.h"

namespace norra::benchmarks {
namespace {

using simulated::Attributes;
using simulated::Desktop;
using simulated::DesktopDescription;
using simulated::ElementReference;
using References = std::vector<ElementReference>;

constexpr ProcessIdentifier process = 501;

void addElement(DesktopDescription& desktop, const std::string& identifier, const std::string& role,
                Attributes attributes) {
  attributes["AXRole"] = role;
  desktop.elements[identifier] = {.process = process, .attributes = std::move(attributes)};
}

DesktopDescription officeDesktop() {
  DesktopDescription desktop;
  addElement(desktop, "application", "AXApplication", {{"AXFocusedUIElement", ElementReference{"field"}}});
  addElement(desktop, "label", "AXStaticText", {{"AXValue", "Save"}, {"AXParent", ElementReference{"inner"}}});
  addElement(desktop, "inner", "AXGroup", {{"AXParent", ElementReference{"middle"}}});
  addElement(desktop, "middle", "AXGroup", {{"AXParent", ElementReference{"outer"}}});
  addElement(desktop, "outer", "AXGroup", {{"AXParent", ElementReference{"button"}}});
  addElement(desktop, "button", "AXButton",
             {{"AXTitle", "Save"}, {"AXRoleDescription", "button"}, {"AXParent", ElementReference{"window"}}});
  addElement(desktop, "window", "AXWindow", {{"AXTitle", "Letter"}});
  addElement(desktop, "field", "AXTextField", {{"AXTitle", "Subject"}, {"AXRoleDescription", "text field"}});
  addElement(desktop, "row1", "AXRow", {{"AXTitle", "Lunch on Thursday"}});
  addElement(desktop, "row2", "AXRow", {{"AXTitle", "Budget"}});
  desktop.applications = {{.process = process, .localizedName = "Office", .element = ElementReference{"application"}}};
  desktop.frontmost = process;
  desktop.screen = {{{0, 0, 100, 100}, {"label"}}};
  return desktop;
}

class CountingClient final : public ClientProtocol {
 public:
  explicit CountingClient(std::int64_t& received) : received_(received) {}
  void addEvent(std::string event, std::chrono::system_clock::time_point, bool) override {
    benchmark::DoNotOptimize(event);
    ++received_;
  }

 private:
  std::int64_t& received_;
};

/// One interaction; a different one each time.
using Interaction = void (*)(Desktop& desktop, bool isOdd);

void click(Desktop& desktop, bool) { desktop.click({5, 5}); }

void changeValue(Desktop& desktop, bool isOdd) {
  desktop.setAttributes("field", {{"AXValue", isOdd ? "Quarterly figures" : "Annual figures"}});
  desktop.notify("field", "AXValueChanged");
  desktop.advance(std::chrono::seconds(1));
}

void select(Desktop& desktop, bool isOdd) {
  desktop.setAttributes("field", {{"AXSelectedRows", References{{isOdd ? "row1" : "row2"}}}});
  desktop.notify("field", "AXSelectedRowsChanged");
}

void serve(benchmark::State& state, Interaction interact) {
  std::int64_t received = 0;
  Desktop desktop(officeDesktop());
  desktop.clients().setLoop([&]() -> std::optional<int> {
    desktop.connect("client", std::make_shared<CountingClient>(received));
    desktop.call("client", simulated::ServiceOperation::start, [](auto) {});
    bool isOdd = false;
    const auto before = std::exchange(received, 0);
    const AllocationCounter allocations(state);
    for (auto _ : state) interact(desktop, isOdd = !isOdd);
    if (before != 1 || received != static_cast<std::int64_t>(state.iterations())) state.SkipWithError("lost a report");
    return std::nullopt;
  });
  runService([&desktop] { return desktop.platform(); });
  state.SetItemsProcessed(received);
}

void add(const std::string& name, Interaction interact) {
  benchmark::RegisterBenchmark(("service/" + name).c_str(), [=](auto& state) { serve(state, interact); });
}

}  // namespace

void registerThroughput() {
  add("clicks", click);
  add("value changes", changeValue);
  add("selections", select);
}

}  // namespace norra::benchmarks
