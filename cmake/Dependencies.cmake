# What the project takes from the system. Found once, here, and visible in every folder.

set(CMAKE_FIND_PACKAGE_TARGETS_GLOBAL ON)

find_package(Threads REQUIRED)
find_package(CURL 7.88 REQUIRED)
# What undoes the content codings of answers, beside brotlidec, which has no find module.
find_package(ZLIB REQUIRED)

if(VRK_APPS OR VRK_TESTS)
    find_package(nlohmann_json REQUIRED)
endif()
if(VRK_APPS)
    find_package(PkgConfig REQUIRED)
    find_package(OpenSSL REQUIRED)
    pkg_check_modules(httplib REQUIRED IMPORTED_TARGET GLOBAL cpp-httplib)
endif()
if(VRK_TESTS)
    find_package(GTest REQUIRED)
    find_package(OpenSSL REQUIRED)
endif()
