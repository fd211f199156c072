# JsonCpp, GoogleTest and Google Benchmark are built by `./dev setup` into build/deps with the same compiler.
set(ORV_DEPS_DIR ${CMAKE_SOURCE_DIR}/build/deps CACHE PATH "Where `./dev setup` installed the dependencies")
list(PREPEND CMAKE_PREFIX_PATH ${ORV_DEPS_DIR})
list(PREPEND CMAKE_FIND_ROOT_PATH ${ORV_DEPS_DIR})

find_package(Threads REQUIRED)
find_package(jsoncpp REQUIRED CONFIG)
find_package(GTest REQUIRED CONFIG)
find_package(benchmark REQUIRED CONFIG)
