# Warnings of our own code are errors; system and dependency headers are included as SYSTEM.

# The Windows that the product needs and what its headers leave out. The checks of the sources read the same file.
set(definitions ${CMAKE_SOURCE_DIR}/cmake/windows-definitions.txt)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${definitions})
file(STRINGS ${definitions} ORV_WINDOWS_DEFINITIONS)

add_library(orv_options INTERFACE)
target_compile_definitions(orv_options INTERFACE ${ORV_WINDOWS_DEFINITIONS})
if(MSVC)
  # What the host demands of its plug-ins: run-time type information, exceptions that structured ones pass
  # through, the run-time as a DLL (below). Off are the warnings that the SDK's own projects turn off; they
  # come from its headers.
  target_compile_options(orv_options INTERFACE
    "$<$<COMPILE_LANGUAGE:C,CXX>:/W4;/utf-8;/EHa;/GR;/MP;/wd4018;/wd4244;/wd4456;/wd4457;/wd4458;/wd4459;/wd4589;/wd4702;/wd4819>")
  target_compile_definitions(orv_options INTERFACE
    _CRT_SECURE_NO_DEPRECATE _CRT_NONSTDC_NO_DEPRECATE _SCL_SECURE_NO_DEPRECATE)
  # Control Flow Guard, which the GNU linker does not have.
  target_compile_options(orv_options INTERFACE $<$<COMPILE_LANGUAGE:C,CXX>:/guard:cf>)
  target_link_options(orv_options INTERFACE /guard:cf)
  option(ORV_WARNINGS_AS_ERRORS "Warnings of Visual C++ end the build" OFF)
  if(ORV_WARNINGS_AS_ERRORS)
    target_compile_options(orv_options INTERFACE $<$<COMPILE_LANGUAGE:C,CXX>:/WX>)
  endif()
else()
  target_compile_options(orv_options INTERFACE
    "$<$<COMPILE_LANGUAGE:C,CXX>:-Wall;-Wextra;-Wpedantic;-Wshadow;-Wconversion;-Werror;-fno-strict-aliasing>")
endif()
target_include_directories(orv_options INTERFACE ${CMAKE_SOURCE_DIR})
