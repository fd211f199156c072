// The events that the host reports while it runs: one JSON object for each. The names and
// members of the events are listed in README.md.
#pragma once

#include <json/json.h>

#include <functional>
#include <string>
#include <utility>

namespace standin {

// Receives each event on the host's main thread. An empty function is allowed: nothing is sent
// then.
using EventSink = std::function<void(const Json::Value&)>;

// An event under construction: Event("saved").with("path", path).sendTo(sink).
class Event {
public:
    explicit Event(const char* name) : object_(Json::objectValue) { object_["event"] = name; }

    Event& with(const char* key, const std::wstring& text);
    Event& with(const char* key, const char* text);
    Event& with(const char* key, bool flag);
    Event& with(const char* key, int number);
    Event& with(const char* key, const Json::Value& value);

    void sendTo(const EventSink& sink) const;

private:
    Json::Value object_;
};

// The event as one line of UTF-8 JSON, with its line feed.
std::string EventLine(const Json::Value& event);

} // namespace standin
