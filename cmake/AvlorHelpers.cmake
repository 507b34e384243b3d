# Shared compile settings for every target of the project.
function(avlor_target_settings target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_compile_options(${target} PRIVATE
    $<$<COMPILE_LANGUAGE:CXX>:-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
      -Wnon-virtual-dtor -Wold-style-cast -Wcast-align -Woverloaded-virtual -Wnull-dereference
      -Wimplicit-fallthrough>
    $<$<COMPILE_LANGUAGE:C>:-Wall -Wextra -Wpedantic>)
  # GCC 12 reports "accessing 9223372036854775810 or more bytes" restrict
  # overlaps inside libstdc++'s string concatenation at -O2 and above (GCC bug
  # 105329), a false alarm on correct code: it is switched off for that
  # compiler only.
  target_compile_options(${target} PRIVATE
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)
  # The same compiler, optimising, also sees "potential null pointer
  # dereferences" inside libstdc++'s own inlined strings, paths and stream
  # buffers (vector<path>::insert, istreambuf_iterator): false alarms on
  # correct code that the unoptimised build does not raise. The check stays on
  # in debug builds.
  target_compile_options(${target} PRIVATE
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>,$<NOT:$<CONFIG:Debug>>>:-Wno-null-dereference>)
  if(AVLOR_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(AVLOR_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    target_link_options(${target} PRIVATE -fsanitize=address,undefined)
  endif()
endfunction()

# avlor_module(NAME SOURCES... [DEPS targets...])
# A module of the component: sources under <module>/src, public headers under
# <module>/include/avlor/<module>.
function(avlor_module name)
  cmake_parse_arguments(M "" "" "SOURCES;DEPS;PRIVATE_DEPS" ${ARGN})
  add_library(avlor_${name} STATIC ${M_SOURCES})
  add_library(AvlorLogic::${name} ALIAS avlor_${name})
  target_include_directories(avlor_${name}
    PUBLIC $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/include>
    PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/src)
  target_link_libraries(avlor_${name} PUBLIC ${M_DEPS} PRIVATE ${M_PRIVATE_DEPS})
  avlor_target_settings(avlor_${name})
  set_property(GLOBAL APPEND PROPERTY AVLOR_MODULES avlor_${name})
endfunction()

# avlor_test(NAME SOURCES... LIBS targets... [BACKENDS backends...]): one
# GoogleTest program whose cases CTest lists one by one.
#
# A suite over the practice database (one that links a module reaching it:
# data, tariffe, engine, dialog, access, component) runs on both backends: its
# cases are listed once as they are (SQLite) and, when AVLOR_POSTGRES_TESTS is
# on, once more prefixed "pg." with AVLOR_TEST_BACKEND=postgresql, so that
# tests/support/TestDatabase.h makes its databases on the PostgreSQL server
# named by AVLOR_TEST_PG_URI in the environment of ctest (scripts/test.sh
# starts a throwaway server). BACKENDS overrides the choice: "postgresql"
# alone for a suite of the server backend's own (listed with the "pg."
# prefix, only when AVLOR_POSTGRES_TESTS is on; built in any case), "sqlite"
# alone for a suite that must not run twice.
function(avlor_test name)
  cmake_parse_arguments(T "" "" "SOURCES;LIBS;BACKENDS" ${ARGN})
  set(backends ${T_BACKENDS})
  if(NOT backends)
    set(backends sqlite)
    foreach(lib IN ITEMS avlor_data avlor_tariffe avlor_engine avlor_dialog avlor_access avlor_component)
      if(lib IN_LIST T_LIBS)
        set(backends sqlite postgresql)
      endif()
    endforeach()
  endif()
  if(NOT AVLOR_POSTGRES_TESTS)
    list(REMOVE_ITEM backends postgresql)
  endif()

  add_executable(${name} ${T_SOURCES})
  target_link_libraries(${name} PRIVATE ${T_LIBS} GTest::gmock GTest::gtest_main)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests/support)
  avlor_target_settings(${name})
  set(environment AVLOR_SOURCE_DIR=${PROJECT_SOURCE_DIR})
  foreach(backend IN LISTS backends)
    set(variables ${environment} AVLOR_TEST_BACKEND=${backend})
    set(prefix "")
    set(labels "")
    if(backend STREQUAL "postgresql")
      set(prefix "pg.")
      set(labels LABELS postgresql)
    endif()
    # gtest_discover_tests hands a list-valued property on to the tests item
    # by item (CMake 3.25), which keeps only the first variable. So it sets
    # the one that must never be missing (the backend), and a file that
    # CTest reads after the discovered tests sets the whole environment.
    list(GET variables -1 essential)
    set(tests_variable ${name}_${backend}_TESTS)
    gtest_discover_tests(${name}
      TEST_PREFIX "${prefix}"
      TEST_LIST ${tests_variable}
      WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
      PROPERTIES ENVIRONMENT "${essential}" ${labels}
      DISCOVERY_TIMEOUT 60)
    set(environment_file ${CMAKE_CURRENT_BINARY_DIR}/${name}_${backend}_environment.cmake)
    file(WRITE ${environment_file}
      "if(DEFINED ${tests_variable})\n"
      "  set_tests_properties(\${${tests_variable}} PROPERTIES ENVIRONMENT [==[${variables}]==])\n"
      "endif()\n")
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${environment_file})
  endforeach()
endfunction()

# Writes `content` to `path` only when it differs from what is there, so
# that an unchanged generated source is not compiled again.
function(avlor_write_if_changed path content)
  if(EXISTS ${path})
    file(READ ${path} previous)
  else()
    set(previous "")
  endif()
  if(NOT previous STREQUAL content)
    file(WRITE ${path} "${content}")
  endif()
endfunction()

# Builds text files into the library, so that the program finds them
# wherever it stands: generates SOURCE, a C++ source defining
# `std::span<const TYPE> FUNCTION() noexcept` in NAMESPACE (declared in
# HEADER) over one {name, text} entry per file, the name relative to BASE.
# A changed file is built in at the next build. WHAT names the files in
# messages.
function(avlor_embed_text_files)
  cmake_parse_arguments(EMBED "" "SOURCE;BASE;HEADER;NAMESPACE;TYPE;FUNCTION;WHAT" "FILES" ${ARGN})
  set(files ${EMBED_FILES})
  list(SORT files)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${files})
  set(entries "")
  foreach(file IN LISTS files)
    file(RELATIVE_PATH name ${EMBED_BASE} ${file})
    file(READ ${file} text)
    if(text MATCHES "\\)avlorcsv\"")
      message(FATAL_ERROR "${EMBED_WHAT} ${file} holds the raw-string delimiter")
    endif()
    string(APPEND entries "    {\"${name}\", R\"avlorcsv(${text})avlorcsv\"},\n")
  endforeach()
  file(RELATIVE_PATH from ${PROJECT_SOURCE_DIR} ${EMBED_BASE})
  avlor_write_if_changed(${EMBED_SOURCE} "// Generated from ${from} by the build; do not edit.
#include \"${EMBED_HEADER}\"

namespace ${EMBED_NAMESPACE} {

namespace {
const ${EMBED_TYPE} allFiles[] = {
${entries}};
} // namespace

std::span<const ${EMBED_TYPE}> ${EMBED_FUNCTION}() noexcept { return allFiles; }

} // namespace ${EMBED_NAMESPACE}
")
endfunction()
