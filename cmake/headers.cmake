# The headers that nearly every source takes in, read once a build tree instead of once a source. They are of libraries
# alone: a change in a header of this project must not have all of it built again. The preset "core" builds without
# them, so that a source that forgets an include of its own is found.
#
# add_headers(<target> ON <libraries...> LIST <headers...>): others reuse the headers of <target>, and must be compiled
# with the same options and at least the same definitions.
file(WRITE ${CMAKE_BINARY_DIR}/headers/empty.cpp "")

function(add_headers target)
    cmake_parse_arguments(HEADERS "" "" "ON;LIST" ${ARGN})
    add_library(${target} STATIC ${CMAKE_BINARY_DIR}/headers/empty.cpp)
    set_target_properties(${target} PROPERTIES AUTOMOC OFF)
    target_link_libraries(${target} PRIVATE ${HEADERS_ON})
    target_precompile_headers(${target} PRIVATE ${HEADERS_LIST})
endfunction()

set(library_headers <algorithm> <array> <chrono> <cstdint> <deque> <filesystem> <fstream> <functional> <map> <memory>
    <optional> <set> <string> <string_view> <utility> <vector>)
add_headers(trunvex_core_headers ON PkgConfig::SIGCPP LIST ${library_headers} <sigc++/sigc++.h>)
if(TRUNVEX_GUI)
    add_headers(trunvex_qt_headers ON PkgConfig::SIGCPP Qt6::Widgets
        LIST ${library_headers} <sigc++/sigc++.h> <QtWidgets>)
    # "emit" and "slots" are words of libsigc++ too.
    target_compile_definitions(trunvex_qt_headers PRIVATE QT_NO_KEYWORDS)
endif()
if(TRUNVEX_TESTS)
    # What the tests call is optimised; the tests themselves run once, and are sooner built than run.
    set(test_options $<$<CONFIG:Release>:-O0>)
    add_headers(trunvex_test_headers ON PkgConfig::SIGCPP GTest::gmock
        LIST ${library_headers} <sigc++/sigc++.h> <gmock/gmock.h>)
    target_compile_options(trunvex_test_headers PRIVATE ${test_options})
    if(TRUNVEX_GUI)
        add_headers(trunvex_qt_test_headers ON PkgConfig::SIGCPP GTest::gmock Qt6::Widgets
            LIST ${library_headers} <sigc++/sigc++.h> <gmock/gmock.h> <QtWidgets>)
        target_compile_definitions(trunvex_qt_test_headers PRIVATE QT_NO_KEYWORDS)
        target_compile_options(trunvex_qt_test_headers PRIVATE ${test_options})
    endif()
endif()
