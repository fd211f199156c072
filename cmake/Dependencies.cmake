# JsonCpp and GoogleTest. On Linux `./dev setup` builds them into build/deps with the product's own compiler; on
# Windows vcpkg does, by the manifest vcpkg.json.
if(MSVC)
  find_package(Threads REQUIRED)
  find_package(jsoncpp CONFIG REQUIRED)
  if(ORV_UNIT_TESTS)
    find_package(GTest CONFIG REQUIRED)
  endif()
  return()
endif()

set(ORV_DEPS_DIR ${CMAKE_SOURCE_DIR}/build/deps CACHE PATH "Where `./dev setup` installed the dependencies")
list(PREPEND CMAKE_PREFIX_PATH ${ORV_DEPS_DIR})
list(PREPEND CMAKE_FIND_ROOT_PATH ${ORV_DEPS_DIR})

find_package(Threads REQUIRED)
find_package(jsoncpp REQUIRED CONFIG)
find_package(GTest REQUIRED CONFIG)
