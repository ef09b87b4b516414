// The fixtures of the conformance tests, which are asked of the kind of desktop that a program defines.
#pragma once

#include <gmock/gmock.h>

#include <atomic>

#include "tests/conformance/DesktopUnderTest.h"

namespace norra::conformance {

template <Facility facility>
class ConformanceTest : public testing::TestWithParam<DesktopMaker> {
 protected:
  void SetUp() override {
    if (const auto reason = GetParam().whyNot(facility)) GTEST_SKIP() << *reason;
    desktop = GetParam().make(facility);
  }

  Platform platform() const { return desktop->platform(); }
  bool serveUntil(const std::function<bool()>& condition) const { return desktop->serveUntil(condition); }

  /// Runs a job on the executor and lets the platform work until it has ended.
  [[nodiscard]] bool runOn(SerialExecutor& executor, const Job& job) const {
    auto hasEnded = std::make_shared<std::atomic<bool>>(false);
    executor.post([job, hasEnded] {
      job();
      *hasEnded = true;
    });
    return serveUntil([&] { return hasEnded->load(); });
  }

  std::unique_ptr<DesktopUnderTest> desktop;
};

using RunLoopConformance = ConformanceTest<Facility::runLoop>;
using ExecutorConformance = ConformanceTest<Facility::executors>;
using WorkspaceConformance = ConformanceTest<Facility::workspace>;
using InputConformance = ConformanceTest<Facility::input>;
using ConnectionConformance = ConformanceTest<Facility::connections>;
using ElementConformance = ConformanceTest<Facility::elements>;
using ObserverConformance = ConformanceTest<Facility::observers>;

/// Defined by each program.
DesktopMaker desktopUnderTest();

inline std::string nameOf(const testing::TestParamInfo<DesktopMaker>& info) { return info.param.name; }

}  // namespace norra::conformance
