# Sources that touch the host's classes are compiled for the host's object layout, which is Visual C++'s.
# On Windows Visual C++ does that by itself. Elsewhere clang++ compiles them, and the GNU linker links
# their objects together with everything else (docs/host-layout.md).
#
# orv_host_layout_objects(<target> SOURCES <file>... [INCLUDES <folder>...] [DEFINITIONS <name>...])
# Makes <target>, a thing to link: whoever links it gets the objects of the sources. The list of objects
# is also in <target>_OBJECTS, for a library that has no other source.

if(NOT MSVC)
  find_program(ORV_HOST_LAYOUT_COMPILER NAMES clang++ clang++-14 REQUIRED)
  find_path(ORV_WINDOWS_HEADERS NAMES windows.h REQUIRED)
  set(ORV_HOST_LAYOUT_FLAGS
    --target=x86_64-pc-windows-msvc -std=c++14 -fno-exceptions -fms-extensions -fno-ms-compatibility
    -fgnuc-version=12.2.0 -nostdinc++ -isystem ${ORV_WINDOWS_HEADERS}
    # The guard of a local static is a thread-local variable, and the GNU linker gives those relocations
    # that Windows misapplies when it moves the library (docs/host-layout.md).
    -fno-threadsafe-statics
    -ffile-prefix-map=${CMAKE_SOURCE_DIR}=.
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror -fno-strict-aliasing
    # The host's interfaces hide overloads of their bases and pass through extensions of Visual C++.
    -Wno-microsoft -Wno-overloaded-virtual)
  list(TRANSFORM ORV_WINDOWS_DEFINITIONS PREPEND -D OUTPUT_VARIABLE definitions)
  list(APPEND ORV_HOST_LAYOUT_FLAGS ${definitions})
  if(CMAKE_BUILD_TYPE STREQUAL "Debug")
    list(APPEND ORV_HOST_LAYOUT_FLAGS -O0 -gdwarf-4)
  else()
    list(APPEND ORV_HOST_LAYOUT_FLAGS -O2 -DNDEBUG -gdwarf-4)
  endif()
  set_property(GLOBAL PROPERTY ORV_HOST_LAYOUT_COMMANDS "")
endif()

# Where the host's headers are: the stand-in's own, or those of an installed SDK.
set(ORV_HOST_SDK_INCLUDE ${CMAKE_SOURCE_DIR}/standin/sdk/include
  CACHE PATH "Folder of the host's SDK headers; with Visual C++ the include folder of the real SDK")

function(orv_host_layout_objects target)
  cmake_parse_arguments(ARG "" "" "SOURCES;INCLUDES;DEFINITIONS" ${ARGN})
  set(includes ${CMAKE_SOURCE_DIR} ${ORV_HOST_SDK_INCLUDE} ${ARG_INCLUDES})
  if(MSVC)
    add_library(${target} OBJECT ${ARG_SOURCES})
    target_link_libraries(${target} PUBLIC orv_options)
    target_include_directories(${target} PRIVATE ${includes})
    target_compile_definitions(${target} PRIVATE ${ARG_DEFINITIONS})
    return()
  endif()

  set(flags ${ORV_HOST_LAYOUT_FLAGS})
  foreach(folder IN LISTS includes)
    list(APPEND flags -I${folder})
  endforeach()
  foreach(definition IN LISTS ARG_DEFINITIONS)
    list(APPEND flags -D${definition})
  endforeach()

  set(objects "")
  foreach(source IN LISTS ARG_SOURCES)
    cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} NORMALIZE)
    cmake_path(GET source FILENAME name)
    set(object ${CMAKE_CURRENT_BINARY_DIR}/${target}.host-layout/${name}.obj)
    # clang names unnamed namespaces after the path that it is given: a relative one, so that the same
    # sources give the same bytes in any folder.
    cmake_path(RELATIVE_PATH source BASE_DIRECTORY ${CMAKE_SOURCE_DIR} OUTPUT_VARIABLE relative)
    set(command ${ORV_HOST_LAYOUT_COMPILER} ${flags} -MD -MT ${object} -MF ${object}.d -o ${object} -c ${relative})
    add_custom_command(OUTPUT ${object} COMMAND ${command} DEPENDS ${source} DEPFILE ${object}.d
      WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
      COMMENT "Compiling ${name} for the host's object layout" VERBATIM)
    file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/${target}.host-layout)
    list(APPEND objects ${object})
    list(JOIN command " " line)
    set_property(GLOBAL APPEND_STRING PROPERTY ORV_HOST_LAYOUT_COMMANDS
      ",\n{\n  \"directory\": \"${CMAKE_SOURCE_DIR}\",\n  \"command\": \"${line}\",\n  \"file\": \"${source}\"\n}")
  endforeach()

  add_library(${target} INTERFACE)
  target_link_libraries(${target} INTERFACE ${objects})
  add_custom_target(${target}_objects DEPENDS ${objects})
  set(${target}_OBJECTS ${objects} PARENT_SCOPE)
endfunction()

# To be called once, after all targets: puts the commands above into compile_commands.json as well, for
# editors and static checkers.
function(orv_host_layout_compile_commands)
  if(MSVC OR NOT CMAKE_EXPORT_COMPILE_COMMANDS)
    return()
  endif()
  get_property(commands GLOBAL PROPERTY ORV_HOST_LAYOUT_COMMANDS)
  set(entries ${CMAKE_BINARY_DIR}/host-layout-commands.txt)
  file(CONFIGURE OUTPUT ${entries} CONTENT "@commands@" @ONLY)
  set(merged ${CMAKE_BINARY_DIR}/host-layout-commands.merged)
  add_custom_command(OUTPUT ${merged}
    COMMAND ${CMAKE_COMMAND} -DDATABASE=${CMAKE_BINARY_DIR}/compile_commands.json -DENTRIES=${entries}
            -P ${CMAKE_SOURCE_DIR}/cmake/MergeCompileCommands.cmake
    COMMAND ${CMAKE_COMMAND} -E touch ${merged}
    DEPENDS ${CMAKE_BINARY_DIR}/compile_commands.json ${entries}
    COMMENT "Listing the sources of the host's layout in compile_commands.json" VERBATIM)
  add_custom_target(host_layout_compile_commands ALL DEPENDS ${merged})
endfunction()
