# The dependencies of the project. All are found here, and are visible only in the folders of this project.

find_package(Threads REQUIRED)
find_package(CURL 7.88 REQUIRED)
# The TLS library of that libcurl.
find_package(OpenSSL 3 REQUIRED)
# Content codings of responses.
find_package(ZLIB REQUIRED)
list(PREPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR}/find)
find_package(VrkBrotli REQUIRED)
find_package(VrkUtf8proc REQUIRED)
# The public suffix list, for the domains of cookies.
find_package(VrkPsl REQUIRED)

# The disk cache.
set(VRK_HAS_DISK_CACHE OFF)
if(NOT VRK_DISK_CACHE MATCHES "^(AUTO|ON|OFF)$")
    message(FATAL_ERROR "VRK_DISK_CACHE is AUTO, ON or OFF, not '${VRK_DISK_CACHE}'")
elseif(VRK_DISK_CACHE STREQUAL "ON")
    find_package(SQLite3 3.35 REQUIRED)
elseif(VRK_DISK_CACHE STREQUAL "AUTO")
    find_package(SQLite3 3.35)
endif()
if(NOT VRK_DISK_CACHE STREQUAL "OFF" AND SQLite3_FOUND)
    set(VRK_HAS_DISK_CACHE ON)
endif()

if(VRK_APPS OR VRK_TESTS OR VRK_TESTING)
    find_package(nlohmann_json REQUIRED)
endif()
if(VRK_APPS)
    find_package(PkgConfig REQUIRED)
    pkg_check_modules(httplib REQUIRED IMPORTED_TARGET cpp-httplib)
elseif(VRK_TESTING)
    # Without cpp-httplib, the testing kit is built without its sample service.
    find_package(PkgConfig QUIET)
    if(PkgConfig_FOUND)
        pkg_check_modules(httplib QUIET IMPORTED_TARGET cpp-httplib)
    endif()
endif()
if(VRK_TESTS)
    find_package(GTest REQUIRED)
endif()
