# The decoder of the Brotli library, which comes without a find module or a config package: vrk::brotlidec.
# Installed with VanticRestKitConfig.cmake, because hosts of the static library link it.

find_path(VrkBrotli_INCLUDE_DIR brotli/decode.h)
find_library(VrkBrotli_LIBRARY brotlidec)
mark_as_advanced(VrkBrotli_INCLUDE_DIR VrkBrotli_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(VrkBrotli REQUIRED_VARS VrkBrotli_LIBRARY VrkBrotli_INCLUDE_DIR)

if(VrkBrotli_FOUND AND NOT TARGET vrk::brotlidec)
    add_library(vrk::brotlidec UNKNOWN IMPORTED)
    set_target_properties(vrk::brotlidec PROPERTIES
        IMPORTED_LOCATION ${VrkBrotli_LIBRARY}
        INTERFACE_INCLUDE_DIRECTORIES ${VrkBrotli_INCLUDE_DIR})
endif()
