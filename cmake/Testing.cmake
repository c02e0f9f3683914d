# The testing kit for hosts: separate static libraries, which are never linked by default.
#   VanticRestKit::Testing         the kit, with VanticRestKit::VanticRestKit
#   VanticRestKit::Testing_static  the kit, with the static library
#   VanticRestKit::SampleService and VanticRestKit::SampleService_static, which need cpp-httplib and OpenSSL

get_target_property(library VanticRestKit::VanticRestKit ALIASED_TARGET)
set(library_of_testing ${library})
set(library_of_testing_static VanticRestKit_static)
set(name_of_testing Testing)
set(name_of_testing_static Testing_static)

foreach(kit testing testing_static)
    set(target VanticRestKit_${kit})
    add_library(${target} STATIC $<TARGET_OBJECTS:vrk_module_Testing> $<TARGET_OBJECTS:vrk_sample_answers>)
    set_target_properties(${target} PROPERTIES OUTPUT_NAME VanticRestKit${name_of_${kit}} LINKER_LANGUAGE CXX)
    target_link_libraries(${target} PUBLIC ${library_of_${kit}})
    add_library(VanticRestKit::${name_of_${kit}} ALIAS ${target})

    if(TARGET vrk_sample_service)
        string(REPLACE testing sample_service service ${target})
        string(REPLACE Testing SampleService name ${name_of_${kit}})
        add_library(${service} STATIC
            $<TARGET_OBJECTS:vrk_module_Testing_SampleService> $<TARGET_OBJECTS:vrk_sample_service>)
        set_target_properties(${service} PROPERTIES OUTPUT_NAME VanticRestKit${name} LINKER_LANGUAGE CXX)
        target_link_libraries(${service}
            PUBLIC ${target} PRIVATE PkgConfig::httplib OpenSSL::SSL OpenSSL::Crypto Threads::Threads)
        add_library(VanticRestKit::${name} ALIAS ${service})
    endif()
endforeach()

# Only the first kind is installed; the package defines both targets for it.
foreach(target VanticRestKit_testing VanticRestKit_testing_static
               VanticRestKit_sample_service VanticRestKit_sample_service_static)
    if(TARGET ${target} AND (NOT PROJECT_IS_TOP_LEVEL OR target MATCHES "_static$"))
        set_target_properties(${target} PROPERTIES EXCLUDE_FROM_ALL ON)
    endif()
endforeach()
