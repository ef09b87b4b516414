#include "Platform/Linux/atspi/AtspiBus.h"

#include <cstdlib>
#include <utility>

#include "Platform/Linux/atspi/AtspiMessage.h"
#include "Platform/Linux/runtime/PlatformLogger.h"

namespace norra::linux_desktop {
namespace {

using std::chrono::steady_clock;

constexpr std::chrono::milliseconds connectLimit{1000};
constexpr std::chrono::milliseconds pauseAfterFailure{1000};
constexpr const char* noBus =
    "No accessibility bus: applications cannot be read. Install at-spi2-core and start a new session";

BusPtr openBus(const std::string& address, AtspiBus::TimePoint deadline) {
  sd_bus* handle = nullptr;
  if (sd_bus_new(&handle) < 0) return nullptr;
  BusPtr bus(handle);
  if (sd_bus_set_address(handle, address.c_str()) < 0 || sd_bus_set_bus_client(handle, 1) < 0 ||
      sd_bus_start(handle) < 0) {
    return nullptr;
  }
  return ready(std::move(bus), deadline);
}

std::optional<std::string> askForAddress(AtspiBus::TimePoint deadline) {
  const auto session = openSessionBus(deadline);
  if (!session) return std::nullopt;
  sd_bus_message* call = nullptr;
  sd_bus_message_new_method_call(session.get(), &call, "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress");
  const MessagePtr owned(call);
  return readText(answerTo(session.get(), call, deadline).get());
}

std::optional<std::string> currentAddress(AtspiBus::TimePoint deadline) {
  const char* address = std::getenv("AT_SPI_BUS_ADDRESS");
  if (address && *address) return address;
  return askForAddress(deadline);
}

}  // namespace

BusPtr AtspiBus::connect() {
  const auto now = steady_clock::now();
  if (!mayTry(now)) return nullptr;
  const auto address = knownAddress_ ? knownAddress_ : currentAddress(now + connectLimit);
  auto bus = address ? openBus(*address, now + connectLimit) : nullptr;
  noteOutcome(bus != nullptr);
  if (bus) noteIdentity(bus.get());
  return bus;
}

void AtspiBus::noteIdentity(sd_bus* bus) {
  sd_id128_t identity{};
  if (sd_bus_get_bus_id(bus, &identity) < 0 || !isAnother(identity)) return;
  ++generation_;
  for (const auto& forget : forgetting_) forget();
}

bool AtspiBus::isAnother(const sd_id128_t& identity) {
  const std::lock_guard lock(mutex_);
  const auto former = std::exchange(identity_, identity);
  return former && sd_id128_equal(*former, identity) == 0;
}

std::string AtspiBus::problem() {
  const std::lock_guard lock(mutex_);
  return isFailureLogged_ ? noBus : "";
}

bool AtspiBus::mayTry(TimePoint now) {
  const std::lock_guard lock(mutex_);
  return now >= nextTry_;
}

void AtspiBus::noteOutcome(bool isConnected) {
  const std::lock_guard lock(mutex_);
  if (!isConnected) nextTry_ = steady_clock::now() + pauseAfterFailure;
  if (!isConnected && !isFailureLogged_) platformLogger().error(noBus);
  isFailureLogged_ = !isConnected;
}

}  // namespace norra::linux_desktop
