# Build helpers: common settings, the library targets, tests, benchmarks, fuzz targets.

add_library(kvdraw_settings INTERFACE)
target_compile_features(kvdraw_settings INTERFACE cxx_std_20)
# Results are exact integers computed through doubles in places: no fused products.
target_compile_options(kvdraw_settings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -ffp-contract=off
  -fvisibility=hidden -fvisibility-inlines-hidden)
target_compile_definitions(kvdraw_settings INTERFACE $<$<BOOL:${KVDRAW_PORTABLE}>:KVDRAW_PORTABLE>)
# Vector types wider than the baseline are passed only between inlined functions.
target_compile_options(kvdraw_settings INTERFACE -Wno-psabi)

if(KVDRAW_SANITIZE)
  add_compile_options(-fsanitize=${KVDRAW_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${KVDRAW_SANITIZE})
endif()

if(KVDRAW_BUILD_FUZZERS)
  add_compile_options(-fsanitize=fuzzer-no-link)  # coverage for the fuzzer, in the library too
endif()

# The library, shared unless BUILD_SHARED_LIBS is given as off, and its static twin with every symbol
# visible to the tests.
macro(kvdraw_add_library_targets)
  if(DEFINED BUILD_SHARED_LIBS AND NOT BUILD_SHARED_LIBS)
    set(KVDRAW_STATIC ON)
    add_library(kvdraw STATIC $<TARGET_OBJECTS:kvdraw_objects>)
  else()
    set(KVDRAW_STATIC OFF)
    add_library(kvdraw SHARED $<TARGET_OBJECTS:kvdraw_objects>)
  endif()
  add_library(KVDraw::kvdraw ALIAS kvdraw)
  set_target_properties(kvdraw PROPERTIES
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
  target_compile_features(kvdraw PUBLIC cxx_std_20)
  if(NOT KVDRAW_STATIC)
    set(exports ${CMAKE_CURRENT_SOURCE_DIR}/cmake/exports.map)
    target_link_options(kvdraw PRIVATE -Wl,--version-script=${exports})
    set_target_properties(kvdraw PROPERTIES LINK_DEPENDS ${exports})
    if(NOT KVDRAW_SANITIZE)
      target_link_options(kvdraw PRIVATE -Wl,--no-undefined)
    endif()
  endif()
  target_link_libraries(kvdraw PRIVATE
    PkgConfig::FREETYPE PkgConfig::FONTCONFIG PkgConfig::HARFBUZZ Threads::Threads ${CMAKE_DL_LIBS})
  target_include_directories(kvdraw PUBLIC
    $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/include>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/kvdraw>)

  add_library(kvdraw_internal STATIC EXCLUDE_FROM_ALL $<TARGET_OBJECTS:kvdraw_objects>)
  target_include_directories(kvdraw_internal PUBLIC
    ${CMAKE_CURRENT_SOURCE_DIR}/include ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(kvdraw_internal PUBLIC
    PkgConfig::FREETYPE PkgConfig::FONTCONFIG PkgConfig::HARFBUZZ Threads::Threads ${CMAKE_DL_LIBS})
endmacro()

# kvdraw_test(NAME SOURCES...): one GoogleTest program, a CTest entry for each of its cases.
function(kvdraw_test name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE
    kvdraw_test_level kvdraw_internal kvdraw_settings GTest::gtest_main)
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
endfunction()

# kvdraw_bench(NAME SOURCES...): one Google Benchmark program.
function(kvdraw_bench name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE kvdraw_internal kvdraw_settings benchmark::benchmark_main)
endfunction()

# kvdraw_fuzzer(NAME SOURCE SEEDS): a fuzz target NAME for libFuzzer, when fuzzers are built, and a test
# NAME that runs the target over the files of the folder SEEDS, when tests are.
function(kvdraw_fuzzer name source seeds)
  if(KVDRAW_BUILD_FUZZERS)
    add_executable(${name} ${source})
    target_link_libraries(${name} PRIVATE kvdraw_internal kvdraw_settings)
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  endif()
  if(KVDRAW_BUILD_TESTS)
    add_executable(${name}_replay ${source} ${PROJECT_SOURCE_DIR}/tests/fuzz/replay_main.cpp)
    target_link_libraries(${name}_replay PRIVATE kvdraw_test_level kvdraw_internal kvdraw_settings)
    add_test(NAME ${name} COMMAND ${name}_replay ${CMAKE_CURRENT_SOURCE_DIR}/${seeds})
    set_tests_properties(${name} PROPERTIES TIMEOUT 300)
  endif()
endfunction()
