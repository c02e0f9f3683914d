# The utf8proc library, whose Debian package has no config package: vrk::utf8proc.
# Installed with VanticRestKitConfig.cmake, because hosts of the static library link it.

find_path(VrkUtf8proc_INCLUDE_DIR utf8proc.h)
find_library(VrkUtf8proc_LIBRARY utf8proc)
mark_as_advanced(VrkUtf8proc_INCLUDE_DIR VrkUtf8proc_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(VrkUtf8proc REQUIRED_VARS VrkUtf8proc_LIBRARY VrkUtf8proc_INCLUDE_DIR)

if(VrkUtf8proc_FOUND AND NOT TARGET vrk::utf8proc)
    add_library(vrk::utf8proc UNKNOWN IMPORTED)
    set_target_properties(vrk::utf8proc PROPERTIES
        IMPORTED_LOCATION ${VrkUtf8proc_LIBRARY}
        INTERFACE_INCLUDE_DIRECTORIES ${VrkUtf8proc_INCLUDE_DIR})
endif()
