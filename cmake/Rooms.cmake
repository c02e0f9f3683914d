# A room is one folder of src/ with its headers and sources. Each becomes a small static library of its own,
# so that a test links what it needs and no more; the installed library is made of the objects of all rooms.

# Sources include <VanticRestKit/...> from the build tree exactly as a host does from an installed prefix.
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/include)
file(CREATE_LINK ${CMAKE_SOURCE_DIR}/src ${CMAKE_BINARY_DIR}/include/VanticRestKit SYMBOLIC)

# The library must do without exceptions and RTTI, and so must its unit tests; which build proves it is the
# caller's choice.
add_library(vrk_language INTERFACE)
if(VRK_NO_EXCEPTIONS)
    target_compile_options(vrk_language INTERFACE -fno-exceptions -fno-rtti)
endif()
# Programs that derive from the library's classes may throw among themselves, but have RTTI only if the library has.
add_library(vrk_host_language INTERFACE)
if(VRK_NO_EXCEPTIONS)
    target_compile_options(vrk_host_language INTERFACE -fno-rtti)
endif()

# vrk_room(NAME [DEPENDS room...] [LIBRARIES library...])
# NAME is the folder below src/ with '/' written as '_', such as platform_url.
function(vrk_room name)
    cmake_parse_arguments(ROOM "" "" "DEPENDS;LIBRARIES" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp
         ${CMAKE_CURRENT_SOURCE_DIR}/detail/*.cpp)
    set(target room_${name})
    list(TRANSFORM ROOM_DEPENDS PREPEND room_)
    if(sources)
        add_library(${target} STATIC ${sources})
        target_include_directories(${target} PUBLIC ${CMAKE_BINARY_DIR}/include)
        target_compile_definitions(${target} PRIVATE VRK_BUILDING)
        target_link_libraries(${target} PUBLIC ${ROOM_DEPENDS} ${ROOM_LIBRARIES} PRIVATE vrk_language)
        if(VRK_FUZZ)
            target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
        endif()
        set_property(GLOBAL APPEND PROPERTY VRK_ROOMS ${target})
    else()
        add_library(${target} INTERFACE)
        target_include_directories(${target} INTERFACE ${CMAKE_BINARY_DIR}/include)
        target_link_libraries(${target} INTERFACE ${ROOM_DEPENDS} ${ROOM_LIBRARIES})
    endif()
    set_property(GLOBAL APPEND PROPERTY VRK_LIBRARIES ${ROOM_LIBRARIES})
endfunction()

# vrk_test(NAME SOURCES source... ROOMS room... [LIBRARIES library...] [TIMEOUT seconds] [PARTS n] [EXCEPTIONS])
# One GoogleTest binary, run as one ctest entry, or as PARTS entries with a part of the tests each. EXCEPTIONS: the
# test itself needs exceptions.
function(vrk_test name)
    cmake_parse_arguments(TEST "EXCEPTIONS" "TIMEOUT;PARTS" "SOURCES;ROOMS;LIBRARIES" ${ARGN})
    if(NOT TEST_TIMEOUT)
        set(TEST_TIMEOUT 300)
    endif()
    list(TRANSFORM TEST_ROOMS PREPEND room_)
    add_executable(${name} ${TEST_SOURCES})
    target_include_directories(${name} PRIVATE ${CMAKE_BINARY_DIR}/include ${CMAKE_SOURCE_DIR}/tests)
    target_compile_definitions(${name} PRIVATE VRK_TEST_DATA="${CMAKE_SOURCE_DIR}/tests/data"
                                               VRK_BUILDING)
    if(CMAKE_BUILD_TYPE STREQUAL "Release")
        # Test code runs once: compiling it fast counts for more. What it tests keeps its optimisation.
        target_compile_options(${name} PRIVATE -O0)
    endif()
    if(TEST_EXCEPTIONS)
        target_link_libraries(${name} PRIVATE vrk_host_language)
    else()
        target_link_libraries(${name} PRIVATE vrk_language)
    endif()
    target_link_libraries(${name} PRIVATE ${TEST_ROOMS} ${TEST_LIBRARIES} GTest::gtest_main GTest::gmock)
    if(NOT TEST_PARTS)
        add_test(NAME ${name} COMMAND ${name})
        set_tests_properties(${name} PROPERTIES TIMEOUT ${TEST_TIMEOUT})
        return()
    endif()
    math(EXPR last "${TEST_PARTS} - 1")
    foreach(part RANGE ${last})
        add_test(NAME ${name}_part_${part} COMMAND ${name})
        set_tests_properties(${name}_part_${part} PROPERTIES
            TIMEOUT ${TEST_TIMEOUT} ENVIRONMENT "GTEST_TOTAL_SHARDS=${TEST_PARTS};GTEST_SHARD_INDEX=${part}")
    endforeach()
endfunction()
