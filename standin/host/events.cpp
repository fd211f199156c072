#include "standin/host/events.h"

#include "standin/host/text.h"

namespace standin {

Event& Event::with(const char* key, const std::wstring& text) {
    object_[key] = ToUtf8(text);
    return *this;
}

Event& Event::with(const char* key, const char* text) {
    object_[key] = text;
    return *this;
}

Event& Event::with(const char* key, bool flag) {
    object_[key] = flag;
    return *this;
}

Event& Event::with(const char* key, int number) {
    object_[key] = number;
    return *this;
}

Event& Event::with(const char* key, const Json::Value& value) {
    object_[key] = value;
    return *this;
}

void Event::sendTo(const EventSink& sink) const {
    if (sink) {
        sink(object_);
    }
}

std::string EventLine(const Json::Value& event) {
    Json::StreamWriterBuilder builder;
    builder["emitUTF8"] = true;
    builder["indentation"] = "";
    return Json::writeString(builder, event) + "\n";
}

} // namespace standin
