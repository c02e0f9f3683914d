# What the project takes from the system. Found once, here, and visible in the folders of this project only.

find_package(Threads REQUIRED)
find_package(CURL 7.88 REQUIRED)
# The TLS library of that libcurl.
find_package(OpenSSL 3 REQUIRED)
# Content codings of responses.
find_package(ZLIB REQUIRED)
list(PREPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR}/find)
find_package(VrkBrotli REQUIRED)
find_package(VrkUtf8proc REQUIRED)

if(VRK_APPS OR VRK_TESTS)
    find_package(nlohmann_json REQUIRED)
endif()
if(VRK_APPS)
    find_package(PkgConfig REQUIRED)
    pkg_check_modules(httplib REQUIRED IMPORTED_TARGET cpp-httplib)
endif()
if(VRK_TESTS)
    find_package(GTest REQUIRED)
endif()
