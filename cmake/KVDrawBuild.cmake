# Build helpers: common settings, the library targets, tests, benchmarks, fuzz targets.

add_library(kvdraw_settings INTERFACE)
target_compile_features(kvdraw_settings INTERFACE cxx_std_20)
# Results are exact integers computed through doubles in places: no fused products.
target_compile_options(kvdraw_settings INTERFACE
  -Wall -Wextra -Wconversion -Wshadow -Werror -ffp-contract=off
  -fvisibility=hidden -fvisibility-inlines-hidden)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # Vector types wider than the baseline are passed only between inlined functions.
  target_compile_options(kvdraw_settings INTERFACE -Wno-psabi)
endif()

if(KVDRAW_SANITIZE)
  add_compile_options(-fsanitize=${KVDRAW_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${KVDRAW_SANITIZE})
endif()

# The shared library, its static twin with every symbol visible to the tests, and the package files.
macro(kvdraw_add_library_targets)
  add_library(kvdraw SHARED)
  add_library(KVDraw::kvdraw ALIAS kvdraw)
  set_target_properties(kvdraw PROPERTIES
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
  target_compile_features(kvdraw PUBLIC cxx_std_20)
  target_link_options(kvdraw PRIVATE $<$<NOT:$<BOOL:${KVDRAW_SANITIZE}>>:-Wl,--no-undefined>)
  target_link_libraries(kvdraw PRIVATE kvdraw_objects
    PkgConfig::FREETYPE PkgConfig::FONTCONFIG PkgConfig::HARFBUZZ Threads::Threads)
  target_include_directories(kvdraw PUBLIC
    $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/include>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/kvdraw>)

  add_library(kvdraw_internal STATIC EXCLUDE_FROM_ALL $<TARGET_OBJECTS:kvdraw_objects>)
  target_include_directories(kvdraw_internal PUBLIC
    ${CMAKE_CURRENT_SOURCE_DIR}/include ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(kvdraw_internal PUBLIC
    PkgConfig::FREETYPE PkgConfig::FONTCONFIG PkgConfig::HARFBUZZ Threads::Threads)
endmacro()

# kvdraw_test(NAME SOURCES...): one GoogleTest program, a CTest entry for each of its cases.
function(kvdraw_test name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE kvdraw_internal kvdraw_settings GTest::gtest_main)
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
endfunction()

# kvdraw_bench(NAME SOURCES...): one Google Benchmark program.
function(kvdraw_bench name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE kvdraw_internal kvdraw_settings benchmark::benchmark_main)
endfunction()
