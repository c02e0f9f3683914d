# The services that the library is built with. A service that is not in VRK_SERVICES is not compiled. Its headers are
# replaced by headers that result in a compile error, and VanticRestKit.h does not include them.
#   VRK_LEFT_OUT           the services that are left out
#   VRK_REDUCED_HEADERS    the folder with these headers, which is searched before src; empty if nothing is left out

set(services lumeno trelvo recs kavro)
string(REPLACE ";" ", " names "${services}")
set(VRK_SERVICES "${services}" CACHE STRING "Services that the library is built with, of: ${names}")
foreach(service IN LISTS VRK_SERVICES)
    if(NOT service IN_LIST services)
        message(FATAL_ERROR "VRK_SERVICES lists '${service}', which is no service. The services are ${names}.")
    endif()
endforeach()

set(VRK_LEFT_OUT ${services})
list(REMOVE_ITEM VRK_LEFT_OUT ${VRK_SERVICES})
set(VRK_REDUCED_HEADERS "")
if(NOT VRK_LEFT_OUT)
    return()
endif()
string(REPLACE ";" ", " names "${VRK_LEFT_OUT}")
foreach(user VRK_TESTS VRK_APPS VRK_TESTING VRK_BENCH)
    if(${user})
        message(FATAL_ERROR "${user} needs every service, but VRK_SERVICES leaves out ${names}. Set ${user} to OFF.")
    endif()
endforeach()

set(VRK_REDUCED_HEADERS ${PROJECT_BINARY_DIR}/reduced)
set(root ${PROJECT_SOURCE_DIR}/src)
set(reduced VanticRestKit/VanticRestKit.h)
file(READ ${root}/VanticRestKit/VanticRestKit.h umbrella)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${root}/VanticRestKit/VanticRestKit.h)
foreach(service IN LISTS VRK_LEFT_OUT)
    string(REGEX REPLACE "#include <VanticRestKit/${service}/[^\n]*\n" "" umbrella "${umbrella}")
    file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${root} ${root}/VanticRestKit/${service}/*.h)
    list(FILTER headers EXCLUDE REGEX "/detail/")
    foreach(header IN LISTS headers)
        file(CONFIGURE OUTPUT ${VRK_REDUCED_HEADERS}/${header} @ONLY CONTENT
"#error \"VanticRestKit was built without the service ${service}; add ${service} to VRK_SERVICES to build it in.\"\n")
    endforeach()
    list(APPEND reduced ${headers})
endforeach()
string(REGEX REPLACE "\n\n\n+" "\n\n" umbrella "${umbrella}")
file(CONFIGURE OUTPUT ${VRK_REDUCED_HEADERS}/VanticRestKit/VanticRestKit.h @ONLY CONTENT "${umbrella}")

# Removes the replacements of an earlier configuration.
file(GLOB_RECURSE found RELATIVE ${VRK_REDUCED_HEADERS} ${VRK_REDUCED_HEADERS}/*.h)
list(REMOVE_ITEM found ${reduced})
list(TRANSFORM found PREPEND ${VRK_REDUCED_HEADERS}/)
if(found)
    file(REMOVE ${found})
endif()
