# One function per kind of target, so that warnings, definitions and output folders are said once.

add_library(korvel_build_rules INTERFACE)
target_compile_features(korvel_build_rules INTERFACE cxx_std_20)
target_include_directories(korvel_build_rules INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(
  korvel_build_rules
  INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual -Wcast-align -Wformat=2 -Wundef
    -Wextra-semi -Werror=return-type
    $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond -Wduplicated-branches -Wlogical-op
    -Wuseless-cast -Wsuggest-override>
    $<$<CXX_COMPILER_ID:Clang>:-Wthread-safety -Wdocumentation
    -Wno-gnu-zero-variadic-macro-arguments>)
target_compile_definitions(
  korvel_build_rules
  INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING
    QT_NO_FOREACH QT_NO_KEYWORDS QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_USE_QSTRINGBUILDER
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)

# A fault must not become a way in: addresses are resolved at the start and read-only from then on; in
# what is optimised, frames are guarded and calls of the C library checked. A sanitizer does that itself.
target_link_options(korvel_build_rules INTERFACE -Wl,-z,relro,-z,now,-z,noexecstack)
if(NOT KORVEL_SANITIZERS)
  foreach(flag -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
    target_compile_options(korvel_build_rules INTERFACE $<$<NOT:$<CONFIG:Debug>>:${flag}>)
  endforeach()
endif()

if(KORVEL_SANITIZERS)
  set(sanitizer_flags -fsanitize=${KORVEL_SANITIZERS} -fno-omit-frame-pointer
                      -fno-sanitize-recover=all)
  if(KORVEL_SANITIZERS MATCHES thread)
    # The service's sockets have fences beside their locks; only the locks are seen.
    list(APPEND sanitizer_flags $<$<CXX_COMPILER_ID:GNU>:-Wno-tsan>)
  endif()
  target_compile_options(korvel_build_rules INTERFACE ${sanitizer_flags})
  target_link_options(korvel_build_rules INTERFACE ${sanitizer_flags})
endif()

# Without this a fuzzer sees only its own file and mutates blindly. What is compared need not be told,
# which takes a third of the time: the mutators keep inputs in form, and dictionaries have the words.
if(KORVEL_BUILD_FUZZERS)
  target_compile_options(korvel_build_rules INTERFACE -fsanitize=fuzzer-no-link
                                                      -fno-sanitize-coverage=trace-cmp)
endif()

# A static library that ends up in one of the products: position independent, hidden symbols.
function(korvel_library name)
  add_library(${name} STATIC ${ARGN})
  target_link_libraries(${name} PRIVATE korvel_build_rules)
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
  set_target_properties(
    ${name} PROPERTIES AUTOMOC ON POSITION_INDEPENDENT_CODE ON CXX_VISIBILITY_PRESET hidden
                       VISIBILITY_INLINES_HIDDEN ON CXX_EXTENSIONS OFF)
endfunction()

# A program that users start; it lands in <build>/bin.
function(korvel_program name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE korvel_build_rules)
  set_target_properties(
    ${name} PROPERTIES AUTOMOC ON POSITION_INDEPENDENT_CODE ON CXX_VISIBILITY_PRESET hidden
                       VISIBILITY_INLINES_HIDDEN ON CXX_EXTENSIONS OFF)
endfunction()

# Seconds that a case may take: a stuck one must end, and one that fills the machine passes beside others.
# The sanitizers take several times as long.
if(KORVEL_SANITIZERS)
  set(korvel_case_timeout 240)
else()
  set(korvel_case_timeout 60)
endif()
# Of what is labelled long.
set(korvel_long_case_timeout 900)

# A GoogleTest program; it lands in <build>/tests, every case is a ctest of its own.
#   korvel_test(NAME client_tests SOURCES ... LIBRARIES ... [DEFINITIONS ...] [LABEL client [threads]])
function(korvel_test)
  cmake_parse_arguments(arg "" "NAME" "SOURCES;LIBRARIES;DEFINITIONS;LABEL" ${ARGN})
  add_executable(${arg_NAME} ${arg_SOURCES})
  target_link_libraries(${arg_NAME} PRIVATE korvel_build_rules ${arg_LIBRARIES} GTest::gmock_main)
  target_compile_definitions(${arg_NAME} PRIVATE ${arg_DEFINITIONS})
  set_target_properties(
    ${arg_NAME} PROPERTIES AUTOMOC ON CXX_EXTENSIONS OFF RUNTIME_OUTPUT_DIRECTORY
                                                         ${PROJECT_BINARY_DIR}/tests)
  target_precompile_headers(${arg_NAME} REUSE_FROM test_headers)
  if(NOT arg_LABEL)
    set(arg_LABEL unit)
  endif()
  set(timeout ${korvel_case_timeout})
  if(long IN_LIST arg_LABEL)
    set(timeout ${korvel_long_case_timeout})
  endif()
  gtest_discover_tests(
    ${arg_NAME}
    TEST_PREFIX ${arg_NAME}.
    DISCOVERY_TIMEOUT 60
    DISCOVERY_MODE PRE_TEST
    NO_PRETTY_VALUES
    PROPERTIES TIMEOUT ${timeout})
  # Only here, when the cases are known, are several labels kept apart.
  set(labels_file ${CMAKE_CURRENT_BINARY_DIR}/${arg_NAME}_labels.cmake)
  file(GENERATE OUTPUT ${labels_file} CONTENT "foreach(case IN LISTS ${arg_NAME}_TESTS)
  set_tests_properties(\"\${case}\" PROPERTIES LABELS \"${arg_LABEL}\")
endforeach()
")
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${labels_file})
endfunction()

# korvel_selected_cases(name program filter LABEL label TIMEOUT seconds [PROCESSORS count] [LONG])
# Some cases of a test program as one test; a LONG one runs only on demand. A filter that selects nothing is a failure.
function(korvel_selected_cases name program filter)
  cmake_parse_arguments(PARSE_ARGV 3 arg LONG "LABEL;TIMEOUT;PROCESSORS" "")
  set(configurations "")
  if(arg_LONG)
    set(configurations CONFIGURATIONS long)
    list(APPEND arg_LABEL long)
  endif()
  if(NOT arg_PROCESSORS)
    set(arg_PROCESSORS 1)
  endif()
  add_test(NAME ${name} COMMAND ${program} --gtest_filter=${filter} ${configurations})
  set_tests_properties(
    ${name} PROPERTIES LABELS "${arg_LABEL}" TIMEOUT ${arg_TIMEOUT} PROCESSORS ${arg_PROCESSORS}
                       FAIL_REGULAR_EXPRESSION "Running 0 tests")
endfunction()
