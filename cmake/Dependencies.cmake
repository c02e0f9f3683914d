# What the project takes from the system. Found once, here, and visible in the folders of this project only.

find_package(Threads REQUIRED)
find_package(CURL 7.88 REQUIRED)
# Content codings of answers; brotlidec and utf8proc have no find module and are linked by name.
find_package(ZLIB REQUIRED)

if(VRK_APPS OR VRK_TESTS)
    find_package(nlohmann_json REQUIRED)
    find_package(OpenSSL REQUIRED)
endif()
if(VRK_APPS)
    find_package(PkgConfig REQUIRED)
    pkg_check_modules(httplib REQUIRED IMPORTED_TARGET cpp-httplib)
endif()
if(VRK_TESTS)
    find_package(GTest REQUIRED)
endif()
