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

# avlor_test(NAME SOURCES... LIBS targets...): one GoogleTest program whose
# cases CTest lists one by one.
function(avlor_test name)
  cmake_parse_arguments(T "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${T_SOURCES})
  target_link_libraries(${name} PRIVATE ${T_LIBS} GTest::gmock GTest::gtest_main)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests/support)
  avlor_target_settings(${name})
  gtest_discover_tests(${name}
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    PROPERTIES ENVIRONMENT "AVLOR_SOURCE_DIR=${PROJECT_SOURCE_DIR};AVLOR_SHARED_DIR=${PROJECT_SOURCE_DIR}/../shared"
    DISCOVERY_TIMEOUT 60)
endfunction()
