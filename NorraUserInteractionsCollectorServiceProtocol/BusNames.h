// How the two protocols are reached on the session bus. Their signatures are in the XML files beside this one.
#pragma once

namespace norra::busNames {

inline constexpr const char* service = "com.norra.UserInteractionsCollectorService";
inline constexpr const char* servicePath = "/com/norra/UserInteractionsCollectorService";
inline constexpr const char* serviceInterface = "com.norra.ServiceProtocol";
/// Its methods: without arguments, each answers a text.
inline constexpr const char* startCollectorWith = "startCollectorWith";
inline constexpr const char* stopCollectorWith = "stopCollectorWith";
inline constexpr const char* pauseCollectorWith = "pauseCollectorWith";
inline constexpr const char* resumeCollectorWith = "resumeCollectorWith";
/// Read-only properties of the same object.
inline constexpr const char* statisticsInterface = "com.norra.ServiceStatistics";

/// What every client exports on its own connection.
inline constexpr const char* clientPath = "/com/norra/UserInteractionsCollectorClient";
inline constexpr const char* clientInterface = "com.norra.ClientProtocol";
/// Signature "stb"; the date is microseconds since the Unix epoch.
inline constexpr const char* addEvent = "addEvent";

}  // namespace norra::busNames
