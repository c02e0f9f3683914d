# The library of the public suffix list, whose Debian package has no config package: vrk::psl.
# Installed with VanticRestKitConfig.cmake, because hosts of the static library link it.

find_path(VrkPsl_INCLUDE_DIR libpsl.h)
find_library(VrkPsl_LIBRARY psl)
mark_as_advanced(VrkPsl_INCLUDE_DIR VrkPsl_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(VrkPsl REQUIRED_VARS VrkPsl_LIBRARY VrkPsl_INCLUDE_DIR)

if(VrkPsl_FOUND AND NOT TARGET vrk::psl)
    add_library(vrk::psl UNKNOWN IMPORTED)
    set_target_properties(vrk::psl PROPERTIES
        IMPORTED_LOCATION ${VrkPsl_LIBRARY}
        INTERFACE_INCLUDE_DIRECTORIES ${VrkPsl_INCLUDE_DIR})
endif()
