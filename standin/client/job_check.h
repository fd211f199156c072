// The files that a request names, opened and looked into.
#pragma once

#include <json/json.h>

#include <string>
#include <vector>

namespace standin {

// What a request's body led to.
struct JobCheck {
    Json::Value body;    // the parsed body, null when it is no JSON
    Json::Value scene;   // {"path", "exists", "bytes"}; also of the two below
    Json::Value jobFile; // and its main members
    Json::Value archive; // and whether it begins as a 7z archive does
    std::vector<std::string> problems;
    int replyCode = 0; // what the client would answer
};

// Reads the body (UTF-8 JSON) as a request of the plug-in, and opens what it names.
JobCheck CheckJob(const std::string& body);

} // namespace standin
