# One target a floor. A floor's headers are reached through a link of its own ("link/analyze_cmd.h"), and a target sees
# only the links of the floors it is built on: an include that goes up does not compile.
# expose_folder(<target> <folder> [<name>]): <folder> is found as "<name>/...", by its own name unless another is given.
function(expose_folder target folder)
    set(name ${ARGN})
    if(NOT name)
        get_filename_component(name ${folder} NAME)
    endif()
    set(view ${CMAKE_BINARY_DIR}/floors/${target})
    get_filename_component(room ${view}/${name} DIRECTORY)
    file(MAKE_DIRECTORY ${room})
    file(CREATE_LINK ${folder} ${view}/${name} SYMBOLIC)
    target_include_directories(${target} PUBLIC ${view})
endfunction()

# add_floor(<name> [ON lower floors and libraries...]): the static library trunvex_<name> of all sources in the folder
# <name> (not in its subfolders qt and sqlite, which are targets of their own).
function(add_floor name)
    cmake_parse_arguments(FLOOR "" "" "ON" ${ARGN})
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp)
    list(FILTER sources EXCLUDE REGEX "/platform/(qt|sqlite)/")
    set(target trunvex_${name})
    if(sources)
        add_library(${target} STATIC ${sources})
        target_link_libraries(${target} PUBLIC ${FLOOR_ON})
        expose_folder(${target} ${CMAKE_CURRENT_SOURCE_DIR}/${name})
        target_precompile_headers(${target} REUSE_FROM trunvex_core_headers)
    endif()
endfunction()

# add_screens(<room> [ON ...]): the same for a room of screens/, found as "screens/<room>/...". It is built with Qt.
function(add_screens room)
    cmake_parse_arguments(ROOM "" "" "ON" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/screens/${room}/*.cpp
        ${CMAKE_CURRENT_SOURCE_DIR}/screens/${room}/*.qrc)
    set(target trunvex_screens_${room})
    add_library(${target} STATIC ${sources})
    target_link_libraries(${target} PUBLIC ${ROOM_ON})
    expose_folder(${target} ${CMAKE_CURRENT_SOURCE_DIR}/screens/${room} screens/${room})
    target_precompile_headers(${target} REUSE_FROM trunvex_qt_headers)
endfunction()
