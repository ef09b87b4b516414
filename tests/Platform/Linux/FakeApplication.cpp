#include "tests/Platform/Linux/FakeApplication.h"

#include <cstdlib>
#include <deque>
#include <stdexcept>

namespace norra::linux_desktop {
namespace {

constexpr std::uint64_t turnMicroseconds = 5000;
const std::string pathPrefix = "/org/a11y/atspi/accessible/";

std::string keyOf(const std::string& path) {
  return path.starts_with(pathPrefix) ? path.substr(pathPrefix.size()) : "";
}

// Replies with an array: `append` appends one of the items.
template <typename Items, typename Append>
int replyArray(sd_bus_message* call, const char* type, const Items& items, const Append& append) {
  sd_bus_message* handle = nullptr;
  sd_bus_message_new_method_return(call, &handle);
  const MessagePtr reply(handle);
  sd_bus_message_open_container(handle, 'a', type);
  for (const auto& item : items) append(handle, item);
  sd_bus_message_close_container(handle);
  return sd_bus_send(nullptr, handle, nullptr);
}

}  // namespace

BusPtr openAccessibilityBus() {
  sd_bus* bus = nullptr;
  sd_bus_new(&bus);
  BusPtr owned(bus);
  sd_bus_set_address(bus, std::getenv("AT_SPI_BUS_ADDRESS"));
  sd_bus_set_bus_client(bus, 1);
  if (sd_bus_start(bus) < 0) throw std::runtime_error("no accessibility bus");
  return owned;
}

FakeApplication::FakeApplication(std::string toolkit, std::string version)
    : toolkit_(std::move(toolkit)), version_(std::move(version)), bus_(openAccessibilityBus()) {
  sd_bus_add_filter(bus_.get(), nullptr, onMessage, this);
  const char* name = nullptr;
  sd_bus_get_unique_name(bus_.get(), &name);
  name_ = name;
  set("root", {.role = AtspiRole::application, .name = "fake"});
  thread_ = std::thread([this] { serve(); });
}

FakeApplication::~FakeApplication() {
  isEnding_ = true;
  thread_.join();
}

void FakeApplication::serve() {
  while (!isEnding_) {
    while (sd_bus_process(bus_.get(), nullptr) > 0) {
    }
    if (!isSilent_) answerKept();
    std::vector<std::function<void()>> outgoing;
    {
      const std::lock_guard lock(mutex_);
      outgoing.swap(outgoing_);
    }
    for (const auto& send : outgoing) send();
    sd_bus_wait(bus_.get(), turnMicroseconds);
  }
}

void FakeApplication::answerKept() {
  auto kept = std::exchange(kept_, {});
  for (const auto& call : kept) {
    sd_bus_message_rewind(call.get(), 1);
    handle(call.get());
  }
}

void FakeApplication::set(const std::string& key, FakeElement element) {
  const std::lock_guard lock(mutex_);
  elements_.insert_or_assign(key, std::move(element));
}

void FakeApplication::setElsewhere(FakeElement element) {
  const std::lock_guard lock(mutex_);
  elsewhere_ = std::move(element);
}

void FakeApplication::remove(const std::string& key) {
  const std::lock_guard lock(mutex_);
  elements_.erase(key);
}

std::string FakeApplication::pathOf(const std::string& key) const { return pathPrefix + (key.empty() ? "root" : key); }

AtspiReference FakeApplication::reference(const std::string& key) const { return {name_, pathOf(key)}; }

void FakeApplication::answer(const std::string& member, Answer answer) {
  const std::lock_guard lock(mutex_);
  answers_[member] = std::move(answer);
}

void FakeApplication::atEachCall(std::function<void(const std::string& member)> action) {
  const std::lock_guard lock(mutex_);
  atEachCall_ = std::move(action);
}

int FakeApplication::calls(const std::string& member) const {
  const std::lock_guard lock(mutex_);
  const auto found = calls_.find(member);
  return found == calls_.end() ? 0 : found->second;
}

int FakeApplication::calls() const {
  const std::lock_guard lock(mutex_);
  int sum = 0;
  for (const auto& [member, count] : calls_) sum += count;
  return sum;
}

void FakeApplication::sendEvent(const std::string& key, const char* member, const char* detail, int detail1) {
  const std::lock_guard lock(mutex_);
  outgoing_.push_back([this, path = pathOf(key), member, detail, detail1] {
    sd_bus_emit_signal(bus_.get(), path.c_str(), "org.a11y.atspi.Event.Object", member, "siiva{sv}", detail, detail1, 0,
                       "i", 0, 0);
  });
}

int FakeApplication::onMessage(sd_bus_message* message, void* self, sd_bus_error* /*error*/) {
  auto& application = *static_cast<FakeApplication*>(self);
  if (sd_bus_message_is_method_call(message, nullptr, nullptr) <= 0) return 0;
  ++application.received_;
  if (!application.isSilent_) return application.handle(message);
  application.kept_.emplace_back(sd_bus_message_ref(message));
  return 1;
}

int FakeApplication::handle(sd_bus_message* call) {
  std::string member = sd_bus_message_get_member(call);
  const char* property = nullptr;
  if (member == "Get" && sd_bus_message_read(call, "ss", nullptr, &property) >= 0) member = property;
  Answer own;
  {
    const std::lock_guard lock(mutex_);
    ++calls_[member];
    atEachCall_(member);
    if (const auto found = answers_.find(member); found != answers_.end()) own = found->second;
  }
  if (own && own(call) >= 0) return 1;
  if (!isKnown(call)) {
    sd_bus_reply_method_errorf(call, "org.freedesktop.DBus.Error.UnknownObject", "gone");
  } else if (property ? replyProperty(call, member) < 0 : replyMethod(call, member) < 0) {
    sd_bus_reply_method_errorf(call, "org.freedesktop.DBus.Error.UnknownMethod", "unknown");
  }
  return 1;
}

bool FakeApplication::isKnown(sd_bus_message* call) const {
  const std::lock_guard lock(mutex_);
  return elsewhere_ || elements_.contains(keyOf(sd_bus_message_get_path(call)));
}

FakeElement FakeApplication::elementOf(sd_bus_message* call) const {
  const std::lock_guard lock(mutex_);
  const auto found = elements_.find(keyOf(sd_bus_message_get_path(call)));
  return found != elements_.end() ? found->second : elsewhere_.value();
}

std::vector<std::string> FakeApplication::fieldsBelow(const FakeElement& element) const {
  const std::lock_guard lock(mutex_);
  std::vector<std::string> fields;
  for (auto keys = std::deque(element.children.begin(), element.children.end()); !keys.empty(); keys.pop_front()) {
    const auto child = elements_.find(keys.front());
    if (child == elements_.end()) continue;
    if (hasState(child->second.states, AtspiState::editable)) fields.push_back(child->first);
    keys.insert(keys.end(), child->second.children.begin(), child->second.children.end());
  }
  return fields;
}

int FakeApplication::replyReference(sd_bus_message* call, const std::string& key) {
  return sd_bus_reply_method_return(call, "(so)", name_.c_str(), pathOf(key).c_str());
}

int FakeApplication::replyProperty(sd_bus_message* call, const std::string& property) {
  const auto element = elementOf(call);
  const auto text = [call](const std::string& value) {
    return sd_bus_reply_method_return(call, "v", "s", value.c_str());
  };
  const auto number = [call](std::size_t value) {
    return sd_bus_reply_method_return(call, "v", "i", static_cast<std::int32_t>(value));
  };
  if (property == "Name") return text(element.name);
  if (property == "Description") return text(element.description);
  if (property == "ToolkitName") return text(toolkit_);
  if (property == "Version") return text(version_);
  if (property == "ChildCount") return number(element.children.size());
  if (property == "CharacterCount") return number(element.text.size());
  if (property == "NActions") return number(element.actions.size());
  if (property == "CurrentValue") return sd_bus_reply_method_return(call, "v", "d", element.value);
  if (property == "Parent") {
    return sd_bus_reply_method_return(call, "v", "(so)", name_.c_str(), pathOf(element.parent).c_str());
  }
  return -1;
}

int FakeApplication::replyMethod(sd_bus_message* call, const std::string& member) {
  const auto element = elementOf(call);
  if (member == "GetRole") return sd_bus_reply_method_return(call, "u", static_cast<std::uint32_t>(element.role));
  if (member == "GetLocalizedRoleName") return sd_bus_reply_method_return(call, "s", "some role");
  if (member == "GetText") return sd_bus_reply_method_return(call, "s", element.text.c_str());
  if (member == "GetStringAtOffset") {
    return sd_bus_reply_method_return(call, "sii", element.displayedText.c_str(), 0, 0);
  }
  if (member == "GetState") {
    return sd_bus_reply_method_return(call, "au", 2, static_cast<std::uint32_t>(element.states),
                                      static_cast<std::uint32_t>(element.states >> 32));
  }
  const auto appendReference = [this](sd_bus_message* reply, const std::string& key) {
    sd_bus_message_append(reply, "(so)", name_.c_str(), pathOf(key).c_str());
  };
  if (member == "GetAttributes") {
    return replyArray(call, "{ss}", element.attributes, [](sd_bus_message* reply, const auto& text) {
      sd_bus_message_append(reply, "{ss}", text.first.c_str(), text.second.c_str());
    });
  }
  if (member == "GetInterfaces") {
    return replyArray(call, "s", element.interfaces, [](sd_bus_message* reply, const std::string& name) {
      sd_bus_message_append(reply, "s", ("org.a11y.atspi." + name).c_str());
    });
  }
  if (member == "GetRelationSet") {
    return replyArray(call, "(ua(so))", element.relations, [this](sd_bus_message* reply, const auto& relation) {
      const auto& [type, key] = relation;
      sd_bus_message_append(reply, "(ua(so))", static_cast<std::uint32_t>(type), 1, name_.c_str(), pathOf(key).c_str());
    });
  }
  if (member == "GetChildren") return replyArray(call, "(so)", element.children, appendReference);
  if (member == "GetMatches") return replyArray(call, "(so)", fieldsBelow(element), appendReference);
  if (member == "GetExtents") {
    const auto& [x, y, width, height] = element.extents;
    return sd_bus_reply_method_return(call, "(iiii)", x, y, width, height);
  }
  if (member == "GetAccessibleAtPoint") {
    if (!element.children.empty()) return replyReference(call, element.children.back());
    return sd_bus_reply_method_return(call, "(so)", "", AtspiReference::nullPath);
  }
  std::int32_t index = 0;
  if (member != "GetChildAtIndex" && member != "GetName") return -1;
  const auto& items = member == "GetName" ? element.actions : element.children;
  if (sd_bus_message_read(call, "i", &index) < 0 || index < 0 || std::size_t(index) >= items.size()) return -1;
  const auto& item = items[static_cast<std::size_t>(index)];
  return member == "GetName" ? sd_bus_reply_method_return(call, "s", item.c_str()) : replyReference(call, item);
}

}  // namespace norra::linux_desktop
