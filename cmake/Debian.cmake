# `cpack` in a build folder creates three Debian packages: the shared library, the development files and the tools.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "VanticRestKit <maintainers@vantic.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_COMPONENT_RUNTIME_GROUP runtime)
set(CPACK_COMPONENT_DEVELOPMENT_GROUP development)
set(CPACK_COMPONENT_DOCUMENTATION_GROUP development)
set(CPACK_COMPONENT_TOOLS_GROUP tools)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

# Named after the soname, libVanticRestKit.so.1, so that two major versions can be installed at the same time.
set(runtime libvanticrestkit${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${runtime})
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "${PROJECT_DESCRIPTION}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libvanticrestkit-dev)
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "${PROJECT_DESCRIPTION} - headers, archives, testing kit and documentation")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
# The dependencies of the static library.
set(sqlite)
if(VRK_HAS_DISK_CACHE)
    set(sqlite libsqlite3-dev)
endif()
string(JOIN ", " CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${runtime} (= ${PROJECT_VERSION})"
    "libcurl4-openssl-dev | libcurl-dev" libssl-dev zlib1g-dev libbrotli-dev libutf8proc-dev libpsl-dev ${sqlite})
# For the sample service of the testing kit.
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS libcpp-httplib-dev)

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME vanticrestkit-tools)
set(CPACK_DEBIAN_TOOLS_DESCRIPTION "${PROJECT_DESCRIPTION} - command line and sample service")
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)

include(CPack)
