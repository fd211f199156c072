// What the command line asks of the stand-in client.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace standin {

// Where a reply is cut in two, with a pause between its parts.
enum class Split { None, BeforeBody, InsideBody };

struct Options {
    std::uint16_t port = 0; // 0: any free one
    int requests = 0;       // end after so many; 0: never
    bool help = false;

    bool sharedMemory = true;
    std::string userName = "artist"; // UTF-8
    std::string savePath;            // UTF-8

    int replyCode = 0; // 0: decided by what the request holds
    bool hasErr = false;
    std::string err; // UTF-8
    int httpStatus = 200;
    std::string rawReply; // file with the whole reply, UTF-8 path; empty: none
    bool oversized = false;
    Split split = Split::None;
    int pauseMilliseconds = 300;
    int delayMilliseconds = 0;
    bool closeWithoutReply = false;
    bool closeAtOnce = false;

    std::string record; // file that receives the bytes of each request, UTF-8 path; empty: none
};

// Reads the arguments (UTF-8, without the program's name). False with a sentence in `problem` when
// one of them is not understood.
bool ParseOptions(const std::vector<std::string>& arguments, Options& options,
                  std::string& problem);

// How to use the program, for people.
const char* Usage();

} // namespace standin
