# One static library per folder: every .cpp/.h in the folder, include root src/, namespace = folder.
# vorlan_library(<name> [LINKS <targets>...])
function(vorlan_library name)
  cmake_parse_arguments(ARG "" "" "LINKS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_compile_options(${name} PRIVATE -Wall -Wextra -Werror)
  target_link_libraries(${name} PUBLIC ${ARG_LINKS})
endfunction()

# One test program per test folder, run by CTest offscreen.
# vorlan_test(<name> [LINKS <targets>...])
function(vorlan_test name)
  cmake_parse_arguments(ARG "" "" "LINKS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  add_executable(${name} ${sources})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/tests)
  target_compile_options(${name} PRIVATE -Wall -Wextra -Werror)
  target_compile_definitions(${name} PRIVATE
    VORLAN_PROGRAM_DIR="${VORLAN_PROGRAM_DIR}"
    VORLAN_SOURCE_DIR="${CMAKE_SOURCE_DIR}"
    VORLAN_BUILD_DIR="${CMAKE_BINARY_DIR}")
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} GTest::gtest Qt6::Test)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;VORLAN_PROGRAM_DIR=${VORLAN_PROGRAM_DIR}"
    TIMEOUT 600)
endfunction()
