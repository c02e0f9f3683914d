# Compiler settings for the targets of this project. They apply only to its own folders: a project that includes this
# tree keeps its own build type, language mode and output folders.

# At least C++20; a later standard of the host is kept. 98 is greater than 20 but older.
if(NOT CMAKE_CXX_STANDARD OR CMAKE_CXX_STANDARD LESS 20 OR CMAKE_CXX_STANDARD EQUAL 98)
    set(CMAKE_CXX_STANDARD 20)
endif()
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

if(PROJECT_IS_TOP_LEVEL)
    if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
        set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
    endif()
    set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
    set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
    set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
    add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor)
    # Editors look for this file at the top. Links that of the first build folder; remove the link to change it.
    if(NOT EXISTS ${PROJECT_SOURCE_DIR}/compile_commands.json)
        file(CREATE_LINK ${PROJECT_BINARY_DIR}/compile_commands.json ${PROJECT_SOURCE_DIR}/compile_commands.json
            RESULT ignored SYMBOLIC)
    endif()
endif()
if(VRK_WARNINGS_AS_ERRORS)
    add_compile_options(-Werror)
endif()

if(VRK_FORCE_SCALAR)
    add_compile_definitions(VRK_FORCE_SCALAR)
endif()

if(VRK_LINKER)
    add_link_options(-fuse-ld=${VRK_LINKER})
endif()

if(VRK_SANITIZE STREQUAL "address")
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    # The sanitizers do not detect access to an empty optional or to a vector element between size and capacity.
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
    add_link_options(-fsanitize=address,undefined)
elseif(VRK_SANITIZE STREQUAL "thread")
    add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
    add_link_options(-fsanitize=thread)
elseif(NOT VRK_SANITIZE STREQUAL "")
    message(FATAL_ERROR "VRK_SANITIZE is empty, address or thread, not '${VRK_SANITIZE}'")
endif()

if(VRK_FUZZ AND NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    message(FATAL_ERROR "VRK_FUZZ needs Clang")
endif()
