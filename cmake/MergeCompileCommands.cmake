# cmake -DDATABASE=compile_commands.json -DENTRIES=file -P MergeCompileCommands.cmake
# Appends the entries, each preceded by a comma, to the database that CMake wrote; once.
file(READ ${ENTRIES} entries)
file(READ ${DATABASE} database)
string(FIND "${database}" ".host-layout/" present)
if(present EQUAL -1 AND NOT entries STREQUAL "")
  string(REGEX REPLACE "[ \n]*][ \n]*$" "" database "${database}")
  file(WRITE ${DATABASE} "${database}${entries}\n]\n")
endif()
