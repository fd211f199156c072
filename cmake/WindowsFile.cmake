# What the linker writes into a library for Windows beside its code.

# orv_always_moved(<target>): the library prefers the address at which the GNU linker places every
# program. Whoever loads it - a test program, the stand-in host - stands there already, so Windows has to
# move the library each time, as address randomisation does on an artist's machine.
function(orv_always_moved target)
  target_link_options(${target} PRIVATE -Wl,--image-base,0x140000000)
endfunction()

# orv_reproducible(<target>): the same sources give the same bytes, at any time and in any folder; a
# release has debug information, for orv_separate_debug_information.
function(orv_reproducible target)
  if(MSVC)
    return()
  endif()
  target_compile_options(${target} PRIVATE
    $<$<COMPILE_LANGUAGE:CXX>:-ffile-prefix-map=${CMAKE_SOURCE_DIR}=.>
    $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<CONFIG:Release>>:-g>)
  get_target_property(type ${target} TYPE)
  if(NOT type STREQUAL "STATIC_LIBRARY")
    target_link_options(${target} PRIVATE -Wl,--no-insert-timestamp)
  endif()
endfunction()

# orv_separate_debug_information(<target>): moves symbols and line numbers of a release into a file of the
# library's name and ".debug" beside it, which the library names. A debug build keeps them inside.
function(orv_separate_debug_information target)
  if(NOT CMAKE_BUILD_TYPE STREQUAL "Release")
    return()
  endif()
  set(library $<TARGET_FILE:${target}>)
  set(symbols $<TARGET_FILE:${target}>.debug)
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${CMAKE_OBJCOPY} --preserve-dates --only-keep-debug ${library} ${symbols}
    COMMAND ${CMAKE_OBJCOPY} --preserve-dates --strip-all --add-gnu-debuglink=${symbols} ${library}
    BYPRODUCTS ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${target}.gup.debug VERBATIM)
endfunction()
