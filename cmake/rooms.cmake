# A room is a folder of sources and one target of the same name: kalvio_room(platform SOURCES ... USES ...).
# Its objects go into one of the two shared libraries; USES names the rooms below it.

add_library(kalvio_warnings INTERFACE)
target_compile_options(kalvio_warnings INTERFACE -Wall -Wextra -Wshadow -Wconversion -Wnon-virtual-dtor)
# Of g++ 12, which takes texts that are put together for copies of themselves when it optimises.
target_compile_options(kalvio_warnings INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
if(KALVIO_WERROR)
  target_compile_options(kalvio_warnings INTERFACE -Werror)
endif()

add_library(kalvio_flags INTERFACE)
target_link_libraries(kalvio_flags INTERFACE kalvio_warnings)
# Nobody replaces our functions at run time, so calls within a library need not go through its table.
target_compile_options(kalvio_flags INTERFACE -fno-semantic-interposition)
# Tests are compiled for a quick build: nobody waits for their own code, and a failure names its line without line
# numbers for the debugger. What they test has all of the above.
add_library(kalvio_test_flags INTERFACE)
target_link_libraries(kalvio_test_flags INTERFACE kalvio_warnings)
target_compile_options(kalvio_test_flags INTERFACE -O0 -g0)
if(KALVIO_SANITIZE)
  target_compile_options(kalvio_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                -fno-omit-frame-pointer)
  target_link_options(kalvio_flags INTERFACE -fsanitize=address,undefined)
  target_compile_options(kalvio_test_flags INTERFACE -fsanitize=address)
  target_link_options(kalvio_test_flags INTERFACE -fsanitize=address,undefined)
else()
  target_link_options(kalvio_flags INTERFACE -Wl,--no-undefined)
endif()
if(KALVIO_FUZZ)
  target_compile_options(kalvio_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

# The headers that nearly every file includes, compiled once: a third of the time of a whole build. Off where it would
# hide that a file forgot one of them, and where a changed header should not mean to compile everything anew.
option(KALVIO_PRECOMPILE "Compile the headers that nearly every file includes once" OFF)
set(kalvio_common_headers <algorithm> <array> <cmath> <cstdint> <filesystem> <functional> <map> <memory> <optional>
                          <span> <string> <string_view> <unordered_map> <utility> <variant> <vector>
                          <nlohmann/json.hpp> <host/document/host_document.h>)
if(KALVIO_PRECOMPILE)
  file(WRITE ${CMAKE_BINARY_DIR}/common_headers.cpp "")
  foreach(visibility default hidden)
    add_library(kalvio_common_headers_${visibility} OBJECT ${CMAKE_BINARY_DIR}/common_headers.cpp)
    target_include_directories(kalvio_common_headers_${visibility} PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR})
    target_link_libraries(kalvio_common_headers_${visibility} PRIVATE kalvio_flags)
    target_precompile_headers(kalvio_common_headers_${visibility} PRIVATE ${kalvio_common_headers})
  endforeach()
  set_target_properties(kalvio_common_headers_hidden PROPERTIES CXX_VISIBILITY_PRESET hidden
                                                                VISIBILITY_INLINES_HIDDEN ON)
endif()

function(kalvio_room name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;USES;LIBRARIES" ${ARGN})
  add_library(kalvio_${name} OBJECT ${ROOM_SOURCES})
  target_include_directories(kalvio_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR})
  target_link_libraries(kalvio_${name} PRIVATE kalvio_flags PUBLIC ${ROOM_LIBRARIES})
  # Between object libraries this hands on how to compile only; the objects are linked once, by the shared
  # library that lists the room.
  list(TRANSFORM ROOM_USES PREPEND kalvio_)
  target_link_libraries(kalvio_${name} PUBLIC ${ROOM_USES})
  if(KALVIO_PRECOMPILE)
    set(visibility default)
    if(CMAKE_CXX_VISIBILITY_PRESET)
      set(visibility ${CMAKE_CXX_VISIBILITY_PRESET})
    endif()
    target_precompile_headers(kalvio_${name} REUSE_FROM kalvio_common_headers_${visibility})
  endif()
endfunction()
