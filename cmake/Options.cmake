# keldin_rules: where includes are found and what counts as an error.
add_library(keldin_rules INTERFACE)
target_include_directories(keldin_rules INTERFACE "${PROJECT_SOURCE_DIR}" "${PROJECT_SOURCE_DIR}/engine/src")
target_compile_options(keldin_rules INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
  -Wcast-align -Wformat=2 -Wimplicit-fallthrough -Werror)

# keldin_options: what every target of the project is compiled and linked with; the sanitizers too.
add_library(keldin_options INTERFACE)
target_link_libraries(keldin_options INTERFACE keldin_rules)
target_compile_definitions(keldin_options INTERFACE KELDIN_VERSION="${PROJECT_VERSION}")

# Function-local magic: the linker drops what no program uses.
target_compile_definitions(keldin_options INTERFACE $<$<NOT:$<STREQUAL:${KELDIN_SANITIZER},none>>:KELDIN_SANITIZED>
  $<$<STREQUAL:${KELDIN_SANITIZER},address>:KELDIN_ADDRESS_SANITIZED>)
target_compile_options(keldin_options INTERFACE -ffunction-sections -fdata-sections)
target_link_options(keldin_options INTERFACE -Wl,--gc-sections)

if(KELDIN_SANITIZER STREQUAL "address")
  target_compile_options(keldin_options INTERFACE -fno-omit-frame-pointer
    -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all)
  target_compile_definitions(keldin_options INTERFACE _GLIBCXX_ASSERTIONS _GLIBCXX_SANITIZE_VECTOR=1)
  target_link_options(keldin_options INTERFACE -fsanitize=address,undefined,float-cast-overflow)
elseif(KELDIN_SANITIZER STREQUAL "thread")
  # The sanitizer does not model fences and says so for every one in the standard headers.
  target_compile_options(keldin_options INTERFACE -fno-omit-frame-pointer -fsanitize=thread)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(keldin_options INTERFACE -Wno-tsan)
  endif()
  target_link_options(keldin_options INTERFACE -fsanitize=thread)
elseif(NOT KELDIN_SANITIZER STREQUAL "none")
  message(FATAL_ERROR "KELDIN_SANITIZER is '${KELDIN_SANITIZER}'; it must be none, address or thread")
endif()

# What the fuzzer steers by is counted in every object; only its programs link the fuzzer itself.
if(KELDIN_FUZZ)
  target_compile_options(keldin_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# In sanitizer builds every program links the run-time options too.
if(NOT KELDIN_SANITIZER STREQUAL "none")
  add_library(keldin_sanitizer_defaults OBJECT "${PROJECT_SOURCE_DIR}/tools/sanitizer/SanitizerDefaults.cpp")
  target_link_libraries(keldin_sanitizer_defaults PRIVATE keldin_options)
endif()

# keldin_floor(NAME FOLDER BELOW floor ... LINKS library ...)
# One floor of the house: every source below its folder. Floors are object libraries, because a message class
# registers itself before main and an archive would drop it where nothing else names it.
function(keldin_floor name folder)
  cmake_parse_arguments(PARSE_ARGV 2 floor "" "" "BELOW;LINKS")
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${folder}/*.cpp" "${folder}/*.h")
  add_library(${name} OBJECT ${sources})
  target_link_libraries(${name} PUBLIC keldin_options ${floor_BELOW} ${floor_LINKS})
  set(closure ${name})
  foreach(below IN LISTS floor_BELOW)
    get_target_property(further ${below} KELDIN_FLOORS)
    list(APPEND closure ${further})
  endforeach()
  list(REMOVE_DUPLICATES closure)
  set_target_properties(${name} PROPERTIES KELDIN_FLOORS "${closure}")
endfunction()

# keldin_program(NAME FLOOR source ...): a program that stands on a floor and so on all floors below it.
function(keldin_program name floor)
  add_executable(${name} ${ARGN})
  get_target_property(floors ${floor} KELDIN_FLOORS)
  target_link_libraries(${name} PRIVATE keldin_options ${floors})
  if(TARGET keldin_sanitizer_defaults)
    target_link_libraries(${name} PRIVATE keldin_sanitizer_defaults)
  endif()
endfunction()
