// Packing the saved scene with 7-Zip: the archive's name and password, and the run of the archiver.
#pragma once

#include "config/client_info.h"
#include "config/session_data.h"

#include <string>

namespace orv {

// Behind the path of an archive that was there before, while the archiver rewrites it beside
// itself.
constexpr wchar_t kUnfinishedSuffix[] = L".tmp";

// Names the archive of `scenePath` (UTF-8) and prepares 7-Zip's arguments: sets `archivePath` and
// `archiverArguments` of `paths`. The archive goes to the client's save folder where the session
// data names one that can be used, else to the job's compress folder; either is made when missing.
// False, with the reason in "rud_data", when the scene's name cannot be an archive's, its path is
// no full one, or the archive's path is too long.
bool PackScene(const std::string& scenePath, JobPaths& paths, const SessionData& session);

// Runs 7-Zip as PackScene prepared it and waits for its end, however long it takes, or until the
// end of the submission is requested, which ends 7-Zip. A 7-Zip that cannot be started or ends with
// an exit code other than 0 leaves a line in "rud_data". What an unfinished 7-Zip had written of
// the archive is deleted. The log never has the arguments, because the password is among them.
void RunArchiver(const JobPaths& paths);

// What names and locks an archive.

// MD5 (RFC 1321) of `bytes` as 32 lower-case hexadecimal characters. Made by the system's own
// cryptography; empty, with a line in "rud_data", when the system refuses.
std::string Md5Hex(const std::string& bytes);

// Six letters and digits that distinguish archives of one scene. Two calls within one second return
// the same text. Reseeds the C library's generator of this thread.
std::string RandomText();

// The text for a seed.
std::string RandomTextFromSeed(unsigned seed);

// The password of an archive with base name `baseName` (UTF-8): 24 lower-case hexadecimal
// characters, by the rule in docs/archive.md, which the client follows too. Empty when no digest
// could be made. Not to be logged, shown or kept.
std::string ArchivePassword(const std::string& baseName);

} // namespace orv
