# The files that `cmake --install` installs, by component:
#   runtime        the shared library
#   development    the public headers, both libraries, the testing kit, and the files for find_package and pkg-config
#   tools          the command line and the sample service
#   documentation  README.md and docs/

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/VanticRestKit)

file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${VRK_INCLUDE_ROOT}/VanticRestKit ${VRK_INCLUDE_ROOT}/VanticRestKit/*.h)
list(FILTER headers EXCLUDE REGEX "(^|/)detail/")
if(NOT VRK_TESTING)
    list(FILTER headers EXCLUDE REGEX "^Testing/")
endif()
foreach(header IN LISTS headers)
    get_filename_component(folder ${header} DIRECTORY)
    set(from ${VRK_INCLUDE_ROOT})
    if(VRK_REDUCED_HEADERS AND EXISTS ${VRK_REDUCED_HEADERS}/VanticRestKit/${header})
        set(from ${VRK_REDUCED_HEADERS})
    endif()
    install(FILES ${from}/VanticRestKit/${header}
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/VanticRestKit/${folder} COMPONENT development)
endforeach()

# Two exports, because only hosts of the static library need its dependencies.
foreach(kind shared static)
    install(TARGETS VanticRestKit_${kind} EXPORT VanticRestKit_${kind}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
    install(EXPORT VanticRestKit_${kind} NAMESPACE VanticRestKit:: FILE VanticRestKit-${kind}.cmake
        DESTINATION ${package_folder} COMPONENT development)
endforeach()
set(disk_cache_package "")
if(VRK_HAS_DISK_CACHE)
    set(disk_cache_package " SQLite3")
endif()
# VanticRestKitConfig.cmake defines the targets for these.
foreach(target VanticRestKit_testing VanticRestKit_sample_service)
    if(TARGET ${target})
        install(TARGETS ${target} ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
    endif()
endforeach()
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/VanticRestKitConfig.cmake.in
    ${PROJECT_BINARY_DIR}/package/VanticRestKitConfig.cmake INSTALL_DESTINATION ${package_folder}
    NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/package/VanticRestKitConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/package/VanticRestKitConfig.cmake
              ${PROJECT_BINARY_DIR}/package/VanticRestKitConfigVersion.cmake
              ${CMAKE_CURRENT_LIST_DIR}/find/FindVrkBrotli.cmake
              ${CMAKE_CURRENT_LIST_DIR}/find/FindVrkPsl.cmake
              ${CMAKE_CURRENT_LIST_DIR}/find/FindVrkUtf8proc.cmake
    DESTINATION ${package_folder} COMPONENT development)

# The prefix is relative to the .pc file, so that an installation can be moved.
if(IS_ABSOLUTE ${CMAKE_INSTALL_LIBDIR})
    message(FATAL_ERROR "CMAKE_INSTALL_LIBDIR has to be relative to the prefix, not ${CMAKE_INSTALL_LIBDIR}")
endif()
file(RELATIVE_PATH up_to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" up_to_prefix ${up_to_prefix})
set(pc_disk_cache "")
if(VRK_HAS_DISK_CACHE)
    set(pc_disk_cache " -lsqlite3")
endif()
set(pc_cflags "")
if(VRK_NO_EXCEPTIONS)
    set(pc_cflags " -fno-rtti")
endif()
string(REPLACE ";" " " pc_services "${VRK_SERVICES}")
foreach(file VanticRestKit.pc VanticRestKit-static.pc)
    configure_file(${CMAKE_CURRENT_LIST_DIR}/${file}.in ${PROJECT_BINARY_DIR}/package/${file} @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/package/${file}
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endforeach()

if(VRK_APPS)
    install(TARGETS vantic sample-service RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tools)
endif()
install(FILES ${PROJECT_SOURCE_DIR}/README.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation
    FILES_MATCHING PATTERN "*.md")
