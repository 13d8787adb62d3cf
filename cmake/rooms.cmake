# A room is a folder of sources and one target of the same name: kalvio_room(platform SOURCES ... USES ...).
# Its objects go into one of the two shared libraries; USES names the rooms below it.

add_library(kalvio_flags INTERFACE)
target_compile_options(kalvio_flags INTERFACE -Wall -Wextra -Wshadow -Wconversion -Wnon-virtual-dtor)
# Nobody replaces our functions at run time, so calls within a library need not go through its table.
target_compile_options(kalvio_flags INTERFACE -fno-semantic-interposition)
if(KALVIO_WERROR)
  target_compile_options(kalvio_flags INTERFACE -Werror)
endif()
if(KALVIO_SANITIZE)
  target_compile_options(kalvio_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                -fno-omit-frame-pointer)
  target_link_options(kalvio_flags INTERFACE -fsanitize=address,undefined)
else()
  target_link_options(kalvio_flags INTERFACE -Wl,--no-undefined)
endif()
if(KALVIO_FUZZ)
  target_compile_options(kalvio_flags INTERFACE -fsanitize=fuzzer-no-link)
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
endfunction()
