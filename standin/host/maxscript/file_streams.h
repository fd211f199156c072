// Files that scripts read and write piece by piece: as text, and as bytes.
#pragma once

#include "standin/host/maxscript/globals.h"

namespace standin {
namespace maxscript {

// createFile, openFile and what is done with their FileStream; fopen and its BinStream.
void AddFileStreams(Globals& globals);

} // namespace maxscript
} // namespace standin
