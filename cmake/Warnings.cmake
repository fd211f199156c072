# Warnings of our own code are errors; system and dependency headers are included as SYSTEM.
add_library(orv_options INTERFACE)
target_compile_definitions(orv_options INTERFACE
  UNICODE _UNICODE WINVER=0x0601 _WIN32_WINNT=0x0601 NOMINMAX WIN32_LEAN_AND_MEAN STRICT)
if(MSVC)
  target_compile_options(orv_options INTERFACE /W4 /WX /utf-8 /EHa /GR)
else()
  target_compile_options(orv_options INTERFACE
    "$<$<COMPILE_LANGUAGE:C,CXX>:-Wall;-Wextra;-Wpedantic;-Wshadow;-Wconversion;-Werror;-fno-strict-aliasing>")
endif()
target_include_directories(orv_options INTERFACE ${CMAKE_SOURCE_DIR})
