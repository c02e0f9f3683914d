# What `cmake --install` puts under a prefix: the public headers, both libraries, and what find_package and
# pkg-config need to find them.

include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/VanticRestKit)

file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${VRK_INCLUDE_ROOT}/VanticRestKit ${VRK_INCLUDE_ROOT}/VanticRestKit/*.h)
list(FILTER headers EXCLUDE REGEX "(^|/)detail/")
foreach(header IN LISTS headers)
    get_filename_component(folder ${header} DIRECTORY)
    install(FILES ${VRK_INCLUDE_ROOT}/VanticRestKit/${header}
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/VanticRestKit/${folder} COMPONENT development)
endforeach()

# Two exports, since only the static library makes a host link what it was built on.
foreach(kind shared static)
    install(TARGETS VanticRestKit_${kind} EXPORT VanticRestKit_${kind}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
    install(EXPORT VanticRestKit_${kind} NAMESPACE VanticRestKit:: FILE VanticRestKit-${kind}.cmake
        DESTINATION ${package_folder} COMPONENT development)
endforeach()
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/VanticRestKitConfig.cmake.in
    ${PROJECT_BINARY_DIR}/package/VanticRestKitConfig.cmake INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/package/VanticRestKitConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/package/VanticRestKitConfig.cmake
              ${PROJECT_BINARY_DIR}/package/VanticRestKitConfigVersion.cmake
    DESTINATION ${package_folder} COMPONENT development)

# The prefix is found from where the file lies, so that an installed tree can be moved.
file(RELATIVE_PATH up_to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" up_to_prefix ${up_to_prefix})
configure_file(${CMAKE_CURRENT_LIST_DIR}/VanticRestKit.pc.in ${PROJECT_BINARY_DIR}/package/VanticRestKit.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/package/VanticRestKit.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
