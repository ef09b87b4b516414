#include "Platform/Linux/service/StatisticsObject.h"

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <utility>

#include "NorraUserInteractionsCollectorServiceProtocol/BusNames.h"
#include "Platform/Linux/runtime/PlatformLogger.h"

namespace norra::linux_desktop {
namespace {

const auto* named(std::string_view name, const auto& properties) {
  const auto found = std::ranges::find(properties, name, [](const auto& property) { return property.name; });
  return found == properties.end() ? nullptr : &*found;
}

}  // namespace

StatisticsObject::StatisticsObject(sd_bus* bus, Source source) : source_(std::move(source)) {
  sd_bus_slot* slot = nullptr;
  const int result = sd_bus_add_object_vtable(bus, &slot, busNames::servicePath, busNames::statisticsInterface,
                                              properties_.data(), this);
  slot_.reset(slot);
  if (result < 0) platformLogger().error("The statistics are not offered on the session bus: " + describe(result));
}

std::vector<sd_bus_vtable> StatisticsObject::newProperties() {
  std::vector<sd_bus_vtable> properties{SD_BUS_VTABLE_START(0)};
  for (const auto& number : statisticsNumbers) properties.push_back(SD_BUS_PROPERTY(number.name, "t", onGet, 0, 0));
  for (const auto& text : statisticsTexts) properties.push_back(SD_BUS_PROPERTY(text.name, "s", onGet, 0, 0));
  properties.push_back(SD_BUS_VTABLE_END);
  return properties;
}

int StatisticsObject::onGet(sd_bus*, const char*, const char*, const char* property, sd_bus_message* reply, void* self,
                            sd_bus_error*) noexcept {
  const auto statistics = static_cast<StatisticsObject*>(self)->source_();
  if (const auto* number = named(property, statisticsNumbers)) {
    return sd_bus_message_append(reply, "t", statistics.*number->value);
  }
  const auto* text = named(property, statisticsTexts);
  return text ? sd_bus_message_append(reply, "s", (statistics.*text->value).c_str()) : -ENOENT;
}

}  // namespace norra::linux_desktop
